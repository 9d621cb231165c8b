// Whole projects by hand: from an empty window to results, on a display.
#include "mesh/polygon_pool.h"
#include "ui/window/command_state.h"
#include "view/projection.h"
#include "window_desk.h"

#include <gtest/gtest.h>

namespace havuz {

static Element In(std::string_view form, std::string_view name, int index = 0) { return {form, name, index}; }

TEST(project, RectangularPoolFromAnEmptyWindowToItsResults) {
    WindowDesk desk;
    desk.shot("01-empty");
    ASSERT_TRUE(desk.click(ChkButton(2)));
    ASSERT_TRUE(desk.click(In("POOLlib", "Sayfa", 1)));
    ASSERT_TRUE(desk.type(In("POOLlib", "Lx", 1), "8"));
    ASSERT_TRUE(desk.key("Return"));
    desk.shot("02-library");
    ASSERT_TRUE(desk.click(In("POOLlib", "Tamam")));
    EXPECT_EQ(PanelCount, 9);
    EXPECT_EQ(Lx, 8.0);
    desk.shot("03-plates");
    ASSERT_TRUE(desk.click(ChkButton(0)));
    ASSERT_TRUE(desk.type(In("POOLGEN", "Tex", 0), "deneme"));
    desk.shot("04-general");
    ASSERT_TRUE(desk.click(In("POOLGEN", "Tamam")));
    ASSERT_TRUE(desk.click(ChkButton(1)));
    desk.shot("05-material");
    ASSERT_TRUE(desk.click(In("donsec", "Tamam")));
    ASSERT_TRUE(desk.click(ChkButton(4)));
    EXPECT_GT(MeshCount, 100);
    desk.shot("06-mesh");

    const ScreenPoint node = NodePixels(NoktaCount);
    ASSERT_TRUE(desk.click(Check1(0)));
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

    ASSERT_TRUE(desk.click(ChkButton(11)));
    ASSERT_TRUE(desk.type(In("BILGI", "Tex"), "DENEME"));
    desk.shot("09-save");
    ASSERT_TRUE(desk.click(In("BILGI", "Tamam")));
    const std::string stem = CalismaDizini + "/DENEME";
    EXPECT_NE(ReadBytes(stem + ".POL"), "");
    ASSERT_TRUE(desk.click(ChkButton(7)));
    EXPECT_TRUE(desk.window.ended());
    EXPECT_EQ(desk.window.status(), 0);
    EXPECT_EQ(desk.window.program, desk.program.path() + "/RAPORCU.EXE");
    EXPECT_EQ(desk.window.argument, stem);
    EXPECT_EQ(ReadBytes(stem + ".DEP").size(), 384U * static_cast<std::size_t>(NoktaCount));
    EXPECT_EQ(ReadBytes(stem + ".SON").size(), 1536U * static_cast<std::size_t>(MeshCount));
    EXPECT_NE(ReadBytes(CalismaDizini + "/WORKPOOL").find("DENEME"), std::string::npos);
}

} // namespace havuz
