// The tool buttons: what each arms and says, what it leaves alone, and how a failure inside a handler ends.
#include "hand_models.h"
#include "model/project_file.h"
#include "plak_support.h"
#include "support.h"
#include "ui/commands/pointer.h"
#include "ui/commands/tools.h"
#include "ui/window/help_page.h"
#include "ui/window/transactions.h"
#include "ui_support.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

namespace {

void AddWall() { AddPanel(1, {0, 0, 3}, {4, 0, 3}, {4, 0, 0}, {0, 0, 0}); }

int CheckedCount(Desk &desk) {
    int count = 0;
    for (const ToolRow &tool : Tools())
        count += desk.window.Checked(tool.button) ? 1 : 0;
    return count;
}

// A rectangular pool's base and one wall, ready for "auto mesh".
void AddSmallPool() {
    AddPanel(0, {0, 0, 0}, {4, 0, 0}, {4, 2, 0}, {0, 2, 0});
    PanelTable[1].Nx = 4;
    PanelTable[1].Ny = 2;
}

} // namespace

TEST(Tools, EveryButtonIsMadeOnceAndArmsWhatItsRowSays) {
    Desk desk;
    for (const ToolRow &tool : Tools()) {
        SCOPED_TRACE(tool.tooltip);
        const Element button = tool.button;
        EXPECT_EQ(std::ranges::count(desk.window.elements(), button), 1);
        EXPECT_EQ(desk.window.state(button).label, tool.tooltip);
        EXPECT_EQ(desk.window.state(button).group, ToolFrame(tool));
        if (tool.group != ToolGroup::Mesh && tool.group != ToolGroup::Plate)
            continue;
        desk.main.DrawPlateView();
        desk.main.ShowFrame(1, true);
        CommandState = 77;
        PickStage = 2;
        ASSERT_TRUE(desk.click(button));
        EXPECT_EQ(CommandState, tool.arms == kUnchanged ? 77 : tool.arms);
        EXPECT_EQ(desk.prompt(), tool.prompt);
        EXPECT_EQ(PickStage, 0);
        EXPECT_EQ(desk.window.focused(), kScr);
        EXPECT_TRUE(desk.click(button)); // the second click
        EXPECT_EQ(CommandState, tool.arms == kUnchanged ? 77 : 0);
        EXPECT_EQ(desk.prompt(), "");
    }
}

TEST(Tools, OnlyOneOfAGroupStaysDownAndMainToolsLeaveTheDrawingOnesDown) {
    Desk desk;
    desk.click(kPanelCopyTool);
    desk.click(kPolygonTool);
    desk.click(kMeshOnOffTool); // another group
    EXPECT_EQ(CheckedCount(desk), 2);
    desk.click(kNewTool);
    EXPECT_TRUE(desk.window.Checked(kPolygonTool)); // wanted
    EXPECT_FALSE(desk.window.Checked(kMeshOnOffTool));
    EXPECT_EQ(CommandState, 0);
    desk.click(kIsometricTool);
    EXPECT_TRUE(desk.window.Checked(kPolygonTool));
    desk.cancel();
    EXPECT_FALSE(desk.window.Checked(kPolygonTool));
    desk.click(kEdgeMoveTool);
    desk.click(kZoomWinTool); // the zoom leaves what is armed
    EXPECT_TRUE(desk.window.Checked(kEdgeMoveTool));
    EXPECT_EQ(CommandState, kEdgeMove);
    desk.click(kTurnLeftTool); // in plan nothing turns, the buttons come up, the command stays armed: wanted
    EXPECT_FALSE(desk.window.Checked(kEdgeMoveTool));
    EXPECT_EQ(CommandState, kEdgeMove);
}

TEST(Tools, CancellingClearsWhatIsPendingAndNothingElse) {
    Desk desk;
    AddWall();
    desk.click(kPolygonTool);
    EXPECT_TRUE(desk.window.FormShown(kTool1));
    EXPECT_EQ(desk.window.formState(kTool1).place, (Place{1024 * 15 - desk.window.FormWidth(kTool1), 0}));
    EXPECT_TRUE(desk.window.formState(kTool1).onTop);
    EXPECT_EQ(desk.window.state(kLabel1).left, -50);
    for (int i = 1; i <= 3; ++i) {
        desk.window.Show(RubberLine(i), true);
        desk.window.SetLineStyle(RubberLine(i), RubberStyle::Dashed);
    }
    SelectedPanel = 1;
    ZoomPending = 1;
    desk.scr.log.clear();
    CancelPending(desk.main);
    EXPECT_EQ(desk.note(), "hidden");
    EXPECT_FALSE(desk.window.FormShown(kTool1));
    EXPECT_FALSE(desk.window.Shown(RubberLine(2)));
    EXPECT_EQ(desk.window.state(RubberLine(2)).style, RubberStyle::Solid);
    EXPECT_TRUE(desk.window.Shown(RubberLine(3))); // only the first two
    EXPECT_EQ(SelectedPanel, 0);
    EXPECT_NE(desk.scr.log, "");
    EXPECT_EQ(CommandState, kPolygon);
    EXPECT_EQ(ZoomPending, 1);
    desk.scr.log.clear();
    CancelPending(desk.main); // no panel selected: nothing drawn
    EXPECT_EQ(desk.scr.log, "");
}

TEST(Tools, ViewCommandsTurnAndSwitch) {
    Desk desk;
    EXPECT_EQ(desk.window.state(kIsometricTool).picture, 13);
    desk.click(kIsometricTool);
    EXPECT_EQ(IsoView, 1);
    EXPECT_EQ(desk.window.state(kIsometricTool).picture, 18);
    EXPECT_FALSE(desk.window.Enabled(kNodeMoveTool));
    for (int i = 0; i <= 7; ++i)
        EXPECT_EQ(desk.window.Enabled(Check2(i)), i >= 2 && i <= 4) << i;
    const double before = ViewAngleB;
    const int copies = desk.window.copies;
    desk.click(kTurnRightTool);
    desk.click(kTurnRightTool);
    desk.click(kTurnLeftTool);
    EXPECT_DOUBLE_EQ(ViewAngleB, before + 0.2);
    EXPECT_EQ(desk.window.copies, copies + 3);
    desk.click(kIsometricTool);
    EXPECT_EQ(IsoView, 0);
    EXPECT_TRUE(desk.window.Enabled(kNodeMoveTool));
    desk.click(kTurnRightTool); // nothing in plan
    EXPECT_DOUBLE_EQ(ViewAngleB, before + 0.2);

    PutPlak(Rectangle(0, 0, 4, 3));
    desk.click(kPlateMeshTool); // no meshes: stays
    EXPECT_EQ(GorunusModu, 1);
    AddGrid(2, 2);
    desk.click(kPlateMeshTool);
    EXPECT_EQ(GorunusModu, 2);
    EXPECT_EQ(desk.window.state(kPlateMeshTool).picture, 5);
    EXPECT_TRUE(desk.window.Shown(Frame(1)));
    EXPECT_FALSE(desk.window.Shown(Frame(2)));
    HavuzTip = 6;
    desk.click(kPlateMeshTool);
    EXPECT_EQ(GorunusModu, 2);
    HavuzTip = 5;
    desk.click(kPlateMeshTool);
    EXPECT_EQ(desk.window.state(kPlateMeshTool).picture, 4);
    EXPECT_EQ(GorunusModu, 1);
}

TEST(Tools, NodesHideAndShowWithBothClicks) {
    Desk desk;
    AddGrid(1, 1);
    desk.main.DrawMeshView();
    desk.click(kPointLoadTool);
    EXPECT_TRUE(desk.window.Shown(Frame(3)));
    desk.click(kHideNodesTool);
    EXPECT_EQ(NodesHidden, 1);
    EXPECT_EQ(CommandState, kPointLoad); // goes on, though its button came up
    EXPECT_FALSE(desk.window.Checked(kPointLoadTool));
    desk.click(kHideNodesTool);
    EXPECT_EQ(NodesHidden, 0);
}

TEST(Tools, EdgeMovesShowThePaletteOfTheirView) {
    Desk desk;
    desk.click(kEdgeMoveTool);
    EXPECT_TRUE(desk.window.FormShown(kTool3));
    desk.click(kIsometricTool);
    EXPECT_FALSE(desk.window.FormShown(kTool3));
    desk.click(kEdgeMoveTool);
    EXPECT_TRUE(desk.window.FormShown(kTool2));
    EXPECT_EQ(PickStage, 0);
    AddWall();
    EdgeHitCount = 1;
    desk.scr.log.clear();
    desk.click(Tool2Option(0));
    EXPECT_EQ(PickStage, -1);
    EXPECT_EQ(desk.prompt(), "SABIT PLAK KENARI veya SABIT NOKTA SECIN < ESC : IPTAL >");
    EXPECT_EQ(EdgeHitCount, 0);
    EXPECT_NE(desk.scr.log, "");
    desk.click(Tool2Option(1));
    EXPECT_EQ(PickStage, 0);
    EXPECT_EQ(desk.prompt(), "PLAK KENARI veya NOKTA SECIN < ESC : IPTAL >");
    desk.click(Tool2Option(0));
    desk.cancel();
    desk.click(kEdgeMoveTool); // the palette still says so
    EXPECT_EQ(PickStage, -1);
}

TEST(Tools, MainToolsOpenTheirDialogs) {
    const struct {
        Element tool;
        const char *form;
        bool mainEnabled;
    } cases[] = {{kGeneralDataTool, "POOLGEN", true}, {kMaterialTool, "donsec", false},
                 {kLibraryTool, "POOLlib", false},    {kPanelTableTool, "FEAPLAK", false},
                 {kMeshTableTool, "MESHBIL", false},  {kNodeTableTool, "KOORBIL", false},
                 {kOpenTool, "LOADFILE", true},       {kSaveTool, "BILGI", false}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.form);
        ResetAll();
        Desk desk;
        ASSERT_TRUE(desk.click(c.tool));
        EXPECT_TRUE(desk.window.FormShown(c.form));
        EXPECT_EQ(desk.window.FormPlace(c.form), (Place{800, 900}));
        EXPECT_EQ(desk.window.formState(kMain).enabled, c.mainEnabled);
        EXPECT_FALSE(desk.click(kZoomAllTool)); // out of reach either way
    }
    EXPECT_EQ(ProjeAdi, "HAVUZ"); // the last one offers it
}

TEST(Tools, NewProjectReturnsToPlan) {
    Desk desk;
    AddWall();
    AddGrid(2, 2);
    desk.click(kIsometricTool);
    desk.main.DrawMeshView();
    desk.click(kNewTool);
    EXPECT_EQ(PanelCount + MeshCount + NoktaCount, 0);
    EXPECT_EQ(IsoView, 0);
    EXPECT_EQ(GorunusModu, 1);
    EXPECT_TRUE(desk.window.Enabled(kNodeMoveTool));
    EXPECT_EQ(desk.window.state(kIsometricTool).picture, 13);
    EXPECT_EQ(desk.window.state(kPlateMeshTool).picture, 4);
}

TEST(Tools, AutoMeshTakesThePathOfTheModel) {
    Desk desk;
    AddSmallPool();
    HavuzTip = 1;
    desk.click(kAutoMeshTool);
    EXPECT_EQ(MeshCount, 8);
    EXPECT_EQ(NoktaCount, 15);
    EXPECT_EQ(GorunusModu, 2);
    desk.click(kAutoMeshTool); // the button was still down: the second click only clears it, wanted
    MeshCount = 0;
    PutPlak(Rectangle(10, 0, 4, 3)); // a plate: the general path, which does not mesh a base panel
    desk.main.DrawPlateView();
    desk.click(kAutoMeshTool);
    EXPECT_EQ(MeshCount, 12);
    EXPECT_EQ(MeshTable[1].PanelNo, 1001);
    EXPECT_EQ(GorunusModu, 1);
}

TEST(Tools, ProgramsAreStartedWithTheProject) {
    Desk desk;
    EXPECT_FALSE(desk.click(kAnalysisTool));
    EXPECT_FALSE(desk.click(kResultsTool));
    AddSmallPool();
    HavuzTip = 1;
    desk.click(kAutoMeshTool);
    SaveProject(desk.program.file("P.POL"), desk.main);
    const HeadlessWindow::Started started{desk.program.path() + "/RAPORCU.EXE", desk.program.file("P")};
    desk.main.EnableResults(true);
    EXPECT_EQ(EndStatus([&] { desk.click(kResultsTool); }), 0);
    EXPECT_EQ(desk.window.started, std::vector{started});
    EXPECT_EQ(EndStatus([&] { desk.click(kAnalysisTool); }), 0);
    EXPECT_EQ(desk.window.started.size(), 2U);
    EXPECT_EQ(desk.window.started.back(), started);
    EXPECT_EQ(ReadBytes(CalismaDizini + "/WORKPOOL"), desk.program.file("P") + "\r\n");
    EXPECT_FALSE(ReadBytes(desk.program.file("P.DEP")).empty());
    EXPECT_FALSE(desk.window.Shown(kVekProgBar));
    EXPECT_NE(desk.scr.log.find("Nokta sayisi  : 15"), std::string::npos);
}

// The program ends all the same, without a failure of its own.
TEST(Tools, AnOutputProgramThatCannotBeStartedIsTold) {
    Desk desk;
    desk.window.programsStart = false;
    desk.main.EnableResults(true);
    EXPECT_EQ(EndStatus([&] { desk.click(kResultsTool); }), 0);
    EXPECT_EQ(desk.window.errors, std::vector{"havuz: " + desk.program.path() + "/RAPORCU.EXE: cannot be started"});
}

TEST(Tools, AToolThatIsStillDownRunsAgainByItsKey) {
    Desk desk;
    AddWall();
    EXPECT_TRUE(desk.window.ClickTool(kNewTool));
    AddWall();
    EXPECT_TRUE(desk.window.ClickTool(kNewTool));
    EXPECT_EQ(PanelCount, 0);
    EXPECT_TRUE(desk.window.Checked(kNewTool));
    EXPECT_FALSE(desk.window.ClickTool(kAnalysisTool)); // disabled
    desk.click(kPanelTableTool);
    EXPECT_FALSE(desk.window.ClickTool(kPanelTableTool)); // behind its dialog
}

TEST(Tools, ExportsAskForANameAndComeUpAgain) {
    Desk desk;
    desk.click(kSapTool); // no meshes: no question
    EXPECT_TRUE(desk.window.questions.empty());
    AddSmallPool();
    HavuzTip = 1;
    desk.click(kAutoMeshTool);
    ProjeAdi = "P";
    desk.window.saveNames = {desk.program.file("p.sap"), ""};
    desk.click(kSapTool);
    desk.click(kStaadTool); // cancelled
    ASSERT_EQ(desk.window.questions.size(), 2U);
    EXPECT_EQ(desk.window.questions[0], (SaveQuestion{"SAP90 PROGRAMI ICIN BIR DOSYA ADI GIRINIZ", "", "P"}));
    EXPECT_FALSE(ReadBytes(desk.program.file("p.sap")).empty());
    EXPECT_FALSE(desk.window.Checked(kSapTool));
    EXPECT_FALSE(desk.window.Checked(kStaadTool));
}

TEST(Tools, TopBarEndsMinimisesAndHelps) {
    Desk desk;
    desk.click(kHelpButton); // no help file
    EXPECT_TRUE(desk.window.helps.empty());
    WriteBytes(desk.program.file("vek9.chm"), "x");
    WriteBytes(desk.program.file("vek9$.chm"), "x");
    desk.click(kHelpButton);
    EXPECT_EQ(desk.window.helps, std::vector{desk.program.file("vek9.chm")});
    RecordingSurface scr;
    HeadlessWindow window(scr);
    MainWindow dollar(window, "/opt/havuz$");
    OnTopBar(dollar, kHelpButton);
    EXPECT_EQ(window.helps, std::vector{desk.program.file("vek9$.chm")});
    desk.click(kEndButton);
    EXPECT_EQ(desk.window.FormPlace("ENDKONT"), (Place{1024 * 15 - desk.window.FormWidth("ENDKONT") - 90, 800}));
    desk.main.EnableMainWindow();
    desk.window.HideForm("ENDKONT");
    desk.window.CloseForm(kMain); // asks the same
    EXPECT_TRUE(desk.window.FormShown("ENDKONT"));
    desk.main.EnableMainWindow();
    desk.click(kMinimiseButton);
    EXPECT_TRUE(desk.window.formState(kMain).minimised);
}

TEST(Tools, TheHelpFileNamesItsFirstPage) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("help"));
    WriteBytes(folder.file("help/index.html"), "<html>");
    const auto page = [&](const std::string &text) {
        WriteBytes(folder.file("vek9.chm"), text);
        return HelpPage(folder.file("vek9.chm"));
    };
    EXPECT_EQ(page("help/index.html \r\nanother\n"), folder.file("help/index.html"));
    EXPECT_EQ(page("help\\INDEX.HTML"), folder.file("help/index.html"));
    for (const char *none : {"", "\nhelp/index.html", "help", "help/none.html"})
        EXPECT_EQ(page(none), "") << none;
    EXPECT_EQ(FailureOf([&] { HelpPage(folder.file("none.chm")); }).kind, File);
}

TEST(Tools, TheOverviewOpensZoomsAndGoesAway) {
    Desk desk;
    AddGrid(2, 2);
    desk.click(kScr1); // plate view
    EXPECT_FALSE(desk.window.FormShown(kOverview));
    desk.main.DrawMeshView();
    desk.click(kScr1);
    EXPECT_TRUE(desk.window.FormShown(kOverview));
    EXPECT_EQ(desk.window.FormPlace(kOverview), (Place{800, 900}));
    EXPECT_FALSE(desk.window.Shown(kScr1));
    desk.window.ReleaseAt(kOverviewPicture, kRightButton, 0, 0);
    EXPECT_EQ(DynStage, 2);
    desk.window.ReleaseAt(kOverviewPicture, kRightButton, 0, 0);
    desk.window.MoveTo(kOverviewPicture, 0, 60, 45); // a picture of 121 * 91, a rectangle of 36.3 * 27.3
    EXPECT_EQ(desk.window.Line(OverviewLine(0)), (LineEnds{60 - 18.15, 45 - 13.65, 60 + 18.15, 45 - 13.65}));
    desk.window.PressAt(kOverviewPicture, kLeftButton, 60, 45);
    EXPECT_GT(MeshScale, 40);
    EXPECT_FALSE(desk.window.FormShown(kOverview));
    EXPECT_TRUE(desk.window.Shown(kScr1));
    desk.click(kScr1);
    desk.click(kScr); // another form becomes active
    EXPECT_FALSE(desk.window.FormShown(kOverview));
    EXPECT_EQ(DynStage, 0);
}

TEST(Tools, HotColourFollowsThePointer) {
    Desk desk;
    desk.window.Hover(kPanelTableTool);
    desk.window.Hover(kZoomAllTool);
    EXPECT_EQ(desk.window.state(kPanelTableTool).colour, Rgb(255, 200, 150)); // another group
    desk.window.Hover(kAutoMeshTool);
    EXPECT_EQ(desk.window.state(kPanelTableTool).colour, kButtonColour);
    desk.window.Tick(); // still over ChkButton (4): the view command cools
    EXPECT_EQ(desk.window.state(kZoomAllTool).colour, kButtonColour);
    EXPECT_EQ(desk.window.state(kAutoMeshTool).colour, Rgb(255, 200, 150));
    desk.window.underPointer = {};
    desk.window.Tick();
    EXPECT_EQ(desk.window.state(kAutoMeshTool).colour, kButtonColour);
    EXPECT_EQ(HotTool, (std::array{-1, -1, -1, -1}));
}

// Start

TEST(MainWindow, StartsInItsFirstState) {
    Desk desk;
    EXPECT_EQ(desk.window.Text(kTopBarText), "HAVUZ  ANALIZI^ve TASARIMI");
    EXPECT_EQ(IsoView, 0);
    EXPECT_EQ(GorunusModu, 1);
    EXPECT_EQ(int(ViewWidth), 600);
    EXPECT_EQ(desk.prompt(), "");
    EXPECT_EQ(desk.window.surfaceWidth, 0); // 1024 pixels: as designed
    for (const Element hidden : {kLabel1, kProgLab, kVekProgBar, Frame(1), Frame(3), Pol(50), RubberLine(4)})
        EXPECT_FALSE(desk.window.Shown(hidden)) << hidden.name;
}

TEST(MainWindow, AProjectOfTheCommandLineIsShownTurned) {
    const auto save = [](const ProgramFolder &program) {
        AddGrid(1, 1);
        WriteBytes(program.file("P.POL"), ProjectText());
        WriteBytes(program.file("P.SON"), "x");
    };
    Desk desk(save, "P");
    EXPECT_EQ(MeshCount, 1);
    EXPECT_EQ(IsoView, 1);
    EXPECT_EQ(desk.window.state(kIsometricTool).picture, 18);
    EXPECT_FALSE(desk.window.Enabled(kNodeMoveTool));
    EXPECT_TRUE(desk.window.Enabled(kAnalysisTool));
    EXPECT_TRUE(desk.window.Enabled(kResultsTool));
    EXPECT_TRUE(desk.window.Shown(Frame(1)));
    EXPECT_EQ(desk.window.copies, 1);
}

TEST(MainWindow, SurfaceFollowsTheScreenAndASecondStartEndsSilently) {
    Desk desk;
    desk.window.screenWidth = 640;
    desk.window.screenHeight = 480;
    desk.main.Start("");
    const int width = desk.window.surfaceWidth, height = desk.window.surfaceHeight;
    desk.window.screenWidth = 1280;
    desk.window.screenHeight = 1024;
    desk.main.Start("");
    EXPECT_EQ(desk.window.surfaceWidth - width, 640);
    EXPECT_EQ(desk.window.surfaceHeight - height, 544 - 24); // a narrow screen gets 24 rows more
    desk.window.otherInstance = true;
    EXPECT_EQ(EndStatus([&] { desk.main.Start(""); }), 0);
    EXPECT_TRUE(desk.window.errors.empty());
    desk.window.otherInstance = false;
    EXPECT_EQ(EndStatus([&] { desk.main.Start(desk.program.file("NONE")); }), 1);
    EXPECT_EQ(desk.window.errors.size(), 1U);
}

// Failures

TEST(MainWindow, AFailingMeshingCommandLeavesTheModelAndSaysSo) {
    Desk desk;
    AddSmallPool();
    AddGrid(3, 3);
    AddLoad(2, 1, 2, 3);
    HavuzTip = 1;
    const struct {
        int nx;
        const char *prompt;
    } cases[] = {{0, "AUTO MESH YAPILAMADI, SIFIRA BOLME: PanelTable(1) Nx"},
                 {4000, "AUTO MESH YAPILAMADI, TABLO SINIRI ASILDI: PanelTable(1): NoktaTable(5001) SINIR 0..5000"}};
    for (const auto &c : cases) {
        PanelTable[1].Nx = c.nx;
        const std::string before = ProjectText();
        desk.window.SetChecked(kAutoMeshTool, false);
        desk.click(kAutoMeshTool);
        EXPECT_EQ(desk.prompt(), c.prompt);
        EXPECT_EQ(ProjectText(), before);
        EXPECT_EQ(NokYukTable[2].FZ, 3);
        EXPECT_EQ(NodesHidden, 0);
    }
}

TEST(MainWindow, AnEditThatFailsHalfWayIsUndone) {
    Desk desk;
    AddSmallPool();
    const std::string before = ProjectText();
    desk.click(kVerticalPlateTool);
    desk.main.steps().edit(kScr, [] {
        NodesHidden = 1;
        AddWall();
        AddGrid(2, 2);
        HamNoktaCount = 5;
        PanelTable[1001].No = 1;
    });
    EXPECT_EQ(ProjectText(), before);
    EXPECT_EQ(NodesHidden + HamNoktaCount + CommandState, 0);
    EXPECT_FALSE(desk.window.Checked(kVerticalPlateTool));
    EXPECT_FALSE(desk.window.FormShown(kTool1));
    desk.main.steps().edit(kScr, AddWall);
    EXPECT_EQ(PanelCount, 2);
}

} // namespace havuz
