// A result picture as an SVG 1.1 document: text stays text, colours are cut exactly at the limits of the bands.
#pragma once

#include "view/result_canvas.h"

namespace havuz {

class SvgCanvas : public ResultCanvas {
public:
    SvgCanvas(double width, double height) : width_(width), height_(height) {}
    double width() const override { return width_; }
    double height() const override { return height_; }
    void Triangle(const std::array<ValuePoint, 3> &corners, const ColourMap &map) override;
    void Fill(std::span<const ScreenPoint> ring, Colour colour) override;
    void Line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth) override;
    void Text(ScreenPoint at, const std::string &text, TextAlign align, double size, Colour colour) override;

    // The whole document, UTF-8. title: what a reader's program calls the picture.
    std::string document(const std::string &title) const;

private:
    double width_, height_;
    std::string body_;
};

// Text as XML content or attribute: & < > " escaped, control characters left out.
std::string XmlText(const std::string &text);

// The part of a polygon with linear values where low <= value <= high (Sutherland and Hodgman 1974).
std::vector<ValuePoint> CutBand(std::span<const ValuePoint> ring, double low, double high);

} // namespace havuz
