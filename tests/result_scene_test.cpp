// Result pictures: colour scales, contour bands, fit, hit, and the two canvases.
#include "support.h"
#include "ui/qt/image_canvas.h"
#include "view/result_scene.h"
#include "view/svg_canvas.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz {

namespace {

// Relative luminance of sRGB, what a print in grey shows.
double Grey(Colour c) {
    const auto linear = [](unsigned v) {
        const double s = v / 255.0;
        return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.rgb >> 16U & 255U) + 0.7152 * linear(c.rgb >> 8U & 255U) + 0.0722 * linear(c.rgb & 255U);
}

double Area(const std::vector<ValuePoint> &ring) {
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const ScreenPoint a = ring[i].at, b = ring[(i + 1) % ring.size()].at;
        twice += a.x * b.y - b.x * a.y;
    }
    return std::fabs(twice) / 2.0;
}

ResultFace Square(double x, double z, double value) {
    ResultFace f;
    f.at = {SpacePoint{x, 0, z}, SpacePoint{x + 1, 0, z}, SpacePoint{x + 1, 1, z}, SpacePoint{x, 1, z}};
    f.value = {value, value, value, value};
    return f;
}

} // namespace

TEST(ColourScales, KeepTheirOrderInGreyOnEachSideOfZero) {
    for (int i = 0; i < 100; ++i) {
        SCOPED_TRACE(i);
        EXPECT_GT(Grey(ScaleColour(ScaleKind::Rising, i / 100.0)),
                  Grey(ScaleColour(ScaleKind::Rising, (i + 1) / 100.0)));
        const bool below = i < 50;
        const double first = Grey(ScaleColour(ScaleKind::Diverging, i / 100.0));
        const double next = Grey(ScaleColour(ScaleKind::Diverging, (i + 1) / 100.0));
        EXPECT_TRUE(below ? first < next : first > next);
    }
    const Colour zero = ScaleColour(ScaleKind::Diverging, 0.5);
    EXPECT_GT(Grey(zero), 0.9);
    EXPECT_EQ(zero.rgb & 255U, zero.rgb >> 16U & 255U); // neither blue nor red
}

TEST(ColourMaps, HaveRoundLimitsThatHoldTheValues) {
    struct Case {
        double least, greatest;
        bool isSigned;
        double low, high;
        int bands;
    };
    for (const Case &c :
         {Case{0, 4.7, false, 0, 5, 10}, Case{-1.2, 4.7, true, -5, 5, 10}, Case{3.1, 3.9, false, 3.1, 3.9, 8},
          Case{-0.004, 0.001, true, -0.004, 0.004, 8}, Case{0, 0, true, -1, 1, 2}}) {
        SCOPED_TRACE(c.greatest);
        const ColourMap map = RoundMap(c.least, c.greatest, c.isSigned, false);
        EXPECT_NEAR(map.low(), c.low, 1e-12);
        EXPECT_NEAR(map.high(), c.high, 1e-12);
        EXPECT_EQ(map.bands(), c.bands);
    }
    const ColourMap map(ScaleKind::Rising, 0, 10, 5);
    EXPECT_EQ(map.stepOf(-1), 0);
    EXPECT_EQ(map.stepOf(3.99), 1);
    EXPECT_EQ(map.stepOf(4), 2);
    EXPECT_EQ(map.stepOf(99), 4);
    EXPECT_EQ(map.stepOf(std::nan("")), 0);
}

TEST(ContourBands, CutATriangleWithoutGapOrOverlap) {
    const std::vector<ValuePoint> triangle = {{{0, 0}, -1.0}, {{40, 0}, 2.5}, {{7, 30}, 6.0}};
    double sum = 0.0;
    for (int i = -1; i < 6; ++i)
        sum += Area(CutBand(triangle, i, i + 1));
    EXPECT_NEAR(sum, Area(triangle), 1e-9);
    EXPECT_TRUE(CutBand(triangle, 7, 8).size() < 3);
}

TEST(ImageCanvas, TrianglesOfAFaceLeaveNoPixelOut) {
    ImageCanvas canvas(40, 30);
    const ColourMap map(ScaleKind::Rising, 0, 1, 1);
    const ScreenPoint p[4] = {{3.3, 2.1}, {36.7, 4.9}, {33.2, 27.6}, {5.8, 24.4}}, middle = {19.75, 14.75};
    for (int k = 0; k < 4; ++k)
        canvas.Triangle({ValuePoint{p[k], 0.5}, ValuePoint{p[(k + 1) % 4], 0.5}, ValuePoint{middle, 0.5}}, map);
    for (int y = 7; y < 23; ++y)
        for (int x = 8; x < 31; ++x)
            EXPECT_EQ(canvas.colourAt(x, y).rgb, map.colour(0).rgb) << x << "," << y;
    EXPECT_EQ(canvas.colourAt(1, 1).rgb, 0xFFFFFFU);
}

TEST(ResultScene, TheNearerFaceIsHitAndItsValueRunsLinearly) {
    ViewAngleA = ViewAngleB = ViewAngleC = 0.0;
    ViewDistance = 100.0;
    ResultScene scene;
    scene.look = SceneLook::Rotated;
    scene.faces = {Square(0, 0, 1.0), Square(0, 5, 2.0), Square(0, -5, 3.0)};
    const SceneTransform to = FitScene(scene, 600, 400);
    const ScenePlace a = ProjectScene(scene.look, {0.5, 0.5, 5}), b = ProjectScene(scene.look, {0.5, 0.5, -5});
    const auto hit = HitScene(scene, to, 0.0, to.x + to.scale * a.x, to.y + to.scale * a.y);
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->face, a.depth < b.depth ? 1u : 2u);

    scene.look = SceneLook::Flat;
    scene.faces = {Square(0, 0, 0.0)};
    scene.faces[0].value = {0, 10, 10, 0};
    const SceneTransform flat = FitScene(scene, 600, 400);
    const auto quarter = HitScene(scene, flat, 0.0, flat.x + flat.scale * 0.25, flat.y - flat.scale * 0.5);
    ASSERT_TRUE(quarter);
    EXPECT_NEAR(quarter->value, 2.5, 1e-9);
    EXPECT_FALSE(HitScene(scene, flat, 0.0, flat.x + flat.scale * 1.2, flat.y - flat.scale * 0.5));
}

TEST(ResultScene, AnSvgPictureSaysItsUnitItsRangeAndItsExtremes) {
    ResultScene scene;
    scene.look = SceneLook::Flat;
    scene.faces = {Square(0, 0, -1.25), Square(1, 0, 2.5)};
    scene.title = "Moment M22 <L>";
    scene.unit = "t.m/m";
    SvgCanvas canvas(600, 400);
    DrawScene(canvas, scene, {}, FitScene(scene, 600, 400));
    const std::string text = canvas.document(scene.title);
    for (const char *words : {">t.m/m<", ">-1,250<", ">2,500<", "Moment M22 &lt;L&gt;", "<polygon"})
        EXPECT_NE(text.find(words), std::string::npos) << words;
}

TEST(DecimalComma, ZeroHasNoSign) {
    EXPECT_EQ(DecimalCommaText(-0.0004, 3), "0,000");
    EXPECT_EQ(DecimalCommaText(-12.3456, 2), "-12,35");
    EXPECT_EQ(DecimalCommaText(1e6, 0), "1000000");
}

} // namespace havuz
