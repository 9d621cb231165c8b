// Panel meshing and numbering: blocks, joints of corners and edges, raised counts, supports, numbers.
#include "mesh/numbering.h"
#include "mesh/panel_mesh.h"
#include "model/store.h"
#include "pool/pool_library.h"
#include "support.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace havuz {

namespace {

MeshWindow none;

struct Point {
    double x, y, z;
};

// A flat panel from corner a, with sides along x and along the second direction.
int PutPanel(Point a, Point b, Point c, Point d, int nx, int ny) {
    PanelRecord &panel = PanelTable[++PanelCount];
    panel.No = PanelCount;
    panel.Nx = nx;
    panel.Ny = ny;
    int k = 0;
    for (const Point &p : {a, b, c, d}) {
        ++k;
        panel.X[k] = p.x;
        panel.Y[k] = p.y;
        panel.Z[k] = p.z;
    }
    return PanelCount;
}

int PutFloor(double x, double y, double w, double h, int nx, int ny) {
    return PutPanel({x, y, 0}, {x + w, y, 0}, {x + w, y + h, 0}, {x, y + h, 0}, nx, ny);
}

void Mesh() {
    PanelMeshle(none);
    NoktaNumarala();
}

std::vector<int> Corners(int mesh) {
    return {MeshTable[mesh].N1, MeshTable[mesh].N2, MeshTable[mesh].N3, MeshTable[mesh].N4};
}

// Edges that a single mesh has, as pairs of nodes.
std::set<std::pair<int, int>> OpenEdges() {
    std::map<std::pair<int, int>, int> meshes;
    for (int i = 1; i <= MeshCount; ++i) {
        const std::vector<int> ring = Corners(i);
        for (std::size_t k = 0; k < 4; ++k)
            ++meshes[std::minmax(ring[k], ring[(k + 1) % 4])];
    }
    std::set<std::pair<int, int>> open;
    for (const auto &[edge, count] : meshes)
        if (count == 1)
            open.insert(edge);
    return open;
}

bool EveryCornerIsANode() {
    for (int i = 1; i <= MeshCount; ++i)
        for (const int n : Corners(i))
            if (n < 1 || n > NoktaCount)
                return false;
    return true;
}

} // namespace

TEST(PanelMesh, TheSamplePoolIsJoinedEverywhereButAtTheRimOfItsStrips) {
    PoolWindow window;
    GeneratePool(1, window);
    PanelMeshle(none);
    EXPECT_EQ(HamNoktaCount, 278);
    NoktaNumarala();
    EXPECT_EQ(NoktaCount, 194);
    EXPECT_EQ(MeshCount, 174);
    EXPECT_TRUE(EveryCornerIsANode());
    const auto open = OpenEdges();
    EXPECT_EQ(open.size(), 38U); // 2 * (12 + 7)
    for (const auto &[a, b] : open)
        for (const int n : {a, b}) {
            const NoktaRecord &node = NoktaTable[n];
            EXPECT_EQ(node.Z, 3.0);
            EXPECT_TRUE(node.X == -1 || node.X == 11 || node.Y == -1 || node.Y == 6) << n;
        }
}

TEST(PanelMesh, BlocksRunFromEdgeOneToEdgeThree) {
    PutFloor(0, 0, 3, 2, 3, 2);
    PanelMeshle(none);
    EXPECT_EQ(HamNoktaCount, 12);
    EXPECT_EQ(NoktaTable[2].UcA, 1);
    EXPECT_EQ(NoktaTable[2].UcB, 4);
    EXPECT_EQ(NoktaTable[5].UcB, 9);
    EXPECT_EQ(NoktaTable[8].UcA, 4);
    EXPECT_EQ(NoktaTable[8].UcB, 12);
    EXPECT_EQ(NoktaTable[6].UcB, 7); // the left node plus Ny
    const int kinds[] = {0, 3, 1, 1, 4, 1, 0, 0, 1, 5, 1, 1, 6};
    for (int i = 1; i <= 12; ++i)
        EXPECT_EQ(NoktaTable[i].Tur, kinds[i]) << i;
    EXPECT_EQ(Corners(4), (std::vector<int>{5, 6, 10, 9}));
    PanelTable[1].Nx = PanelTable[1].Ny = 1;
    PanelMeshle(none);
    EXPECT_EQ(HamNoktaCount, 4);
    EXPECT_EQ(MeshCount, 1);
}

TEST(PanelMesh, SupportedEdgesHoldTheirNodes) {
    PutFloor(0, 0, 2, 2, 2, 2);
    PanelTable[1].KenarMesnet[2] = 1;
    Mesh();
    for (int i = 1; i <= NoktaCount; ++i)
        EXPECT_EQ(NoktaTable[i].Mesnet, NoktaTable[i].X == 2.0 ? 4 : 0) << i;
}

TEST(PanelMesh, EqualCountsOnASharedEdgeJoinNodeByNode) {
    PutFloor(0, 0, 4, 2, 4, 2);
    PutFloor(0, 2, 4, 2, 4, 2);
    Mesh();
    EXPECT_EQ(NoktaCount, 5 * 5);
    EXPECT_EQ(OpenEdges().size(), 16U);
    EXPECT_EQ(PanelTable[1].Nx, 4);
}

// Of 4 and 6 divisions the nodes in reach join; those left over raise the neighbour for the next command.
TEST(PanelMesh, UnequalCountsRaiseTheCoarserPanelForTheNextCommand) {
    PutFloor(0, 0, 6, 2, 4, 2);
    PutFloor(0, 2, 6, 2, 6, 2);
    struct Window : MeshWindow {
        void RefreshDrawing() override { hidden = NodesHidden; }
        int hidden = -1;
    } window;
    PanelMeshle(window);
    EXPECT_EQ(PanelTable[1].Nx, 6);
    EXPECT_EQ(window.hidden, 1); // the partial result was shown without nodes
    EXPECT_EQ(NodesHidden, 0);
    EXPECT_EQ(MeshCount, 4 * 2 + 6 * 2); // this command still has the old counts
    Mesh();
    EXPECT_EQ(MeshCount, 6 * 4);
    EXPECT_EQ(NoktaCount, 7 * 5);
}

// A wall that ends in the middle of another: its corner captures the nearest edge node, which moves onto it.
TEST(PanelMesh, ACornerCapturesTheNearestNodeOfAnEdge) {
    PutFloor(0, 0, 5, 2, 4, 2); // nodes of its bottom edge at 1.25, 2.5, 3.75
    PutFloor(2.2, 2, 4, 2, 4, 2);
    PanelMeshle(none);
    int joined = 0;
    for (int i = 1; i <= 15; ++i)
        if (NoktaTable[i].AnaNo > 15 && NoktaTable[i].X == static_cast<double>(2.2F)) {
            EXPECT_EQ(NoktaTable[i].Tur, 3); // taken over with the place
            ++joined;
        }
    EXPECT_EQ(joined, 1);
}

TEST(PanelMesh, CornersJoinWithinFiveCentimetres) {
    for (const auto &[gap, nodes] : {std::pair{0.05, 6}, {0.06, 8}}) {
        ResetAll();
        PutFloor(0, 0, 1, 1, 1, 1);
        // 0.05 in 32 bits from 0: the distance is the stored one
        PutPanel({0, -gap, 0}, {1, -gap, 0}, {1, -1, 0}, {0, -1, 0}, 1, 1);
        Mesh();
        EXPECT_EQ(NoktaCount, gap > 0.055 || static_cast<double>(static_cast<float>(gap)) > 0.05 ? 8 : nodes) << gap;
    }
}

TEST(PanelMesh, FailuresOfCountsAndCapacities) {
    PutFloor(0, 0, 1, 1, 1, 0);
    EXPECT_EQ(FailureOf([] { PanelMeshle(none); }).words, "PanelTable(1) Ny: division by zero");
    PanelTable[1].Nx = 80;
    PanelTable[1].Ny = 80;
    EXPECT_EQ(FailureOf([] { PanelMeshle(none); }).words, "PanelTable(1): NoktaTable(5001) lies outside 0..5000");
    ResetAll();
    for (int i = 1; i <= 501; ++i)
        PutFloor(i * 3.0, 0, 1, 1, 1, 1);
    EXPECT_EQ(FailureOf([] { PanelMeshle(none); }).kind, Subscript); // scratch slots behind the panels
}

TEST(PanelMesh, CompactionDropsWhatNoActiveMeshUses) {
    PutFloor(0, 0, 2, 1, 2, 1);
    PanelMeshle(none);
    MeshTable[1].Sil = 1;
    NoktaSikistir();
    EXPECT_EQ(HamNoktaCount, 4);
    EXPECT_EQ(Corners(2), (std::vector<int>{1, 2, 4, 3}));
    EXPECT_EQ(NoktaTable[1].X, 1.0);
    EXPECT_EQ(NoktaTable[1].AnaNo, 1);
    EXPECT_EQ(NoktaTable[1].UcB, 3); // ends are not renumbered
}

TEST(Numbering, ASingleMeshAndALongStripKeepTheirNumbers) {
    PutFloor(0, 0, 1, 1, 1, 1);
    Mesh();
    EXPECT_EQ(Corners(1), (std::vector<int>{1, 2, 4, 3}));
    ResetAll();
    PutFloor(0, 0, 1, 20, 1, 20); // one mesh wide, numbered across
    PanelMeshle(none);
    std::vector<std::vector<int>> before;
    for (int i = 1; i <= MeshCount; ++i)
        before.push_back(Corners(i));
    NoktaNumarala();
    for (int i = 1; i <= MeshCount; ++i)
        EXPECT_EQ(Corners(i), before[static_cast<std::size_t>(i - 1)]) << i;
}

TEST(Numbering, ALongStripNumberedTheLongWayGetsANarrowerFront) {
    PutFloor(0, 0, 20, 2, 20, 2);
    Mesh();
    int widest = 0;
    for (int i = 1; i <= MeshCount; ++i) {
        const auto c = Corners(i);
        widest = std::max(widest, *std::max_element(c.begin(), c.end()) - *std::min_element(c.begin(), c.end()));
    }
    EXPECT_LT(widest, 10); // 22 as meshed
    EXPECT_TRUE(EveryCornerIsANode());
}

TEST(Numbering, FlagsOfAllRawNodesOfAMasterMerge) {
    PutFloor(0, 0, 1, 1, 1, 1);
    PutFloor(1, 0, 1, 1, 1, 1);
    PanelMeshle(none);
    NoktaTable[2].Mesnet = 4; // (1, 0) of panel 1
    NoktaTable[5].Mesnet = 1; // and of panel 2
    NoktaNumarala();
    EXPECT_EQ(NoktaCount, 6);
    int found = 0;
    for (int i = 1; i <= NoktaCount; ++i)
        if (NoktaTable[i].Mesnet != 0) {
            EXPECT_EQ(NoktaTable[i].Mesnet, 5);
            EXPECT_EQ(NoktaTable[i].PanelNo, 2); // the last raw node decides the record
            ++found;
        }
    EXPECT_EQ(found, 1);
}

TEST(Numbering, SwitchedOffMeshesAreRenumberedButDecideNothing) {
    PutFloor(0, 0, 3, 1, 3, 1);
    PanelMeshle(none);
    MeshTable[1].Sil = 1; // its outer nodes belong to no active mesh
    NoktaNumarala();
    EXPECT_EQ(NoktaCount, 6);
    EXPECT_EQ(MeshTable[1].N1, 0);
    EXPECT_EQ(MeshTable[1].N2, MeshTable[2].N1);
    EXPECT_EQ(NoktaTable[7].AnaNo, 0); // cleared behind the count
}

TEST(Numbering, TenMeshesAtANodeFitAndElevenFail) {
    for (const int meshes : {10, 11}) {
        ResetAll();
        HamNoktaCount = 2 * meshes + 1;
        for (int i = 1; i <= HamNoktaCount; ++i)
            NoktaTable[i].AnaNo = i;
        MeshCount = meshes;
        for (int i = 1; i <= meshes; ++i) {
            MeshTable[i].N1 = 1;
            MeshTable[i].N2 = 2 * i;
            MeshTable[i].N3 = 2 * i + 1;
            MeshTable[i].N4 = i == meshes ? 2 : 2 * i + 2;
        }
        const Failed result = FailureOf(NoktaNumarala);
        EXPECT_EQ(result.failed, meshes > 10);
        EXPECT_TRUE(meshes == 10 || result.words.rfind("node 1 joins more than 10 meshes", 0) == 0) << result.words;
    }
}

} // namespace havuz
