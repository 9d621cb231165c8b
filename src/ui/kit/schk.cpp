#include "ui/kit/schk.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

namespace havuz {

static constexpr int kIndicator = 22; // pixels kept for the box and the gap behind it

Schk::Schk(Look look, QWidget *parent) : Button(parent), look_(look) {
    if (look_ == Look::Box)
        setCursor(Qt::PointingHandCursor);
}

QSize Schk::sizeHint() const {
    const QSize size = Button::sizeHint();
    return look_ == Look::Toggle ? size : QSize(size.width() + kIndicator, std::max(size.height(), kIndicator));
}

QRect Schk::contents() const {
    return look_ == Look::Toggle ? rect() : rect().adjusted(kIndicator, 0, 0, 0);
}

void Schk::paintBack(QPainter &painter) {
    if (look_ == Look::Toggle)
        return Button::paintBack(painter);
    QStyleOptionButton option;
    option.initFrom(this);
    option.rect = QRect(2, (height() - kIndicator) / 2 + 3, 16, 16);
    option.state |= on() ? QStyle::State_On : QStyle::State_Off;
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, this);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.0));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3.0, 3.0);
    }
}

} // namespace havuz
