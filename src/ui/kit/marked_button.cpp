#include "ui/kit/marked_button.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

namespace havuz {

static constexpr int kPlace = 22, kMark = 16; // pixels: kept for the mark and the gap behind it, the mark itself

QSize MarkedButton::sizeHint() const {
    const QSize size = Button::sizeHint();
    return mark_ ? QSize(size.width() + kPlace, std::max(size.height(), kPlace)) : size;
}

QRect MarkedButton::contents() const { return mark_ ? rect().adjusted(kPlace, 0, 0, 0) : rect(); }

void MarkedButton::paintBack(QPainter &painter) {
    if (!mark_)
        return Button::paintBack(painter);
    QStyleOptionButton option;
    option.initFrom(this);
    option.rect = QRect(2, (height() - kMark) / 2, kMark, kMark);
    option.state |= on() ? QStyle::State_On : QStyle::State_Off;
    style()->drawPrimitive(*mark_, &option, &painter, this);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.0));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3.0, 3.0);
    }
}

} // namespace havuz
