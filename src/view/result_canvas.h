// What a result picture is drawn on: pixels or vectors. Positions are pixels as doubles, the origin at the top left, y
// growing downward.
#pragma once

#include "view/colour_scale.h"
#include "view/projection.h"

#include <array>
#include <span>
#include <string>

namespace havuz {

enum class TextAlign { Left, Centre, Right };

struct ValuePoint {
    ScreenPoint at;
    double value = 0.0;
};

class ResultCanvas {
public:
    virtual ~ResultCanvas() = default;
    virtual double width() const = 0;
    virtual double height() const = 0;

    // A triangle whose value runs linearly between its corners.
    virtual void Triangle(const std::array<ValuePoint, 3> &corners, const ColourMap &map) = 0;
    virtual void Fill(std::span<const ScreenPoint> ring, Colour colour) = 0;
    virtual void Line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth) = 0;
    // at: the baseline's left end, middle or right end. size: height of a line, pixels.
    virtual void Text(ScreenPoint at, const std::string &text, TextAlign align, double size, Colour colour) = 0;
};

} // namespace havuz
