// The pool library: panels, codes and counts of both pools, and what they give at the edges.
#include "model/options.h"
#include "model/store.h"
#include "pool/pool_library.h"
#include "support.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace havuz {

namespace {

PoolWindow none;

void Generate(int page) {
    ClearModel();
    GeneratePool(page, none);
}

std::string CodesOf(int panel) {
    std::string text;
    for (int e = 1; e <= 4; ++e)
        text += std::to_string(int(PanelTable[panel].KenarKomsu[e])) + " ";
    return text;
}

} // namespace

TEST(RectangularPool, PanelsOfTheSample) {
    Generate(1);
    EXPECT_EQ(PanelCount, 9);
    EXPECT_EQ(NoktaCount + MeshCount, 0);
    const char *codes[] = {"",
                           "303 403 503 203 ",
                           "802 502 104 104 ",
                           "603 404 101 204 ",
                           "904 504 102 302 ",
                           "701 201 103 402 ",
                           "0 904 301 802 ",
                           "501 904 0 802 ",
                           "0 201 0 0 ",
                           "0 0 0 401 "};
    const int divisions[][2] = {{}, {10, 5}, {5, 3}, {10, 3}, {5, 3}, {10, 3}, {10, 1}, {10, 1}, {1, 7}, {1, 7}};
    for (int i = 1; i <= 9; ++i) {
        EXPECT_EQ(CodesOf(i), codes[i]) << i;
        EXPECT_EQ(PanelTable[i].Nx, divisions[i][0]) << i;
        EXPECT_EQ(PanelTable[i].Ny, divisions[i][1]) << i;
        EXPECT_EQ(PanelTable[i].No, i);
        EXPECT_EQ(PanelTable[i].Tip, i == 1 ? 0 : i <= 5 ? 1 : 2);
    }
    EXPECT_EQ(PanelTable[1].G, 0.75);
    EXPECT_EQ(PanelTable[9].G, 0.5);
    EXPECT_EQ(PanelTable[7].Y[3], 6.0);
    EXPECT_NEAR(ViewAngleB, 20.0 * kPi / 180.0, 1e-15);
}

TEST(RectangularPool, WithoutStripsTheWallsAreFreeAtTheTop) {
    Bk = 0;
    Generate(1);
    EXPECT_EQ(PanelCount, 5);
    for (int i = 2; i <= 5; ++i)
        EXPECT_EQ(PanelTable[i].KenarKomsu[1], 0);
}

TEST(RectangularPool, DivisionsRoundTiesToEvenAndStripsCountAsOneAtLeast) {
    Lx = 2.5;
    Ly = 3.5;
    Bk = 0.4;
    Generate(1);
    EXPECT_EQ(PanelTable[1].Nx, 2);
    EXPECT_EQ(PanelTable[1].Ny, 4);
    EXPECT_EQ(PanelTable[6].Ny, 1);
    EXPECT_EQ(PanelTable[8].Ny, 6); // 2 * 1 + 3.5 = 5.5
}

TEST(CircularPool, DivisionsAreEvenAndTheFanCloses) {
    Generate(2);
    EXPECT_EQ(PanelCount, 3);
    EXPECT_EQ(PanelTable[1].Nx, 30); // pi * 10 rounds to 31, made even
    EXPECT_EQ(PanelTable[2].Nx, 30);
    EXPECT_EQ(PanelTable[1].Ny, 5);
    EXPECT_EQ(NoktaCount, 1 + 5 * 30 + 3 * 30 + 30);
    EXPECT_EQ(MeshCount, 15 + 4 * 30 + 3 * 30 + 30);
    const MeshRecord &last = MeshTable[15];
    EXPECT_EQ(last.N1, 1);
    EXPECT_EQ(last.N2, 30);
    EXPECT_EQ(last.N3, 31);
    EXPECT_EQ(last.N4, 2);
    EXPECT_EQ(MeshTable[45].N2, 2); // ring 2 closes around
    EXPECT_EQ(MeshTable[45].N3, 32);
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(PanelTable[i].No, 1);
}

// Every mesh names nodes of the model, and every inner edge has two meshes that run along it opposite ways.
TEST(CircularPool, TheShellIsClosedButForItsRim) {
    Generate(2);
    std::map<std::pair<int, int>, int> edges;
    for (int i = 1; i <= MeshCount; ++i) {
        const int ring[5] = {MeshTable[i].N1, MeshTable[i].N2, MeshTable[i].N3, MeshTable[i].N4, MeshTable[i].N1};
        for (int k = 0; k < 4; ++k)
            ++edges[std::minmax(ring[k], ring[k + 1])];
    }
    int free = 0;
    for (const auto &[edge, meshes] : edges) {
        EXPECT_LE(meshes, 2);
        free += meshes == 1 ? 1 : 0;
    }
    EXPECT_EQ(free, 30);
}

TEST(CircularPool, WallFromZeroAndStripAtTheTopLevel) {
    AltKot = 2;
    UstKot = 5;
    Bk = 1.5; // no multiple of the width: one ring, at distance 1
    Generate(2);
    const NoktaRecord &rim = NoktaTable[1 + 5 * 30 + 3 * 30];
    EXPECT_EQ(rim.Z, 3.0);
    EXPECT_EQ(NoktaTable[NoktaCount].Z, 5.0);
    const double r = std::hypot(NoktaTable[NoktaCount].X - 5.0, NoktaTable[NoktaCount].Y - 5.0);
    EXPECT_NEAR(r, 6.0, 1e-6);
}

TEST(CircularPool, TakesBlankRecordsAndLeavesOldPointLoads) {
    NoktaTable[7].Mesnet = 4;
    MeshTable[3].Sil = 1;
    NokYukTable[7].FZ = 5.0;
    Generate(2);
    EXPECT_EQ(NoktaTable[7].Mesnet, 0);
    EXPECT_EQ(MeshTable[3].Sil, 0);
    EXPECT_EQ(NokYukTable[7].FZ, 5.0);
}

TEST(PoolLibrary, EdgesOfTheParameters) {
    Generate(0);
    EXPECT_EQ(PanelCount, 0);
    EXPECT_EQ(HavuzTip, 0);
    MeshGenisligi = 0;
    EXPECT_EQ(FailureOf([] { Generate(1); }).kind, DivisionByZero);
    EXPECT_EQ(FailureOf([] { Generate(2); }).kind, DivisionByZero);
    MeshGenisligi = 1;
    Lx = 100;
    EXPECT_EQ(FailureOf([] { Generate(2); }).kind, Subscript);
    Lx = 0;
    Generate(2); // counts of 0 give what they give
    EXPECT_EQ(NoktaCount, 1);
    EXPECT_EQ(MeshCount, 0);
}

} // namespace havuz
