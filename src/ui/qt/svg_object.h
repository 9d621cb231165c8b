// A SVG picture inside a text document: an object character that carries the picture's bytes and is painted as vectors.
#pragma once

#include <QObject>
#include <QTextFormat>
#include <QTextObjectInterface>

namespace havuz {

class SvgObject : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
public:
    static constexpr int kType = QTextFormat::UserObject + 1;    // object type of the character's format
    static constexpr int kBytes = QTextFormat::UserProperty + 1; // its property with the picture
    static constexpr int kWidth = QTextFormat::UserProperty + 2; // and with the width it is shown at, pixels

    explicit SvgObject(int dotsPerInch) : dotsPerInch_(dotsPerInch) {}
    QSizeF intrinsicSize(QTextDocument *document, int place, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &rect, QTextDocument *document, int place,
                    const QTextFormat &format) override;

private:
    int dotsPerInch_; // of the document; pictures are in pixels, 96 to the inch
};

} // namespace havuz
