// Colours of the controls: those that the logic asks for, those of the desktop, and what is legible on them. Light and
// dark desktops differ in their palette only.
#pragma once

#include "ui/window/window.h"

#include <QColor>
#include <QPalette>

namespace havuz {

// The colour on the screen; the two colours of the platform's own settings come from the palette.
QColor ToneOf(Colour colour, const QPalette &palette);

// Dark or light, whichever is read better on the colour.
QColor LegibleOn(const QColor &back);

} // namespace havuz
