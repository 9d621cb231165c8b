// A result picture as an SVG 1.1 document: text stays text, colours are cut exactly at the limits of the bands.
#pragma once

#include "view/result_canvas.h"

#include <map>
#include <optional>
#include <vector>

namespace havuz {

using ScreenRing = std::vector<ScreenPoint>;

class SvgCanvas : public ResultCanvas {
public:
    // apart: triangles do not cover one another and lines lie over them, so that those of one colour become one
    // element: a picture of one panel is a tenth as long.
    SvgCanvas(double width, double height, bool apart = false) : width_(width), height_(height), apart_(apart) {}
    double width() const override { return width_; }
    double height() const override { return height_; }
    void Triangle(const std::array<ValuePoint, 3> &corners, const ColourMap &map) override;
    void Fill(std::span<const ScreenPoint> ring, Colour colour) override;
    void Line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth) override;
    void Text(ScreenPoint at, const std::string &text, TextAlign align, double size, Colour colour) override;

    // Rings of one colour as one element; without a colour not filled, or not outlined.
    void Rings(const std::vector<ScreenRing> &rings, std::optional<Colour> fill, std::optional<Colour> outline,
               double lineWidth);
    void DashedLine(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth, const char *dashes);
    // A line with an arrow at both ends and words above its middle; of an upright one beside it, on the side to which
    // they are aligned.
    void Dimension(ScreenPoint from, ScreenPoint to, const std::string &words, TextAlign side = TextAlign::Left);

    // The whole document, UTF-8. title: what a reader's program calls the picture.
    std::string document(const std::string &title) const;

private:
    void line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth, const std::string &more);
    std::string collected() const;
    void putCollected();

    double width_, height_;
    bool apart_;
    std::string body_;
    // Collected until something else is drawn: rings by colour, lines by colour and width in the order of their first.
    std::map<std::uint32_t, std::string> fills_;
    struct LinesOfAKind {
        Colour colour;
        double lineWidth;
        std::string path;
    };
    std::vector<LinesOfAKind> lines_;
};

// Text as XML content or attribute: & < > " escaped, control characters left out.
std::string XmlText(const std::string &text);

// The part of a polygon with linear values where low <= value <= high (Sutherland and Hodgman 1974).
std::vector<ValuePoint> CutBand(std::span<const ValuePoint> ring, double low, double high);

} // namespace havuz
