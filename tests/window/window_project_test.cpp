// Whole projects by hand: from an empty window to results, on a display.
#include "mesh/polygon_pool.h"
#include "ui/window/command_state.h"
#include "view/projection.h"
#include "window_desk.h"
#include "x_hand.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace havuz {

static Element In(std::string_view form, std::string_view name, int index = 0) { return {form, name, index}; }

TEST(project, RectangularPoolFromAnEmptyWindowToItsResults) {
    WindowDesk desk;
    desk.shot("01-empty");
    ASSERT_TRUE(desk.click(kLibraryTool));
    ASSERT_TRUE(desk.click(In("POOLlib", "Sayfa", 1)));
    ASSERT_TRUE(desk.type(In("POOLlib", "Lx", 1), "8"));
    ASSERT_TRUE(desk.key("Return"));
    desk.shot("02-library");
    ASSERT_TRUE(desk.click(In("POOLlib", "Tamam")));
    EXPECT_EQ(PanelCount, 9);
    EXPECT_EQ(Lx, 8.0);
    desk.shot("03-plates");
    ASSERT_TRUE(desk.click(kGeneralDataTool));
    ASSERT_TRUE(desk.type(In("POOLGEN", "Tex", 0), "deneme"));
    desk.shot("04-general");
    ASSERT_TRUE(desk.click(In("POOLGEN", "Tamam")));
    ASSERT_TRUE(desk.click(kMaterialTool));
    desk.shot("05-material");
    ASSERT_TRUE(desk.click(In("donsec", "Tamam")));
    ASSERT_TRUE(desk.click(kAutoMeshTool));
    EXPECT_GT(MeshCount, 100);
    desk.shot("06-mesh");

    const ScreenPoint node = NodePixels(NoktaCount);
    ASSERT_TRUE(desk.click(kPointLoadTool));
    ASSERT_TRUE(desk.move(node.x, node.y));
    const int loaded = SeciliNo;
    ASSERT_GT(loaded, 0);
    desk.shot("07-pick");
    ASSERT_TRUE(desk.clickAt(node.x, node.y));
    ASSERT_TRUE(desk.type(In("NOKYUK", "Tex", 2), "2.5"));
    desk.shot("08-load");
    ASSERT_TRUE(desk.key("Return"));
    EXPECT_EQ(NokYukTable[loaded].FZ, 2.5);
    ASSERT_TRUE(desk.cancelAt(node.x, node.y));

    ASSERT_TRUE(desk.click(kSaveTool));
    ASSERT_TRUE(desk.type(In("BILGI", "Tex"), "DENEME"));
    desk.shot("09-save");
    ASSERT_TRUE(desk.click(In("BILGI", "Tamam")));
    const std::string stem = CalismaDizini + "/DENEME";
    EXPECT_NE(ReadBytes(stem + ".POL"), "");
    ASSERT_TRUE(desk.click(kAnalysisTool));
    EXPECT_TRUE(desk.window.ended());
    EXPECT_EQ(desk.window.status(), 0);
    EXPECT_EQ(desk.window.program, desk.program.path() + "/RAPORCU.EXE");
    EXPECT_EQ(desk.window.argument, stem);
    EXPECT_EQ(ReadBytes(stem + ".DEP").size(), 384U * static_cast<std::size_t>(NoktaCount));
    EXPECT_EQ(ReadBytes(stem + ".SON").size(), 1536U * static_cast<std::size_t>(MeshCount));
    EXPECT_NE(ReadBytes(CalismaDizini + "/WORKPOOL").find("DENEME"), std::string::npos);
}

// The tank of 12 x 6 x 4 m, liquid to its edge: what is not typed stands in the boxes. At most ten clicks.
TEST(project, ATankFromTheEmptyWindowToItsResultsInFewClicks) {
    WindowDesk desk;
    const int before = hand::Presses();
    ASSERT_TRUE(desk.click(kLibraryTool));
    TypeAll(desk, {"12", "6", "30", "40", "4", "0", "4", "2"}); // Lx, Ly, dp, ds; levels: top, foot, liquid, soil
    desk.shot("tank-library");
    ASSERT_TRUE(desk.click(In("POOLlib", "Tamam")));
    ASSERT_TRUE(desk.click(kAutoMeshTool));
    const PanelRecord &base = PanelTable[1], &wall = PanelTable[2];
    EXPECT_EQ(base.X[3] - base.X[1], 12.0);
    EXPECT_EQ(base.Y[3] - base.Y[1], 6.0);
    EXPECT_EQ(*std::max_element(&wall.Z[1], &wall.Z[4] + 1), 4.0);
    EXPECT_EQ(SiviKotu, 4.0);
    ASSERT_TRUE(desk.key("s", true));
    ASSERT_TRUE(TypeAll(desk, {"DEPO"}));
    desk.shot("tank-saved");
    const std::string stem = CalismaDizini + "/DEPO";
    ASSERT_TRUE(desk.click(kAnalysisTool));
    EXPECT_TRUE(desk.window.ended());
    EXPECT_EQ(desk.window.program, desk.program.path() + "/RAPORCU.EXE");
    EXPECT_EQ(desk.window.argument, stem);
    EXPECT_EQ(ReadBytes(stem + ".SON").size(), 1536U * static_cast<std::size_t>(MeshCount));
    EXPECT_LE(hand::Presses() - before, 10);
    RecordProperty("clicks", hand::Presses() - before);
}

// An L-shaped pool of 8 x 4 m, to the millimetre, with no hand at the mouse.
TEST(project, AnLShapedPoolByTheKeyboardAlone) {
    WindowDesk desk;
    const int before = hand::Presses();
    for (int i = 0; i < 60 && desk.window.focused() != kPolygonTool; ++i) {
        hand::Key("Tab");
        desk.settle();
    }
    ASSERT_EQ(desk.window.focused(), kPolygonTool);
    ASSERT_TRUE(desk.key("space"));
    ASSERT_EQ(CommandState, kPolygon);
    ASSERT_TRUE(TypeAll(desk, {"0;0", "8;0", "@0;4", "@3,5<180", "4,5;1,999", "@-4,5;0"}));
    desk.shot("l-drawn");
    EXPECT_EQ(PolyCount, 6);
    ASSERT_TRUE(desk.key("Return")); // nothing typed: the polygon ends
    ASSERT_TRUE(desk.window.FormShown("yesno"));
    desk.shot("l-asked");
    ASSERT_TRUE(desk.key("Return"));
    const double wanted[6][2] = {{0, 0}, {8, 0}, {8, 4}, {4.5, 4}, {4.5, 1.999}, {0, 1.999}};
    ASSERT_EQ(PlakTable[1].NoktaSayisi, 6);
    for (int k = 1; k <= 6; ++k) {
        EXPECT_NEAR(PlakTable[1].X[k], wanted[k - 1][0], 1e-6) << k;
        EXPECT_NEAR(PlakTable[1].Y[k], wanted[k - 1][1], 1e-6) << k;
    }
    EXPECT_EQ(PanelCount, 6) << "a wall on each edge";
    EXPECT_EQ(hand::Presses(), before);
}

} // namespace havuz
