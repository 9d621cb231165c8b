#include "ui/kit/cad_logo.h"

#include "ui/kit/picture.h"
#include "ui/kit/tones.h"

#include <QPainter>

namespace havuz {

CadLogo::CadLogo(QWidget *parent) : QWidget(parent) { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void CadLogo::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.drawPixmap(
        0, 0,
        PictureOf(QStringLiteral("havuz"), size(), devicePixelRatioF(), LegibleOn(palette().color(QPalette::Window))));
}

} // namespace havuz
