// Colours of a result picture. Two scales, readable by the colour-blind and in print: one that diverges from white at
// zero for signed quantities, one that rises evenly in lightness for the others. Worked out in CIELAB (CIE 15), where
// equal steps look equal; no rainbow, which invents borders where there are none (Moreland 2009).
#pragma once

#include "view/surface.h"

#include <vector>

namespace havuz {

enum class ScaleKind { Diverging, Rising };

// t from 0 to 1, cut to that; the middle of Diverging is white: blue below, red above. Rising goes from light to dark.
Colour ScaleColour(ScaleKind kind, double t);

// Values to colours: `bands` equal bands between low and high, or smooth where bands is 0. What lies outside has the
// colour of the end.
class ColourMap {
public:
    ColourMap(ScaleKind kind, double low, double high, int bands);
    double low() const { return low_; }
    double high() const { return high_; }
    int bands() const { return bands_; }
    ScaleKind kind() const { return kind_; }
    // Steps: the bands, or those that a smooth map is drawn with.
    int steps() const { return static_cast<int>(colours_.size()); }
    int stepOf(double value) const; // 0..steps() - 1; not a number: 0
    Colour colour(int step) const;  // of a step
    double limit(int step) const;   // lower limit of a step; that of steps() is high()
    Colour colourOf(double v) const { return colour(stepOf(v)); }

private:
    ScaleKind kind_;
    double low_, high_;
    int bands_;
    std::vector<Colour> colours_;
};

// A map with round limits (steps of 1, 2, 2.5 or 5 times a power of ten) that holds least..greatest in about twelve
// bands. Signed quantities get limits on both sides of zero alike. Nothing but one value: a step of its own size.
ColourMap RoundMap(double least, double greatest, bool isSigned, bool smooth);

} // namespace havuz
