// The one door of all commands: what fails leaves the model and the window as they were, and says so; what succeeds is
// a step of undo.
#include "hand_models.h"
#include "model/files.h"
#include "model/options.h"
#include "model/project_file.h"
#include "support.h"
#include "ui/forms/dialogs.h"
#include "ui/window/transactions.h"
#include "ui/window/window_title.h"
#include "ui_support.h"

#include <chrono>
#include <gtest/gtest.h>

namespace havuz {

namespace {

// A 3 x 3 grid of meshes, and three panels.
void PutModel() {
    AddGrid(3, 3);
    for (int i = 0; i < 3; ++i)
        AddPanel(1, {0, 0, 3}, {4, 0, 3}, {4, 0, 0}, {0, 0, 0});
}

struct Work {
    explicit Work(const std::function<void()> &model = PutModel) {
        ResetAll();
        desk = std::make_unique<Desk>();
        model();
        desk->main.steps().begin();
        desk->main.RedrawView();
    }
    std::unique_ptr<Desk> desk;
    HeadlessWindow &window() { return desk->window; }
    const ModelHistory &history() { return desk->main.steps().history(); }
    std::string failure() { return desk->main.steps().takeFailure(); }
    void undo() { desk->click(kUndoButton); }
    void redo() { desk->click(kRedoButton); }
};

void OpenTable(Work &work, Element tool) { ASSERT_TRUE(work.desk->click(tool)); }

} // namespace

TEST(Transactions, ACellThatFailsShowsItsOldValueHoweverItIsLeft) {
    const struct {
        Element tool, cell, other;
        const char *typed, *shown, *place;
    } cells[] = {{kMeshTableTool,
                  {"MESHBIL", "J", 2},
                  {"MESHBIL", "I", 0},
                  "41858",
                  "4",
                  "MESH BILGISI YAPILAMADI, SAYI ALANINA SIGMIYOR: MeshTable(3): 16 BITLIK"},
                 {kPanelTableTool, {"FEAPLAK", "Nx", 1}, {"FEAPLAK", "No", 0}, "99999", "", "PanelTable(2): "},
                 {kPanelTableTool, {"FEAPLAK", "Deger", 3}, {"FEAPLAK", "No", 0}, "1e39", "4", "PanelTable(1): "},
                 {kNodeTableTool, {"KOORBIL", "X", 9}, {"KOORBIL", "X", 0}, "4e38", "", "NoktaTable(10): "}};
    for (const auto &c : cells)
        for (const std::string way : {"Enter", "Down", "PageDown", "click", "Tamam"}) {
            SCOPED_TRACE(std::string(c.cell.form) + " " + std::string(c.cell.name) + " " + way);
            Work work;
            OpenTable(work, c.tool);
            work.window().GoTo(c.cell);
            const std::string old = work.window().Text(c.cell);
            EXPECT_EQ(old, c.shown == std::string() ? old : c.shown);
            const ModelState before = Now();
            ASSERT_TRUE(work.window().Type(c.cell, c.typed));
            if (way == "click")
                work.window().Click(c.other);
            else if (way == "Tamam")
                work.window().Click({c.cell.form, "Tamam", 0});
            else
                work.window().Press(way == "Enter" ? Key::Enter : way == "Down" ? Key::Down : Key::PageDown);
            if (way != "Tamam" && !(way == "PageDown" && c.cell.name == "Deger")) {
                EXPECT_NE(work.failure(), "");
                EXPECT_NE(work.desk->prompt().find(c.place), std::string::npos) << work.desk->prompt();
                EXPECT_EQ(Now(), before);
                EXPECT_TRUE(work.window().FormShown(c.cell.form));
            }
            EXPECT_TRUE(way == "PageDown" || work.window().Text(c.cell) == old) << work.window().Text(c.cell);
        }
}

TEST(Transactions, WhatCannotBeDoneIsToldBeforeAnythingIsLost) {
    const auto library = [](const char *box, int index, const char *value, int page) {
        return [=](Work &work) {
            work.desk->click(kLibraryTool);
            work.window().Click({"POOLlib", "Sayfa", page});
            work.window().Type({"POOLlib", box, index}, value);
            work.window().Click({"POOLlib", "Tamam", 0});
        };
    };
    const struct {
        const char *what;
        std::function<void(Work &)> job;
        const char *prompt;
        bool staysOpen;
    } cases[] = {
        {"pool too large", library("Lx", 2, "90", 2), "HAVUZ KUTUPHANESI YAPILAMADI, TABLO SINIRI", true},
        {"mesh width 0",
         [&](Work &work) {
             MeshGenisligi = 0.0;
             library("Lx", 2, "10", 2)(work);
         },
         "HAVUZ KUTUPHANESI YAPILAMADI, SIFIRA BOLME", true},
        {"damaged file",
         [](Work &work) {
             const std::string path = work.desk->program.file("BOZUK.POL");
             WriteBytes(path, ProjectText().substr(0, 700) + "x");
             work.window().OpenFile(path);
         },
         "FEA BILGISI OKUMA YAPILAMADI, ", false},
        {"unwritable directory",
         [](Work &work) {
             CalismaDizini += "/NONE";
             work.desk->click(kSaveTool);
             work.window().Click({"BILGI", "Tamam", 0});
         },
         "FEA BILGISI SAKLAMA YAPILAMADI, DOSYA", true},
        {"analysis of a flat mesh",
         [](Work &work) {
             work.window().Enable(kAnalysisTool, true);
             MeshTable[1].N2 = MeshTable[1].N3 = MeshTable[1].N4 = MeshTable[1].N1;
             ProjeYolu = work.desk->program.file("P");
             work.desk->click(kAnalysisTool);
         },
         "FEA ANALIZI YAPILAMADI, ", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Work work;
        const std::string text = ProjectText();
        c.job(work);
        EXPECT_EQ(work.desk->prompt().rfind(c.prompt, 0), 0U) << work.desk->prompt();
        EXPECT_NE(work.failure(), "");
        EXPECT_TRUE(ProjectText() == text || std::string(c.what) == "analysis of a flat mesh");
        EXPECT_EQ(NoktaCount, 16);
        EXPECT_EQ(work.desk->main.openForm() != nullptr, c.staysOpen);
        EXPECT_EQ(work.window().formState(kMain).enabled, !c.staysOpen);
        EXPECT_EQ(work.history().steps(), 0U);
        EXPECT_TRUE(work.window().started.empty());
    }
}

TEST(Transactions, DeletingInAnEmptyTableDoesNothing) {
    for (const Element tool : {kPanelTableTool, kMeshTableTool, kNodeTableTool}) {
        SCOPED_TRACE(tool.index);
        Work work([] {});
        OpenTable(work, tool);
        const ModelState before = Now();
        work.window().Click({work.desk->main.openForm()->name(), "Isaret", 0});
        work.window().Click({"TOOL", "Satir", 1});
        EXPECT_EQ(Now(), before);
        EXPECT_EQ(PanelCount + MeshCount + NoktaCount, 0);
    }
}

// Steps

TEST(Undo, TakesBackAndMakesAgainOneStepForEachCommand) {
    Work work;
    std::vector<ModelState> states = {Now()};
    const auto step = [&](const char *name, const std::function<void()> &job) {
        SCOPED_TRACE(name);
        job();
        EXPECT_EQ(work.history().steps(), states.size());
        EXPECT_EQ(work.history().undoName(), name);
        EXPECT_EQ(work.window().Text(kUndoButton), std::string("geri al: ") + name);
        states.push_back(Now());
    };
    step("PANEL BILGISI", [&] { // a closed table is one, whatever was typed
        OpenTable(work, kPanelTableTool);
        for (int row = 0; row < 3; ++row)
            work.window().Type({"FEAPLAK", "D", row}, "40");
        EXPECT_FALSE(work.desk->click(kUndoButton)); // out of reach meanwhile
        work.window().Click({"FEAPLAK", "Tamam", 0});
    });
    step("GENEL HAVUZ BILGISI", [&] {
        work.desk->click(kGeneralDataTool);
        work.window().Type({"POOLGEN", "Tex", 0}, "Gebze, çok uzun bir isim");
        work.window().Type({"POOLGEN", "Tex", 2}, "3000");
        work.window().Press(Key::Escape);
    });
    step("PLAK SILME", [&] {
        work.desk->main.DrawPlateView();
        work.desk->click(kPanelDeleteTool);
        SelectedPanel = 1;
        work.desk->press({1, 1});
    });
    step("YENI PROJE", [&] { work.desk->click(kNewTool); });
    for (std::size_t k = states.size(); k-- > 1;) {
        work.undo();
        EXPECT_EQ(Now(), states[k - 1]) << k;
    }
    EXPECT_FALSE(work.window().Enabled(kUndoButton));
    for (std::size_t k = 1; k < states.size(); ++k) {
        work.redo();
        EXPECT_EQ(Now(), states[k]) << k;
    }
    EXPECT_FALSE(work.window().Enabled(kRedoButton));
    work.undo();
    EXPECT_EQ(work.desk->prompt(), "GERI ALINDI: YENI PROJE");
    work.desk->click(kPanelDeleteTool); // arming is no step and keeps what can be made again
    EXPECT_TRUE(work.window().Enabled(kRedoButton));
    work.desk->main.DrawPlateView();
    SelectedPanel = 1;
    work.desk->press({1, 1});
    EXPECT_FALSE(work.window().Enabled(kRedoButton)); // a new step drops it
}

TEST(Undo, TheMarkInTheTitleIsTrueAndSavingIsNoStep) {
    const HomeAt elsewhere("/home/a"); // some systems have the temporary files in the home
    Work work;
    const auto caption = [&] { return work.window().formState(kMain).caption; };
    EXPECT_EQ(caption(), "HAVUZ");
    work.desk->click(kNewTool);
    EXPECT_EQ(caption(), "adsız* - HAVUZ");
    work.undo();
    EXPECT_EQ(caption(), "HAVUZ");
    work.desk->click(kSaveTool);
    work.window().Type({"BILGI", "Tex", 0}, "a/b");
    work.window().Click({"BILGI", "Tamam", 0});
    EXPECT_TRUE(work.window().FormShown("BILGI"));
    EXPECT_EQ(work.desk->prompt(), "SAKLANAMADI: PROJE ISMINDE / OLAMAZ");
    work.window().Type({"BILGI", "Tex", 0}, "Depo");
    work.window().Click({"BILGI", "Tamam", 0});
    EXPECT_EQ(work.desk->prompt(), "SAKLANDI: " + CalismaDizini + "/Depo.POL");
    EXPECT_EQ(caption(), "Depo - " + CalismaDizini + " - HAVUZ");
    EXPECT_EQ(work.history().steps(), 1U); // what was taken back stays
    work.redo();
    EXPECT_EQ(caption(), "Depo* - " + CalismaDizini + " - HAVUZ");
    work.undo();
    EXPECT_EQ(caption(), "Depo - " + CalismaDizini + " - HAVUZ");
    EXPECT_EQ(WindowTitle("/home/a/Havuz/Gebze 12x6", true, "/home/a"), "Gebze 12x6* - ~/Havuz - HAVUZ");
    EXPECT_EQ(WindowTitle("/home/ab/P", false, "/home/a"), "P - /home/ab - HAVUZ");
}

TEST(Undo, OpeningIsAStepAndItsNamesGoWithIt) {
    Work work;
    const ModelState before = Now();
    work.desk->click(kSaveTool);
    work.window().Type({"BILGI", "Tex", 0}, "A");
    work.window().Click({"BILGI", "Tamam", 0});
    const std::string other = CalismaDizini + "/B.POL";
    ZeminKo = 77;
    WriteBytes(other, ProjectText());
    ZeminKo = 2000;
    work.window().OpenFile(other);
    EXPECT_EQ(ProjeAdi, "B");
    EXPECT_EQ(ZeminKo, 77);
    work.undo();
    EXPECT_EQ(ProjeAdi, "A");
    EXPECT_EQ(ProjeYolu, CalismaDizini + "/A");
    EXPECT_EQ(ZeminKo, 2000);
    EXPECT_EQ(work.window().formState(kMain).caption.rfind("A - ", 0), 0U);
    work.redo();
    EXPECT_EQ(ProjeAdi, "B");
    EXPECT_EQ(work.window().formState(kMain).caption.rfind("B - ", 0), 0U);
    EXPECT_FALSE(Now() == before);
}

// The largest model, every node and mesh changed in every step.
TEST(Undo, AHundredStepsOfTheLargestModelStaySmallAndQuick) {
    Work work([] {
        for (int i = 1; i <= kNoktaCapacity; ++i)
            NoktaTable[i].X = i % 71, NoktaTable[i].Y = i / 71;
        NoktaCount = kNoktaCapacity;
        for (int i = 1; i <= 4900; ++i)
            AddMesh(i, i + 1, i + 72, i + 71);
    });
    const ModelState before = Now();
    for (int k = 1; k <= 120; ++k)
        work.desk->main.steps().edit(kAutoMeshTool, [k] {
            for (int i = 1; i <= kNoktaCapacity; ++i) {
                NoktaTable[i].Z = 0.01 * k * i;
                NoktaTable[i].X = i % 71 + 0.001 * k;
                MeshTable[i].Kalinlik = k;
            }
        });
    EXPECT_GE(work.history().steps(), 100U);
    EXPECT_LT(work.history().bytes(), 100U << 20);
    const auto begin = std::chrono::steady_clock::now();
    const std::size_t steps = work.history().steps();
    for (std::size_t k = 0; k < steps; ++k)
        work.undo();
    const double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    RecordProperty("undo_ms", std::to_string(ms / static_cast<double>(steps)));
    std::printf("one undo of 5000 nodes: %.1f ms, %zu steps in %.1f MB\n", ms / static_cast<double>(steps), steps,
                static_cast<double>(work.history().bytes()) / (1 << 20));
    EXPECT_EQ(Now() == before, steps == 120U);
}

} // namespace havuz
