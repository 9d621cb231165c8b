#include "ui/qt/svg_object.h"

#include <QSvgRenderer>

namespace havuz {

QSizeF SvgObject::intrinsicSize(QTextDocument * /*document*/, int /*place*/, const QTextFormat &format) {
    const QSvgRenderer picture(format.property(kBytes).toByteArray());
    const QSizeF drawn(picture.defaultSize());
    const double shown = format.property(kWidth).toDouble();
    return drawn * (shown > 0.0 && drawn.width() > 0.0 ? shown / drawn.width() : 1.0) * dotsPerInch_ / 96.0;
}

void SvgObject::drawObject(QPainter *painter, const QRectF &rect, QTextDocument * /*document*/, int /*place*/,
                           const QTextFormat &format) {
    QSvgRenderer picture(format.property(kBytes).toByteArray());
    picture.render(painter, rect);
}

} // namespace havuz
