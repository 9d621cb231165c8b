// What a run says about itself: amounts worked out by hand, silence where nothing is wrong, nothing changed by looking.
#include "analysis_support.h"
#include "fea/result_summary.h"
#include "fea/run_residual.h"
#include "fea/run_warnings.h"
#include "mesh/numbering.h"
#include "mesh/oto_mesh.h"
#include "mesh/polygon_pool.h"
#include "model/project_file.h"
#include "model/store.h"
#include "pool/pool_library.h"

#include <cstring>
#include <gtest/gtest.h>

namespace havuz {

namespace {

// A pool of the library, without strips.
void MakePool(double lx, double ly, double height, double liquid, double soil, double water) {
    ResetAll();
    Lx = lx;
    Ly = ly;
    UstKot = height;
    Bk = 0;
    SiviKotu = liquid;
    ToprakKotu = soil;
    YeraltiSuKotu = water;
    PoolWindow pool;
    GeneratePool(1, pool);
    MeshWindow mesh;
    AutoMesh(mesh);
}

std::string CodesOf(const std::vector<Warning> &warnings) {
    std::string codes;
    for (const Warning &w : warnings)
        codes += (codes.empty() ? "" : " ") + w.code;
    return codes;
}

// The warning holds every part, or what it says instead.
testing::AssertionResult Says(const std::vector<Warning> &warnings, const std::string &code,
                              const std::vector<std::string> &parts) {
    std::string all;
    for (const Warning &w : warnings) {
        std::size_t found = 0;
        for (const std::string &part : parts)
            found += w.english.find(part) != std::string::npos ? 1 : 0;
        if (w.code == code && found == parts.size())
            return testing::AssertionSuccess();
        all += w.code + ": " + w.english + "\n";
    }
    return testing::AssertionFailure() << code << " is not said in\n" << all;
}

struct FinishedRun {
    TemporaryFolder folder;
    std::vector<Warning> warnings;
    FinishedRun() {
        RunWindow window;
        RunInto(folder, window);
        warnings = RunWarnings(folder.file("A"));
    }
};

} // namespace

// Liquid on the walls: 4.5 t/m over 30 m; the upper of three rows holds 1/9 of it. Soil 0.72 t/m3 in its place.
TEST(RunWarnings, LevelsOnEdgesAndPressuresTakenOver) {
    MakePool(10, 5, 3, 3, 3, 0);
    const std::vector<Warning> said = ModelWarnings();
    EXPECT_EQ(CodesOf(said), "carried-over level-on-edge level-on-edge repeats");
    EXPECT_TRUE(Says(said, "level-on-edge",
                     {"liquid, 3 m", "30 wall meshes between 2 and 3 m", "15.00 t of 135.00 t (11.1 %)"}));
    EXPECT_TRUE(Says(said, "level-on-edge", {"soil", "10.80 t of 97.20 t", "2 (liquid and soil), 4 (soil)"}));
    EXPECT_TRUE(Says(said, "carried-over", {"groundwater (level 0 m)", "60 wall meshes between 0 and 2 m", "86.40 t"}));
    EXPECT_TRUE(Says(said, "repeats", {"column 5 (groundwater uplift) repeats load column 4 (soil)", "YukDurum(3)=0"}));
    EXPECT_NE(said[1].turkish.find("15,00 t"), std::string::npos) << said[1].turkish;
}

// Above the ground the liquid stands where the soil should be; a level inside a row is no fault of these.
TEST(RunWarnings, TankAboveTheGround) {
    MakePool(10, 5, 3, 2.5, 0, 0);
    const std::vector<Warning> said = ModelWarnings();
    EXPECT_TRUE(Says(said, "carried-over", {"soil (level 0 m)", "90 wall meshes between 0 and 3 m", "93.75 t"}));
    EXPECT_EQ(CodesOf(said).find("level-on-edge"), std::string::npos);
}

TEST(RunWarnings, UpliftIsShortByTheSlab) {
    MakePool(8, 8, 6, 0, 0, 4.1);
    AltKalinlik = 60;
    for (int i = 1; i <= PanelCount; ++i)
        if (PanelTable[i].Tip == 0)
            PanelTable[i].D = 60;
    EXPECT_TRUE(Says(ModelWarnings(), "uplift-short",
                     {"224.00 t", "262.40 t", "38.40 t (14.6 %)", "YeraltiSuKotu=4.7"})); // 3.5, 4.1, 0.6 times 64 m2
    YukDurum[3] = 0;                                                                      // no column takes it
    EXPECT_EQ(CodesOf(ModelWarnings()).find("uplift-short"), std::string::npos);
}

TEST(RunWarnings, WallsOfAPolygonPoolWeighNothing) {
    BuildPolygonPool({{{0, 0}, {6, 0}, {6, 4}, {0, 4}}, 25, 30, 3, 0});
    MeshWindow mesh;
    AutoMesh(mesh);
    EXPECT_TRUE(Says(ModelWarnings(), "no-weight", {"4 wall panels", "37.50 t", "G(4)=0.625"})); // 20 m by 3 m by 25 cm
    for (int i = 1; i <= PanelCount; ++i)
        PanelTable[i].G = 0.625;
    EXPECT_EQ(CodesOf(ModelWarnings()).find("no-weight"), std::string::npos);
}

TEST(RunWarnings, ASoundRunIsSilentAndNothingChangesByLooking) {
    MakePool(10, 5, 3, 2.999, 2.999, 0);
    YukDurum[2] = YukDurum[3] = 0;
    const FinishedRun run;
    EXPECT_EQ(CodesOf(run.warnings), "");
    const std::string model = ProjectText(), dep = ReadBytes(run.folder.file("A.DEP"));
    RunWarnings(run.folder.file("A"));
    EXPECT_EQ(ProjectText(), model);
    EXPECT_EQ(ReadBytes(run.folder.file("A.DEP")), dep);
}

// A solution that is 1 % too large leaves 1 % of the loads, in every column.
TEST(RunWarnings, TheResidualMeasuresTheSolution) {
    MakePool(6, 4, 3, 2.5, 2.5, 1);
    const FinishedRun run;
    const std::string project = run.folder.file("A");
    const std::vector<double> sound = RunResiduals(project, RunColumns());
    ASSERT_EQ(sound.size(), 5U);
    for (const double r : sound) {
        EXPECT_GT(r, 1e-9);
        EXPECT_LT(r, kGreatestResidual);
    }
    std::string bytes = ReadBytes(project + ".DEP");
    for (std::size_t at = 0; at < bytes.size(); at += 4) {
        float u = 0;
        std::memcpy(&u, bytes.data() + at, 4);
        u *= 1.01F;
        std::memcpy(bytes.data() + at, &u, 4);
    }
    WriteBytes(project + ".DEP", bytes);
    for (const double r : RunResiduals(project, RunColumns()))
        EXPECT_NEAR(r, 0.01, 0.001);
    EXPECT_TRUE(Says(RunWarnings(project), "residual",
                     {"the moments of a column are not to be trusted", "5 (groundwater uplift) 1."}));
    WriteBytes(project + ".DEP", bytes.substr(0, bytes.size() - 1));
    EXPECT_EQ(FailureOf([&] { RunWarnings(project); }).kind, File);
}

TEST(RunWarnings, WhatNothingHolds) {
    MakePool(4, 3, 2, 1.5, 1.5, 0);
    YukDurum[0] = YukDurum[1] = YukDurum[2] = YukDurum[3] = 0;
    const int corner = NodeAt(0, 0, 0);
    NokYukTable[corner].FZ = 1e6;
    {
        const FinishedRun run;
        EXPECT_TRUE(Says(run.warnings, "large-movement", {"its size, 4 m", "in load column 1"}));
        EXPECT_TRUE(Says(run.warnings, "springs-pull", {"1 (surface and point loads) at"}));
        EXPECT_EQ(CodesOf(run.warnings).find("no-foundation"), std::string::npos);
    }
    NokYukTable[corner].FZ = 0;
    ZeminKo = 0;
    EXPECT_EQ(CodesOf(ModelWarnings()), "no-foundation");
    NoktaTable[corner].Mesnet = 4;
    EXPECT_EQ(CodesOf(ModelWarnings()), "");
}

TEST(RunWarnings, PointLoadsThatMeetNoEquation) {
    MakePool(4, 3, 2, 1.5, 1.5, 0);
    NokYukTable[3].FX = 1.5;
    EXPECT_TRUE(LostPointLoads().empty());
    NoktaTable[3].Mesnet = 4;
    EXPECT_TRUE(Says(LostPointLoads(), "lost-load", {"node 3 (FX 1.500", "the node is held"}));
    NoktaTable[3].Mesnet = 3; // rotations alone
    EXPECT_TRUE(LostPointLoads().empty());
    for (int i = 1; i <= MeshCount; ++i)
        MeshTable[i].Sil = 1;
    EXPECT_TRUE(Says(LostPointLoads(), "lost-load", {"node 3", "no active mesh uses the node"}));
}

// The rim of a wall may sink more than the base under it; settlement is of the ground.
TEST(RunWarnings, SettlementIsOfNodesWithASpring) {
    PoolWindow pool;
    GeneratePool(1, pool);
    MeshWindow mesh;
    AutoMesh(mesh);
    const FinishedRun run;
    double strip = 0.0;
    const ColumnSummary weight = SummariseResults(run.folder.file("A")).front();
    const RecordFile dep(run.folder.file("A.DEP"), sizeof(DepRecord), RecordFile::ReadOnly);
    DepRecord record{};
    for (int i = 1; i <= NoktaCount; ++i) {
        dep.GetRecord(record, i);
        strip = std::max(strip, -record[2]);
    }
    EXPECT_GT(NoktaTable[weight.settlement.node].Yay, 0.0);
    EXPECT_LT(weight.settlement.value, strip);
}

} // namespace havuz
