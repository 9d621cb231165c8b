#include "ui/kit/tones.h"

namespace havuz {

QColor ToneOf(Colour colour, const QPalette &palette) {
    if (colour == kWindowColour)
        return palette.color(QPalette::Base);
    if (colour == kButtonColour)
        return palette.color(QPalette::Button);
    return QColor(QRgb(colour.rgb));
}

QColor LegibleOn(const QColor &back) {
    constexpr int kMiddle = 140; // of 255
    return qGray(back.rgb()) > kMiddle ? QColor(0x20, 0x20, 0x20) : QColor(0xE8, 0xE8, 0xE8);
}

} // namespace havuz
