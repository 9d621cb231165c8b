// Picking, node moves and the dynamic zoom of the mesh view.
#include "hand_models.h"
#include "mesh/node_move.h"
#include "recording_surface.h"
#include "support.h"
#include "view/node_move.h"
#include "view/overview.h"
#include "view/pick.h"
#include "view/plate_drawing.h"
#include "view/projection.h"
#include "view/view_state.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

// Logs what is asked of it.
struct LoggingWindow : ViewWindow {
    std::string log;
    double left = 0, top = 0;
    void ShowPol(int i, double x1, double y1, double x2, double y2) override {
        put("pol", {double(i), x1, y1, x2, y2});
    }
    void ShowOverview(bool on) override { put("overview", {on ? 1.0 : 0.0}); }
    void ShowOverviewButton(bool on) override { put("SCR1", {on ? 1.0 : 0.0}); }
    void CopySurfaceToOverview() override { put("copy", {}); }
    double OverviewWidth() override { return 100; }
    double OverviewHeight() override { return 60; }
    double OverviewLeft() override { return left; }
    double OverviewTop() override { return top; }
    void PlaceOverview(double x, double y) override { put("place", {x, y}); }
    void PlaceOverviewRectangle(double l, double t, double r, double b) override { put("rectangle", {l, t, r, b}); }
    std::string take() { return std::exchange(log, ""); }

private:
    void put(const char *what, std::initializer_list<double> numbers) {
        log += what;
        for (const double v : numbers)
            log += " " + std::to_string(static_cast<int>(v));
        log += "\n";
    }
};

// Pixels are 10 * metres, in plan.
void BeginPlan() {
    ResetAll();
    TakeSurfaceSize(RecordingSurface{});
    MeshScale = 10.0;
}

} // namespace

TEST(Pick, TheFirstNodeWithinSevenPixelsWins) {
    BeginPlan();
    AddNode(2.0, 2.0, 0);
    AddNode(2.5, 2.0, 0); // 5 pixels beside it
    PickNode(25, 20);
    EXPECT_EQ(SeciliNo, 1) << "the lower number, not the nearer";
    EXPECT_EQ(AnchorX, 20.0);
    PickNode(26.9, 26.9);
    EXPECT_EQ(SeciliNo, 1);
    PickNode(27, 20);
    EXPECT_EQ(SeciliNo, 2) << "7 pixels are too far";
    EXPECT_EQ(AnchorX, 25.0);
    PickNode(20, 27);
    EXPECT_EQ(SeciliNo, 0);
    EXPECT_EQ(AnchorX, 25.0) << "a miss leaves the anchor";
}

TEST(Pick, AMeshIsPickedBetweenTheFirstTwoCrossings) {
    BeginPlan();
    AddGrid(2, 1);
    std::string text;
    PickMesh(5, 5, text);
    EXPECT_EQ(text, "Mesh:1-2-5-4");
    EXPECT_EQ(SeciliNo, 1);
    PickMesh(15, 5, text);
    EXPECT_EQ(SeciliNo, 2);
    MeshTable[1].Sil = 1;
    PickMesh(10, 5, text); // on the shared side, vertical on the screen: the other sides of mesh 1 are crossed
    EXPECT_EQ(SeciliNo, 1) << "a mesh that is off can be picked, to switch it on";
    PickMesh(5, 10.4, text); // d1 + d2 is 10.8 then, less than 10 + 1
    EXPECT_EQ(SeciliNo, 1);
    PickMesh(5, 10.5, text);
    EXPECT_EQ(SeciliNo, 0);
    EXPECT_EQ(text, "");
    PickMesh(21, 5, text);
    EXPECT_EQ(SeciliNo, 0);
}

TEST(NodeMove, RubberLinesGoToAtMostFifteenNeighbours) {
    BeginPlan();
    AddGrid(2, 2);
    PickNode(10, 10);
    ASSERT_EQ(SeciliNo, 5);
    LoggingWindow window;
    BeginNodeMove(window);
    EXPECT_EQ(NeighbourMeshCount, 4);
    EXPECT_EQ(window.take(), "pol 1 10 10 10 0\npol 2 10 10 0 10\npol 3 10 10 20 10\npol 4 10 10 10 20\n");
    BeginPlan();
    const int hub = AddNode(0, 0, 0);
    for (int i = 0; i < 9; ++i) {
        const int first = AddNode(i + 1, 1, 0);
        AddMesh(hub, first, AddNode(i + 1, 2, 0), AddNode(i + 1, 3, 0));
    }
    SeciliNo = hub;
    BeginNodeMove(window);
    EXPECT_EQ(NeighbourMeshCount, 9);
    EXPECT_EQ(NeighbourNodeCount, 15);
}

TEST(NodeMove, ANodeUnderThePointerIsTakenByTheMeshes) {
    BeginPlan();
    LoggingWindow window;
    AddGrid(2, 2);
    KeepZoom = 1; // holds the transform through the redraws
    SeciliNo = 5;
    BeginNodeMove(window);
    FinishNodeMove(11, 9); // on itself
    EXPECT_EQ(SeciliNo, 5);
    EXPECT_EQ(MeshTable[1].N3, 5);
    EXPECT_EQ(NoktaTable[5].X, 1.0);
    FinishNodeMove(20, 20); // on node 9
    EXPECT_EQ(SeciliNo, 5);
    EXPECT_EQ(MeshTable[1].N3, 9);
    EXPECT_EQ(MeshTable[2].N4, 9);
    EXPECT_EQ(NoktaCount, 9) << "the node stays in the table";
}

TEST(NodeMove, InPlanTheHeightComesFromThePanel) {
    BeginPlan();
    LoggingWindow window;
    KeepZoom = 1;
    AddPanel(0, {0, 0, 0}, {10, 0, 2}, {10, 10, 6}, {0, 10, 4});
    AddNode(5, 5, 3);
    NoktaTable[1].PanelNo = 1;
    SeciliNo = 1;
    FinishNodeMove(80, 25);
    EXPECT_EQ(NoktaTable[1].X, 8.0);
    EXPECT_EQ(NoktaTable[1].Y, 2.5);
    EXPECT_FLOAT_EQ(NoktaTable[1].Z.raw(), 2.6F);              // a quarter of the way from 1.6 to 5.6
    AddPanel(1, {0, 0, 3}, {10, 0, 5}, {10, 0, 0}, {0, 0, 0}); // upright: equal Y on both, the top stands
    NoktaTable[1].PanelNo = 2;
    FinishNodeMove(50, 0);
    EXPECT_EQ(NoktaTable[1].Z, 4.0);
    AddPanel(1, {0, 0, 3}, {0, 10, 3}, {0, 10, 0}, {0, 0, 0}); // along Y: no X to interpolate at
    NoktaTable[1].PanelNo = 3;
    FinishNodeMove(0, 50);
    EXPECT_EQ(NoktaTable[1].Z, 3.0);
    NoktaTable[1].PanelNo = 0; // of no panel: on the blank record
    FinishNodeMove(70, 70);
    EXPECT_EQ(NoktaTable[1].Z, 0.0);
}

TEST(NodeMove, RotatedItKeepsToTheDiagonal) {
    BeginPlan();
    LoggingWindow window;
    KeepZoom = IsoView = 1;
    ViewAngleA = ViewAngleB = 0.0; // seen from below, y turned over
    AddPanel(0, {0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0});
    AddNode(5, 5, 0);
    NoktaTable[1].PanelNo = 1;
    SeciliNo = 1;
    FinishNodeMove(30, -30);
    EXPECT_NEAR(NoktaTable[1].X, 3.0, 1e-6);
    EXPECT_NEAR(NoktaTable[1].Y, 3.0, 1e-6);
    FinishNodeMove(100, 0); // beside the diagonal, as far from both its ends
    EXPECT_NEAR(NoktaTable[1].X, 5.0, 1e-6);
}

TEST(DynamicZoom, RectangleFollowsIsSizedAndZoomsFromTheHomeTransform) {
    BeginPlan();
    RecordingSurface scr(505, 305);
    LoggingWindow window;
    TakeSurfaceSize(scr);
    AddPanel(0, {0, 0, 0}, {10, 0, 0}, {10, 5, 0}, {0, 5, 0});
    AddGrid(10, 5);
    PlateBoundsAndDepth(scr);
    GorunusModu = 1;
    OpenOverview(window);
    EXPECT_EQ(window.take(), "") << "not in the plate view";
    GorunusModu = 2;
    RefreshOverview(window);
    EXPECT_EQ(window.take(), "overview 0\ncopy\n");
    OpenOverview(window);
    EXPECT_EQ(window.take(), "SCR1 0\nplace 800 900\noverview 1\n");
    OnOverviewMove(50, 30, window);
    EXPECT_EQ(window.take(), "rectangle 35 21 65 39\n");
    OnOverviewMove(2, 59, window); // shifted to stay within 1..99 and 1..59
    EXPECT_EQ(window.take(), "rectangle 1 41 31 59\n");
    OnOverviewRelease(kLeftButton);
    EXPECT_EQ(DynStage, 1);
    OnOverviewRelease(kRightButton);
    EXPECT_EQ(DynStage, 2);
    OnOverviewMove(41, 21, window); // the bottom right passes above the top
    EXPECT_EQ(window.take(), "rectangle 1 41 41 21\n");
    OnOverviewPress(kLeftButton, 41, 21, scr, window);
    EXPECT_EQ(DynStage, 1);
    EXPECT_EQ(DynWidthRatio, 0.4);
    EXPECT_DOUBLE_EQ(DynHeightRatio, 20.0 / 60.0);
    HomeScale = 40.0;
    HomeOffsetX = HomeOffsetY = 30.0;
    MeshScale = 999.0; // whatever zoom stood before
    window.left = 1234;
    OnOverviewPress(kRightButton, 40, 30, scr, window);
    EXPECT_EQ(MeshScale, 999.0);
    OnOverviewPress(kLeftButton, 40, 30, scr, window);
    // rectangle (20, 20)..(60, 40), times min(505 / 100, 305 / 60): 202 x 101 pixels, made 202 x 121.2
    EXPECT_DOUBLE_EQ(MeshScale, std::min(400.0 * 40.0 / 202.0, 250.0 * 40.0 / 121.2));
    EXPECT_DOUBLE_EQ(MeshOffsetX, 30.0 - (20.0 * 5.05 - 30.0) / 40.0 * MeshScale);
    EXPECT_EQ(window.take(), "overview 0\nSCR1 1\n");
    EXPECT_EQ(DynStage, 0);
    EXPECT_EQ(DynLeft, 1234.0);
    EXPECT_EQ(KeepZoom, 0);
}

} // namespace havuz
