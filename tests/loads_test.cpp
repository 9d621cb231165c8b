// Loads: pressures on floors and walls with their carry-over, point loads, springs in the matrix, held translations.
#include "fea/equations.h"
#include "fea/loads.h"
#include "fea/pressures.h"
#include "fea/system.h"
#include "model/store.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

constexpr int kUx = 1, kUy = 2, kUz = 3;

// One mesh of four nodes with equations 6*(n-1)+d, on a panel of the kind given; all four load situations.
void PutMesh(int tip, const double (&xyz)[4][3]) {
    ResetAll();
    ResetSystem();
    NoktaCount = 4;
    for (int i = 1; i <= 4; ++i) {
        NoktaTable[i].X = xyz[i - 1][0];
        NoktaTable[i].Y = xyz[i - 1][1];
        NoktaTable[i].Z = xyz[i - 1][2];
    }
    MeshCount = 1;
    MeshTable[1].N1 = 1;
    MeshTable[1].N2 = 2;
    MeshTable[1].N3 = 3;
    MeshTable[1].N4 = 4;
    MeshTable[1].PanelNo = 1;
    PanelCount = 1;
    PanelTable[1].Tip = tip;
    PanelTable[1].D = 50;
    NodeEquationFlags(MeshNodeData(1));
    NumberEquations();
    AnalysisWindow window;
    ProfileBuild(window);
    LoadColumnSetup(window); // columns 2..5 are the codes 1..4
}

double Load(int node, int slot, int code) { return SolutionValue(NoktaTable[node].Denklem[slot], code + 1); }

// A wall along x of length 2 from z0 to z0 + 2, nodes 1, 2 at the top: (nx, ny) = (0, 1).
void PutWall(double z0) {
    const double top = z0 + 2;
    PutMesh(1, {{0, 0, top}, {2, 0, top}, {2, 0, z0}, {0, 0, z0}});
}

} // namespace

TEST(Pressures, LiquidPressesAndGroundwaterLiftsTheFloor) {
    PutMesh(0, {{0, 0, 1}, {2, 0, 1}, {2, 3, 1}, {0, 3, 1}});
    SiviKotu = 3.5;
    SiviYogunluk = 1.1;
    YeraltiSuKotu = 2.5;
    AddPressures();
    for (int n = 1; n <= 4; ++n) {
        EXPECT_FLOAT_EQ(static_cast<float>(Load(n, kUz, 1)), 1.1F * 2 * 6 / 4); // level - (1 + 0.5)
        EXPECT_EQ(Load(n, kUz, 1), Load(n, kUz, 2));
        EXPECT_EQ(Load(n, kUz, 3), 0.0);
        EXPECT_EQ(Load(n, kUz, 4), -1.5);
        EXPECT_EQ(SolutionValue(NoktaTable[n].Denklem[kUz], 1), 0.0); // column 1 takes no pressure
    }
    ResetSystem();
    SiviKotu = 1.5; // not above the full thickness on the nodes
    PutMesh(0, {{0, 0, 1}, {2, 0, 1}, {2, 3, 1}, {0, 3, 1}});
    SiviKotu = 1.5;
    AddPressures();
    EXPECT_EQ(Load(1, kUz, 2), 0.0);
}

TEST(Pressures, AWallUnderTheLevelTakesTheTrapezoid) {
    PutMesh(1, {{0, 0, 1}, {1, 0, 1}, {1, 0, 0}, {0, 0, 0}});
    SiviKotu = 2; // d1 = 1, d2 = 2, L = 1, h = 1
    ToprakKotu = 3;
    ZeminKa = 0.5;
    ZeminYogunluk = 2;
    YeraltiSuKotu = 2;
    AddPressures();
    EXPECT_FLOAT_EQ(static_cast<float>(Load(1, kUy, 2)), 1.0F / 3);
    EXPECT_FLOAT_EQ(static_cast<float>(Load(3, kUy, 2)), 5.0F / 12);
    EXPECT_EQ(Load(1, kUx, 2), 0.0);
    EXPECT_FLOAT_EQ(static_cast<float>(Load(2, kUy, 4)), -1.0F / 3); // from outside
    EXPECT_FLOAT_EQ(static_cast<float>(Load(1, kUy, 3)), -(2.0F * 1 + 1.5F) / 6);
    EXPECT_FLOAT_EQ(static_cast<float>(Load(1, kUy, 1)), 1.0F / 3 - (2.0F * 1 + 1.5F) / 6);
    EXPECT_EQ(Load(1, kUz, 1), 0.0);
}

TEST(Pressures, AWallCutByTheLevelForgetsItsHeight) {
    PutWall(0); // upper edge dry: d1 = -1, d2 = 1, L = 2
    SiviKotu = 1;
    ToprakKotu = YeraltiSuKotu = -5;
    AddPressures();
    EXPECT_FLOAT_EQ(static_cast<float>(Load(1, kUy, 2)), 1.0F / 6);
    EXPECT_FLOAT_EQ(static_cast<float>(Load(4, kUy, 2)), 1.0F / 3);
}

// A pressure that does not reach the mesh inherits the shares of the one before, with its unit weight, and turns them.
TEST(Pressures, SharesCarryOver) {
    PutWall(1);
    SiviKotu = 4;
    ToprakKotu = 0.5;
    YeraltiSuKotu = 0;
    AddPressures();
    const double liquid = Load(1, kUy, 2);
    EXPECT_GT(liquid, 0.0);
    EXPECT_EQ(Load(1, kUy, 3), -liquid);
    EXPECT_EQ(Load(1, kUy, 4), -liquid);
    EXPECT_NEAR(Load(1, kUy, 1), 0.0, 1e-6);                  // liquid less its own share
    PutMesh(1, {{0, 0, 0}, {2, 0, 0}, {2, 0, 2}, {0, 0, 2}}); // first pair at the foot, level between the edges
    SiviKotu = 1;
    ToprakKotu = YeraltiSuKotu = 1;
    AddPressures();
    EXPECT_EQ(Load(1, kUy, 2), 0.0);
    EXPECT_EQ(Load(3, kUy, 2), 0.0);
}

TEST(Pressures, TheOutlineOfPlateOneTurnsAllWalls) {
    PutWall(0);
    PlakCount = 1;
    PlakTable[1].NoktaSayisi = 3;
    PlakTable[1].X[2] = 1;
    PlakTable[1].Y[3] = 1;
    EXPECT_EQ(OutlineSign(), 1.0);
    AddPressures();
    const double counterClockwise = Load(1, kUy, 2);
    std::swap(PlakTable[1].X[2], PlakTable[1].X[3]);
    std::swap(PlakTable[1].Y[2], PlakTable[1].Y[3]);
    EXPECT_EQ(OutlineSign(), -1.0);
    PutWall(0);
    PlakCount = 1;
    AddPressures();
    EXPECT_EQ(Load(1, kUy, 2), -counterClockwise);
    PlakCount = 0;
    EXPECT_EQ(OutlineSign(), 1.0);
}

TEST(Pressures, StripsAndSwitchedOffMeshesTakeNone) {
    for (const auto &[tip, sil] : {std::pair{2, 0}, {1, 1}, {0, 2}}) {
        PutMesh(tip, {{0, 0, 1}, {2, 0, 1}, {2, 0, 0}, {0, 0, 0}});
        MeshTable[1].Sil = sil;
        AddPressures();
        for (int cell = 1; cell <= RhsSize; ++cell)
            EXPECT_EQ(Rhs[cell], 0.0F);
    }
}

// A plate mesh counts as floor whatever it is; with Sil 2 it has stiffness, but neither spring nor pressure.
TEST(Pressures, PlateMeshesAreFloors) {
    PutMesh(0, {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}});
    PlakCount = 1;
    PlakTable[1].Kalinlik = 100;
    MeshTable[1].PanelNo = 1001;
    AddPressures();
    EXPECT_EQ(Load(1, kUz, 2), 2.0); // (3 - 1) * 4 / 4
}

TEST(Loads, PointLoadsEnterAsTheyStand) {
    PutWall(0);
    NokYukTable[2].FX = 1;
    NokYukTable[2].FZ = -2;
    AddPointLoads();
    EXPECT_EQ(SolutionValue(NoktaTable[2].Denklem[kUx], 1), 1.0);
    EXPECT_EQ(SolutionValue(NoktaTable[2].Denklem[kUz], 1), -2.0);
}

TEST(Loads, SpringsActAlikeInAllThreeDirections) {
    PutMesh(0, {{0, 0, 0}, {2, 0, 0}, {2, 3, 0}, {0, 3, 0}});
    AddSprings();
    for (int d = 1; d <= 6; ++d) {
        const int e = NoktaTable[3].Denklem[d];
        EXPECT_EQ(S[ProfileIndex(e, e)], d <= 3 ? 3000.0F : 0.0F);
    }
}

TEST(Loads, AHeldTranslationGoesWithTwoColumnsAtMost) {
    PutWall(0);
    NoktaTable[3].Mesnet = 4;
    NoktaTable[3].Denklem[kUx] = NoktaTable[3].Denklem[kUy] = NoktaTable[3].Denklem[kUz] = 0;
    EXPECT_EQ(FailureOf(AddPressures).words.rfind("Rhs(-3): node 3 is held", 0), 0U);
    YukSayisi = 2;
    EXPECT_FALSE(FailureOf(AddPressures).failed); // the unused cell 0
    NokYukTable[3].FZ = 1;
    EXPECT_NE(FailureOf(AddPointLoads).words.find("2 load columns are asked for; it goes with 1 at most"),
              std::string::npos);
    NoktaTable[3].Mesnet = 0; // of no mesh, not held
    EXPECT_NE(FailureOf(AddPointLoads).words.find("node 3 has a point load and no active mesh uses it"),
              std::string::npos);
    YukSayisi = 1;
    EXPECT_FALSE(FailureOf(AddPointLoads).failed);
}

TEST(Loads, AWallWithoutLengthInPlanFails) {
    PutMesh(1, {{0, 0, 2}, {0, 0, 1}, {0, 2, 1}, {0, 2, 2}});
    EXPECT_EQ(FailureOf(AddPressures).words, "MeshTable(1): a wall without length in plan: division by zero");
}

} // namespace havuz
