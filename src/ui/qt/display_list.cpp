#include "ui/qt/display_list.h"

#include "ui/qt/small_font.h"
#include "ui/qt/thin_figures.h"

#include <algorithm>
#include <cmath>

namespace havuz {

static constexpr int kFar = 1 << 20; // pixels: no picture reaches so far, and nothing nearer overflows

static bool IsNear(int v) { return v > -kFar && v < kFar; }

void DisplayList::clear() {
    painted();
    cleared_ = true;
}

void DisplayList::painted() {
    cleared_ = false;
    requests_.clear();
    points_.clear();
    bytes_.clear();
}

int DisplayList::toPicture(int pixel) const {
    return scale_ == 1.0 ? pixel : static_cast<int>(std::lround(pixel * scale_));
}

std::span<const Pixel> DisplayList::points(const Request &polygon) const {
    return {points_.data() + polygon.x1, static_cast<std::size_t>(polygon.x2)};
}

std::string_view DisplayList::text(const Request &text) const {
    return std::string_view(bytes_).substr(static_cast<std::size_t>(text.x2), static_cast<std::size_t>(text.y2));
}

bool DisplayList::thin(const PenState &pen) const {
    return scale_ == 1.0 && pen.mode == DrawMode::Copy && pen.lineWidth == 1 && pen.lineStyle == LineStyle::Solid;
}

Request DisplayList::request(Figure figure, const PenState &pen, Colour colour, int x1, int y1, int x2, int y2) const {
    const bool stroke = figure >= Figure::Line && figure != Figure::FillBox;
    Request r = {};
    r.figure = figure;
    r.fillStyle = static_cast<std::uint8_t>(pen.fillStyle);
    r.lineStyle = static_cast<std::uint8_t>(pen.lineStyle);
    r.mode = static_cast<std::uint8_t>(pen.mode);
    r.byBands = !stroke || (pen.lineWidth <= 1 && scale_ == 1.0);
    r.lineWidth = pen.lineWidth;
    r.colour = colour;
    r.fillColour = pen.fillColour;
    r.x1 = x1;
    r.y1 = y1;
    r.x2 = x2;
    r.y2 = y2;
    return r;
}

void DisplayList::add(Request request, int top, int bottom, int margin) {
    const double rows = toPicture(height_);
    const double first = std::floor((double(top) - margin) * scale_);
    const double last = std::ceil((double(bottom) + margin) * scale_);
    request.top = static_cast<int>(std::clamp(first, 0.0, rows));
    request.bottom = static_cast<int>(std::clamp(last + 1.0, 0.0, rows));
    if (request.top < request.bottom)
        requests_.push_back(request);
}

// How far a stroke reaches beyond its corners, with its caps.
static int Reach(const PenState &pen) { return std::clamp(pen.lineWidth, 1, kFar) + 2; }

void DisplayList::line(const PenState &pen, int x1, int y1, int x2, int y2, Colour colour) {
    const bool own = thin(pen) && holds(x1, y1) && holds(x2, y2);
    add(request(own ? Figure::ThinLine : Figure::Line, pen, colour, x1, y1, x2, y2), std::min(y1, y2), std::max(y1, y2),
        own ? 0 : Reach(pen));
}

void DisplayList::box(const PenState &pen, int x1, int y1, int x2, int y2, Colour colour) {
    add(request(Figure::Box, pen, colour, x1, y1, x2, y2), std::min(y1, y2), std::max(y1, y2), Reach(pen));
}

void DisplayList::fillBox(const PenState &pen, int x1, int y1, int x2, int y2, Colour colour) {
    const bool own =
        scale_ == 1.0 && pen.mode == DrawMode::Copy && IsNear(x1) && IsNear(x2) && IsNear(y1) && IsNear(y2);
    if (own) {
        if (x1 > x2)
            std::swap(x1, x2);
        if (y1 > y2)
            std::swap(y1, y2);
        x1 = std::max(x1, 0);
        x2 = std::min(x2, width_ - 1);
        if (x1 <= x2)
            add(request(Figure::Area, pen, colour, x1, y1, x2, y2), y1, y2, 0);
        return;
    }
    add(request(Figure::FillBox, pen, colour, x1, y1, x2, y2), std::min(y1, y2), std::max(y1, y2), 2);
}

void DisplayList::circle(const PenState &pen, int x, int y, int radius, Colour colour) {
    const bool own = thin(pen) && pen.fillStyle == FillStyle::None && radius == 1 && x > 0 && x < width_ - 1 && y > 0 &&
                     y < height_ - 1;
    const int rows = std::clamp(radius, -kFar, kFar);
    add(request(own ? Figure::ThinCircle : Figure::Circle, pen, colour, x, y, radius, 0), y, y,
        own ? 1 : std::abs(rows) + Reach(pen));
}

void DisplayList::polygon(const PenState &pen, std::span<const Pixel> points) {
    if (points.empty())
        return;
    bool own = thin(pen) && points.size() > 2 && points.size() <= kMostCorners &&
               (pen.fillStyle == FillStyle::None || pen.fillStyle == FillStyle::Solid);
    int top = points[0].y;
    int bottom = top;
    for (const Pixel p : points) {
        own = own && holds(p.x, p.y);
        top = std::min(top, p.y);
        bottom = std::max(bottom, p.y);
    }
    const auto first = static_cast<int>(points_.size());
    points_.insert(points_.end(), points.begin(), points.end());
    add(request(own ? Figure::ThinPolygon : Figure::Polygon, pen, pen.colour, first, 0, static_cast<int>(points.size()),
                0),
        top, bottom, own ? 1 : Reach(pen)); // an outline may put a pixel before its corner
}

void DisplayList::text(const PenState &pen, int x, int y, const std::string &text) {
    if (!IsNear(x) || !IsNear(y))
        return;
    const auto first = static_cast<int>(bytes_.size());
    bytes_ += text;
    add(request(Figure::Text, pen, pen.colour, x, y, first, static_cast<int>(text.size())), y, y + kGlyphRows, 0);
}

} // namespace havuz
