// What the pointer catches of edges and points, and dragging it: in plan and in the rotated view.
#include "hand_models.h"
#include "mesh/plak_edit.h"
#include "model/link_code.h"
#include "model/number_text.h"
#include "model/options.h"
#include "plak_support.h"
#include "support.h"
#include "ui/commands/edge_hover.h"
#include "ui/commands/tools.h"
#include "ui_support.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz {

namespace {

// A pool of 20 m * 20 m: at 20 pixels a metre in plan, 30 from left and top.
void DrawPool(Desk &desk, const std::vector<PlanPoint> &outline = Rectangle(0, 0, 20, 20)) {
    PutPool(outline);
    desk.main.DrawPlateView();
}

constexpr const char *kPicture = "###0.##";

std::string Outline(int plate) {
    std::string text;
    for (int k = 1; k <= PlakTable[plate].NoktaSayisi; ++k)
        text += PictureText(PlakTable[plate].X[k], kPicture) + "," + PictureText(PlakTable[plate].Y[k], kPicture) + " ";
    return text;
}

std::string Levels(int plate) {
    std::string text;
    for (int k = 1; k <= PlakTable[plate].NoktaSayisi; ++k)
        text += PictureText(PlakTable[plate].Z[k], "##0.00") + " ";
    return text;
}

ScreenPoint Middle(ScreenPoint a, ScreenPoint b) { return {(a.x + b.x) / 2, (a.y + b.y) / 2}; }
ScreenPoint EdgeMiddle(int plate, int k) {
    return Middle(PlatePointPixels(plate, k), PlatePointPixels(plate, k % PlakTable[plate].NoktaSayisi + 1));
}

// Takes what lies at a place, waits at its marker and drags it by so many pixels; the button comes up there when asked
// to.
void Drag(Desk &desk, ScreenPoint from, double dx, double dy, bool drop = true) {
    desk.move(from);
    desk.press(from);
    const ScreenPoint marker{EdgeMarkerX, EdgeMarkerY}, to{marker.x + dx, marker.y + dy};
    desk.move(marker);
    desk.drag(marker);
    desk.drag(to);
    if (drop)
        desk.move(to);
}

} // namespace

TEST(EdgeHover, CatchesWithinFivePixelsAndPointsWithinSeven) {
    Desk desk;
    AddPanel(0, {0, 0, 0}, {20, 0, 0}, {20, 20, 0}, {0, 20, 0});
    desk.main.DrawPlateView();
    const struct {
        ScreenPoint at;
        int hits, edge, point;
    } cases[] = {
        {{230, 35}, 1, 1, 0},  {{230, 36}, 0, 0, 0},  {{425, 230}, 1, 2, 0},
        {{424, 230}, 0, 0, 0}, {{36.9, 30}, 1, 1, 1}, {{38, 30}, 1, 1, 0},
        {{430, 424}, 1, 3, 1}, {{26, 426}, 1, 4, 1},  {{31, 31}, 1, 1, 1}, // where edge 4 ends: the point comes first
    };
    desk.click(kEdgeMoveTool);
    for (const auto &c : cases) {
        SCOPED_TRACE(c.at.x);
        desk.move(c.at);
        EXPECT_EQ(EdgeHitCount, c.hits);
        EXPECT_EQ(SeciliKenar, c.edge);
        EXPECT_EQ(NoktaModu, c.point);
        EXPECT_EQ(desk.note(), c.hits == 0 ? "hidden" : c.point == 1 ? "NOKTA KAYDIRMA" : "KENAR KAYDIRMA");
    }
    desk.move({230, 31});
    EXPECT_EQ(KenarYonu, 1);
    EXPECT_EQ(EdgeMarkerX, 230);
    desk.move({431, 230});
    EXPECT_EQ(KenarYonu, 2);
    EXPECT_EQ(desk.window.state(kLabel1).left, 441);
    EXPECT_EQ(desk.window.state(kLabel1).top, 250);
    desk.move({230, 428}); // 27 pixels above the bottom of the surface
    EXPECT_EQ(desk.window.state(kLabel1).top, 428);
}

TEST(EdgeHover, SupportsAreSetOnPanelEdgesAlone) {
    Desk desk;
    AddPanel(0, {0, 0, 0}, {20, 0, 0}, {20, 20, 0}, {0, 20, 0});
    PutPlak(Rectangle(5, 5, 4, 4));
    desk.main.DrawPlateView();
    desk.click(kEdgeSupportTool);
    for (const auto &[x, y, word] :
         {std::tuple{230, 30, "ust"}, {430, 230, "sag"}, {230, 430, "alt"}, {30, 230, "sol"}}) {
        desk.move({double(x), double(y)});
        EXPECT_EQ(desk.note(), std::string("1. PLAK ") + word + " kenari <SERBEST>");
        desk.press({double(x), double(y)});
        EXPECT_EQ(EdgeHitCount + SelectedPanel, 0);
        desk.move({double(x), double(y)});
        EXPECT_EQ(desk.note(), std::string("1. PLAK ") + word + " kenari <MESNET>");
    }
    desk.press({30, 230}); // off again
    EXPECT_EQ(int(PanelTable[1].KenarMesnet[3]), 1);
    EXPECT_EQ(int(PanelTable[1].KenarMesnet[4]), 0);
    desk.move(Desk::at(7, 5));
    EXPECT_EQ(SelectedPanel, 1001);
    desk.press(Desk::at(7, 5)); // a plate's edge holds no support
    EXPECT_EQ(SelectedPanel, 1001);
}

// Panel 1000 has the number that the plates count from, and is none of them.
TEST(EdgeHover, TheLastPanelOfTheTableIsNoPlate) {
    Desk desk;
    PanelCount = kPanelCapacity - 1;
    ASSERT_EQ(AddPanel(0, {0, 0, 0}, {20, 0, 0}, {20, 20, 0}, {0, 20, 0}), 1000);
    desk.main.DrawPlateView();
    desk.click(kEdgeSupportTool);
    desk.move({230, 30});
    ASSERT_EQ(desk.note(), "1000. PLAK ust kenari <SERBEST>");
    desk.press({230, 30});
    EXPECT_EQ(int(PanelTable[1000].KenarMesnet[1]), 1);
    desk.click(kEdgeMoveTool);
    Drag(desk, {230, 30}, 0, -20);
    EXPECT_DOUBLE_EQ(PanelTable[1000].Y[1], -1.0);
    EXPECT_DOUBLE_EQ(PanelTable[1000].Y[4], 20.0);
}

TEST(EdgeHover, APlateEdgeTakesItsWallAlong) {
    Desk desk;
    DrawPool(desk);
    desk.click(kEdgeMoveTool);
    for (const int isoView : {0, 1}) {
        if (isoView == 1) {
            desk.click(kIsometricTool);
            desk.click(kEdgeMoveTool);
        }
        desk.move(EdgeMiddle(1, 2));
        EXPECT_EQ(EdgeItems, (std::vector<EdgeItem>{{1001, 2}})) << isoView;
    }
    desk.cancel();
    desk.click(kEdgeSupportTool);
    desk.move(EdgeMiddle(1, 2)); // only an edge move leaves the wall out
    EXPECT_EQ(EdgeHitCount, 2);
    EXPECT_EQ(SelectedPanel, 2);
    EXPECT_EQ(SeciliKenar, 3);
}

TEST(EdgeHover, ThePaletteLeavesOneSideOfPanelsInPlan) {
    Desk desk;
    AddPanel(1, {0, 0, 3}, {20, 0, 3}, {20, 0, 0}, {0, 0, 0});     // seen on end
    AddPanel(1, {0, 5, 3}, {20, 5, 3}, {20, 15, 0}, {0, 15, 0});   // leans: upper edge at y 5
    AddPanel(0, {0, 18, 0}, {20, 18, 0}, {20, 20, 0}, {0, 20, 0}); // level
    desk.main.DrawPlateView();
    desk.click(kEdgeMoveTool);
    const auto hits = [&desk](double y) {
        desk.move(Desk::at(10, y));
        return EdgeHitCount;
    };
    EXPECT_EQ(hits(0), 2);
    EXPECT_EQ(hits(5), 1);
    EXPECT_EQ(hits(15), 1);
    desk.click(kTool3OneSide);
    EXPECT_EQ(hits(0), 0);
    EXPECT_EQ(hits(5), 1);
    EXPECT_EQ(hits(15), 0);
    EXPECT_EQ(hits(18), 1);
    desk.click(Tool3Option(1));
    EXPECT_EQ(hits(5), 0);
    EXPECT_EQ(hits(15), 1);
    EXPECT_EQ(hits(20), 1);
}

TEST(EdgeDrag, AnEdgeMovesSquareToItselfWithItsWalls) {
    Desk desk;
    DrawPool(desk);
    desk.click(kEdgeMoveTool);
    Drag(desk, EdgeMiddle(1, 2), 30, 40, false); // 50 pixels: 2.5 m, however askew
    EXPECT_EQ(desk.note(), "R=2.5 m");
    EXPECT_EQ(EdgeDragActive, 1);
    EXPECT_EQ(desk.window.pointerShape, PointerShape::WestEast);
    EXPECT_TRUE(desk.window.Shown(Pol(3)));
    EXPECT_EQ(Outline(1), "0,0 22.5,0 22.5,20 0,20 ");
    EXPECT_EQ(PanelTable[2].X[1], 22.5);
    EXPECT_EQ(PanelTable[2].X[3], 22.5);
    EXPECT_EQ(PanelTable[1].X[2], 22.5);
    EXPECT_EQ(PanelTable[3].X[4], 22.5);
    EXPECT_EQ(PanelTable[1].X[1], 0);
    desk.drag({430 - 20, 230}); // the other way, from where it began
    EXPECT_EQ(Outline(1), "0,0 19,0 19,20 0,20 ");
    desk.move({410, 230});
    EXPECT_EQ(PickStage + EdgeHitCount + EdgeDragActive + SelectedPanel, 0);
    EXPECT_FALSE(desk.window.Shown(Pol(3)));
    EXPECT_EQ(desk.window.pointerShape, PointerShape::Default);
    EXPECT_EQ(CommandState, kEdgeMove);
    desk.click(kTool3KeepWalls);
    Drag(desk, EdgeMiddle(1, 2), 20, 0);
    EXPECT_GT(PlakTable[1].X[2], 19.5);
    EXPECT_EQ(PanelTable[2].X[1], 19);
}

TEST(EdgeDrag, APointGoesToThePointer) {
    Desk desk;
    DrawPool(desk);
    desk.click(kEdgeMoveTool);
    const ScreenPoint corner = PlatePointPixels(1, 2);
    Drag(desk, corner, -40, 20, false);
    EXPECT_EQ(desk.note(), "X=18 Y=1");
    EXPECT_EQ(desk.window.pointerShape, PointerShape::FourWay);
    EXPECT_EQ(Outline(1), "0,0 18,1 20,20 0,20 ");
    EXPECT_EQ(PanelTable[1].X[3], 18);
    EXPECT_EQ(PanelTable[2].Y[1], 1);
    EXPECT_FALSE(desk.window.Shown(Pol(3)));
}

TEST(EdgeDrag, StartsAtTheMarkerWithTheButtonHeld) {
    Desk desk;
    DrawPool(desk);
    desk.click(kEdgeMoveTool);
    desk.move(EdgeMiddle(1, 2));
    desk.press(EdgeMiddle(1, 2));
    EXPECT_EQ(PickStage, 1);
    EXPECT_EQ(desk.note(), "hidden");
    desk.drag({430, 230}); // the first move after the press does nothing
    EXPECT_EQ(EdgeDragActive, 0);
    desk.drag({435, 230}); // 5 pixels away
    EXPECT_EQ(EdgeDragActive, 0);
    EXPECT_EQ(desk.window.pointerShape, PointerShape::Default);
    desk.move({434, 230}); // not held
    EXPECT_EQ(EdgeDragActive, 0);
    EXPECT_EQ(desk.window.pointerShape, PointerShape::WestEast);
    EXPECT_NE(desk.note(), "hidden");
    EXPECT_EQ(Outline(1), "0,0 20,0 20,20 0,20 ");
    desk.drag({434, 230});
    EXPECT_EQ(EdgeDragActive, 1);
    EXPECT_EQ(PlakTable[1].X[2], static_cast<float>(20.2));
    desk.cancel();
    EXPECT_FALSE(desk.window.Shown(Pol(1)));
    EXPECT_EQ(desk.window.pointerShape, PointerShape::Default);
}

TEST(EdgeDrag, AWallSeenOnEndMovesTheEdgeThatThePaletteMeans) {
    Desk desk;
    AddPanel(1, {0, 0, 3}, {20, 0, 3}, {20, 0, 0}, {0, 0, 0});
    AddPanel(0, {0, 5, 0}, {20, 5, 0}, {20, 20, 0}, {0, 20, 0});
    desk.main.DrawPlateView();
    desk.click(kEdgeMoveTool);
    Drag(desk, Desk::at(10, 0), 0, 20);
    EXPECT_EQ(PanelTable[1].Y[1], 1);
    EXPECT_EQ(PanelTable[1].Y[2], 1);
    EXPECT_EQ(PanelTable[1].Y[3], 0);
    PanelTable[1].Y[1] = PanelTable[1].Y[2] = 0.0;
    desk.main.DrawPlateView();
    desk.click(Tool3Option(1));
    Drag(desk, Desk::at(10, 0), 0, 20);
    EXPECT_EQ(PanelTable[1].Y[1], 0);
    EXPECT_EQ(PanelTable[1].Y[4], 1);
}

TEST(EdgeDrag, AnEdgeOfALargePlateBecomesAPlateOfItsOwn) {
    Desk desk;
    PutPlak({{0, 0}, {10, 0}, {20, 10}, {20, 20}, {10, 20}, {0, 10}});
    desk.main.DrawPlateView();
    desk.click(kEdgeMoveTool);
    Drag(desk, EdgeMiddle(1, 3), 20, 0);
    ASSERT_EQ(PlakCount, 2);
    EXPECT_EQ(Outline(1), "10,0 21,10 21,20 10,20 ");
    EXPECT_EQ(Outline(2), "0,0 10,0 10,20 0,10 ");
    EXPECT_EQ(int(PlakTable[1].KenarKodu[4]), PlateLink(2, 2));
    EXPECT_EQ(int(PlakTable[2].KenarKodu[2]), PlateLink(1, 4));
    Drag(desk, EdgeMiddle(2, 4), -20, 0); // four points: whole
    EXPECT_EQ(PlakCount, 2);
}

// Levels: a square slab seen turned, so that its heights show on the screen.
TEST(EdgeDrag, LevelsTiltAboutTheFarEdge) {
    Desk desk;
    DrawPool(desk, Rectangle(5, 5, 20, 20));
    desk.click(kIsometricTool);
    desk.click(kEdgeMoveTool);
    const double dy = -2.0 * PlateScale; // 2 m up
    Drag(desk, EdgeMiddle(1, 2), 7, dy, false);
    EXPECT_EQ(Levels(1), "0.00 2.00 2.00 0.00 ");
    EXPECT_EQ(desk.note(), "Kot=2 m  dZ=2");
    EXPECT_EQ(desk.window.pointerShape, PointerShape::NorthSouth);
    EXPECT_EQ(PanelTable[2].Z[3], PlakTable[1].Z[3]); // walls keep their feet on the slab
    EXPECT_EQ(PanelTable[2].Z[4], PlakTable[1].Z[2]);
    EXPECT_EQ(PanelTable[1].Z[3], PlakTable[1].Z[2]);
    EXPECT_EQ(PanelTable[2].Z[1], 3);
    desk.move({0, 0});
    Drag(desk, EdgeMiddle(1, 2), 0, 2.0 * PlateScale);
    EXPECT_EQ(Levels(1), "0.00 0.00 0.00 0.00 ");
    Drag(desk, EdgeMiddle(1, 4), 0, dy);
    EXPECT_EQ(Levels(1), "2.00 0.00 0.00 2.00 ");
    EXPECT_EQ(PanelTable[4].Z[3], 2); // the last edge ends at point 1
    EXPECT_NEAR(PanelTable[3].Z[4], 0, 1e-9);
    desk.click(Tool2Option(2));
    Drag(desk, EdgeMiddle(1, 2), 0, -PlateScale, false);
    EXPECT_EQ(Levels(1), "3.00 1.00 1.00 3.00 ");
}

TEST(EdgeDrag, LevelsTiltAboutALinkedOrAFixedEdge) {
    Desk desk;
    PutPlak(Rectangle(0, 0, 10, 20));
    PutPlak(Rectangle(10, 0, 10, 20));
    MeshGenisligi = 1;
    KomsulukKur(MeshGenisligi);
    ASSERT_LT(int(PlakTable[1].KenarKodu[2]), 0);
    desk.main.DrawPlateView();
    desk.click(kIsometricTool);
    desk.click(kEdgeMoveTool);
    Drag(desk, PlatePointPixels(1, 1), 0, -PlateScale); // a point: still about the common edge
    EXPECT_EQ(Levels(1), "1.00 0.00 0.00 1.00 ");
    EXPECT_EQ(Levels(2), "0.00 0.00 0.00 0.00 ");

    desk.click(Tool2Option(0)); // now about its own upper side
    desk.move(EdgeMiddle(2, 1));
    EXPECT_EQ(desk.note(), "SABIT KENAR");
    desk.press(EdgeMiddle(2, 1));
    EXPECT_EQ(EdgeDragFixed, 1);
    EXPECT_EQ(FixedItem, (EdgeItem{1002, 1}));
    EXPECT_EQ(desk.prompt(), "PLAK KENARI veya NOKTA SECIN < ESC : IPTAL >");
    Drag(desk, EdgeMiddle(2, 3), 0, -PlateScale);
    EXPECT_EQ(Levels(2), "0.00 0.00 1.00 1.00 ");
    EXPECT_EQ(EdgeDragFixed, 0);
}

TEST(EdgeDrag, APanelEdgeLiftsItsTwoCorners) {
    Desk desk;
    AddPanel(0, {0, 0, 0}, {20, 0, 0}, {20, 20, 0}, {0, 20, 0});
    desk.main.DrawPlateView();
    desk.click(kIsometricTool);
    desk.click(kEdgeMoveTool);
    Drag(desk, Middle(PanelCornerPixels(1, 2), PanelCornerPixels(1, 3)), 0, 1.5 * PlateScale);
    EXPECT_EQ(PanelTable[1].Z[1], 0);
    EXPECT_EQ(PanelTable[1].Z[2], -1.5);
    EXPECT_EQ(PanelTable[1].Z[3], -1.5);
}

TEST(EdgeDrag, APlateWithoutRoomForItsScratchEndsTheCommand) {
    Desk desk;
    std::vector<PlanPoint> outline;
    for (int k = 0; k < 198; ++k)
        outline.push_back({10 + 10 * std::cos(2 * kPi * k / 198), 10 + 10 * std::sin(2 * kPi * k / 198)});
    PutPlak(outline);
    desk.main.DrawPlateView();
    const std::string before = Outline(1);
    desk.click(kEdgeMoveTool);
    Drag(desk, PlatePointPixels(1, 50), 30, 30);
    EXPECT_EQ(desk.prompt(), "KENAR KAYDIRMA YAPILAMADI, TABLO SINIRI ASILDI: ELEMAN (201) SINIR 0..200");
    EXPECT_EQ(Outline(1), before);
    EXPECT_EQ(CommandState + PickStage + EdgeHitCount, 0);
}

} // namespace havuz
