// Tables filled to the last record by each way that fills them, and one more: the window and the command line tell the
// place and the bound, the model stays as it was to the byte, record 0 stays blank.
#include "cli_support.h"
#include "hand_models.h"
#include "model/options.h"
#include "model/project_file.h"
#include "plak_support.h"
#include "ui/window/model_state.h"
#include "ui/window/sound_switch.h"
#include "ui/window/transactions.h"
#include "ui_support.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace havuz {

namespace {

bool RecordsZeroAreBlank() {
    const ModelState now = Now();
    PlakTable[0] = {};
    PanelTable[0] = {};
    MeshTable[0] = {};
    NoktaTable[0] = {};
    NokYukTable[0] = {};
    return Now() == now; // which knows no padding
}

// One beside the other, from the origin on.
void AddPanels(int count) {
    for (int i = 0; i < count; ++i) {
        const double x = 10.0 * PanelCount;
        PanelRecord &panel = PanelTable[AddPanel(1, {x, 0, 0}, {x + 4, 0, 0}, {x + 4, 4, 0}, {x, 4, 0})];
        panel.Nx = panel.Ny = 1;
    }
}

void AddPlates(int count) {
    for (int i = 0; i < count; ++i)
        PutPlak(Rectangle(20, 0, 4, 3));
}

// A panel that is meshed into (columns + 1) * (rows + 1) raw nodes.
void PutGridPanel(int columns, int rows) {
    PanelCount = 0;
    PanelRecord &panel = PanelTable[AddPanel(0, {0, 0, 0}, {40, 0, 0}, {40, 40, 0}, {0, 40, 0})];
    panel.Nx = columns;
    panel.Ny = rows;
}

void TakePlan(Desk &desk) {
    if (IsoView == 1)
        desk.click(kIsometricTool);
    desk.cancel();
}

void Copy(Desk &desk) {
    TakePlan(desk);
    desk.click(kPanelCopyTool);
    desk.move(Desk::at(2, 2));
    for (const PlanPoint corner : {PlanPoint{2, 2}, {1, 2}, {3, 3}})
        desk.press(Desk::at(corner.x, corner.y));
}

void DrawWall(Desk &desk) {
    TakePlan(desk);
    desk.click(kVerticalPlateTool);
    desk.press({100, 100});
    desk.press({200, 100});
}

void DrawPolygon(Desk &desk) {
    if (Form *form = desk.main.openForm())
        desk.window.CloseForm(form->name());
    TakePlan(desk);
    desk.click(kPolygonTool);
    for (const ScreenPoint p : {ScreenPoint{100, 100}, {200, 100}, {200, 200}})
        desk.press(p);
    desk.cancel();
    desk.click({"yesno", "Tamam", 0});
}

// Across the plate whose lower left corner is at the origin, each time through what the last cut has left of it.
void Cut(Desk &desk) {
    const double x = PlakCount >= kPlakCapacity || PanelCount >= 326 ? 1.0 : 2.0;
    TakePlan(desk);
    desk.click(kCutTool);
    desk.press(Desk::at(x, -1));
    desk.press(Desk::at(x, 5));
}

std::function<void(Desk &)> Insert(Element tool) {
    return [tool](Desk &desk) {
        if (desk.main.openForm() == nullptr)
            desk.click(tool);
        desk.click({desk.main.openForm()->name(), "Isaret", 0});
        desk.click({"TOOL", "Satir", 0});
    };
}

// A blank row falls out at the next use of the popup.
std::function<void(Desk &)> TypeRow(std::string_view form, std::vector<std::string_view> columns) {
    return [=](Desk &desk) {
        for (const std::string_view column : columns)
            desk.window.Type({form, column, 0}, "1");
        desk.window.GoTo({form, columns[0], 0});
    };
}

void AutoMeshAgain(Desk &desk) {
    desk.window.SetChecked(kAutoMeshTool, false);
    desk.click(kAutoMeshTool);
}

void SoundMesh(Desk &desk) {
    desk.window.SetChecked(kSoundSwitch, true);
    AutoMeshAgain(desk);
}

std::function<void(Desk &)> Library(int page, const char *length) {
    return [=](Desk &desk) {
        if (desk.main.openForm() == nullptr)
            desk.click(kLibraryTool);
        desk.click({"POOLlib", "Sayfa", page});
        desk.window.Type({"POOLlib", "Lx", page}, length);
        desk.click({"POOLlib", "Tamam", 0});
    };
}

// A project file whose counts line claims more than a table holds.
std::function<void(Desk &)> Open(const char *counts) {
    return [=](Desk &desk) {
        std::string text = ProjectText();
        const std::size_t line = text.find("\r\n") + 2;
        text.replace(line, text.find(',', text.find(',', text.find(',', text.find(',', line) + 1) + 1) + 1) - line,
                     counts);
        WriteBytes(desk.program.file("COK.POL"), text);
        desk.window.OpenFile(desk.program.file("COK.POL"));
    };
}

} // namespace

TEST(Limits, TheLastRecordIsTakenAndOneMoreIsToldByEachWayOfTheWindow) {
    const struct {
        const char *way;
        std::function<void()> put; // a model that one more act fills
        std::function<void(Desk &)> act;
        const int *count; // full after the first act; none: the first act goes beyond
        int capacity;
        const char *told;
        std::function<void(Desk &)> grow = {}; // what makes the act ask for more the second time
    } ways[] = {
        {"copy", [] { AddPanels(999); }, Copy, &PanelCount, 1000, "PanelTable(1001) SINIR 0..1000"},
        {"wall", [] { AddPanels(999); }, DrawWall, &PanelCount, 1000, "PanelTable(1001) SINIR 0..1000"},
        {"polygon, walls", [] { AddPanels(997); }, DrawPolygon, &PanelCount, 1000, "PanelTable(1001) SINIR 0..1000"},
        {"polygon, plates", [] { AddPlates(99); }, DrawPolygon, &PlakCount, 100, "PlakTable(101) SINIR 0..100"},
        {"cut, plates",
         [] {
             PutPlak(Rectangle(0, 0, 4, 3));
             AddPlates(98);
         },
         Cut, &PlakCount, 100, "PlakTable(101) SINIR 0..100"},
        {"cut, walls",
         [] {
             PutPool(Rectangle(0, 0, 4, 3));
             AddPanels(320);
         },
         Cut, &PanelCount, 326, "PanelTable(327): 16 BITLIK ALANA SIGMAYAN SAYI 32804"},
        {"row popup, meshes",
         [] {
             AddNode(1, 1, 1);
             for (int i = 1; i < 5000; ++i)
                 AddMesh(1, 1, 1, 1);
         },
         Insert(kMeshTableTool), &MeshCount, 5000, "MeshTable(5001) SINIR 0..5000",
         TypeRow("MESHBIL", {"I", "J", "K", "L"})},
        {"row popup, nodes",
         [] {
             for (int i = 1; i < 5000; ++i)
                 AddNode(1 + i % 70, 1 + i / 70, 1);
         },
         Insert(kNodeTableTool), &NoktaCount, 5000, "NoktaTable(5001) SINIR 0..5000",
         TypeRow("KOORBIL", {"X", "Y", "Z"})},
        {"mesh of panels, nodes", [] { PutGridPanel(49, 99); }, AutoMeshAgain, &NoktaCount, 5000,
         "NoktaTable(5001) SINIR 0..5000", [](Desk &) { PutGridPanel(49, 100); }},
        {"mesh of panels, panels", [] { AddPanels(500); }, AutoMeshAgain, &PanelCount, 500,
         "PanelTable(1001) SINIR 0..1000", [](Desk &) { AddPanels(1); }},
        {"mesh plate by plate, nodes", [] { PutPlak(Rectangle(0, 0, 100, 100)); }, AutoMeshAgain, nullptr, 0, "SINIR"},
        {"mesh plate by plate, codes", [] { AddPlates(32); }, AutoMeshAgain, &PlakCount, 32,
         "PLAK 33: PlakKodu -33001 16 BITE SIGMIYOR, PLAK SINIRI 32", [](Desk &) { AddPlates(1); }},
        {"mesh plate by plate, working copy", [] { AddPlates(91); }, AutoMeshAgain, nullptr, 0,
         "PLAK 1: CALISMA KOPYASI, PlakTable(101) SINIR 0..100"},
        {"sound mesh",
         [] {
             PutGridPanel(49, 99);
             MeshGenisligi = 0.1;
         },
         SoundMesh, nullptr, 0, "MESH GENISLIGI 0.1 COK KUCUK, SINIR 5000 NOKTA VE 5000 MESH"},
        {"circular pool",
         [] {
             AddPanels(3);
             MeshGenisligi = 0.2;
         },
         Library(2, "10"), nullptr, 0, "NoktaTable(5001) SINIR 0..5000"},
        {"rectangular pool", [] { AddPanels(3); }, Library(1, "40000"), nullptr, 0,
         "16 BITLIK ALANA SIGMAYAN SAYI 40000"},
        {"opening, panels", [] { AddPanels(3); }, Open("1001,0,0,0"), nullptr, 0, "COK.POL"},
        {"opening, plates", [] { AddPanels(3); }, Open("0,101,0,0"), nullptr, 0, "COK.POL"},
        {"opening, nodes", [] { AddPanels(3); }, Open("0,0,5001,0"), nullptr, 0, "COK.POL"},
        {"opening, meshes", [] { AddPanels(3); }, Open("0,0,0,5001"), nullptr, 0, "COK.POL"},
    };
    for (const auto &w : ways) {
        SCOPED_TRACE(w.way);
        ResetAll();
        Desk desk;
        w.put();
        desk.main.steps().begin();
        desk.main.RedrawView();
        if (w.count != nullptr) {
            w.act(desk);
            EXPECT_EQ(desk.main.steps().takeFailure(), "") << desk.prompt();
            EXPECT_EQ(*w.count, w.capacity);
            if (w.grow)
                w.grow(desk);
        }
        const ModelState before = Now();
        const std::size_t steps = desk.main.steps().history().steps();
        w.act(desk);
        EXPECT_NE(desk.main.steps().takeFailure(), "");
        EXPECT_NE(desk.prompt().find(w.told), std::string::npos) << desk.prompt();
        EXPECT_TRUE(Now() == before);
        EXPECT_EQ(desk.main.steps().history().steps(), steps);
        EXPECT_TRUE(RecordsZeroAreBlank());
    }
}

// The popup counts the panels up to the first gap; a table without one counts none: wanted. Nothing is lost by it: one
// step back brings all.
TEST(Limits, AFullPanelTableIsCountedAnewByThePopup) {
    Desk desk;
    AddPanels(999);
    desk.main.steps().begin();
    const auto insert = Insert(kPanelTableTool);
    insert(desk);
    EXPECT_EQ(PanelCount, 1000);
    EXPECT_EQ(PanelTable[1000].No, 999); // the row that was inserted is the blank one in front
    desk.window.CloseForm("FEAPLAK");
    PanelTable[1].No = 7;
    desk.main.steps().begin();
    const ModelState full = Now();
    insert(desk);
    EXPECT_EQ(PanelCount, 1);
    EXPECT_TRUE(RecordsZeroAreBlank());
    desk.window.CloseForm("FEAPLAK");
    desk.click(kUndoButton);
    EXPECT_TRUE(Now() == full);
}

TEST(Limits, TheCommandLineTellsThemAndLeavesTheFile) {
    const struct {
        const char *arguments;
        std::function<void()> put;
        const char *told;
    } ways[] = {
        {"polygon --onto P.POL -o P.POL --points '0,0 4,0 4,4' --dp 20 --ds 30 --top 3 --bottom 0",
         [] { AddPlates(100); }, "PlakTable(101) lies outside 0..100"},
        {"polygon --onto P.POL -o P.POL --points '0,0 4,0 4,4' --dp 20 --ds 30 --top 3 --bottom 0",
         [] { AddPanels(998); }, "PanelTable(1001) lies outside 0..1000"},
        {"cut P.POL --line '2,-1 2,5'",
         [] {
             PutPlak(Rectangle(0, 0, 4, 3));
             AddPlates(99);
         },
         "PlakTable(101) lies outside 0..100"},
        {"mesh P.POL", [] { PutGridPanel(49, 100); }, "NoktaTable(5001) lies outside 0..5000"},
        {"mesh P.POL --mesh-width 0.1", [] { PutPlak(Rectangle(0, 0, 30, 30)); }, "lies outside"},
        {"pool circular -o P.POL --set Lx=10 --set MeshGenisligi=0.2", [] {}, "NoktaTable(5001) lies outside 0..5000"},
        {"pool rectangular -o P.POL --set Lx=40000", [] {}, "a 16-bit field cannot hold 40000"},
        {"set P.POL 'X(17)=1'", [] { AddGrid(3, 3); }, "NoktaTable(17) lies outside 1..16"},
        {"set P.POL 'FZ(17)=1'", [] { AddGrid(3, 3); }, "NokYukTable(17) lies outside 1..16"},
        {"set P.POL 'X(0)=1'", [] { AddGrid(3, 3); }, "NoktaTable(0) lies outside 1..16"},
        {"set P.POL 'Nx(1)=32768'", [] { AddPanels(1); }, "a 16-bit field cannot hold 32768"},
    };
    for (const auto &w : ways) {
        SCOPED_TRACE(w.arguments);
        const TemporaryFolder folder;
        ResetAll();
        w.put();
        const std::string before = ProjectText();
        WriteBytes(folder.file("P.POL"), before);
        const Ended ended = Cli(folder, w.arguments);
        EXPECT_EQ(ended.status, 1);
        EXPECT_TRUE(Contains(ended.error, w.told)) << ended.error;
        EXPECT_TRUE(Contains(ended.error, "P.POL")) << ended.error;
        EXPECT_EQ(ReadBytes(folder.file("P.POL")), before);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    }
}

} // namespace havuz
