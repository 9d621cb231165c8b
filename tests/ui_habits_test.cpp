// Habits of the hand: points by the keyboard, what the prompt says at the end, views that stand still, boxes that are
// stored before they are refilled.
#include "export/export_file.h"
#include "hand_models.h"
#include "model/options.h"
#include "model/project_file.h"
#include "support.h"
#include "ui/forms/dialogs.h"
#include "ui/window/transactions.h"
#include "ui_support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

void TypePoint(Desk &desk, const std::string &text) {
    ASSERT_TRUE(desk.window.Type(kPointEntry, text)) << text;
    desk.window.Press(Key::Enter);
}

} // namespace

// An L-shaped pool of 8 x 4 m, to the millimetre, near a corner that would catch a click.
TEST(TypedPoints, DrawAPoolByTheKeyboardAlone) {
    Desk desk;
    EXPECT_FALSE(desk.window.Shown(kPointEntry));
    desk.click(kPolygonTool);
    ASSERT_TRUE(desk.window.Shown(kPointEntry));
    for (const char *text : {"0;0", "8;0", "@0;4", "@3,5<180", "4,5;1,999", "@-4,5;0"})
        TypePoint(desk, text);
    TypePoint(desk, "12,3");
    EXPECT_EQ(desk.prompt().rfind("NOKTA ANLASILMADI: 12,3", 0), 0U) << desk.prompt();
    desk.window.Press(Key::Escape);
    EXPECT_EQ(desk.window.Text(kPointEntry), "");
    EXPECT_EQ(PolyCount, 6);
    EXPECT_EQ(desk.window.Text(kSnapNote), "X=0  Y=1.999");
    EXPECT_TRUE(desk.window.Shown(kSnapNote));
    desk.window.Press(Key::Escape); // on the surface: as the right button
    EXPECT_FALSE(desk.window.Shown(kPointEntry));
    EXPECT_FALSE(desk.window.Shown(kSnapNote));
    desk.click({"yesno", "Tamam", 0});
    ASSERT_EQ(PlakTable[1].NoktaSayisi, 6);
    const double wanted[6][2] = {{0, 0}, {8, 0}, {8, 4}, {4.5, 4}, {4.5, 1.999}, {0, 1.999}};
    for (int k = 1; k <= 6; ++k) {
        EXPECT_NEAR(PlakTable[1].X[k], wanted[k - 1][0], 1e-6) << k;
        EXPECT_NEAR(PlakTable[1].Y[k], wanted[k - 1][1], 1e-6) << k;
    }
}

TEST(TypedPoints, PlaceTheCornersOfAMoveAndTakeNoCorner) {
    Desk desk;
    AddPanel(0, {0, 0, 0}, {4, 0, 0}, {4, 2, 0}, {0, 2, 0});
    desk.main.DrawPlateView();
    desk.click(kPanelMoveTool);
    EXPECT_FALSE(desk.window.Shown(kPointEntry));
    desk.move(Desk::at(2, 1));
    desk.press(Desk::at(2, 1));
    desk.move(Desk::at(3.95, 2.05));
    EXPECT_TRUE(desk.window.Shown(kSnapNote));
    EXPECT_EQ(desk.window.Text(kSnapNote), "X=4  Y=2");
    desk.move(Desk::at(3.5, 2.05));
    EXPECT_FALSE(desk.window.Shown(kSnapNote));
    TypePoint(desk, "0,05;0,05"); // within 0.1 m of a corner
    TypePoint(desk, "@3;1,5");
    EXPECT_NEAR(PanelTable[1].X[1], 0.05, 1e-6);
    EXPECT_NEAR(PanelTable[1].X[3], 3.05, 1e-6);
    EXPECT_NEAR(PanelTable[1].Y[3], 1.55, 1e-6);
    EXPECT_EQ(desk.main.steps().history().steps(), 1U) << "both corners are one step";
}

TEST(Prompts, TellWhatAMeshAnExportAndAnEditLeft) {
    Desk desk;
    AddPanel(0, {0, 0, 0}, {4, 0, 0}, {4, 2, 0}, {0, 2, 0});
    PanelTable[1].Nx = 4;
    PanelTable[1].Ny = 2;
    PanelTable[1].D = 30;
    HavuzTip = 1;
    desk.click(kAutoMeshTool);
    EXPECT_EQ(desk.prompt().rfind("MESH TAMAM (ALISILMIS): 15 NOKTA, 8 MESH, ", 0), 0U) << desk.prompt();
    desk.window.SetItems(kMeshWarnings, {"a warning"});
    desk.click(kAltnot);
    EXPECT_TRUE(desk.window.FormShown("MESHRAP"));
    desk.window.CloseForm("MESHRAP");
    desk.window.saveNames = {desk.program.file("a.std"), desk.program.file("none/a.s90")};
    desk.click(kStaadTool);
    EXPECT_EQ(desk.prompt(), "YAZILDI: " + desk.program.file("a.std"));
    desk.click(kSapTool);
    EXPECT_EQ(desk.prompt().rfind("SAP90 KONVERTOR YAPILAMADI, DOSYA", 0), 0U) << desk.prompt();
    desk.main.DrawPlateView();
    desk.click(kPanelDeleteTool);
    desk.move(Desk::at(2, 1));
    desk.press(Desk::at(2, 1));
    EXPECT_EQ(PanelCount, 0);
    EXPECT_EQ(desk.prompt(), "MESH ESKI: PLAKLAR DEGISTI, auto mesh YENILER");
}

TEST(Views, TheWheelsZoomSurvivesAPickAndAResultCanBeSwitchedOff) {
    Desk desk;
    AddGrid(3, 3);
    desk.main.DrawMeshView();
    desk.click(kMeshOnOffTool);
    desk.window.TurnWheel(kScr, 3, 100, 100);
    const double scale = MeshScale;
    desk.move(NodePixels(1) + Pixel{5, 5});
    desk.press(NodePixels(1) + Pixel{5, 5});
    EXPECT_EQ(MeshTable[1].Sil, 1);
    EXPECT_EQ(MeshScale, scale);
    desk.click(kZoomAllTool);
    EXPECT_NE(MeshScale, scale);
    ProjeYolu = desk.program.file("P");
    desk.click(kPointLoadTool);
    EXPECT_TRUE(desk.click(Option1(2)));
    EXPECT_TRUE(desk.window.Checked(Option1(2)));
    EXPECT_EQ(desk.prompt(), "SONUC YOK: ONCE FEA ANALIZI");
    EXPECT_TRUE(desk.click(Option1(2)));
    EXPECT_FALSE(desk.window.Checked(Option1(2)));
}

TEST(Views, TheAnchorIsThePointersPlaceWhereverACommandEnds) {
    Desk desk;
    AddGrid(3, 3);
    AddPanel(0, {0, 0, 0}, {3, 0, 0}, {3, 3, 0}, {0, 3, 0});
    desk.main.DrawMeshView();
    desk.click(kZoomWinTool);
    desk.press({100, 100});
    desk.move({300, 250});
    desk.press({300, 250});
    const double a = ViewAngleA, b = ViewAngleB;
    desk.drag({301, 250}); // the button is still down
    EXPECT_DOUBLE_EQ(ViewAngleB, b - 0.01);
    EXPECT_DOUBLE_EQ(ViewAngleA, a);
}

TEST(Tables, AMovedNodeIsDrawnHoweverItsCellIsLeftAndADetailIsKeptWhenThePageTurns) {
    for (const Key key : {Key::Down, Key::PageDown, Key::Enter}) {
        ResetAll();
        Desk desk;
        AddGrid(3, 3);
        desk.main.DrawMeshView();
        desk.click(kNodeTableTool);
        const Element cell{"KOORBIL", "X", 9};
        desk.window.GoTo(cell);
        desk.window.Type(cell, "7");
        desk.scr.log.clear();
        desk.window.Press(key);
        if (key == Key::Enter)
            desk.window.GoTo({"KOORBIL", "X", 0});
        EXPECT_EQ(NoktaTable[10].X, 7);
        EXPECT_NE(desk.scr.log, "") << static_cast<int>(key);
    }
    ResetAll();
    Desk desk;
    for (int i = 0; i < 12; ++i)
        AddPanel(0, {0, 0, 0}, {3, 0, 0}, {3, 3, 0}, {0, 3, 0});
    desk.click(kPanelTableTool);
    const Element detail{"FEAPLAK", "Deger", 12};
    desk.window.GoTo(detail);
    desk.window.Type(detail, "1,25");
    desk.window.Scroll({"FEAPLAK", "Kaydir", 0}, 2);
    EXPECT_EQ(PanelTable[1].G, 1.25);
    EXPECT_EQ(PanelTable[3].G, 0);
}

TEST(Forms, PaletteAndPopupLeaveTheMainWindowAsItWas) {
    Desk desk;
    desk.click(kVerticalPlateTool);
    desk.click(kMaterialTool); // cancels the palette
    ShowPalette(desk.main, kTool1);
    desk.window.CloseForm(kTool1);
    EXPECT_FALSE(desk.window.formState(kMain).enabled);
    desk.window.CloseForm("donsec");
    AddGrid(3, 3);
    desk.main.DrawMeshView();
    desk.click(kScr1);
    ASSERT_TRUE(desk.window.FormShown(kOverview));
    desk.window.TakeSize(700, 500); // the button comes back
    EXPECT_TRUE(desk.window.Shown(kScr1));
    desk.click(kScr1);
    desk.window.Leave();
    EXPECT_FALSE(desk.window.FormShown(kOverview));
    NodesHidden = 0;
    desk.click(kHideNodesTool);
    desk.click(kMeshOnOffTool); // another tool of the group
    EXPECT_TRUE(desk.window.Checked(kHideNodesTool));
    desk.click(kNewTool);
    EXPECT_FALSE(desk.window.Checked(kHideNodesTool));
}

// What is no node of the model is left out of the drawing, and named.
TEST(Forms, AMeshThatCannotBeDrawnIsNamed) {
    for (const int corner : {0, 17, 6000, -5}) {
        ResetAll();
        Desk desk;
        AddGrid(3, 3);
        MeshTable[4].N3 = corner;
        const std::string path = desk.program.file("P.POL");
        WriteBytes(path, ProjectText());
        desk.window.OpenFile(path);
        EXPECT_EQ(MeshCount, 9);
        EXPECT_EQ(desk.prompt(), "MESH 4 CIZILEMEDI: KOSELERI NOKTA DEGIL");
        desk.click(kMeshOnOffTool);
        desk.move({300, 200});
        EXPECT_EQ(desk.main.steps().takeFailure(), "");
    }
}

} // namespace havuz
