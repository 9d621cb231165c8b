// Whole runs: the physics of their results, their files, their failures.
#include "analysis_support.h"
#include "fea/analysis.h"
#include "fea/system.h"
#include "mesh/numbering.h"
#include "mesh/panel_mesh.h"
#include "model/project_file.h"
#include "model/store.h"
#include "pool/pool_library.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

namespace {

void MeshModel() {
    MeshWindow window;
    PanelMeshle(window);
    NoktaNumarala();
}

void SamplePool() {
    ResetAll();
    PoolWindow window;
    GeneratePool(1, window);
    MeshModel();
}

void NoSituations() {
    for (int i = 0; i <= kYukDurumLast; ++i)
        YukDurum[i] = 0;
}

// A rectangular slab at z = 0 with n by m meshes, thickness cm, area load t/m2; no load situations.
void Slab(int tip, double a, double b, int n, int m, double thickness, double load) {
    ResetAll();
    NoSituations();
    PanelCount = 1;
    PanelRecord &panel = PanelTable[1];
    panel.No = 1;
    panel.Tip = tip;
    panel.Nx = n;
    panel.Ny = m;
    panel.D = thickness;
    panel.G = load;
    panel.X[2] = panel.X[3] = a;
    panel.Y[3] = panel.Y[4] = b;
    MeshModel();
}

void HoldRim(double a, double b, int mesnet) {
    for (int i = 1; i <= NoktaCount; ++i) {
        NoktaRecord &node = NoktaTable[i];
        if (node.X == 0 || node.X == a || node.Y == 0 || node.Y == b)
            node.Mesnet = mesnet;
    }
}

// Centre deflection of a square plate as a multiple of q*a^4/D.
double PlateCoefficient(int n, int mesnet) {
    const double a = 4, q = 1, t = 20; // a plate of 20 cm, no springs under Tip 2
    Slab(2, a, a, n, n, t, q);
    HoldRim(a, a, mesnet);
    const double D = ConcreteE(Fck) * std::pow(t / 100, 3) / (12 * (1 - PoissonRatio * PoissonRatio));
    return -RunModel().displacement(NodeAt(a / 2, a / 2, 0), 3) * D / (q * a * a * a * a);
}

} // namespace

TEST(Analysis, ElasticModulusOfTheConcreteClasses) {
    const std::pair<double, double> classes[] = {{160, 2.7e6}, {169.9, 2.7e6}, {170, 2.85e6}, {200, 2.85e6},
                                                 {250, 3e6},   {300, 3e6},     {350, 3e6}};
    for (const auto &[fck, e] : classes)
        EXPECT_EQ(ConcreteE(fck), e);
}

TEST(Analysis, AFlatSlabOnSpringsSettlesByItsLoadOverKo) {
    Slab(0, 6, 4, 6, 4, 30, 0.75);
    const RunResults r = RunModel();
    for (int i = 1; i <= NoktaCount; ++i)
        EXPECT_NEAR(r.displacement(i, 3), -0.75 / 2000, 1e-4 * 0.75 / 2000) << i;
    for (int i = 1; i <= MeshCount; ++i)
        EXPECT_NEAR(r.result(i, 1, 4), 0.0, 2e-3); // no bending
}

TEST(Analysis, SpringForcesBalanceTheLoadsOfAPool) {
    SamplePool();
    const RunResults r = RunModel();
    for (int c = 1; c <= YukSayisi; ++c) {
        double springs = 0.0;
        for (int i = 1; i <= NoktaCount; ++i)
            springs -= NoktaTable[i].Yay * r.displacement(i, 3, c);
        EXPECT_NEAR(springs, VerticalLoad[c], 0.0005 * 135) << c;
    }
    EXPECT_NEAR(VerticalLoad[1], 99.5, 1e-4); // 37.5 base, 45 walls, 17 strips
    EXPECT_NEAR(VerticalLoad[3], 135, 1e-4);  // 2.7 m of water on 50 m2
}

TEST(Analysis, LiquidAloneGivesASymmetricAnswer) {
    SamplePool();
    const RunResults r = RunModel();
    const int liquid = 3;
    double greatest = 0.0;
    for (int i = 1; i <= NoktaCount; ++i)
        greatest = std::max(greatest, std::fabs(r.displacement(i, 3, liquid)));
    for (int i = 1; i <= NoktaCount; ++i) {
        const NoktaRecord &n = NoktaTable[i];
        const int acrossX = NodeAt(10 - n.X, n.Y, n.Z);
        const int acrossY = NodeAt(n.X, 5 - n.Y, n.Z);
        ASSERT_NE(acrossX * acrossY, 0);
        const double tolerance = 0.002 * greatest; // of 32-bit elimination
        EXPECT_NEAR(r.displacement(i, 1, liquid), -r.displacement(acrossX, 1, liquid), tolerance);
        EXPECT_NEAR(r.displacement(i, 3, liquid), r.displacement(acrossX, 3, liquid), tolerance);
        EXPECT_NEAR(r.displacement(i, 2, liquid), -r.displacement(acrossY, 2, liquid), tolerance);
        EXPECT_NEAR(r.displacement(i, 3, liquid), r.displacement(acrossY, 3, liquid), tolerance);
    }
    const int wall = NodeAt(5, 0, 2);
    EXPECT_LT(r.displacement(wall, 2, liquid), 0.0); // outward
    EXPECT_GT(r.displacement(wall, 2, 4), 0.0);      // soil pushes inward
}

// Timoshenko and Woinowsky-Krieger: 0.00406 simply supported (table 8), 0.00126 clamped (table 35), for any Poisson
// ratio.
TEST(Analysis, SquarePlatesApproachTheTables) {
    for (const auto &[mesnet, exact] : {std::pair{4, 0.00406}, {7, 0.00126}}) {
        double before = 1.0;
        for (const int n : {4, 8, 16}) {
            const double error = std::fabs(PlateCoefficient(n, mesnet) / exact - 1.0);
            RecordProperty("mesnet" + std::to_string(mesnet) + "n" + std::to_string(n), std::to_string(error));
            EXPECT_LT(error, n == 4 ? 0.15 : before / 2) << mesnet << " " << n; // falls by 4 at each halving
            before = error;
        }
    }
}

TEST(Analysis, ACantileverStripApproachesTheBeam) {
    const double L = 5, width = 0.5, t = 40, q = 2;
    for (const int n : {5, 20}) {
        Slab(2, L, width, n, 1, t, q);
        for (int i = 1; i <= NoktaCount; ++i)
            NoktaTable[i].Mesnet = NoktaTable[i].X == 0 ? 7 : 0;
        const double I = std::pow(t / 100, 3) / 12; // per unit of width
        const double beam = q * L * L * L * L / (8 * ConcreteE(Fck) * I);
        EXPECT_NEAR(-RunModel().displacement(NodeAt(L, 0, 0), 3) / beam, 1.0, 0.015) << n;
    }
}

TEST(Analysis, ADoubledLoadDoublesTheAnswer) {
    Slab(0, 6, 4, 6, 4, 30, 0.75);
    NokYukTable[8].FZ = 2;
    const double once = RunModel().displacement(8, 3);
    PanelTable[1].P = 0.75;
    NokYukTable[8].FZ = 4;
    EXPECT_EQ(RunModel().displacement(8, 3), 2 * once); // a power of two doubles every rounding
}

// FNV-1a over the bytes: the same on every machine, by every compiler, at every optimisation level.
TEST(Analysis, TheBitsOfTheSamplePool) {
    const auto hash = [](const std::string &bytes) {
        std::uint64_t h = 14695981039346656037U;
        for (const char c : bytes)
            h = (h ^ static_cast<unsigned char>(c)) * 1099511628211U;
        return h;
    };
    SamplePool();
    EXPECT_TRUE(MatchesGolden("sample_pool.POL", ProjectText()));
    const TemporaryFolder folder;
    RunWindow window;
    RunInto(folder, window);
    const std::string got = "A.DEP " + std::to_string(hash(ReadBytes(folder.file("A.DEP")))) + "\nA.SON " +
                            std::to_string(hash(ReadBytes(folder.file("A.SON")))) + "\n";
    EXPECT_TRUE(MatchesGolden("sample_pool_results.txt", got));
}

TEST(Analysis, FilesOfARun) {
    SamplePool();
    MeshTable[5].Sil = 1;
    const TemporaryFolder folder;
    WriteBytes(folder.file("A.DEP"), std::string(200 * sizeof(DepRecord), 'x')); // of an earlier, larger model
    RunWindow window;
    RunInto(folder, window);
    EXPECT_EQ(window.lines.substr(0, window.lines.find("Time")),
              "Denklem       : 1164\nS()  size     : 192791\nNokta sayisi  : 194\n");
    EXPECT_EQ(window.started, "report " + folder.file("A"));
    EXPECT_EQ(ReadBytes(folder.file("WORKPOOL")), folder.file("A") + "\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder.file("STIF001")));
    const std::string dep = ReadBytes(folder.file("A.DEP"));
    const std::string son = ReadBytes(folder.file("A.SON"));
    EXPECT_EQ(dep.size(), 200 * sizeof(DepRecord)); // old records stay at the end
    EXPECT_EQ(dep.back(), 'x');
    EXPECT_EQ(son.size(), 174 * sizeof(SonRecord));
    EXPECT_EQ(son.substr(4 * sizeof(SonRecord), sizeof(SonRecord)), std::string(sizeof(SonRecord), '\0'));
    for (std::size_t column = 5; column < 16; ++column) // columns above YukSayisi
        EXPECT_EQ(son.substr(column * 96, 96), std::string(96, '\0'));
}

TEST(Analysis, AFailingRunLeavesTheFilesOfTheRunBefore) {
    Slab(0, 2, 2, 2, 2, 30, 1);
    const TemporaryFolder folder;
    RunWindow window;
    RunInto(folder, window);
    const auto files = [&folder] {
        std::string all;
        for (const char *name : {"A.DEP", "A.SON", "A.HSP", "WORKPOOL"})
            all += ReadBytes(folder.file(name)) + "|";
        return all;
    };
    const std::string before = files();
    MeshTable[3].N2 = 99;
    EXPECT_TRUE(FailureOf([&] { RunInto(folder, window); }).failed);
    EXPECT_EQ(files(), before);
    int names = 0;
    for (const auto &entry : std::filesystem::directory_iterator(folder.path()))
        names += entry.path().empty() ? 0 : 1;
    EXPECT_EQ(names, 4); // no lock, nothing beside
}

TEST(Analysis, AModelWithoutActiveMeshesStillWritesItsFiles) {
    Slab(0, 2, 2, 2, 2, 30, 1);
    for (int i = 1; i <= MeshCount; ++i)
        MeshTable[i].Sil = 1;
    const TemporaryFolder folder;
    RunWindow window;
    RunInto(folder, window);
    EXPECT_EQ(EquationCount, 0);
    EXPECT_EQ(ReadBytes(folder.file("A.DEP")), std::string(9 * sizeof(DepRecord), '\0'));
    EXPECT_NE(window.started, "");
}

TEST(Analysis, SupportsHoldTheirFreedoms) {
    Slab(0, 2, 2, 2, 2, 30, 1);
    NoktaTable[5].Mesnet = 7;
    NoktaTable[1].Mesnet = 1;
    const RunResults r = RunModel();
    EXPECT_EQ(EquationCount, 9 * 6 - 6 - 2); // rz goes with either rotation
    for (int d = 1; d <= 6; ++d)
        EXPECT_EQ(r.displacement(5, d), 0.0);
    EXPECT_EQ(r.displacement(1, 4), 0.0);
    EXPECT_NE(r.displacement(1, 3), 0.0);
}

TEST(Analysis, DamagedMeshesFailByName) {
    const auto failure = [] {
        const TemporaryFolder folder;
        RunWindow window;
        const Failed failed = FailureOf([&] { RunInto(folder, window); });
        EXPECT_EQ(window.started, "");
        EXPECT_FALSE(std::filesystem::exists(folder.file("WORKPOOL")));
        EXPECT_FALSE(std::filesystem::exists(folder.file("STIF001")));
        return failed.words;
    };
    Slab(0, 2, 2, 2, 2, 30, 1);
    MeshTable[3].N2 = 99;
    EXPECT_EQ(failure(), "MeshTable(3) names node 99 outside 1..9");
    Slab(0, 2, 2, 2, 2, 30, 1);
    for (int i = 1; i <= NoktaCount; ++i)
        NoktaTable[i].X = 0;
    EXPECT_EQ(failure(), "MeshTable(1) has no extent or no area: division by zero");
    SamplePool();
    NoktaTable[9].Mesnet = 4;
    EXPECT_NE(failure().find("node 9 is held against translation"), std::string::npos);
}

} // namespace havuz
