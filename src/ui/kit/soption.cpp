#include "ui/kit/soption.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

namespace havuz {

static constexpr int kIndicator = 22; // pixels kept for the ring and the gap behind it

Soption::Soption(Look look, QWidget *parent) : Button(parent), look_(look) {}

QSize Soption::sizeHint() const {
    const QSize size = Button::sizeHint();
    return look_ == Look::Tab ? size : QSize(size.width() + kIndicator, std::max(size.height(), kIndicator));
}

QRect Soption::contents() const {
    return look_ == Look::Tab ? rect() : rect().adjusted(kIndicator, 0, 0, 0);
}

void Soption::paintBack(QPainter &painter) {
    if (look_ == Look::Tab)
        return Button::paintBack(painter);
    QStyleOptionButton option;
    option.initFrom(this);
    option.rect = QRect(2, (height() - kIndicator) / 2 + 3, 16, 16);
    option.state |= on() ? QStyle::State_On : QStyle::State_Off;
    style()->drawPrimitive(QStyle::PE_IndicatorRadioButton, &option, &painter, this);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.0));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3.0, 3.0);
    }
}

} // namespace havuz
