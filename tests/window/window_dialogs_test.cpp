// Dialogs, tables and palettes by hand: opened, filled, closed in each way there is; what every tool shows of itself.
#include "ui/commands/tools.h"
#include "ui/kit/button.h"
#include "view/projection.h"
#include "window_desk.h"

#include <QFileInfo>
#include <gtest/gtest.h>
#include <set>

namespace havuz {

static Element In(std::string_view form, std::string_view name, int index = 0) { return {form, name, index}; }

static bool Open(WindowDesk &desk, Element tool, std::string_view form) {
    return desk.click(tool) && desk.waitFor([&] { return desk.window.FormShown(form); });
}

// Hidden, the main window at work again, its tool cleared.
static bool Closed(WindowDesk &desk, Element tool, std::string_view form) {
    desk.settle();
    return !desk.window.FormShown(form) && !desk.window.formWidget(form)->isVisible() &&
           desk.window.formReachable(kMain) && !desk.window.Checked(tool);
}

struct ToolDialog {
    Element tool;
    std::string_view form;
    Element box; // no name: none to fill
    bool cancels;
};

TEST(dialogs, EachOpensTakesTextAndClosesInEachWay) {
    WindowDesk desk("");
    const ToolDialog dialogs[] = {{kGeneralDataTool, "POOLGEN", In("POOLGEN", "Tex", 2), false},
                                  {kMaterialTool, "donsec", {}, true},
                                  {kLibraryTool, "POOLlib", In("POOLlib", "Ortak", 2), true},
                                  {kPanelTableTool, "FEAPLAK", In("FEAPLAK", "No", 3), false},
                                  {kMeshTableTool, "MESHBIL", In("MESHBIL", "I", 3), false},
                                  {kNodeTableTool, "KOORBIL", In("KOORBIL", "X", 3), false},
                                  {kOpenTool, "LOADFILE", {}, true},
                                  {kSaveTool, "BILGI", In("BILGI", "Tex"), true}};
    for (const ToolDialog &dialog : dialogs) {
        SCOPED_TRACE(std::string(dialog.form));
        ASSERT_TRUE(Open(desk, dialog.tool, dialog.form));
        desk.shot("dialog-" + std::string(dialog.form));
        if (!dialog.box.name.empty()) {
            ASSERT_TRUE(desk.type(dialog.box, "7"));
            EXPECT_EQ(desk.window.Text(dialog.box), "7");
        }
        ASSERT_TRUE(desk.close(dialog.form));
        EXPECT_TRUE(Closed(desk, dialog.tool, dialog.form));
        if (dialog.cancels) {
            ASSERT_TRUE(Open(desk, dialog.tool, dialog.form));
            ASSERT_TRUE(desk.click(In(dialog.form, "Iptal")));
            EXPECT_TRUE(Closed(desk, dialog.tool, dialog.form));
        }
        if (!dialog.box.name.empty()) {
            ASSERT_TRUE(Open(desk, dialog.tool, dialog.form));
            ASSERT_TRUE(desk.click(dialog.box));
            ASSERT_TRUE(desk.key("Escape"));
            EXPECT_TRUE(Closed(desk, dialog.tool, dialog.form));
        }
    }
}

TEST(dialogs, EveryToolHasAPictureOfItsOwnATooltipAndTheHotColourUnderThePointer) {
    WindowDesk desk("");
    std::set<QString> pictures;
    for (const ToolRow &tool : Tools()) {
        SCOPED_TRACE(tool.tooltip);
        const Element element = tool.button;
        auto *button = static_cast<Button *>(desk.window.widget(element));
        EXPECT_EQ(button->toolTip(), QString::fromUtf8(tool.tooltip));
        const QString picture = button->get(bag::kPicture).toString();
        EXPECT_TRUE(QFileInfo::exists(":/icons/" + picture + ".svg"));
        EXPECT_TRUE(pictures.insert(picture).second) << picture.toStdString();
        if (!button->isVisible() || !button->isEnabled())
            continue;
        desk.hover(element);
        EXPECT_EQ(desk.window.state(element).colour, Rgb(255, 200, 150));
        desk.hover(kAltnot); // away from it
        EXPECT_TRUE(desk.waitFor([&] { return desk.window.state(element).colour == kButtonColour; }));
    }
    EXPECT_EQ(pictures.size(), 33U);
}

} // namespace havuz
