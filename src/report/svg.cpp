#include "report/svg.h"

#include <charconv>
#include <cmath>

namespace havuz::report {

namespace {

std::string Two(double v) {
    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, v, std::chars_format::fixed, 2).ptr;
    std::string number(text, end);
    while (number.back() == '0')
        number.pop_back();
    if (number.back() == '.')
        number.pop_back();
    return number == "-0" ? "0" : number;
}

std::string Attribute(const char *name, const std::string &value) {
    return std::string(" ") + name + "=\"" + value + "\"";
}

void AppendRing(std::string &path, const std::vector<SvgPoint> &points) {
    for (std::size_t i = 0; i < points.size(); ++i)
        path += (i == 0 ? "M" : "L") + Two(points[i].x) + " " + Two(points[i].y);
    path += "Z";
}

} // namespace

std::string Escaped(std::string_view text) {
    std::string safe;
    for (const char c : text)
        switch (c) {
        case '&':
            safe += "&amp;";
            break;
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        case '"':
            safe += "&quot;";
            break;
        default:
            if (static_cast<unsigned char>(c) >= 0x20 || c == '\n')
                safe += c;
        }
    return safe;
}

void Svg::line(SvgPoint a, SvgPoint b, const std::string &colour, double thickness, const std::string &dash) {
    body_ += "<line" + Attribute("x1", Two(a.x)) + Attribute("y1", Two(a.y)) + Attribute("x2", Two(b.x)) +
             Attribute("y2", Two(b.y)) + Attribute("stroke", colour) + Attribute("stroke-width", Two(thickness)) +
             (dash.empty() ? "" : Attribute("stroke-dasharray", dash)) + "/>\n";
}

void Svg::polygon(const std::vector<SvgPoint> &points, const std::string &fill, const std::string &stroke,
                  double thickness) {
    rings({points}, fill, stroke, thickness);
}

void Svg::rings(const std::vector<std::vector<SvgPoint>> &rings, const std::string &fill, const std::string &stroke,
                double thickness) {
    if (rings.empty())
        return;
    std::string path;
    for (const std::vector<SvgPoint> &ring : rings)
        AppendRing(path, ring);
    body_ += "<path" + Attribute("d", path) + Attribute("fill", fill) + Attribute("stroke", stroke) +
             Attribute("stroke-width", Two(thickness)) + Attribute("stroke-linejoin", "round") + "/>\n";
}

void Svg::text(SvgPoint at, const std::string &words, double size, Anchor anchor, const std::string &colour,
               bool bold) {
    const char *anchors[] = {"start", "middle", "end"};
    body_ += "<text" + Attribute("x", Two(at.x)) + Attribute("y", Two(at.y)) + Attribute("font-family", "DejaVu Sans") +
             Attribute("font-size", Two(size)) + Attribute("text-anchor", anchors[static_cast<int>(anchor)]) +
             Attribute("font-weight", bold ? "bold" : "normal") + Attribute("fill", colour) + ">" + Escaped(words) +
             "</text>\n";
}

void Svg::dimension(SvgPoint a, SvgPoint b, const std::string &words, Anchor side) {
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!(length > 0.0))
        return;
    const SvgPoint along{(b.x - a.x) / length, (b.y - a.y) / length};
    line(a, b, "#333333", .5);
    for (const auto &[end, way] : {std::pair(a, 1.0), std::pair(b, -1.0)}) {
        const SvgPoint back{end.x + way * 5.0 * along.x, end.y + way * 5.0 * along.y};
        polygon(
            {end, {back.x - 1.5 * along.y, back.y + 1.5 * along.x}, {back.x + 1.5 * along.y, back.y - 1.5 * along.x}},
            "#333333");
    }
    const SvgPoint middle{(a.x + b.x) / 2.0, (a.y + b.y) / 2.0};
    if (std::fabs(along.x) > std::fabs(along.y))
        text({middle.x, middle.y - 3.0}, words, 8.0, Anchor::Middle);
    else
        text({middle.x + (side == Anchor::Start ? 4.0 : -4.0), middle.y + 3.0}, words, 8.0, side);
}

std::string Svg::file() const {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", Two(width_)) +
           Attribute("height", Two(height_)) + Attribute("viewBox", "0 0 " + Two(width_) + " " + Two(height_)) + ">\n" +
           body_ + "</svg>\n";
}

std::string Svg::dataUri() const { return "data:image/svg+xml;base64," + Base64(file()); }

std::string Base64(std::string_view bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned group = 0;
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8U | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? digits[group >> (18U - 6U * static_cast<unsigned>(k)) & 63U] : '=';
    }
    return text;
}

} // namespace havuz::report
