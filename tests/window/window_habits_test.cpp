// What a person of today expects of a window, by hand: wheel and middle button, the standard keys, recent projects,
// help, the row menu of a table, the ways to end.
#include "ui/qt/settings.h"
#include "ui/window/sound_switch.h"
#include "view/projection.h"
#include "view/view_state.h"
#include "window_desk.h"
#include "x_hand.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

static const std::string kSample = std::string(HAVUZ_SOURCE_DIR) + "/examples/sample_pool";

static Element In(std::string_view form, std::string_view name, int index = 0) { return {form, name, index}; }

TEST(habits, TheWheelZoomsAboutThePointerAndTheMiddleButtonPans) {
    WindowDesk desk(kSample);
    const ScreenPoint before = NodePixels(48);
    const double scale = MeshScale;
    ASSERT_TRUE(desk.wheel(2, before.x, before.y));
    ASSERT_TRUE(desk.waitFor([&] { return MeshScale > 1.5 * scale; }));
    EXPECT_NEAR(NodePixels(48).x, before.x, 2.0);
    EXPECT_NEAR(NodePixels(48).y, before.y, 2.0);
    desk.shot("zoomed");
    const ScreenPoint zoomed = NodePixels(48);
    const QPoint from = desk.window.widget(kScr)->mapToGlobal(QPoint(400, 300));
    hand::MoveTo(from.x(), from.y());
    hand::Press(2);
    desk.settle();
    hand::MoveTo(from.x() + 20, from.y() - 10);
    desk.settle();
    hand::MoveTo(from.x() + 60, from.y() - 40);
    ASSERT_TRUE(desk.waitFor([&] { return NodePixels(48).x > zoomed.x + 59.0; }));
    hand::Release(2);
    EXPECT_NEAR(NodePixels(48).x, zoomed.x + 60.0, 1e-6);
    EXPECT_NEAR(NodePixels(48).y, zoomed.y - 40.0, 1e-6);
    ASSERT_TRUE(desk.click(kZoomAllTool));
    EXPECT_EQ(MeshScale, scale); // zoom all
}

TEST(habits, StandardKeysCarryOutTheirToolsEachTime) {
    WindowDesk desk(kSample);
    ASSERT_TRUE(desk.key("s", true));
    EXPECT_TRUE(desk.window.FormShown("BILGI"));
    ASSERT_TRUE(desk.key("Escape"));
    ASSERT_TRUE(desk.key("o", true));
    EXPECT_TRUE(desk.window.FormShown("LOADFILE"));
    ASSERT_TRUE(desk.click(In("LOADFILE", "Iptal")));
    ASSERT_GT(PanelCount, 0);
    ASSERT_TRUE(desk.key("n", true));
    EXPECT_EQ(PanelCount, 0);
    ASSERT_TRUE(desk.click(kLibraryTool));
    ASSERT_TRUE(desk.click(In("POOLlib", "Sayfa", 1)));
    ASSERT_TRUE(desk.click(In("POOLlib", "Tamam")));
    ASSERT_EQ(PanelCount, 9);
    ASSERT_TRUE(desk.key("n", true)); // the tool was still down
    EXPECT_EQ(PanelCount, 0);
}

// A browser in place of the system's.
class Browser : public QObject {
    Q_OBJECT
public:
    QUrl shown;
public slots:
    void show(const QUrl &url) { shown = url; }
};

TEST(habits, HelpOpensThePageThatTheHelpFileNames) {
    WindowDesk desk;
    Browser browser;
    QDesktopServices::setUrlHandler("file", &browser, "show");
    ASSERT_TRUE(desk.key("F1"));
    EXPECT_TRUE(browser.shown.isEmpty()); // there is no help file
    WriteBytes(desk.program.file("vek9.chm"), "yardim.html\n");
    WriteBytes(desk.program.file("yardim.html"), "<html></html>");
    ASSERT_TRUE(desk.click(kHelpButton));
    EXPECT_EQ(browser.shown, QUrl::fromLocalFile(QString::fromStdString(desk.program.file("yardim.html"))));
    QDesktopServices::unsetUrlHandler("file");
}

TEST(habits, ARecentProjectOpensFromItsMenu) {
    WindowDesk desk(kSample);
    EXPECT_EQ(RecentProjects().value(0), QString::fromStdString(kSample + ".POL"));
    ASSERT_TRUE(desk.key("n", true));
    ASSERT_EQ(MeshCount, 0);
    desk.openRecent(0);
    ASSERT_TRUE(desk.waitFor([] { return MeshCount == 174; }));
    desk.shot("recent");
}

TEST(habits, TheSwitchForSoundMeshesIsRememberedAndObeyed) {
    WindowDesk desk(kSample);
    EXPECT_FALSE(desk.window.Checked(kSoundSwitch));
    ASSERT_TRUE(desk.click(kSoundSwitch));
    EXPECT_TRUE(RememberedSound());
    ASSERT_TRUE(desk.click(kAutoMeshTool));
    EXPECT_EQ(desk.window.state(kAltnot).text.rfind("MESH TAMAM (TUTARLI)", 0), 0U);
    desk.shot("sound");
    ASSERT_TRUE(desk.click(kSoundSwitch));
    EXPECT_FALSE(RememberedSound());
}

TEST(habits, ANoteStandsWhereItIsPut) {
    WindowDesk desk;
    desk.main.ShowLabel("12 NOKTASI", 120.0, 45.0);
    EXPECT_TRUE(desk.waitFor([&] { return desk.window.widget(kLabel1)->pos() == QPoint(120, 45); }));
}

TEST(habits, TheDrawingFollowsTheSizeOfTheWindow) {
    WindowDesk desk(kSample);
    const double scale = MeshScale;
    desk.window.formWidget(kMain)->resize(800, 600); // as a window manager does
    ASSERT_TRUE(desk.waitFor([] { return ViewWidth == 800 - 14 - 5; }));
    EXPECT_LT(MeshScale, scale);
    EXPECT_EQ(desk.main.scr().width(), desk.window.widget(kScr)->width());
    EXPECT_EQ(desk.main.scr().height(), desk.window.widget(kScr)->height());
}

TEST(habits, ADoubleClickInTheListOpensTheProject) {
    WindowDesk desk;
    std::filesystem::copy_file(kSample + ".POL", desk.program.file("VEK9DATA/P.POL"));
    ASSERT_TRUE(desk.key("o", true));
    const Element files = In("LOADFILE", "Dosya");
    ASSERT_TRUE(desk.choose(files, 0));
    EXPECT_EQ(desk.window.Text(In("LOADFILE", "Secilen")), "P.POL");
    ASSERT_TRUE(desk.choose(files, 0)); // soon after the first
    EXPECT_TRUE(desk.waitFor([] { return MeshCount == 174; }));
    EXPECT_FALSE(desk.window.FormShown("LOADFILE"));
}

TEST(habits, TheKeyboardAloneOpensAProject) {
    WindowDesk desk;
    for (const char *name : {"A.POL", "P.POL"})
        std::filesystem::copy_file(kSample + ".POL", desk.program.file(std::string("VEK9DATA/") + name));
    ASSERT_TRUE(desk.key("o", true));
    const Element files = In("LOADFILE", "Dosya");
    for (int i = 0; i < 10 && desk.window.focused() != files; ++i) {
        hand::Key("Tab");
        desk.settle();
    }
    ASSERT_EQ(desk.window.focused(), files);
    hand::Key("End");
    EXPECT_TRUE(desk.waitFor([&] { return desk.window.Text(In("LOADFILE", "Secilen")) == "P.POL"; }));
    hand::Key("Return");
    EXPECT_TRUE(desk.waitFor([&] { return MeshCount == 174 && !desk.window.FormShown("LOADFILE"); }));
    EXPECT_EQ(ProjeAdi, "P");
}

TEST(habits, TypingReplacesAndTheCommaIsAPointWhereOneIsMeant) {
    WindowDesk desk;
    ASSERT_TRUE(desk.click(kPolygonTool));
    const Element upper = Tool1Text(1);
    ASSERT_TRUE(desk.click(upper)); // its text is selected by that
    hand::Write("2,5");
    EXPECT_TRUE(desk.waitFor([&] { return desk.window.Text(upper) == "2.5"; })) << desk.window.Text(upper);
    ASSERT_TRUE(desk.click(kPanelTableTool));
    ASSERT_TRUE(desk.click(In("FEAPLAK", "No", 2)));
    ASSERT_TRUE(desk.click(In("FEAPLAK", "Isaret")));
    ASSERT_TRUE(desk.window.FormShown("TOOL"));
    const QWidget *popup = desk.window.formWidget("TOOL");
    ASSERT_TRUE(desk.waitFor([&] { return popup->isActiveWindow(); })); // then it hears the keys
    hand::Key("Escape");
    EXPECT_TRUE(desk.waitFor([&] { return !desk.window.FormShown("TOOL"); }));
    EXPECT_TRUE(desk.window.FormShown("FEAPLAK"));
    ASSERT_TRUE(desk.click(In("FEAPLAK", "Tamam")));
    ASSERT_TRUE(desk.click(kGeneralDataTool));
    const Element title = In("POOLGEN", "Tex", 0); // a text keeps its comma
    ASSERT_TRUE(desk.click(title));
    hand::Write("2,5");
    EXPECT_TRUE(desk.waitFor([&] { return desk.window.Text(title) == "2,5"; })) << desk.window.Text(title);
    ASSERT_TRUE(desk.close("POOLGEN"));
    ASSERT_TRUE(desk.click(kMinimiseButton)); // without a window manager it stays to be seen
    EXPECT_TRUE(desk.window.formState(kMain).minimised);
    ASSERT_TRUE(desk.click(kNewTool));
    EXPECT_FALSE(desk.window.formState(kMain).minimised);
}

TEST(habits, AProjectDroppedOnTheWindowOpens) {
    WindowDesk desk;
    QWidget *main = desk.window.formWidget(kMain);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(kSample + ".POL"))});
    QDragEnterEvent enter({100, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({100, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main, &drop);
    EXPECT_EQ(MeshCount, 174);
    // a dialog keeps drops from the main window
    ASSERT_TRUE(desk.key("n", true));
    ASSERT_TRUE(desk.click(kLibraryTool));
    QApplication::sendEvent(main, &drop);
    EXPECT_EQ(MeshCount, 0);
}

TEST(habits, TheRowMenuOfATableWorksBesideItsRow) {
    WindowDesk desk(kSample);
    ASSERT_TRUE(desk.click(kPanelTableTool));
    ASSERT_TRUE(desk.click(In("FEAPLAK", "No", 2)));
    ASSERT_TRUE(desk.click(In("FEAPLAK", "Isaret")));
    ASSERT_TRUE(desk.window.FormShown("TOOL"));
    desk.hover(In("TOOL", "Satir", 1));
    EXPECT_EQ(desk.window.state(In("TOOL", "Satir", 1)).colour, Rgb(0, 0, 192));
    desk.shot("row-menu");
    ASSERT_TRUE(desk.click(In("TOOL", "Satir", 1)));
    EXPECT_EQ(PanelCount, 8);
    EXPECT_FALSE(desk.window.FormShown("TOOL"));
    EXPECT_EQ(desk.window.focused(), In("FEAPLAK", "No", 2));
    // pressing anywhere else puts the menu away
    ASSERT_TRUE(desk.click(In("FEAPLAK", "Isaret")));
    ASSERT_TRUE(desk.click(In("FEAPLAK", "No", 5)));
    EXPECT_TRUE(desk.waitFor([&] { return !desk.window.FormShown("TOOL"); }));
    EXPECT_EQ(PanelCount, 8);
}

TEST(habits, TheEndIsAskedFor) {
    WindowDesk desk;
    ASSERT_TRUE(desk.close(kMain));
    ASSERT_TRUE(desk.window.FormShown("ENDKONT"));
    desk.shot("end");
    ASSERT_TRUE(desk.click(In("ENDKONT", "Iptal")));
    EXPECT_FALSE(desk.window.ended());
    ASSERT_TRUE(desk.click(kEndButton));
    ASSERT_TRUE(desk.click(In("ENDKONT", "Tamam")));
    EXPECT_TRUE(desk.window.ended());
    EXPECT_EQ(desk.window.status(), 0);
}

} // namespace havuz

#include "window_habits_test.moc"
