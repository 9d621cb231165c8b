// The wheel and the middle button: what stands still, what goes along, what the next fit takes back. 20 m * 20 m stand
// at 20 pixels a metre in the fitted view, 30 from left and top.
#include "hand_models.h"
#include "plak_support.h"
#include "support.h"
#include "ui/commands/tools.h"
#include "ui/window/view_habits.h"
#include "ui_support.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz {

namespace {

void AddFlat(double x, double y, double lx, double ly) {
    AddPanel(0, {x, y, 0}, {x + lx, y, 0}, {x + lx, y + ly, 0}, {x, y + ly, 0});
}

void Wheel(Desk &desk, int steps, ScreenPoint at) { desk.window.TurnWheel(kScr, steps, at.x, at.y); }
void Pan(Desk &desk, double dx, double dy) { desk.window.PanBy(kScr, dx, dy); }

// A desk with plates and panels in the corners of 20 m * 20 m, meshes of 1 m between them.
struct ModelDesk : Desk {
    explicit ModelDesk(int view) {
        AddFlat(0, 0, 4, 4);
        AddFlat(16, 16, 4, 4);
        AddGrid(2, 2);
        view == 1 ? main.DrawPlateView() : main.DrawMeshView();
    }
};

} // namespace

TEST(ViewHabits, TheWheelZoomsAboutThePointerUntilTheNextFit) {
    for (const int view : {1, 2})
        for (const int iso : {0, 1}) {
            SCOPED_TRACE(testing::Message() << "view " << view << " iso " << iso);
            ResetAll();
            ModelDesk desk(view);
            IsoView = iso;
            desk.main.RedrawView();
            const auto screen = [view] { return view == 1 ? PlateScreen(2, 1, 0) : MeshScreen(2, 1, 0); };
            const double &scale = view == 1 ? PlateScale : MeshScale;
            const double fitted = scale, other = view == 1 ? MeshScale : PlateScale;
            const ScreenPoint at = screen();
            desk.scr.log.clear();
            Wheel(desk, 2, at);
            EXPECT_DOUBLE_EQ(scale, fitted * kZoomStep * kZoomStep);
            EXPECT_NEAR(screen().x, at.x, 1e-9);
            EXPECT_NEAR(screen().y, at.y, 1e-9);
            EXPECT_NE(desk.scr.log.find("polygon"), std::string::npos);
            EXPECT_EQ(view == 1 ? MeshScale : PlateScale, other);
            Wheel(desk, -3, at);
            EXPECT_NEAR(scale, fitted / kZoomStep, 1e-9);
            Pan(desk, 7, -11);
            EXPECT_NEAR(screen().x, at.x + 7, 1e-9);
            EXPECT_NEAR(screen().y, at.y - 11, 1e-9);
            EXPECT_EQ(KeepZoom + KeepPlateFit, 0);
            EXPECT_EQ(GorunusModu, view);
            desk.main.RedrawView();
            EXPECT_EQ(scale, fitted);
            EXPECT_NEAR(screen().x, at.x, 1e-9);
        }
}

TEST(ViewHabits, AnEmptyModelAndEndlessTurningDoNoHarm) {
    Desk desk;
    for (const int steps : {1000000, -1000000, 1, -1, 0}) {
        Wheel(desk, steps, {200, 100});
        EXPECT_GE(PlateScale, kSmallestScale);
        EXPECT_LE(PlateScale, kLargestScale);
    }
    desk.window.TurnWheel(kOverviewPicture, 3, 1, 1);
    desk.main.DrawMeshView(); // without meshes
    Wheel(desk, 3, {200, 100});
    EXPECT_DOUBLE_EQ(MeshScale, 20 * std::pow(kZoomStep, 3));
    EXPECT_EQ(desk.prompt(), "");
}

// Where no pixel number reaches, the view is fitted again and the program goes on.
TEST(ViewHabits, APlaceBeyondThePixelsEndsTheCommandOnly) {
    for (const int view : {1, 2}) {
        ResetAll();
        ModelDesk desk(view);
        desk.click(view == 1 ? kCutTool : kPointLoadTool);
        Pan(desk, 1e12, 0);
        EXPECT_EQ(desk.prompt().rfind("ZOOM YAPILAMADI, SAYI ALANINA SIGMIYOR: ", 0), 0U) << desk.prompt();
        EXPECT_EQ(view == 1 ? PlateOffsetX : MeshOffsetX, 30);
        EXPECT_EQ(CommandState + KeepZoom + KeepPlateFit, 0);
        Wheel(desk, 1, {100, 100});
        EXPECT_EQ(desk.prompt().rfind("ZOOM", 0), 0U); // no command was armed: nothing clears it
        EXPECT_DOUBLE_EQ(view == 1 ? PlateScale : MeshScale, 25);
    }
}

// A model that shows as a point cannot be fitted: the view before comes back by itself.
TEST(ViewHabits, APointInTheRotatedViewComesBack) {
    Desk desk;
    AddFlat(1, 1, 0, 0);
    desk.click(kIsometricTool);
    const double offset = PlateOffsetX;
    EXPECT_EQ(EndStatus([&] { Pan(desk, 1e12, 0); }), -1);
    EXPECT_EQ(PlateOffsetX, offset);
}

TEST(ViewHabits, AVerticalPlateIsDrawnThroughTheMovedView) {
    ModelDesk desk(1);
    desk.click(kVerticalPlateTool);
    desk.press(Desk::at(6, 6));
    Wheel(desk, 3, {100, 250});
    Pan(desk, 40, 13);
    EXPECT_NEAR(desk.window.Line(RubberLine(1)).x1, Desk::at(6, 6).x, 1e-9); // the line still starts there
    const double scale = PlateScale;
    desk.press(Desk::at(9, 6));
    EXPECT_EQ(PlateScale, scale); // the drawing of this command skips the fit
    desk.press(Desk::at(9, 8));
    ASSERT_EQ(PanelCount, 4);
    EXPECT_NEAR(PanelTable[3].X[1], 6, 0.006);
    EXPECT_NEAR(PanelTable[3].X[2], 9, 0.006);
    EXPECT_NEAR(PanelTable[4].Y[1], 6, 0.006);
    EXPECT_NEAR(PanelTable[4].Y[2], 8, 0.006);
    desk.cancel();
    desk.main.RedrawView();
    EXPECT_EQ(PlateScale, 20);
}

TEST(ViewHabits, BandsGoAlongAndTheirPanelsLieWhereTheyWerePicked) {
    ModelDesk desk(1);
    desk.click(kPanelCopyTool);
    desk.move(Desk::at(2, 2));
    Wheel(desk, 1, {50, 50}); // before the first pick
    desk.press(Desk::at(2, 2));
    desk.press(Desk::at(6, 7));
    Wheel(desk, 2, {300, 200});
    EXPECT_NEAR(desk.window.Line(RubberLine(1)).y1, Desk::at(6, 7).y, 1e-9);
    Pan(desk, -30, 5);
    desk.press(Desk::at(9, 11));
    ASSERT_EQ(PanelCount, 3);
    EXPECT_NEAR(PanelTable[3].X[1], 6, 1e-6);
    EXPECT_NEAR(PanelTable[3].X[3], 9, 1e-6);
    EXPECT_NEAR(PanelTable[3].Y[3], 11, 1e-6);
}

TEST(ViewHabits, APolygonGoesOnAcrossPans) {
    ModelDesk desk(1);
    desk.click(kPolygonTool);
    desk.press(Desk::at(6, 6));
    desk.press(Desk::at(9, 6));
    desk.scr.log.clear();
    Pan(desk, 25, 25);
    EXPECT_NE(desk.scr.log.find("style"), std::string::npos); // what was drawn of it is hatched again
    desk.press(Desk::at(9, 8));
    EXPECT_EQ(PlateOffsetX, 55); // the view stays as it was moved to
    EXPECT_NEAR(desk.window.Line(RubberLine(2)).x1, Desk::at(6, 6).x, 1e-9);
    EXPECT_NEAR(desk.window.Line(RubberLine(2)).x2, Desk::at(9, 8).x, 1e-9);
    EXPECT_EQ(PolyCount, 3);
    EXPECT_NEAR(PolyX[3], 9, 1e-9);
}

TEST(ViewHabits, ACaughtEdgeKeepsItsMarkerThroughZoomAndPress) {
    ModelDesk desk(1);
    desk.click(kEdgeMoveTool);
    Wheel(desk, 4, {100, 100});
    desk.move(Desk::at(4, 2)); // the right edge of panel 1
    ASSERT_GT(EdgeHitCount, 0);
    desk.press(Desk::at(4, 2)); // the view stays
    EXPECT_DOUBLE_EQ(PlateScale, 20 * std::pow(kZoomStep, 4));
    EXPECT_NEAR(EdgeMarkerX, Desk::at(4, 2).x, 1e-9);
    EXPECT_NEAR(EdgeMarkerY, Desk::at(4, 2).y, 1e-9);
    desk.drag(Desk::at(4, 2));
    desk.drag(Desk::at(4, 2));
    Wheel(desk, 1, Desk::at(4, 2)); // in the middle of the drag
    desk.drag(Desk::at(5, 2));
    desk.move(Desk::at(5, 2));
    EXPECT_NEAR(PanelTable[1].X[2], 5, 1e-6);
    EXPECT_NEAR(PanelTable[1].X[3], 5, 1e-6);
    EXPECT_NEAR(PanelTable[1].Y[3], 4, 1e-6);
}

TEST(ViewHabits, MeshPicksAndTheZoomWindowGoAlong) {
    ModelDesk desk(2);
    desk.click(kNodeMoveTool);
    desk.move(MeshScreen(1, 1, 0));
    Wheel(desk, 2, {100, 90});
    desk.press(MeshScreen(1, 1, 0));
    ASSERT_EQ(PickStage, 1);
    EXPECT_NEAR(desk.window.Line(Pol(1)).x1, MeshScreen(1, 1, 0).x, 1e-9);
    Pan(desk, 9, 9);
    EXPECT_NEAR(desk.window.Line(Pol(1)).x1, MeshScreen(1, 1, 0).x, 1e-9);
    desk.press(MeshScreen(1.4, 1.3, 0));
    EXPECT_NEAR(NoktaTable[5].X, 1.4, 1e-6);
    desk.cancel();

    desk.click(kZoomWinTool);
    desk.press(MeshScreen(5, 5, 0));
    desk.move(MeshScreen(10, 15, 0));
    Wheel(desk, -1, {10, 300});
    desk.press({1, 1});
    EXPECT_NEAR(MeshScale, 40, 1e-9); // as without the wheel
    EXPECT_NEAR(MeshOffsetX, 30 - 5 * 40, 1e-9);
}

TEST(ViewHabits, AfterATurnTheWheelIsTheFullDrawing) {
    ModelDesk desk(2);
    desk.move({100, 100});
    desk.drag({110, 95});
    ASSERT_EQ(DragRotated, 1);
    Wheel(desk, 1, {100, 100});
    const double scale = MeshScale;
    desk.move({111, 95});
    EXPECT_EQ(MeshScale, scale); // nothing left to draw
}

} // namespace havuz
