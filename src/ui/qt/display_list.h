// What was asked of a drawing surface and is not painted yet: figures in the order of their drawing, each with the rows
// of the picture that it may touch, so that bands of rows can be painted one by one. Knows no Qt.
#pragma once

#include "view/surface.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace havuz {

// The first four are painted by our own means, pixel for pixel what the painter makes of them: a pen one pixel wide,
// solid lines, copy mode, every corner on the picture, one pixel of the drawing to one of the picture.
enum class Figure : std::uint8_t { ThinLine, ThinPolygon, ThinCircle, Area, Text, Line, Box, FillBox, Circle, Polygon };

struct Request {
    Figure figure;
    std::uint8_t fillStyle, lineStyle, mode; // as in PenState
    int lineWidth;
    Colour colour, fillColour;
    int x1, y1, x2, y2; // a circle: middle, radius; a polygon: first point, points; a text: place, first byte, bytes
    int top, bottom;    // rows top..bottom-1 of the picture
    bool byBands; // else its pixels in a band are others than in the whole: a painter cuts wide strokes to its clip
};

class DisplayList {
public:
    // Size of the drawing in pixels, and pixels of the picture to one of these.
    DisplayList(int width, int height, double scale) : width_(width), height_(height), scale_(scale) {}

    void clear();   // everything before is painted over
    void painted(); // everything is
    void line(const PenState &pen, int x1, int y1, int x2, int y2, Colour colour);
    void box(const PenState &pen, int x1, int y1, int x2, int y2, Colour colour);
    void fillBox(const PenState &pen, int x1, int y1, int x2, int y2, Colour colour);
    void circle(const PenState &pen, int x, int y, int radius, Colour colour);
    void polygon(const PenState &pen, std::span<const Pixel> points);
    void text(const PenState &pen, int x, int y, const std::string &text);

    bool cleared() const { return cleared_; }
    const std::vector<Request> &requests() const { return requests_; }
    std::span<const Pixel> points(const Request &polygon) const;
    std::string_view text(const Request &text) const;

    int toPicture(int pixel) const; // where a pixel of the drawing begins
    double scale() const { return scale_; }

private:
    bool thin(const PenState &pen) const;
    bool holds(int x, int y) const { return x >= 0 && x < width_ && y >= 0 && y < height_; }
    Request request(Figure figure, const PenState &pen, Colour colour, int x1, int y1, int x2, int y2) const;
    void add(Request request, int top, int bottom, int margin); // rows of the drawing

    int width_, height_;
    double scale_;
    bool cleared_ = false;
    std::vector<Request> requests_;
    std::vector<Pixel> points_;
    std::string bytes_;
};

} // namespace havuz
