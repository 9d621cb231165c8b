// The drawing surface as a picture: pixels where they were asked for, in the modes they were asked for.
#include "support.h"
#include "ui/qt/raster_surface.h"
#include "ui/qt/small_font.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>

namespace havuz {

namespace {

constexpr Colour kRed = QbColour(12), kYellow = QbColour(14), kNone = kBackground;

// Rows of one letter a pixel: "." background, else the first letter of a colour's name here.
std::string Rows(RasterSurface &scr) {
    std::string rows;
    for (int y = 0; y < scr.height(); ++y) {
        for (int x = 0; x < scr.width(); ++x) {
            const Colour c = scr.ReadPoint(x, y);
            rows += c == kNone ? '.' : c == kRed ? 'r' : c == kYellow ? 'y' : c == QbColour(1) ? 'b' : '?';
        }
        rows += '\n';
    }
    return rows;
}

} // namespace

TEST(RasterSurface, ShapesCoverThePixelsTheyName) {
    RasterSurface line(6, 4);
    line.Line(1, 1, 4, 1, kRed);
    line.Line(5, 3, 5, 2, kRed);
    EXPECT_EQ(Rows(line), "......\n.rrrr.\n.....r\n.....r\n");
    RasterSurface box(6, 5);
    box.Box(4, 3, 1, 1, kRed); // corners in any order
    box.Point(0, 0, kYellow);
    EXPECT_EQ(Rows(box), "y.....\n.rrrr.\n.r..r.\n.rrrr.\n......\n");
    RasterSurface filled(6, 4);
    filled.FillBox(1, 1, 3, 2, kRed);
    EXPECT_EQ(Rows(filled), "......\n.rrr..\n.rrr..\n......\n");
    RasterSurface circle(5, 5);
    circle.Circle(2, 2, 1, kYellow);
    EXPECT_EQ(Rows(circle), ".....\n..y..\n.y.y.\n..y..\n.....\n");
    RasterSurface dot(5, 5);
    dot.pen.lineWidth = 3;
    dot.Point(2, 2, kRed);
    EXPECT_EQ(Rows(dot), ".....\n.rrr.\n.rrr.\n.rrr.\n.....\n");
}

TEST(RasterSurface, PolygonsTakeThePensColoursAndStyles) {
    const Pixel square[] = {{1, 1}, {5, 1}, {5, 5}, {1, 5}};
    RasterSurface scr(7, 7);
    scr.pen.colour = kRed;
    scr.pen.fillColour = kYellow;
    scr.Polygon(square);
    EXPECT_EQ(scr.ReadPoint(3, 3), kNone) << "no fill before one is asked for";
    scr.pen.fillStyle = FillStyle::Solid;
    scr.Polygon(square);
    EXPECT_EQ(Rows(scr), ".......\n.rrrrr.\n.ryyyr.\n.ryyyr.\n.ryyyr.\n.rrrrr.\n.......\n");
    // every hatch is another picture, some of it fill and some of it not
    std::set<std::string> pictures;
    const Pixel large[] = {{0, 0}, {39, 0}, {39, 39}, {0, 39}};
    for (int style = 2; style <= 7; ++style) {
        RasterSurface hatched(40, 40);
        hatched.pen = scr.pen;
        hatched.pen.fillStyle = static_cast<FillStyle>(style);
        hatched.Polygon(large);
        const std::string rows = Rows(hatched);
        EXPECT_NE(rows.find('y'), std::string::npos) << style;
        EXPECT_NE(rows.find('.'), std::string::npos) << style;
        pictures.insert(rows);
    }
    EXPECT_EQ(pictures.size(), 6U);
    RasterSurface up(20, 20); // "upward" runs from the bottom left to the top right
    up.pen = scr.pen;
    up.pen.fillStyle = FillStyle::UpwardDiagonal;
    up.FillBox(0, 0, 0, 0, kNone);
    const Pixel inner[] = {{-9, -9}, {29, -9}, {29, 29}, {-9, 29}};
    up.Polygon(inner);
    const std::string rows = Rows(up);
    const auto at = [&](int x, int y) { return rows[static_cast<std::size_t>(y * 21 + x)]; };
    int x = 0;
    while (at(x, 10) != 'y')
        ++x;
    EXPECT_EQ(at(x + 1, 9), 'y');
    EXPECT_EQ(at(x + 1, 11), '.');
}

TEST(RasterSurface, LineStylesAndWidths) {
    for (const auto &[style, whole] :
         {std::pair(LineStyle::Solid, true), {LineStyle::Dash, false}, {LineStyle::Dot, false}}) {
        RasterSurface scr(60, 1);
        scr.pen.lineStyle = style;
        scr.Line(0, 0, 59, 0, kRed);
        const std::string rows = Rows(scr);
        EXPECT_EQ(rows.find('.') == std::string::npos, whole) << static_cast<int>(style);
        EXPECT_NE(rows.find('r'), std::string::npos);
    }
    RasterSurface wide(20, 10);
    wide.pen.lineWidth = 2;
    wide.Line(5, 5, 15, 5, kRed);
    EXPECT_EQ((wide.ReadPoint(10, 5) == kRed) + (wide.ReadPoint(10, 4) == kRed) + (wide.ReadPoint(10, 6) == kRed), 2);
}

TEST(RasterSurface, MergeAddsTheBitsAndCopyReplacesThem) {
    RasterSurface scr(4, 1);
    scr.FillBox(0, 0, 3, 0, Rgb(0x0F, 0x00, 0xAA));
    scr.pen.mode = DrawMode::Merge;
    scr.FillBox(1, 0, 1, 0, Rgb(0xF0, 0x55, 0x00));
    scr.Line(2, 0, 2, 0, Rgb(0x00, 0x01, 0x55));
    scr.pen.mode = DrawMode::Copy;
    scr.Point(3, 0, kRed);
    EXPECT_EQ(scr.ReadPoint(0, 0), Rgb(0x0F, 0x00, 0xAA));
    EXPECT_EQ(scr.ReadPoint(1, 0), Rgb(0xFF, 0x55, 0xAA));
    EXPECT_EQ(scr.ReadPoint(2, 0), Rgb(0x0F, 0x01, 0xFF));
    EXPECT_EQ(scr.ReadPoint(3, 0), kRed);
    scr.Clear();
    EXPECT_EQ(scr.ReadPoint(0, 0), kNone);
}

TEST(RasterSurface, TextIsOfItsOwnFontAndEveryCharacterIsItsOwn) {
    RasterSurface scr(14, 8);
    scr.pen.colour = kRed;
    scr.Text(0, 0, "14");
    EXPECT_EQ(Rows(scr), "....r.....r...\n...rr....rr...\n....r...r.r...\n....r..r..r...\n"
                         "....r..rrrr...\n....r.....r...\n...rrr....r...\n..............\n");
    std::set<std::string> glyphs;
    for (char c = ' '; c <= '~'; ++c)
        glyphs.insert(GlyphOf(c).rows);
    EXPECT_EQ(glyphs.size(), 95U);
    int boxes = 0;
    ForEachTextPixel("\xC4\xB1", [&](int column, int row) { boxes += column == 0 && row == 0 ? 1 : 0; });
    EXPECT_EQ(boxes, 1) << "one box for a character that the font lacks";
}

TEST(RasterSurface, WhatLiesOutsideIsLeftOut) {
    RasterSurface scr(10, 10);
    const int far = 2000000000;
    const Pixel huge[] = {{-far, -far}, {far, -far}, {far, far}, {-far, far}};
    scr.pen.fillStyle = FillStyle::Solid;
    scr.pen.fillColour = kYellow;
    scr.Text(-50, 3, "12345");
    scr.Text(8, 8, "12345");
    scr.Point(-1, 10, kRed);
    scr.Circle(-20, 50, 1, kRed);
    for (const int end : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        scr.Text(end, end, "12345");
        scr.Circle(end, end, 1, kRed);
    }
    scr.Line(-far, 5, far, 5, kRed);
    EXPECT_EQ(scr.ReadPoint(4, 5), kRed);
    scr.Polygon(huge);
    EXPECT_EQ(scr.ReadPoint(4, 4), kYellow);
    EXPECT_EQ(scr.ReadPoint(10, 0), kBackground);
    EXPECT_EQ(scr.ReadPoint(0, -1), kBackground);
}

TEST(RasterSurface, APictureThatCannotBeIsAFailure) {
    EXPECT_EQ(FailureOf([] { RasterSurface none(0, 5); }).kind, Overflow);
    EXPECT_TRUE(FailureOf([] { RasterSurface none(5, -1); }).failed);
}

} // namespace havuz
