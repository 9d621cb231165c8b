// Vector pictures as SVG text, in the small part of SVG that every reader and printer draws alike: no styles, no clips,
// no patterns. Lengths in points of the picture, y downward; numbers with two decimals, so that a picture is the same
// text on every machine.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace havuz::report {

struct SvgPoint {
    double x = 0, y = 0;
};

enum class Anchor { Start, Middle, End };

// "&", "<", ">" and the quote as their names.
std::string Escaped(std::string_view text);

class Svg {
public:
    Svg(double width, double height) : width_(width), height_(height) {}

    void line(SvgPoint a, SvgPoint b, const std::string &colour, double thickness = .6, const std::string &dash = "");
    void polygon(const std::vector<SvgPoint> &points, const std::string &fill, const std::string &stroke = "none",
                 double thickness = .4);
    // Many closed rings of one colour as one element.
    void rings(const std::vector<std::vector<SvgPoint>> &rings, const std::string &fill, const std::string &stroke,
               double thickness);
    void text(SvgPoint at, const std::string &words, double size = 8.0, Anchor anchor = Anchor::Start,
              const std::string &colour = "#000000", bool bold = false);
    // A line with a small arrow at both ends and words in its middle; of an upright one on the side of the anchor.
    void dimension(SvgPoint a, SvgPoint b, const std::string &words, Anchor side = Anchor::Start);

    double width() const { return width_; }
    double height() const { return height_; }
    std::string file() const;    // a whole SVG file
    std::string dataUri() const; // "data:image/svg+xml;base64,..."

private:
    double width_, height_;
    std::string body_;
};

std::string Base64(std::string_view bytes);

} // namespace havuz::report
