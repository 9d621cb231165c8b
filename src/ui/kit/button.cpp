#include "ui/kit/button.h"

#include "ui/kit/picture.h"
#include "ui/kit/tones.h"

#include <QPainter>

namespace havuz {

static constexpr int kMargin = 6, kGap = 6, kRound = 5;

Button::Button(QWidget *parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void Button::put(const char *key, const QVariant &value) {
    if (!bag_.put(key, value))
        return;
    updateGeometry();
    update();
}

QSize Button::pictureSize() const {
    if (bag_.get(bag::kPicture).toString().isEmpty())
        return {};
    return bag_.has(bag::kSize) ? bag_.get(bag::kSize).toSize() : QSize(28, 28);
}

QSize Button::sizeHint() const {
    const QString caption = bag_.get(bag::kCaption).toString();
    QSize size = pictureSize().expandedTo(QSize(0, 0));
    if (!caption.isEmpty()) {
        const QSize words = fontMetrics().size(Qt::TextShowMnemonic, caption);
        size = QSize(size.width() + words.width() + (size.width() > 0 ? kGap : 2 * kMargin),
                     std::max(size.height(), words.height()));
    }
    return size + QSize(2 * kMargin, 2 * kMargin);
}

QColor Button::back() const { return bag_.get(bag::kBack).value<QColor>(); }

QRect Button::contents() const { return rect(); }

// A button that is down lies deeper and is ringed by the highlight colour.
void Button::paintBack(QPainter &painter) {
    const bool pressed = isDown() || on();
    QColor fill = back().isValid() ? back() : palette().color(QPalette::Button);
    if (!isEnabled())
        fill = palette().color(QPalette::Window);
    else if (pressed && !back().isValid())
        fill = qGray(fill.rgb()) > 128 ? fill.darker(118) : fill.lighter(160);
    const QColor ring = palette().color(pressed || hasFocus() ? QPalette::Highlight : QPalette::Mid);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isEnabled() ? ring : palette().color(QPalette::Midlight), on() ? 2.0 : 1.0));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0), kRound, kRound);
}

void Button::paintCaption(QPainter &painter, QRect place, const QColor &text) {
    const QColor asked = bag_.get(bag::kText).value<QColor>();
    painter.setPen(asked.isValid() ? asked : text);
    painter.drawText(place, Qt::AlignCenter | Qt::TextShowMnemonic, bag_.get(bag::kCaption).toString());
}

void Button::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    paintBack(painter);
    QColor line = LegibleOn(back().isValid() && isEnabled() ? back() : palette().color(QPalette::Button));
    if (!isEnabled())
        line = palette().color(QPalette::Disabled, QPalette::ButtonText);
    QRect place = contents();
    const QString picture = bag_.get(bag::kPicture).toString();
    const QString caption = bag_.get(bag::kCaption).toString();
    if (!picture.isEmpty()) {
        const QSize size = pictureSize();
        QRect at(QPoint(place.left() + kMargin, place.top() + (place.height() - size.height()) / 2), size);
        if (caption.isEmpty())
            at.moveCenter(place.center());
        if (!isEnabled())
            painter.setOpacity(0.35);
        painter.drawPixmap(at, PictureOf(picture, size, devicePixelRatioF(), line));
        painter.setOpacity(1.0);
        place.setLeft(at.right() + kGap - kMargin);
    }
    if (!caption.isEmpty())
        paintCaption(painter, place, line);
}

} // namespace havuz
