// What the recorder writes of a person's acts, and what it may leave out. That a record leaves the same model when it
// is played is tested with the scripts.
#include "hand_models.h"
#include "model/project_file.h"
#include "support.h"
#include "ui/commands/tools.h"
#include "ui/window/recorder.h"
#include "ui_support.h"

#include <gtest/gtest.h>
#include <optional>
#include <sstream>

namespace havuz {

namespace {

struct RecordedDesk : Desk {
    std::ostringstream out;
    std::optional<Recorder> recorder{std::in_place, window, out, ""};

    RecordedDesk() { lines(); }

    // What was written since the last time.
    std::string lines() {
        std::string text = out.str();
        out.str("");
        return text;
    }
    // The same with what still waits.
    std::string allLines() {
        recorder.reset();
        std::string text = lines();
        recorder.emplace(window, out, "");
        lines();
        return text;
    }
};

constexpr Element kName{"BILGI", "Tex", 0};

} // namespace

TEST(Recorder, BeginsWithTheProjectAndTheSurface) {
    RecordedDesk desk;
    desk.recorder.reset();
    desk.recorder.emplace(desk.window, desk.out, "HAVUZ 1.POL");
    EXPECT_EQ(desk.lines(), "# project HAVUZ 1.POL\nsurface 605 455\n");
    desk.recorder.reset();
    desk.click(kZoomAllTool); // nobody listens
    EXPECT_EQ(desk.lines(), "");
}

TEST(Recorder, TextsOfOneBoxAreOneLineWithItsCaret) {
    RecordedDesk desk;
    desk.click(kSaveTool);
    EXPECT_EQ(desk.lines(), "click MAIN ChkButton 11\n");
    for (const char *typed : {"D", "DE", "DE \"1\""}) {
        desk.window.Type(kName, typed);
        desk.window.Select(kName, 3, 0);
        desk.window.Tick();
    }
    EXPECT_EQ(desk.lines(), ""); // still in hand
    desk.window.Press(Key::Left);
    EXPECT_EQ(desk.lines(), "field BILGI Tex \"DE \"\"1\"\"\"\nselect BILGI Tex 3 0\nkey BILGI Tex Left\n");
    desk.window.Select(kName, 2, 0); // where it is
    EXPECT_EQ(desk.allLines(), "");
    desk.window.Select(kName, 0, 1);
    desk.window.Select(kName, 0, 2);
    desk.window.Type(kName, "#1"); // the caret goes behind it
    desk.window.Type(kName, "");
    EXPECT_EQ(desk.allLines(), "field BILGI Tex \"\"\n");
    desk.window.Type(kName, "#1");
    desk.click({"BILGI", "Tamam", 0});
    EXPECT_EQ(desk.lines(), "field BILGI Tex \"#1\"\nclick BILGI Tamam\n");
    desk.click(kGeneralDataTool);
    desk.lines();
    desk.window.Type({"POOLGEN", "Tex", 1}, "1");
    desk.window.Type({"POOLGEN", "Tex", 2}, "2"); // another box
    desk.window.CloseForm("POOLGEN");
    EXPECT_EQ(desk.lines(), "field POOLGEN Tex 1 1\nfield POOLGEN Tex 2 2\nclose POOLGEN\n");
}

TEST(Recorder, EveryOtherActIsALineAtOnce) {
    RecordedDesk desk;
    AddGrid(2, 2);
    desk.main.DrawMeshView();
    desk.window.PressAt(kScr, kLeftButton, 100.25, 1.0 / 3.0);
    desk.window.MoveTo(kScr, kLeftButton | kMiddleButton, 1e-7, -2);
    desk.window.ReleaseAt(kScr, 8, 1, 2); // a button without a name
    desk.window.TurnWheel(kScr, -2, 10, 20);
    desk.window.PanBy(kScr, 1.5, 0);
    desk.click(kScr1);
    desk.window.PressAt(kOverviewPicture, kRightButton, 1, 2);
    desk.window.CloseForm(kOverview);
    desk.window.TakeSize(500, 400);
    desk.window.OpenFile("/no/such file.POL");
    desk.window.OpenFile(CalismaDizini + "/YOK.POL"); // told from the working directory
    desk.click(kMaterialTool);
    desk.window.Choose({"donsec", "Beton", 0}, 2);
    desk.click({"donsec", "Iptal", 0});
    desk.click(kMeshTableTool);
    desk.window.Scroll({"MESHBIL", "Kaydir", 0}, 7);
    EXPECT_EQ(desk.lines(), "press left 100.25 0.3333333333333333\n"
                            "move left middle 1e-07 -2\n"
                            "release middle 1 2\n"
                            "wheel -2 10 20\n"
                            "pan 1.5 0\n"
                            "click MAIN SCR1\n"
                            "press DYNAMIC right 1 2\n"
                            "close DYNAMIC\n"
                            "surface 500 400\n"
                            "open \"/no/such file.POL\"\n"
                            "open YOK.POL\n"
                            "click MAIN ChkButton 1\n"
                            "choose donsec Beton \"BS25 (fck=250 kg/cm²)\"\n"
                            "click donsec Iptal\n"
                            "click MAIN ChkButton 5\n"
                            "scroll MESHBIL 7\n");
    EXPECT_FALSE(desk.click(kMeshTableTool)); // out of reach: no act
    EXPECT_EQ(desk.allLines(), "");
}

TEST(Recorder, AnAnswerStandsBeforeTheClickThatAsks) {
    RecordedDesk desk;
    AddGrid(1, 1);
    desk.window.saveNames = {CalismaDizini + "/OUT.S90"};
    desk.click(kSapTool);
    desk.click(kStaadTool); // cancelled
    EXPECT_EQ(desk.lines(), "answer OUT.S90\nclick MAIN ChkButton 12\nanswer \"\"\nclick MAIN ChkButton 13\n");
}

TEST(Recorder, AnActThatEndsTheProgramIsWritten) {
    RecordedDesk desk;
    desk.main.EnableResults(true);
    desk.window.Hover(kResultsTool);
    EXPECT_EQ(EndStatus([&] { desk.click(kResultsTool); }), 0);
    EXPECT_EQ(desk.lines(), "hover MAIN ChkButton 8\nclick MAIN ChkButton 8\n");
    desk.click(kEndButton);
    desk.lines();
    EXPECT_EQ(EndStatus([&] { desk.click({"ENDKONT", "Tamam", 0}); }), 0);
    EXPECT_EQ(desk.lines(), "click ENDKONT Tamam\n");
}

TEST(Recorder, OfHoversTheLastBeforeAnActStays) {
    RecordedDesk desk;
    for (int i = 0; i <= 5; ++i) {
        desk.window.Hover(Command(i));
        desk.window.Tick();
    }
    desk.window.Hover(kPlateMeshTool);
    desk.click(kZoomAllTool);
    desk.window.Hover(kPlateMeshTool); // still there
    desk.click(kZoomAllTool);
    EXPECT_EQ(desk.lines(), "hover MAIN Command 5\nclick MAIN Command 0\nclick MAIN Command 0\n");
}

// A move goes when the next one sets all anew that it left behind.
TEST(Recorder, MovesThatLeaveSomethingBehindStay) {
    RecordedDesk desk;
    AddPanel(0, {0, 0, 0}, {20, 0, 0}, {20, 20, 0}, {0, 20, 0});
    AddGrid(2, 2);
    desk.main.DrawMeshView(); // 20 pixels a metre
    const auto moves = [&desk](std::initializer_list<double> xs) {
        desk.allLines();
        for (const double x : xs)
            desk.move({x, 30});
        std::string text;
        std::istringstream lines(desk.allLines());
        for (std::string word; lines >> word >> word; lines >> word)
            text += (text.empty() ? "" : " ") + word;
        return text;
    };
    EXPECT_EQ(moves({100, 200, 300}), "300");
    desk.click(kMeshOnOffTool); // meshes leave nothing
    EXPECT_EQ(moves({40, 60, 300}), "300");
    desk.click(kPointLoadTool); // a node that was caught leaves its place for the next turn
    EXPECT_EQ(moves({10, 30, 31, 50, 300, 310}), "30 50 310");
    desk.click(kZoomWinTool);
    EXPECT_EQ(moves({100, 200}), "100 200"); // the zoom's first corner is still to come
    desk.press({100, 100});
    EXPECT_EQ(moves({200, 300, 300}), "200 300 300");
    desk.cancel();

    desk.main.DrawPlateView();
    desk.click(kEdgeMoveTool);
    EXPECT_EQ(moves({230, 240, 330, 340, 345}), "230 345"); // one edge, marked at its middle
    desk.press({230, 30});
    EXPECT_EQ(moves({230, 231, 232}), "230 232"); // the first is waited for
    desk.drag({230, 30});
    EXPECT_EQ(moves({230, 400, 430}), "230 430"); // the first ends the drag
    desk.click(kEdgeMoveTool);
    desk.click(kVerticalPlateTool);
    PlateScale = AnchorX = AnchorY = 0.0;
    EXPECT_EQ(moves({100, 200, 300}), "100 300"); // the first fails and ends the command
}

} // namespace havuz
