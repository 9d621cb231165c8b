#include "view/svg_canvas.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

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

std::string Path(std::span<const ScreenPoint> points, const char *end) {
    std::string s;
    for (const ScreenPoint p : points)
        s += (s.empty() ? "M" : "L") + Coordinate(p.x) + " " + Coordinate(p.y);
    return s + end;
}

std::string Filled(const std::string &path, const std::string &fill, const std::string &outline, double lineWidth) {
    return "<path d=\"" + path + "\" fill=\"" + fill + "\" stroke=\"" + outline + "\" stroke-width=\"" +
           Coordinate(lineWidth) + "\" stroke-linejoin=\"round\"/>\n";
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
        ScreenRing ring;
        for (const ValuePoint &p : part)
            ring.push_back(p.at);
        if (ring.size() < 3)
            continue;
        if (apart_)
            fills_[map.colour(step).rgb] += Path(ring, "Z");
        else
            Fill(ring, map.colour(step));
    }
}

// The thin line of its own colour closes the seam that renderers leave between neighbours.
void SvgCanvas::Fill(std::span<const ScreenPoint> ring, Colour colour) {
    putCollected();
    const std::string c = Hex(colour);
    body_ += "<polygon points=\"" + Ring(ring) + "\" fill=\"" + c + "\" stroke=\"" + c + "\" stroke-width=\".4\"/>\n";
}

void SvgCanvas::Line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth) {
    if (!apart_)
        return line(from, to, colour, lineWidth, "");
    auto kind = std::find_if(lines_.begin(), lines_.end(),
                             [&](const LinesOfAKind &k) { return k.colour == colour && k.lineWidth == lineWidth; });
    if (kind == lines_.end())
        kind = lines_.insert(kind, {colour, lineWidth, ""});
    kind->path += Path(std::array{from, to}, "");
}

void SvgCanvas::line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth, const std::string &more) {
    putCollected();
    body_ += "<line x1=\"" + Coordinate(from.x) + "\" y1=\"" + Coordinate(from.y) + "\" x2=\"" + Coordinate(to.x) +
             "\" y2=\"" + Coordinate(to.y) + "\" stroke=\"" + Hex(colour) + "\" stroke-width=\"" +
             Coordinate(lineWidth) + "\"" + more + "/>\n";
}

void SvgCanvas::DashedLine(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth, const char *dashes) {
    line(from, to, colour, lineWidth, " stroke-dasharray=\"" + std::string(dashes) + "\"");
}

void SvgCanvas::Rings(const std::vector<ScreenRing> &rings, std::optional<Colour> fill, std::optional<Colour> outline,
                      double lineWidth) {
    putCollected();
    std::string path;
    for (const ScreenRing &ring : rings)
        path += Path(ring, "Z");
    if (!path.empty())
        body_ += Filled(path, fill ? Hex(*fill) : "none", outline ? Hex(*outline) : "none", lineWidth);
}

void SvgCanvas::Dimension(ScreenPoint from, ScreenPoint to, const std::string &words, TextAlign side) {
    constexpr Colour kGrey = {0x333333};
    constexpr double kArrow = 6.5, kText = 11.0;
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0.0))
        return;
    const ScreenPoint along{(to.x - from.x) / length, (to.y - from.y) / length};
    line(from, to, kGrey, .7, "");
    for (const auto &[end, way] : {std::pair(from, kArrow), std::pair(to, -kArrow)}) {
        const ScreenPoint back{end.x + way * along.x, end.y + way * along.y};
        Rings(
            {{end, {back.x - 2.0 * along.y, back.y + 2.0 * along.x}, {back.x + 2.0 * along.y, back.y - 2.0 * along.x}}},
            kGrey, std::nullopt, 0.0);
    }
    const ScreenPoint middle{(from.x + to.x) / 2.0, (from.y + to.y) / 2.0};
    if (std::fabs(along.x) > std::fabs(along.y))
        Text({middle.x, middle.y - 4.0}, words, TextAlign::Centre, kText, {0});
    else
        Text({middle.x + (side == TextAlign::Left ? 5.0 : -5.0), middle.y + 4.0}, words, side, kText, {0});
}

std::string SvgCanvas::collected() const {
    std::string s;
    for (const auto &[rgb, path] : fills_)
        s += Filled(path, Hex({rgb}), Hex({rgb}), .4);
    for (const LinesOfAKind &k : lines_)
        s += Filled(k.path, "none", Hex(k.colour), k.lineWidth);
    return s;
}

void SvgCanvas::putCollected() {
    body_ += collected();
    fills_.clear();
    lines_.clear();
}

void SvgCanvas::Text(ScreenPoint at, const std::string &text, TextAlign align, double size, Colour colour) {
    constexpr const char *anchors[] = {"start", "middle", "end"};
    putCollected();
    body_ += "<text x=\"" + Coordinate(at.x) + "\" y=\"" + Coordinate(at.y) + "\" font-size=\"" + Coordinate(size) +
             "\" text-anchor=\"" + anchors[static_cast<int>(align)] + "\" fill=\"" + Hex(colour) + "\">" +
             XmlText(text) + "</text>\n";
}

std::string SvgCanvas::document(const std::string &title) const {
    const std::string w = Coordinate(width_), h = Coordinate(height_);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + w + "\" height=\"" + h + "\" viewBox=\"0 0 " + w +
           " " + h + "\" font-family=\"DejaVu Sans\">\n<title>" + XmlText(title) + "</title>\n<rect width=\"" + w +
           "\" height=\"" + h + "\" fill=\"#ffffff\"/>\n" + body_ + collected() + "</svg>\n";
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
