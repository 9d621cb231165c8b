// Projection, fits, zooms: where model points come to lie on the surface.
#include "hand_models.h"
#include "model/options.h"
#include "recording_surface.h"
#include "support.h"
#include "view/fit.h"
#include "view/mesh_drawing.h"
#include "view/overview.h"
#include "view/plate_drawing.h"
#include "view/projection.h"
#include "view/view_state.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz {

namespace {

// A surface whose ViewWidth and ViewHeight are 400 and 300.
void BeginView(int isoView) {
    ResetAll();
    TakeSurfaceSize(RecordingSurface{});
    IsoView = isoView;
}

void SetAngles(double a, double b, double c) {
    ViewAngleA = a;
    ViewAngleB = b;
    ViewAngleC = c;
}

} // namespace

TEST(Projection, EachRotationTurnsItsOwnAxesAndTheEyeShortensWhatIsFar) {
    const double quarter = kPi / 2.0;
    struct Case {
        double a, b, c, sx, sy;
    };
    // of the point (3, 4, 5), from the eye 1000 m away
    const Case cases[] = {
        {0, 0, 0, 3.0 * 1000 / 1005, -4.0 * 1000 / 1005},
        {quarter, 0, 0, 3.0 * 1000 / 1004, 5.0 * 1000 / 1004},
        {-quarter, 0, 0, 3.0 * 1000 / 996, -5.0 * 1000 / 996},
        // the second rotation takes the rotated x2 = 5 for the depth, where a pure one would take x = 3
        {0, quarter, 0, 5.0 * 1000 / 995, -4.0 * 1000 / 995},
        {0, 0, quarter, -4.0 * 1000 / 1005, -3.0 * 1000 / 1005},
    };
    for (const Case &c : cases) {
        BeginView(1);
        SetAngles(c.a, c.b, c.c);
        double sx = 0.0;
        double sy = 0.0;
        ProjectToView(3, 4, 5, sx, sy);
        EXPECT_NEAR(sx, c.sx, 1e-12);
        EXPECT_NEAR(sy, c.sy, 1e-12);
    }
    SetAngles(0, 0, 0);
    double s = 0.0;
    EXPECT_EQ(FailureOf([&] { ProjectToView(1, 1, -1000, s, s); }).kind, DivisionByZero);
}

TEST(Projection, WholePixelsAreTheNearestTiesToEven) {
    const std::pair<double, int> cases[] = {{0.5, 0},  {1.5, 2},   {2.4999, 2},
                                            {-0.5, 0}, {-1.5, -2}, {2147483647.0, 2147483647}};
    for (const auto &[v, pixel] : cases)
        EXPECT_EQ(ToPixel(v), pixel) << v;
    for (const double v : {2147483648.0, -1e300, std::nan("")})
        EXPECT_EQ(FailureOf([&] { ToPixel(v); }).kind, Overflow);
}

TEST(Projection, DisplacementsOfTheActiveColumnMoveTheNodes) {
    BeginView(1);
    SetAngles(0, 0, 0);
    TemporaryFolder folder;
    ProjeYolu = folder.file("POOL");
    AddGrid(1, 1);
    MeshScale = 10.0;
    // node 2, column 3: (0.5, 0.25, -1000) m in a file of two records
    std::string bytes(2 * 384, '\0');
    const float moved[3] = {0.5F, 0.25F, -1000.0F};
    bytes.replace(384 + 2 * 24, 12, std::string(reinterpret_cast<const char *>(moved), 12));
    WriteBytes(ProjeYolu + ".DEP", bytes);
    ActiveLoadCase = 3;
    double px = 0.0;
    double py = 0.0;
    int support = 0;
    NodeToScreen(2, px, py, support);
    EXPECT_EQ(px, 10.0) << "the file is not read while DeformScale is 0";
    DeformScale = 0.5;
    NodeToScreen(2, px, py, support);
    EXPECT_DOUBLE_EQ(px, 10.0 * 1.25 * 1000 / 500);
    EXPECT_DOUBLE_EQ(py, -10.0 * 0.125 * 1000 / 500);
    NodeToScreen(3, px, py, support); // a node behind the end of the file has none
    EXPECT_EQ(px, 0.0);
    ActiveLoadCase = 17;
    EXPECT_EQ(FailureOf([&] { NodeToScreen(2, px, py, support); }).kind, Subscript);
}

TEST(Fit, PlanFitsTheBoundsAndASideWithoutLengthLeavesItToTheOther) {
    BeginView(0);
    RecordingSurface scr;
    AddPanel(0, {-2, 1, 0}, {8, 1, 0}, {8, 4, 0}, {-2, 4, 0});
    PlateBoundsAndDepth(scr);
    FitMeshView();
    EXPECT_EQ(PlateScale, 30.0); // 300 / 10, where 250 / 3 would be more
    EXPECT_EQ(PlateOffsetX, 90.0);
    EXPECT_EQ(PlateOffsetY, 0.0);
    EXPECT_EQ(MeshScale, 30.0);
    EXPECT_EQ(HomeOffsetX, 90.0);
    PanelCount = 0;
    AddPanel(1, {0, 2, 0}, {10, 2, 0}, {10, 2, 3}, {0, 2, 3}); // one line in plan
    PlateBoundsAndDepth(scr);
    EXPECT_EQ(PlateScale, 30.0);
    PanelCount = 0;
    PlateBoundsAndDepth(scr); // nothing: 0..20 both ways
    EXPECT_EQ(PlateScale, 250.0 / 20.0);
    EXPECT_EQ(PlateOffsetX, 30.0);
    EXPECT_EQ(Xmax, 20.0);
}

TEST(Fit, AModelBeyondTheFirstBoundsIsFittedFromThem) {
    BeginView(0);
    RecordingSurface scr;
    AddPanel(0, {2000, 0, 0}, {2010, 0, 0}, {2010, 10, 0}, {2000, 10, 0});
    PlateBoundsAndDepth(scr);
    EXPECT_EQ(Xmin, 1000.0);
    EXPECT_EQ(Xmax, 2010.0);
}

TEST(Fit, RotatedFitIsOfTheNodesAndOfThePlatesOfASmallModel) {
    BeginView(1);
    SetAngles(0, 0, 0);
    RecordingSurface scr;
    AddPanel(0, {0, 0, 0}, {40, 0, 0}, {40, 10, 0}, {0, 10, 0});
    AddGrid(5, 4); // 30 nodes within the panel
    PlateBoundsAndDepth(scr);
    FitMeshView();
    EXPECT_DOUBLE_EQ(MeshScale, 300.0 / 40.0);
    AddNode(5, 4, 0); // the 31st: the plates do not count any more
    FitMeshView();
    EXPECT_DOUBLE_EQ(MeshScale, 300.0 / 5.0);
    EXPECT_DOUBLE_EQ(MeshOffsetY, 30.0 + 4.0 * 60.0); // y = 4 is drawn at the top
    EXPECT_EQ(HomeScale, MeshScale);
}

TEST(Fit, ARotatedViewWithoutExtentKeepsItsOffsets) {
    BeginView(1);
    SetAngles(0, 0, 0);
    RecordingSurface scr;
    for (int i = 0; i < 31; ++i)
        AddNode(0, 0, i); // seen from above, all in one point
    MeshOffsetX = 7.0;
    HomeScale = 2.0;
    FitMeshView();
    EXPECT_EQ(MeshScale, 1.0);
    EXPECT_EQ(MeshOffsetX, 7.0);
    EXPECT_EQ(HomeScale, 2.0);
    AddPanel(1, {0, 0, 0}, {3, 0, 0}, {3, 0, 2}, {0, 0, 2});
    ViewDistance = 1e300; // no perspective: a wall seen from above is a line
    PlateBoundsAndDepth(scr);
    EXPECT_EQ(PlateScale, 1.0);
}

// Every point of the model lies within the margins, whatever the angles.
TEST(Fit, NothingIsDrawnOffTheSurface) {
    BeginView(1);
    RecordingSurface scr;
    AddGrid(7, 3);
    AddGrid(3, 3, 5.5);
    AddPanel(0, {0, 0, 0}, {7, 0, 0}, {7, 3, 0}, {0, 3, 0});
    for (int a = -180; a <= 180; a += 20)
        for (int b = -180; b <= 180; b += 20) {
            SetAngles(a / 180.0 * kPi, b / 180.0 * kPi, 0);
            PlateBoundsAndDepth(scr);
            FitMeshView();
            for (int i = 1; i <= NoktaCount; ++i) {
                const ScreenPoint p = NodePixels(i);
                EXPECT_TRUE(p.x > 29.99 && p.x < 330.01 && p.y > 29.99 && p.y < 280.01) << a << " " << b << " " << i;
            }
        }
}

} // namespace havuz
