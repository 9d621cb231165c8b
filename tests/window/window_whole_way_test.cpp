// The whole way by hand, for three tanks: from the empty window of havuz to the printed report of havuz-raporcu. With
// HAVUZ_SHOTS every page is kept as a picture for a person to look at.
#include "raporcu_desk.h"
#include "ui/window/command_state.h"
#include "ui/window/sound_switch.h"
#include "window_desk.h"
#include "x_hand.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTextBrowser>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

namespace {

Element In(std::string_view form, std::string_view name, int index = 0) { return {form, name, index}; }

void Library(WindowDesk &desk, int page, std::initializer_list<const char *> boxes) {
    ASSERT_TRUE(desk.click(kLibraryTool));
    if (!desk.window.Checked(In("POOLlib", "Sayfa", page))) {
        ASSERT_TRUE(desk.click(In("POOLlib", "Sayfa", page)));
    }
    ASSERT_TRUE(TypeAll(desk, boxes));
    ASSERT_TRUE(desk.click(In("POOLlib", "Tamam")));
}

void Rectangle(WindowDesk &desk) { Library(desk, 1, {"12", "6", "30", "40", "4", "0", "3,7", "0"}); }

void Circle(WindowDesk &desk) { Library(desk, 2, {"10"}); }

void LShape(WindowDesk &desk) {
    ASSERT_TRUE(desk.click(kPolygonTool));
    ASSERT_TRUE(TypeAll(desk, {"0;0", "8;0", "8;4", "4;4", "4;7", "0;7"}));
    ASSERT_TRUE(desk.key("Return"));
    ASSERT_TRUE(desk.waitFor([&] { return desk.window.FormShown("yesno"); }));
    ASSERT_TRUE(desk.key("Return"));
}

struct TankCase {
    const char *name;
    void (*build)(WindowDesk &);
    bool sound;
    int panels;
    const char *verdict; // words of the summary
};

// From the empty window to the result files, which are brought into the folder.
void Analysed(const TankCase &tank, const TemporaryFolder &folder) {
    WindowDesk desk;
    tank.build(desk);
    if (::testing::Test::HasFatalFailure())
        return;
    if (tank.sound && !desk.window.Checked(kSoundSwitch)) {
        ASSERT_TRUE(desk.click(kSoundSwitch));
    }
    ASSERT_TRUE(desk.click(kAutoMeshTool));
    ASSERT_GT(MeshCount, 100);
    ASSERT_TRUE(desk.key("s", true));
    ASSERT_TRUE(TypeAll(desk, {tank.name}));
    const std::string stem = CalismaDizini + "/" + tank.name;
    ASSERT_TRUE(desk.click(kAnalysisTool));
    ASSERT_TRUE(desk.window.ended());
    ASSERT_EQ(desk.window.argument, stem);
    for (const char *ending : {".POL", ".HSP", ".DEP", ".SON"})
        std::filesystem::copy(stem + ending, folder.file(tank.name) + ending);
}

// Down the middle of a wall that is laid flat.
void DrawALine(RaporcuDesk &desk) {
    ASSERT_TRUE(desk.pick("look", 2));
    QCheckBox *line = desk.find<QCheckBox>("line");
    desk.click(line, QPoint(8, line->height() / 2));
    auto *diagram = static_cast<LineDiagram *>(desk.find<QWidget>("diagram"));
    ASSERT_TRUE(RaporcuDesk::wait([&] { return diagram->isVisible(); }));
    const QPoint middle = desk.view().mapToGlobal(desk.view().rect().center());
    hand::MoveTo(middle.x() - 65, middle.y() - 200);
    hand::Press(1);
    hand::MoveTo(middle.x() - 65, middle.y() + 200);
    hand::Release(1);
    EXPECT_TRUE(RaporcuDesk::wait([&] { return diagram->points().size() > 10; }));
}

void LookAtPictures(RaporcuDesk &desk, const TankCase &tank) {
    const std::string name = tank.name;
    ASSERT_TRUE(desk.turnTo(1));
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !desk.view().picture().isNull(); }));
    desk.shot(name + "-resim");
    auto *look = desk.find<QComboBox>("look");
    EXPECT_EQ(look->count(), 2 + tank.panels);
    for (int i = 1; i < look->count(); ++i) { // in plan, and every panel laid flat
        ASSERT_TRUE(desk.pick("look", look->itemData(i)));
        ASSERT_FALSE(desk.view().scene().faces.empty()) << i;
        EXPECT_TRUE(ExtremesOf(desk.view().scene())) << i;
        EXPECT_EQ(desk.view().scene().unit, "t.m/m");
    }
    desk.shot(name + "-panel");
    DrawALine(desk);
    desk.shot(name + "-cizgi");
    QCheckBox *line = desk.find<QCheckBox>("line");
    desk.click(line, QPoint(8, line->height() / 2));
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !line->isChecked(); }));
    ASSERT_TRUE(desk.pick("look", 0));
    ASSERT_TRUE(desk.pick("quantity", QStringLiteral("SOIL")));
    desk.shot(name + "-zemin");
}

void LookAtTables(RaporcuDesk &desk, const TankCase &tank) {
    ASSERT_TRUE(desk.turnTo(2));
    auto *list = desk.find<QComboBox>("table");
    ASSERT_GE(list->count(), 9);
    for (int i = 0; i < list->count(); ++i) {
        list->setCurrentIndex(i);
        EXPECT_GT(desk.find<QTableView>("tableView")->model()->rowCount(), 0) << list->currentText().toStdString();
    }
    list->setCurrentIndex(0);
    desk.shot(std::string(tank.name) + "-tablolar");
    ASSERT_TRUE(desk.turnTo(3));
    EXPECT_GE(desk.find<QTableWidget>("combinations")->rowCount(), 4);
    desk.shot(std::string(tank.name) + "-kombinasyonlar");
    ASSERT_TRUE(desk.turnTo(4));
    EXPECT_GE(desk.find<QTableWidget>("steel")->rowCount(), 4 * tank.panels);
    EXPECT_TRUE(desk.find<QTextBrowser>("worked")->toPlainText().contains(QStringLiteral("Belirleyen yer")));
    desk.shot(std::string(tank.name) + "-donati");
    auto *drawing = desk.find<QWidget>("steelView"); // its last quarter: the outer or lower face, bars along 2
    desk.click(drawing, QPoint(drawing->width() * 3 / 4, drawing->height() * 3 / 4));
    EXPECT_TRUE(RaporcuDesk::wait([&] {
        const QString worked = desk.find<QTextBrowser>("worked")->toPlainText();
        return worked.contains(QStringLiteral("dış yüz, 2 doğrultusu")) ||
               worked.contains(QStringLiteral("alt yüz, 2 doğrultusu"));
    }));
}

// A few thicknesses of the walls over the open project.
void Sweep(RaporcuDesk &desk, const TankCase &tank) {
    ASSERT_TRUE(desk.turnTo(6));
    ASSERT_TRUE(desk.type("sweep", "KenarKalinlik=25,30,35,40 AltKalinlik=40,50"));
    desk.click(desk.find<QPushButton>("startSweep"));
    const auto running = [&] { return desk.find<QPushButton>("stopSweep")->isEnabled(); };
    ASSERT_TRUE(RaporcuDesk::wait(running));
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !running(); }));
    EXPECT_EQ(desk.words("sweepRows"), QStringLiteral("8 havuz"));
    desk.shot(std::string(tank.name) + "-varyantlar");
}

void PrintReport(RaporcuDesk &desk, const TankCase &tank, const std::string &stem) {
    ASSERT_TRUE(desk.turnTo(5));
    EXPECT_TRUE(desk.find<QTextBrowser>("report")->toPlainText().contains(QLatin1String(tank.name)));
    desk.shot(std::string(tank.name) + "-rapor");
    desk.save("saveReport", stem + ".pdf");
    const std::string pdf = ReadBytes(stem + ".pdf");
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-") << desk.words("status").toStdString();
    EXPECT_GT(pdf.size(), 50'000U);
    if (const char *folder = std::getenv("HAVUZ_SHOTS"))
        WriteBytes(std::string(folder) + "/" + tank.name + ".pdf", pdf);
}

} // namespace

class whole_way : public ::testing::TestWithParam<TankCase> {};

TEST_P(whole_way, FromTheEmptyWindowToThePrintedReport) {
    const TankCase tank = GetParam();
    const TemporaryFolder folder;
    const std::string stem = folder.file(tank.name);
    Analysed(tank, folder);
    if (::testing::Test::HasFatalFailure())
        return;
    const ProgramFolder program;
    RaporcuDesk desk;
    desk.open(stem);
    EXPECT_TRUE(desk.words("state").contains(QStringLiteral("analiz edildiği hali")))
        << desk.words("state").toStdString();
    EXPECT_FALSE(desk.words("state").contains(QStringLiteral("değişti")));
    EXPECT_TRUE(desk.find<QComboBox>("source")->isEnabled());
    const QString summary = desk.find<QTextBrowser>("summary")->toPlainText();
    EXPECT_TRUE(summary.startsWith(QStringLiteral("Sonuç")));
    for (const char *words : {"Denge", "Ağırlık ve sıvı hacmi", "Zemin gerilmesi", "Yüzme", tank.verdict})
        EXPECT_TRUE(summary.contains(QString::fromUtf8(words))) << words;
    desk.shot(std::string(tank.name) + "-ozet");
    LookAtPictures(desk, tank);
    LookAtTables(desk, tank);
    PrintReport(desk, tank, stem);
    if (!tank.sound) // one is enough
        Sweep(desk, tank);
}

INSTANTIATE_TEST_SUITE_P(Tanks, whole_way,
                         ::testing::Values(TankCase{"DIKDORT", Rectangle, false, 9, "12,00·6,00"},
                                           TankCase{"DAIRE", Circle, true, 3, "π·5,00²"},
                                           TankCase{"ELLI", LShape, true, 7, "6 köşe"}),
                         [](const auto &info) { return std::string(info.param.name); });

} // namespace havuz
