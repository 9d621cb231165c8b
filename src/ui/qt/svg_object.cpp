#include "ui/qt/svg_object.h"

#include <QSvgRenderer>

namespace havuz {

QSizeF SvgObject::intrinsicSize(QTextDocument * /*document*/, int /*place*/, const QTextFormat &format) {
    const QSvgRenderer picture(format.property(kBytes).toByteArray());
    return QSizeF(picture.defaultSize()) * dotsPerInch_ / 96.0;
}

void SvgObject::drawObject(QPainter *painter, const QRectF &rect, QTextDocument * /*document*/, int /*place*/,
                           const QTextFormat &format) {
    QSvgRenderer picture(format.property(kBytes).toByteArray());
    picture.render(painter, rect);
}

} // namespace havuz
