// The output program's window on a project that was analysed: its pages, the picture by mouse, combinations, old
// models.
#include "model/store.h"
#include "program_folder.h"
#include "raporcu_desk.h"
#include "support.h"
#include "x_hand.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTextBrowser>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

namespace {

// A small tank in a folder, and the window on it.
struct TankDesk : RaporcuDesk {
    ProgramFolder program;
    TemporaryFolder folder;
    std::string stem = folder.file("Havuz");

    TankDesk() {
        shell("pool rectangular -o Havuz.POL --set Lx=6 --set Ly=4 --set UstKot=2 --set SiviKotu=2");
        shell("mesh Havuz.POL");
    }
    void shell(const std::string &arguments) const {
        const std::string command = "cd " + folder.path() + " && " + HAVUZ_CLI + " " + arguments + " >out 2>error";
        ASSERT_EQ(std::system(command.c_str()), 0) << command << ReadBytes(folder.file("error"));
    }
    void open() { RaporcuDesk::open(stem); }
    void load() { RaporcuDesk::load(stem); }
    // On a row that shows its place.
    void clickRow(const QTableView &table, int row, int column) const {
        clickCell(table, row, column);
        wait([&] { return page() == 1; });
    }
};

} // namespace

TEST(raporcu, ShowsTheModelAsItWasAnalysedAndSaysWhenItIsOld) {
    TankDesk desk;
    desk.services.analyse = [&](const std::string &) {
        desk.shell("run Havuz.POL --quiet");
        return "";
    };
    desk.open();
    EXPECT_TRUE(desk.words("state").contains(QStringLiteral(".HSP yok")));
    EXPECT_TRUE(desk.words("state").contains(QStringLiteral(".SON yok")));
    EXPECT_FALSE(desk.find<QComboBox>("source")->isEnabled());
    desk.shell("run Havuz.POL --quiet");
    desk.load();
    EXPECT_TRUE(desk.words("state").contains(QStringLiteral("analiz edildiği hali")));
    EXPECT_TRUE(desk.find<QComboBox>("source")->isEnabled());
    EXPECT_TRUE(desk.find<QTextBrowser>("summary")->toPlainText().contains(QStringLiteral("Zemin gerilmesi")));
    ASSERT_TRUE(desk.turnTo(5));
    EXPECT_TRUE(desk.find<QTextBrowser>("report")->toPlainText().contains(QStringLiteral("Hesap Raporu")));
    desk.shell("set Havuz.POL ZeminKo=1500");
    WriteBytes(desk.stem + ".RAP", "{ damaged");
    desk.load();
    EXPECT_TRUE(desk.words("state").contains(QStringLiteral("Model bu analizden sonra değişti")));
    EXPECT_TRUE(desk.words("state").contains(QStringLiteral(".RAP")));
    EXPECT_EQ(ReadBytes(desk.stem + ".RAP"), "{ damaged");
    desk.click(desk.find<QPushButton>("analyseAnew"));
    EXPECT_TRUE(RaporcuDesk::wait([&] { return !desk.words("state").contains(QStringLiteral("değişti")); }));
    EXPECT_TRUE(desk.find<QComboBox>("source")->isEnabled());
    RaporcuDesk::wait([&] { return !desk.window->busy(); });
}

TEST(raporcu, ATankThatCannotBeReadOrAnalysedIsSaid) {
    TankDesk desk;
    desk.shell("set Havuz.POL ZeminKo=0");
    desk.open();
    EXPECT_FALSE(desk.find<QTabWidget>("tabs")->isEnabled());
    EXPECT_FALSE(desk.words("state").isEmpty());
    desk.stem = desk.folder.file("Yok");
    desk.load();
    EXPECT_TRUE(desk.words("state").contains(QStringLiteral("Yok.POL")));
}

TEST(raporcu, ThePictureTurnsByTheMouseAndFollowsTheTables) {
    TankDesk desk;
    desk.shell("run Havuz.POL --quiet");
    desk.open();
    ASSERT_TRUE(desk.turnTo(1));
    ResultView *view = &desk.view();
    ASSERT_TRUE(RaporcuDesk::wait([&] { return view->isVisible() && !view->picture().isNull(); }));
    EXPECT_NE(view->scene().title.find("tutarlı hesap"), std::string::npos);
    const double before = ViewAngleB;
    const QPoint middle = view->mapToGlobal(view->rect().center());
    hand::MoveTo(middle.x(), middle.y());
    hand::Press(1);
    hand::MoveTo(middle.x() + 40, middle.y());
    hand::Release(1);
    EXPECT_TRUE(RaporcuDesk::wait([&] { return ViewAngleB != before; }));
    EXPECT_NEAR(ViewAngleB, before - 0.4, 1e-9);
    desk.find<QComboBox>("source")->setCurrentIndex(1);
    EXPECT_NE(view->scene().title.find(".SON"), std::string::npos);
    desk.find<QComboBox>("source")->setCurrentIndex(0);
    ASSERT_TRUE(desk.turnTo(2));
    auto *table = desk.find<QTableView>("tableView");
    ASSERT_GT(table->model()->rowCount(), 0);
    const int panel = table->model()->index(1, 0).data().toInt();
    desk.clickRow(*table, 1, 0);
    EXPECT_EQ(desk.find<QTabWidget>("tabs")->currentIndex(), 1);
    EXPECT_EQ(desk.find<QComboBox>("look")->currentData().toInt(), panel);
}

// A column pulls one corner up: the base lifts there where the ground cannot pull.
TEST(raporcu, ThePictureObeysItsControls) {
    TankDesk desk;
    desk.shell("set Havuz.POL 'FZ(1)=-10'");
    desk.open();
    ASSERT_TRUE(desk.turnTo(1));
    ResultView &view = desk.view();
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !view.picture().isNull(); }));
    const auto lifted = [&] {
        return std::count_if(view.scene().faces.begin(), view.scene().faces.end(),
                             [](const ResultFace &f) { return f.anyLifted(); });
    };
    EXPECT_EQ(lifted(), 0);
    ASSERT_TRUE(desk.pick("case", QStringLiteral("empty/free")));
    EXPECT_GT(lifted(), 0);
    EXPECT_LT(lifted(), static_cast<long>(view.scene().faces.size()));
    const auto clicked = [&](const char *mark, const std::function<bool()> &holds) {
        desk.click(desk.find<QCheckBox>(mark), QPoint(8, desk.find<QCheckBox>(mark)->height() / 2));
        return RaporcuDesk::wait(holds);
    };
    EXPECT_TRUE(clicked("smooth", [&] { return view.style().smooth; }));
    EXPECT_TRUE(clicked("lines", [&] { return !view.style().meshLines; }));
    EXPECT_TRUE(clicked("deformed", [&] { return view.style().deformation > 0.0; }));
    EXPECT_EQ(view.style().deformation, UsualDeformation(view.scene()));
    ASSERT_TRUE(desk.type("factor", "50"));
    EXPECT_EQ(view.style().deformation, 50.0);
    ASSERT_TRUE(desk.pick("scale", 1));
    ASSERT_TRUE(desk.type("low", "-1,5"));
    ASSERT_TRUE(desk.type("high", "2"));
    EXPECT_EQ(MapOf(view.scene(), view.style()).low(), -1.5);
    EXPECT_EQ(MapOf(view.scene(), view.style()).high(), 2.0);

    ASSERT_TRUE(desk.pick("look", 1)); // the base, laid flat
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !view.picture().isNull(); }));
    const SceneTransform fitted = view.transform();
    const QPoint middle = view.mapToGlobal(view.rect().center());
    const auto wheel = [&](int button) {
        hand::MoveTo(middle.x(), middle.y());
        hand::Press(button);
        hand::Release(button);
    };
    wheel(4);
    EXPECT_TRUE(RaporcuDesk::wait([&] { return std::fabs(view.transform().scale - 1.25 * fitted.scale) < 1e-9; }));
    wheel(5);
    EXPECT_TRUE(RaporcuDesk::wait([&] { return std::fabs(view.transform().x - fitted.x) < 1e-6; }));
    const int height = view.height();
    EXPECT_TRUE(clicked("line", [&] { return view.height() < height && !view.picture().isNull(); }));
    const auto at = [&](double x, double y) {
        const SceneTransform &to = view.transform();
        return view.mapToGlobal(QPointF(to.x + to.scale * x, to.y - to.scale * y).toPoint());
    };
    const QPoint from = at(-0.1, 2.0), to = at(6.1, 2.0);
    hand::MoveTo(from.x(), from.y());
    hand::Press(1);
    hand::MoveTo(to.x(), to.y());
    hand::Release(1);
    const auto &points = static_cast<LineDiagram *>(desk.find<QWidget>("diagram"))->points();
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !points.empty(); }));
    EXPECT_NEAR(points.back().along, 6.0, 0.06); // from edge to edge of the base of 6 x 4 m, by points
    EXPECT_EQ(IntegralOf({{0.0, 1.0}, {2.0, 3.0}, {3.0, 3.0}}), 7.0);
}

// The envelope is over the combinations in service; a row of it shows its side of the picture.
TEST(raporcu, TheEnvelopeHoldsEveryCombinationInPictureAndTable) {
    TankDesk desk;
    desk.open();
    ASSERT_TRUE(desk.turnTo(1));
    ResultView *view = &desk.view();
    auto *result = desk.find<QComboBox>("case");
    const auto greatest = [&](const char *key) {
        result->setCurrentIndex(result->findData(QLatin1String(key)));
        return ExtremesOf(view->scene())->greatest.value;
    };
    const double most = greatest("envelope-most"), test = greatest("test"), full = greatest("full");
    EXPECT_EQ(most, std::max({test, full, greatest("empty"), greatest("empty-water")}));
    EXPECT_GT(greatest("envelope-most-u"), most);
    EXPECT_LE(greatest("envelope-least"), std::min(test, full));
    ASSERT_TRUE(desk.turnTo(2));
    desk.find<QComboBox>("table")->setCurrentIndex(1);
    auto *table = desk.find<QTableView>("tableView");
    desk.find<QLineEdit>("filter")->setText(QStringLiteral("M22"));
    ASSERT_TRUE(RaporcuDesk::wait([&] { return table->model()->index(0, 3).data() == QStringLiteral("M22"); }));
    desk.click(desk.find<QPushButton>("copyTable"));
    EXPECT_TRUE(RaporcuDesk::wait(
        [&] { return QGuiApplication::clipboard()->text().startsWith(QStringLiteral("panel\ttür\tzarf\tsonuç")); }));
    desk.save("writeTables", desk.folder.file("zarf.csv"));
    EXPECT_EQ(ReadBytes(desk.folder.file("zarf.csv")).substr(0, 26), "panel;kind;envelope;result");
    const auto cell = [&](int column) { return table->model()->index(0, column).data(Qt::UserRole).toDouble(); };
    const char *side = std::fabs(cell(5)) > std::fabs(cell(8)) ? "envelope-least" : "envelope-most";
    desk.clickRow(*table, 0, 5);
    EXPECT_EQ(desk.find<QTabWidget>("tabs")->currentIndex(), 1);
    EXPECT_EQ(result->currentData().toString(), QLatin1String(side));
}

// The L of the first mesher has joints that are not joined: the picture outlines them, and the probe names them.
TEST(raporcu, BadPlacesOfTheMeshAreMarkedAndTheProbeTellsOfThem) {
    TankDesk desk;
    desk.shell("polygon -o Havuz.POL --points '0,0 8,0 8,4 4,4 4,7 0,7' --dp 25 --ds 40 --top 3 --bottom 0");
    desk.shell("mesh Havuz.POL");
    desk.open();
    ASSERT_TRUE(desk.turnTo(1));
    ResultView *view = &desk.view();
    auto *look = desk.find<QComboBox>("look");
    look->setCurrentIndex(look->findData(1001));
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !view->picture().isNull(); }));
    const auto &faces = view->scene().faces;
    const auto bad = std::find_if(faces.begin(), faces.end(), [](const ResultFace &f) { return f.marked; });
    ASSERT_NE(bad, faces.end());
    EXPECT_LT(std::count_if(faces.begin(), faces.end(), [](const ResultFace &f) { return f.marked; }),
              static_cast<long>(faces.size()));
    const auto hover = [&](double x, double y) {
        const SceneTransform &to = view->transform();
        const QPoint at =
            view->mapToGlobal(QPointF(to.x + to.scale * x, to.y - to.scale * y).toPoint()); // flat: y is upward
        hand::MoveTo(at.x(), at.y());
    };
    const SpacePoint a = bad->at[0], c = bad->at[2];
    hover((a.x + c.x) / 2.0, (a.y + c.y) / 2.0);
    EXPECT_TRUE(RaporcuDesk::wait([&] { return desk.words("probe").contains(QStringLiteral("mesh raporu")); }))
        << desk.words("probe").toStdString();
    hover(8.0, 4.0);
    EXPECT_TRUE(RaporcuDesk::wait([&] { return desk.words("probe").startsWith(QStringLiteral("<b>nokta ")); }))
        << desk.words("probe").toStdString();
    EXPECT_TRUE(desk.words("probe").contains(QStringLiteral("yer (8,00; 4,00)"))) << desk.words("probe").toStdString();
    desk.find<QCheckBox>("faults")->click();
    EXPECT_FALSE(std::any_of(view->scene().faces.begin(), view->scene().faces.end(),
                             [](const ResultFace &f) { return f.marked; }));
}

TEST(raporcu, AFactorThatIsChangedIsCalculatedAndKept) {
    TankDesk desk;
    desk.open();
    const QString before = desk.find<QTextBrowser>("summary")->toPlainText();
    ASSERT_TRUE(desk.turnTo(3));
    auto *table = desk.find<QTableWidget>("combinations");
    const int liquid = 3 + consistent::kLiquid;
    table->item(0, liquid)->setText(QStringLiteral("3,0"));
    desk.find<QPushButton>("applyCombinations")->click();
    RaporcuDesk::wait([&] { return !desk.window->busy(); });
    EXPECT_NE(desk.find<QTextBrowser>("summary")->toPlainText(), before);
    EXPECT_NE(ReadBytes(desk.stem + ".RAP"), "");
    desk.load();
    EXPECT_EQ(table->item(0, liquid)->text(), QStringLiteral("3,00"));
    desk.find<QPushButton>("defaultCombinations")->click();
    RaporcuDesk::wait([&] { return !desk.window->busy(); });
    EXPECT_EQ(table->item(0, liquid)->text(), QStringLiteral("1,00"));
}

// A settings file that cannot be taken or written keeps its bytes, the factors are calculated with all the same; and
// combinations that cannot serve change nothing.
TEST(raporcu, SettingsThatCannotBeKeptLoseNothing) {
    TankDesk desk;
    desk.open();
    ASSERT_TRUE(desk.turnTo(3));
    auto *table = desk.find<QTableWidget>("combinations");
    const int liquid = 3 + consistent::kLiquid;
    const auto apply = [&] {
        table->item(0, liquid)->setText(QStringLiteral("2,00"));
        desk.click(desk.find<QPushButton>("applyCombinations"));
        RaporcuDesk::wait([&] { return desk.window->busy(); });
        RaporcuDesk::wait([&] { return !desk.window->busy(); });
        EXPECT_TRUE(desk.words("state").contains(QStringLiteral(".RAP yazılamadı")))
            << desk.words("state").toStdString();
        EXPECT_EQ(table->item(0, liquid)->text(), QStringLiteral("2,00"));
    };
    for (const char *bytes : {"{ damaged", "{\"version\": 99}"}) {
        WriteBytes(desk.stem + ".RAP", bytes);
        desk.load();
        apply();
        EXPECT_EQ(ReadBytes(desk.stem + ".RAP"), bytes);
    }
    std::filesystem::remove(desk.stem + ".RAP");
    std::filesystem::create_directory(desk.stem + ".RAP"); // nothing can be written there
    apply();
    std::filesystem::remove(desk.stem + ".RAP");
    for (int row = 0; row < table->rowCount(); ++row)
        table->item(row, 2)->setCheckState(Qt::Checked);
    desk.click(desk.find<QPushButton>("applyCombinations"));
    EXPECT_TRUE(RaporcuDesk::wait([&] { return desk.words("status").contains(QStringLiteral("katsayısız")); }));
    EXPECT_FALSE(std::filesystem::exists(desk.stem + ".RAP"));
}

// The sweep by hand; its table is that of the command line.
TEST(raporcu, ASweepIsComputedStoppedGoneOnWithAndPlotted) {
    TankDesk desk;
    desk.open();
    ASSERT_TRUE(desk.turnTo(6));
    const auto running = [&] { return desk.find<QPushButton>("stopSweep")->isEnabled(); };
    const auto begin = [&](const char *sweep) {
        desk.find<QLineEdit>("sweep")->clear();
        ASSERT_TRUE(desk.type("sweep", sweep));
        desk.click(desk.find<QPushButton>("startSweep"));
    };
    begin("KenarKalinlik=20:");
    EXPECT_TRUE(RaporcuDesk::wait([&] { return desk.words("sweepRows").contains(QStringLiteral("20:")); }));
    EXPECT_FALSE(running());
    begin("KenarKalinlik=20:40:1");
    ASSERT_TRUE(RaporcuDesk::wait([&] { return desk.find<QProgressBar>("sweepProgress")->value() > 0; }));
    desk.click(desk.find<QPushButton>("stopSweep"));
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !running(); }));
    EXPECT_TRUE(desk.words("sweepRows").contains(QStringLiteral("durduruldu")));
    begin("KenarKalinlik=20,25 AltKalinlik=30,40");
    ASSERT_TRUE(RaporcuDesk::wait(running));
    ASSERT_TRUE(RaporcuDesk::wait([&] { return !running(); }));
    EXPECT_EQ(desk.words("sweepRows"), QStringLiteral("4 havuz"));
    EXPECT_EQ(desk.find<QComboBox>("plotBy")->currentData().toString(), QStringLiteral("AltKalinlik"));
    EXPECT_TRUE(desk.words("lightest").startsWith(QStringLiteral("En hafif: ")));
    desk.save("saveSweep", desk.folder.file("window.csv"));
    desk.shell("variants --base Havuz.POL --sweep 'KenarKalinlik=20,25 AltKalinlik=30,40' -o cli.csv");
    EXPECT_EQ(ReadBytes(desk.folder.file("window.csv")), ReadBytes(desk.folder.file("cli.csv")));
    desk.save("savePlot", desk.folder.file("window.svg"));
    EXPECT_NE(ReadBytes(desk.folder.file("window.svg")).find("</svg>"), std::string::npos);
}

} // namespace havuz
