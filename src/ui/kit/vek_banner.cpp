#include "ui/kit/vek_banner.h"

#include "ui/kit/picture.h"
#include "ui/kit/tones.h"

#include <QPainter>

namespace havuz {

VEKbanner::VEKbanner(QWidget *parent) : QWidget(parent) {
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

void VEKbanner::put(const char *key, const QVariant &value) {
    if (!bag_.put(key, value))
        return;
    updateGeometry();
    update();
}

QSize VEKbanner::sizeHint() const {
    const QSize words = fontMetrics().size(0, bag_.get(bag::kCaption).toString());
    const QSize picture = bag_.get(bag::kSize).toSize();
    return {std::max(words.width() + 40, picture.width()), words.height() + 10 + std::max(picture.height(), 0)};
}

void VEKbanner::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    const QString caption = bag_.get(bag::kCaption).toString();
    const QSize words = fontMetrics().size(0, caption);
    const QRect line(0, 4, width(), words.height());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, caption);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(words.width() + 10, line.center().y(), width() - 1, line.center().y());
    const QSize picture = bag_.get(bag::kSize).toSize();
    if (picture.isValid())
        painter.drawPixmap((width() - picture.width()) / 2, line.bottom() + 4,
                           PictureOf(bag_.get(bag::kPicture).toString(), picture, devicePixelRatioF(),
                                     LegibleOn(palette().color(QPalette::Window))));
}

} // namespace havuz
