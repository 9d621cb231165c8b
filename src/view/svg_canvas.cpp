#include "view/svg_canvas.h"

#include <algorithm>
#include <charconv>

namespace havuz {

namespace {

// Shortest text at a hundredth of a pixel.
std::string Coordinate(double v) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, v, std::chars_format::fixed, 2).ptr;
    std::string s(text, end);
    while (s.back() == '0')
        s.pop_back();
    if (s.back() == '.')
        s.pop_back();
    return s == "-0" ? "0" : s;
}

std::string Hex(Colour c) {
    constexpr char digits[] = "0123456789abcdef";
    std::string s = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        s += digits[c.rgb >> static_cast<unsigned>(shift) & 15U];
    return s;
}

std::string Ring(std::span<const ScreenPoint> ring) {
    std::string s;
    for (const ScreenPoint p : ring)
        s += (s.empty() ? "" : " ") + Coordinate(p.x) + "," + Coordinate(p.y);
    return s;
}

// Where the value of the edge a-b is v.
ValuePoint At(const ValuePoint &a, const ValuePoint &b, double v) {
    const double t = (v - a.value) / (b.value - a.value);
    return {{a.at.x + t * (b.at.x - a.at.x), a.at.y + t * (b.at.y - a.at.y)}, v};
}

// Keeps sign * (value - limit) >= 0.
std::vector<ValuePoint> CutAt(std::span<const ValuePoint> ring, double limit, double sign) {
    std::vector<ValuePoint> kept;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const ValuePoint &a = ring[i], &b = ring[(i + 1) % ring.size()];
        const bool aIn = sign * (a.value - limit) >= 0.0, bIn = sign * (b.value - limit) >= 0.0;
        if (aIn)
            kept.push_back(a);
        if (aIn != bIn)
            kept.push_back(At(a, b, limit));
    }
    return kept;
}

} // namespace

std::vector<ValuePoint> CutBand(std::span<const ValuePoint> ring, double low, double high) {
    return CutAt(CutAt(ring, low, 1.0), high, -1.0);
}

void SvgCanvas::Triangle(const std::array<ValuePoint, 3> &corners, const ColourMap &map) {
    const auto [least, greatest] = std::minmax({corners[0].value, corners[1].value, corners[2].value});
    const int first = map.stepOf(least), last = map.stepOf(greatest);
    for (int step = first; step <= last; ++step) {
        std::vector<ValuePoint> part(corners.begin(), corners.end());
        if (step > first)
            part = CutAt(part, map.limit(step), 1.0);
        if (step < last)
            part = CutAt(part, map.limit(step + 1), -1.0);
        std::vector<ScreenPoint> ring;
        for (const ValuePoint &p : part)
            ring.push_back(p.at);
        if (ring.size() > 2)
            Fill(ring, map.colour(step));
    }
}

// The thin line of its own colour closes the seam that renderers leave between neighbours.
void SvgCanvas::Fill(std::span<const ScreenPoint> ring, Colour colour) {
    const std::string c = Hex(colour);
    body_ += "<polygon points=\"" + Ring(ring) + "\" fill=\"" + c + "\" stroke=\"" + c + "\" stroke-width=\".4\"/>\n";
}

void SvgCanvas::Line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth) {
    body_ += "<line x1=\"" + Coordinate(from.x) + "\" y1=\"" + Coordinate(from.y) + "\" x2=\"" + Coordinate(to.x) +
             "\" y2=\"" + Coordinate(to.y) + "\" stroke=\"" + Hex(colour) + "\" stroke-width=\"" +
             Coordinate(lineWidth) + "\"/>\n";
}

void SvgCanvas::Text(ScreenPoint at, const std::string &text, TextAlign align, double size, Colour colour) {
    constexpr const char *anchors[] = {"start", "middle", "end"};
    body_ += "<text x=\"" + Coordinate(at.x) + "\" y=\"" + Coordinate(at.y) + "\" font-size=\"" + Coordinate(size) +
             "\" text-anchor=\"" + anchors[static_cast<int>(align)] + "\" fill=\"" + Hex(colour) + "\">" +
             XmlText(text) + "</text>\n";
}

std::string SvgCanvas::document(const std::string &title) const {
    const std::string w = Coordinate(width_), h = Coordinate(height_);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + w + "\" height=\"" + h + "\" viewBox=\"0 0 " + w +
           " " + h + "\" font-family=\"DejaVu Sans, Arial, sans-serif\">\n<title>" + XmlText(title) +
           "</title>\n<rect width=\"" + w + "\" height=\"" + h + "\" fill=\"#ffffff\"/>\n" + body_ + "</svg>\n";
}

std::string XmlText(const std::string &text) {
    std::string s;
    for (const char c : text)
        if (c == '&')
            s += "&amp;";
        else if (c == '<')
            s += "&lt;";
        else if (c == '>')
            s += "&gt;";
        else if (c == '"')
            s += "&quot;";
        else if (static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t')
            s += c;
    return s;
}

} // namespace havuz
