// The abstract drawing surface: everything the drawings ask of a picture, whatever paints it. Positions and lengths are
// whole pixels, the origin at the top left, y growing downward; what lies outside the surface is left out.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace havuz {

struct Pixel {
    std::int32_t x = 0, y = 0;
    bool operator==(const Pixel &) const = default;
};

struct Colour {
    std::uint32_t rgb = 0; // 0xRRGGBB
    bool operator==(const Colour &) const = default;
};

constexpr Colour Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return {red << 16U | green << 8U | blue};
}

// The 16 standard colours by their indices, called QB colours: 0 black, 1 blue, 2 green, 3 cyan, 4 red, 5 magenta,
// 6 brown, 7 white, 8 grey, 9 to 15 the light ones, 14 yellow, 15 bright white. The light ones are deep enough for
// white text to be read on them, also where light green is merged with light blue. An index outside 0..15 counts
// modulo 16.
constexpr Colour QbColour(int index) {
    constexpr std::uint32_t rgb[16] = {0x000000, 0x0000AA, 0x00AA00, 0x00AAAA, 0xAA0000, 0xAA00AA, 0xAA5500, 0x80C0C0,
                                       0x404040, 0x0040FF, 0x00C040, 0x40FFFF, 0xFF2020, 0xFF40FF, 0xFFFF40, 0xFFFFFF};
    return {rgb[static_cast<unsigned>(index) % 16U]};
}

constexpr int kQbBlue = 1, kQbWhite = 7, kQbGrey = 8, kQbLightBlue = 9, kQbLightGreen = 10, kQbLightRed = 12,
              kQbLightMagenta = 13, kQbYellow = 14, kQbBrightWhite = 15;

// Black: the yellow, light red and bright white marks stand out on it, and merging with it leaves a colour as it is.
constexpr Colour kBackground = QbColour(0);

enum class FillStyle { Solid, None, Horizontal, Vertical, UpwardDiagonal, DownwardDiagonal, Cross, DiagonalCross };
enum class LineStyle { Solid, Dash, Dot, DashDot, DashDotDot };
enum class DrawMode {
    Copy = 13, // the pen's colour
    Merge = 15 // each bit of the pen's colour or of what is there already
};

// The pen state. Text takes no notice of the draw mode.
struct PenState {
    Colour colour = QbColour(0);
    Colour fillColour = QbColour(0);
    FillStyle fillStyle = FillStyle::None;
    LineStyle lineStyle = LineStyle::Solid;
    int lineWidth = 1;
    DrawMode mode = DrawMode::Copy;
    std::string font;
    int fontSize = 8; // points
};

class Surface {
public:
    virtual ~Surface() = default;
    virtual int width() const = 0;
    virtual int height() const = 0;

    virtual void Clear() = 0; // to the background
    virtual void Line(int x1, int y1, int x2, int y2, Colour colour) = 0;
    virtual void Box(int x1, int y1, int x2, int y2, Colour colour) = 0;     // outline
    virtual void FillBox(int x1, int y1, int x2, int y2, Colour colour) = 0; // both corners included
    virtual void Point(int x, int y, Colour colour) = 0;                     // a dot as wide as the pen
    virtual void Circle(int x, int y, int radius, Colour colour) = 0;
    virtual Colour ReadPoint(int x, int y) = 0;                   // outside the surface: the background
    virtual void Polygon(std::span<const Pixel> points) = 0;      // closed, with the pen's colours and styles
    virtual void Text(int x, int y, const std::string &text) = 0; // x, y: its top left
    virtual void Refresh() {}                                     // shows what was drawn

    PenState pen;
};

} // namespace havuz
