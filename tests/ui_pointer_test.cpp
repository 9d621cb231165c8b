// The pointer on the surface: zoom, turning, mesh editing, and the commands that copy, move, delete and draw plates.
// The surface leaves 500 * 400 pixels for the model, so that 20 m * 20 m stand at 20 pixels a metre, 30 from left and
// top.
#include "hand_models.h"
#include "model/number_text.h"
#include "model/project_file.h"
#include "plak_support.h"
#include "support.h"
#include "ui/commands/pointer.h"
#include "ui/commands/tools.h"
#include "ui_support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

void AddFlat(double x, double y, double lx, double ly, double z = 0.0) {
    AddPanel(0, {x, y, z}, {x + lx, y, z}, {x + lx, y + ly, z}, {x, y + ly, z});
}

// Two panels in opposite corners of 20 m * 20 m.
void AddTwoPanels(Desk &desk) {
    AddFlat(0, 0, 4, 4, 1.5);
    AddFlat(16, 16, 4, 4);
    desk.main.DrawPlateView();
}

std::string PlanOf(const PanelRecord &p) {
    std::string text;
    for (int k = 1; k <= 4; ++k)
        text += NumberText(p.X[k]) + "," + NumberText(p.Y[k]) + " ";
    return text;
}

bool BandShown(Desk &desk) {
    return desk.window.Shown(RubberLine(1)) && desk.window.Shown(RubberLine(2)) && desk.window.Shown(RubberLine(3)) &&
           desk.window.Shown(RubberLine(4));
}

} // namespace

TEST(Pointer, WindowZoomTakesTheCornersOfThePressAndOfTheLastMove) {
    for (const bool backwards : {false, true}) {
        ResetAll();
        Desk desk;
        AddGrid(2, 2);
        desk.main.DrawMeshView();
        desk.click(kZoomWinTool);
        EXPECT_EQ(desk.prompt(), "ZOOM WINDOW ICIN 1. NOKTAYI SECIN");
        const ScreenPoint a{130, 130}, b{230, 330};
        desk.window.confined = true;
        desk.press(backwards ? b : a);
        EXPECT_EQ(desk.prompt(), "ZOOM WINDOW ICIN 2. NOKTAYI SECIN");
        desk.move(backwards ? a : b);
        EXPECT_TRUE(BandShown(desk));
        EXPECT_FALSE(desk.window.confined);
        if (!backwards) {
            EXPECT_EQ(desk.window.Line(RubberLine(1)), (LineEnds{130, 130, 230, 130}));
            EXPECT_EQ(desk.window.Line(RubberLine(2)), (LineEnds{130, 330, 230, 330}));
            EXPECT_EQ(desk.window.Line(RubberLine(3)), (LineEnds{130, 130, 130, 330}));
            EXPECT_EQ(desk.window.Line(RubberLine(4)), (LineEnds{230, 130, 230, 330}));
        }
        desk.press({1, 1}); // its own position does not count
        EXPECT_EQ(MeshScale, 40);
        EXPECT_EQ(MeshOffsetX, 30 - 5 * 40);
        EXPECT_EQ(MeshOffsetY, 30 - 5 * 40);
        EXPECT_EQ(HomeScale, 20); // what the dynamic zoom starts from
        EXPECT_EQ(KeepZoom, 0);
        EXPECT_EQ(ZoomPending + PickStage, 0);
        EXPECT_EQ(desk.prompt(), "");
        EXPECT_FALSE(BandShown(desk));
        desk.main.RedrawView();
        EXPECT_EQ(MeshScale, 20);
    }
}

TEST(Pointer, AZoomWithoutHeightIsCancelledAndMustBeArmedAgain) {
    Desk desk;
    AddGrid(2, 2);
    desk.main.DrawMeshView();
    desk.click(kZoomWinTool);
    desk.press({130, 130});
    desk.move({230, 130});
    desk.press({230, 130});
    EXPECT_EQ(ZoomPending, 0);
    EXPECT_EQ(PickStage, 1); // wanted
    desk.press({130, 130});
    desk.move({230, 330});
    desk.press({230, 330});
    EXPECT_EQ(MeshScale, 20);
    desk.click(kZoomWinTool);
    EXPECT_EQ(PickStage, 0);
    desk.press({130, 130});
    desk.move({230, 330});
    desk.cancel();
    EXPECT_EQ(ZoomPending + PickStage, 0);
    EXPECT_FALSE(BandShown(desk));
}

TEST(Pointer, AnIdleDragTurnsTheView) {
    Desk desk;
    desk.move({100, 100});
    desk.drag({110, 100});
    const double A = ViewAngleA, B = ViewAngleB;
    desk.drag({120, 100}); // without panels nothing turns
    EXPECT_EQ(ViewAngleB, B);
    AddTwoPanels(desk);
    AddGrid(2, 2);
    desk.main.DrawMeshView();
    desk.move({100, 100});
    desk.scr.log.clear();
    desk.drag({110, 95});
    EXPECT_DOUBLE_EQ(ViewAngleB, B - 0.1);
    EXPECT_DOUBLE_EQ(ViewAngleA, A + 0.05);
    EXPECT_EQ(DragRotated, 1);
    EXPECT_EQ(desk.scr.log.find("polygon"), std::string::npos); // outlines only
    desk.move({110, 95});
    EXPECT_EQ(DragRotated, 0);
    EXPECT_NE(desk.scr.log.find("polygon"), std::string::npos);
    desk.click(kPointLoadTool); // armed: a drag turns nothing
    desk.drag({150, 95});
    EXPECT_DOUBLE_EQ(ViewAngleB, B - 0.1);
}

TEST(Pointer, LoadsAndSupportsAskAtTheNodeUnderThePointer) {
    for (const auto &[tool, form] : {std::pair{kPointLoadTool, "NOKYUK"}, {kSupportTool, "MESTIP"}}) {
        ResetAll();
        Desk desk;
        AddGrid(2, 2);
        desk.main.DrawMeshView();
        desk.click(tool);
        desk.move({300, 300});
        EXPECT_EQ(desk.note(), "hidden");
        desk.press({300, 300}); // empty surface
        EXPECT_FALSE(desk.window.FormShown(form));
        desk.move({52, 31});
        EXPECT_EQ(desk.note(), "Nokta:2");
        EXPECT_EQ(desk.window.state(kLabel1).left, 62);
        EXPECT_EQ(desk.window.state(kLabel1).top, 51);
        desk.window.PressAt(kScr, kRightButton, 52, 31);
        EXPECT_FALSE(desk.window.FormShown(form));
        desk.press({52, 31});
        EXPECT_TRUE(desk.window.FormShown(form));
        EXPECT_EQ(desk.window.FormPlace(form), (Place{950, 1100}));
        EXPECT_FALSE(desk.window.formState(kMain).enabled);
        EXPECT_EQ(CommandState, ToolOf(tool)->arms);
    }
}

// Copy, move, delete

TEST(Pointer, APanelIsCopiedInThreePresses) {
    Desk desk;
    AddTwoPanels(desk);
    desk.click(kPanelCopyTool);
    desk.press({300, 50}); // nothing under the pointer
    EXPECT_EQ(PickStage, 0);
    desk.move(Desk::at(2, 3));
    EXPECT_EQ(desk.note(), "1. PLAK");
    desk.press(Desk::at(2, 3));
    EXPECT_EQ(desk.note(), "X=2Y=33"); // the offset of 30 in the second number is wanted
    desk.press(Desk::at(16.05, 15.95));
    EXPECT_TRUE(BandShown(desk));
    EXPECT_EQ(desk.window.Line(RubberLine(4)), (LineEnds{350, 350, 350, 350}));
    desk.move(Desk::at(13, 14.5));
    EXPECT_EQ(desk.note(), "X=13 Y=14.5");
    EXPECT_EQ(desk.window.Line(RubberLine(2)), (LineEnds{350, 320, 290, 320}));
    desk.press(Desk::at(12, 11));
    ASSERT_EQ(PanelCount, 3);
    EXPECT_EQ(PlanOf(PanelTable[3]), "16,16 12,16 12,11 16,11 ");
    EXPECT_EQ(PanelTable[3].Z[1], 1.5);
    EXPECT_EQ(int(PanelTable[3].No), 1); // all fields of the source, its number too
    EXPECT_EQ(PlanOf(PanelTable[1]), "0,0 4,0 4,4 0,4 ");
    EXPECT_FALSE(BandShown(desk));
    EXPECT_EQ(SelectedPanel + PickStage, 0);
    EXPECT_EQ(CommandState, kPanelCopy); // waits for the next
}

TEST(Pointer, AMovedPanelTakesItsCornersThroughThreeSnaps) {
    Desk desk;
    AddTwoPanels(desk);
    AddFlat(3.95, 10.05, 1, 1);
    AddFlat(10.05, 3.95, 1, 1);
    desk.click(kPanelMoveTool);
    desk.move(Desk::at(17, 17));
    desk.press(Desk::at(17, 17));
    desk.press(Desk::at(10.2, 10));
    EXPECT_EQ(PanelTable[2].X[1], static_cast<float>(10.2));
    PanelTable[2].X[1] = PanelTable[2].Y[1] = 10.0;
    desk.press(Desk::at(4.05, 4.05)); // to (4, 4), then the left side, then the upper side move on: wanted
    EXPECT_EQ(PlanOf(PanelTable[2]), "10.05,10.05 3.95,10.05 3.95,3.95 10.05,3.95 ");
    EXPECT_EQ(PanelCount, 4);
    desk.move(Desk::at(2, 2));
    desk.press(Desk::at(2, 2));
    desk.press(Desk::at(1, 1));
    desk.cancel();
    EXPECT_EQ(PanelTable[1].X[1], 1); // the first corner stays where it was put
    EXPECT_FALSE(BandShown(desk));
    EXPECT_EQ(CommandState + PickStage, 0);
}

TEST(Pointer, CopyingAPlateEndsTheCommandAlone) {
    Desk desk;
    AddTwoPanels(desk);
    PutPlak(Rectangle(8, 8, 4, 4));
    const std::string before = ProjectText();
    desk.click(kPanelCopyTool);
    desk.move(Desk::at(10, 10));
    EXPECT_EQ(SelectedPanel, 1001);
    for (const ScreenPoint p : {Desk::at(10, 10), Desk::at(12, 12), Desk::at(14, 14)})
        desk.press(p);
    EXPECT_EQ(desk.prompt(), "PLAK KOPYALAMA YAPILAMADI, TABLO SINIRI ASILDI: PanelTable(1001) SINIR 0..1000");
    EXPECT_EQ(ProjectText(), before);
    EXPECT_EQ(CommandState + PickStage + SelectedPanel, 0);
    EXPECT_FALSE(desk.window.Checked(kPanelCopyTool));
    EXPECT_FALSE(BandShown(desk));
}

TEST(Pointer, DeletingAPlateDropsTheLastPanel) {
    Desk desk;
    AddTwoPanels(desk);
    AddFlat(8, 0, 4, 4);
    PutPlak(Rectangle(8, 8, 4, 4));
    desk.click(kPanelDeleteTool);
    desk.press(Desk::at(2, 2)); // not hovered yet
    EXPECT_EQ(PanelCount, 3);
    desk.move(Desk::at(2, 2));
    desk.press(Desk::at(2, 2));
    EXPECT_EQ(PanelCount, 2);
    EXPECT_EQ(PlanOf(PanelTable[1]), "16,16 20,16 20,20 16,20 ");
    desk.move(Desk::at(10, 10));
    EXPECT_EQ(desk.note(), "1001. PLAK");
    desk.press(Desk::at(10, 10)); // wanted
    EXPECT_EQ(PanelCount, 1);
    EXPECT_EQ(PlakCount, 1);
    for (int i = 0; i < 2; ++i) {
        desk.move(Desk::at(10, 10));
        desk.press(Desk::at(10, 10));
    }
    EXPECT_EQ(PanelCount, 0); // no count below none
}

// Drawing

TEST(Pointer, VerticalPlatesFollowALine) {
    Desk desk;
    desk.click(kVerticalPlateTool);
    desk.window.Type(Tool1Text(0), "25,5");
    desk.window.Type(Tool1Text(2), "abc");
    desk.move({55, 70});
    EXPECT_EQ(desk.note(), "X=1.25  Y=2.00");
    EXPECT_EQ(desk.window.state(kLabel1).left, 55);
    EXPECT_EQ(desk.window.state(kLabel1).top, 95);
    desk.press({55, 70});
    EXPECT_EQ(desk.window.state(RubberLine(1)).style, RubberStyle::Dashed);
    desk.move({150, 80});
    EXPECT_EQ(desk.window.Line(RubberLine(1)), (LineEnds{55, 70, 150, 80}));
    desk.press({155.1, 70});
    ASSERT_EQ(PanelCount, 1);
    const PanelRecord &panel = PanelTable[1];
    EXPECT_EQ(PlanOf(panel), "1.25,2 6.26,2 6.26,2 1.25,2 "); // two decimals
    EXPECT_EQ(int(panel.No), 1);
    EXPECT_EQ(panel.D, 25.5);
    EXPECT_EQ(panel.Z[2], 3);
    EXPECT_EQ(panel.Z[3], 0);
    EXPECT_EQ(int(panel.Nx), 5);
    EXPECT_EQ(int(panel.Ny), 3);
    EXPECT_EQ(PlateScale, 20); // the picture stands still
    desk.press({56.5, 71});    // 0.09 m from the first corner: there it ends
    EXPECT_EQ(PlanOf(PanelTable[2]), "6.26,2 1.25,2 1.25,2 6.26,2 ");
    desk.press({57, 71}); // begins where the pointer was; too short, but one division
    EXPECT_EQ(PlanOf(PanelTable[3]).substr(0, 9), "1.33,2.05");
    EXPECT_EQ(int(PanelTable[3].Nx), 1);
    desk.cancel();
    EXPECT_FALSE(desk.window.Shown(RubberLine(1)));
    EXPECT_EQ(desk.window.state(RubberLine(1)).style, RubberStyle::Solid);
}

TEST(Pointer, APolygonGrowsPointByPointAndAsksAtTheEnd) {
    Desk desk;
    AddTwoPanels(desk);
    desk.click(kPolygonTool);
    desk.press(Desk::at(15.95, 16.05));
    EXPECT_EQ(PolyCount, 1);
    EXPECT_EQ(PolyX[1], 16);
    desk.move(Desk::at(10, 12));
    EXPECT_EQ(desk.window.Line(RubberLine(1)), (LineEnds{350, 350, 230, 270}));
    desk.press(Desk::at(10, 12));
    EXPECT_TRUE(desk.window.Shown(RubberLine(2)));
    EXPECT_EQ(desk.window.Line(RubberLine(2)), (LineEnds{350, 350, 230, 270}));
    PanelTable[1].X[1] = -20; // the fit changes with the next press
    desk.scr.log.clear();
    desk.press(Desk::at(10, 8));
    EXPECT_EQ(PolyCount, 3);
    EXPECT_DOUBLE_EQ(PolyX[3], 10);
    EXPECT_EQ(PlateScale, 12.5);
    const ScreenPoint first = Desk::at(16, 16), last = Desk::at(PolyX[3], PolyY[3]);
    EXPECT_EQ(desk.window.Line(RubberLine(2)), (LineEnds{first.x, first.y, last.x, last.y}));
    EXPECT_EQ(desk.window.Line(RubberLine(1)), (LineEnds{last.x, last.y, last.x, last.y}));
    EXPECT_NE(desk.scr.log.find("polygon 15 on #0000a0 style 1 480,230 405,180 405,130\n"), std::string::npos)
        << desk.scr.log;
    desk.cancel();
    EXPECT_TRUE(desk.window.FormShown("yesno"));
    EXPECT_FALSE(desk.window.FormShown(kTool1));
    EXPECT_EQ(PolyCount, 3);
    EXPECT_EQ(CommandState, 0);
}

TEST(Pointer, APolygonOfOnePointStillAsksAndAFullOneFails) {
    Desk desk;
    desk.click(kPolygonTool);
    desk.press({100, 100});
    desk.cancel();
    EXPECT_TRUE(desk.window.FormShown("yesno"));
    desk.window.HideForm("yesno");
    desk.main.EnableMainWindow();
    desk.click(kPolygonTool);
    EXPECT_EQ(PolyCount, 0);
    for (int i = 1; i <= 200; ++i)
        desk.press({100.0 + i, 100});
    EXPECT_EQ(PolyCount, 200);
    EXPECT_EQ(CommandState, kPolygon);
    desk.press({100, 300});
    EXPECT_EQ(desk.prompt(), "POLYGON PLAK CIZIMI YAPILAMADI, TABLO SINIRI ASILDI: ELEMAN (201) SINIR 0..200");
    EXPECT_EQ(CommandState, 0);
}

TEST(Pointer, ACutThatFailsKeepsItsFirstPoint) {
    Desk desk;
    PutPool(Rectangle(0, 0, 20, 20));
    desk.main.DrawPlateView();
    desk.click(kCutTool);
    desk.press(Desk::at(10, -1));
    desk.press(Desk::at(12, -1)); // crosses nothing
    EXPECT_EQ(PickStage, 1);
    EXPECT_EQ(CommandState, kPolygonCut);
    EXPECT_EQ(PlakCount, 1);
    EXPECT_DOUBLE_EQ(CutLineX[1], 10);
    desk.press(Desk::at(10, 21));
    EXPECT_EQ(PlakCount, 2);
    EXPECT_EQ(PanelCount, 6);
    EXPECT_EQ(CommandState + PickStage, 0);
    EXPECT_FALSE(desk.window.Checked(kCutTool));
    EXPECT_FALSE(desk.window.Shown(RubberLine(1)));
    EXPECT_EQ(desk.note(), "hidden");
}

} // namespace havuz
