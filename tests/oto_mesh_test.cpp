// Automatic mesh driver: closed rectangular pools, walls on plate edges, rows of neighbours, joining of walls, limits,
// the order of what it asks of the views.
#include "analysis_support.h"
#include "mesh/oto_mesh.h"
#include "mesh/plak_mesh.h"
#include "plak_support.h"
#include "support.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace havuz {

namespace {

// Area of a mesh in space, by its diagonals.
double SpaceArea(int mesh) {
    const std::array<int, 4> ring = Corners(mesh);
    return Length(Cross(Minus(NodePlace(ring[2]), NodePlace(ring[0])), Minus(NodePlace(ring[3]), NodePlace(ring[1])))) /
           2.0;
}

// Inner sides belong to two meshes, sides at the rim to one.
void ExpectClosedUpTo(double rim) {
    for (const auto &[side, meshes] : MeshesBySide()) {
        const SpacePoint a = NodePlace(side.first), b = NodePlace(side.second);
        EXPECT_EQ(meshes, a.z == rim && b.z == rim ? 1 : 2) << a.x << " " << a.y << " " << a.z;
    }
}

void Mesh() {
    MeshWindow none;
    OtoMesh(MeshGenisligi, none);
}

int MeshesOf(int owner) {
    int count = 0;
    for (int i = 1; i <= MeshCount; ++i)
        count += MeshTable[i].PanelNo == owner ? 1 : 0;
    return count;
}

} // namespace

TEST(OtoMesh, RectangularPoolsAreClosedAndWholeWithEveryCorner) {
    std::mt19937 random(17);
    const auto pick = [&random](double from, double to) {
        return from + (to - from) * static_cast<double>(random()) / 4294967296.0;
    };
    for (int i = 0; i < 400; ++i) {
        ResetAll();
        const bool whole = i % 4 == 0;
        const double width = whole ? 0.5 : pick(0.5, 2.0);
        const double lx = whole ? 1.0 + i % 9 : pick(2.001, 18) * width,
                     ly = whole ? 1.0 + i % 7 : pick(2.001, 18) * width;
        const double x = whole ? i / 4.0 : pick(-50, 50), y = whole ? -i / 2.0 : pick(-50, 50);
        std::vector<PlanPoint> outline = Rectangle(x, y, lx, ly);
        std::rotate(outline.begin(), outline.begin() + i % 4, outline.end());
        SCOPED_TRACE(testing::Message() << x << "," << y << " " << lx << " x " << ly << " width " << width);
        MeshPool(i % 8 < 4 ? outline : Reversed(outline), width);
        ExpectClosedUpTo(3.0);
        double plate = 0.0, walls = 0.0;
        for (int m = 1; m <= MeshCount; ++m)
            (MeshTable[m].PanelNo == 1001 ? plate : walls) += SpaceArea(m);
        EXPECT_NEAR(plate, lx * ly, 1e-3);
        EXPECT_NEAR(walls, 6 * (lx + ly), 1e-3);
        for (const PlanPoint &corner : outline) {
            EXPECT_GT(NodeAt(corner.x, corner.y, 0.0), 0);
            EXPECT_GT(NodeAt(corner.x, corner.y, 3.0), 0);
        }
    }
}

TEST(OtoMesh, WallsStandOnThePlatesNodesAndMeetInOneColumn) {
    MeshPool(Rectangle(0, 0, 4, 3), 1.0);
    EXPECT_EQ(NoktaCount, 20 + 14 * 3); // 14 columns around: those at the corners are shared
    EXPECT_EQ(MeshCount, 12 + 14 * 3);
    for (int w = 1; w <= 4; ++w) {
        EXPECT_EQ(PanelTable[w].Nx, w % 2 == 1 ? 5 : 4); // nodes at its foot
        EXPECT_EQ(PanelTable[w].Ny, 3);
    }
    // Of equal nodes the earlier stays: those of wall 1 over the first corner, which wall 4 reaches last.
    const NoktaRecord &top = NoktaTable[NodeAt(0, 0, 3)];
    EXPECT_EQ(top.Tur, 2);
    EXPECT_EQ(NoktaTable[NodeAt(0, 0, 2)].Tur, 1);
    EXPECT_EQ(NoktaTable[NodeAt(2, 0, 3)].Tur, 1);
    EXPECT_EQ(NoktaTable[NodeAt(2, 0, 2)].Tur, 0);
    EXPECT_EQ(NoktaTable[NodeAt(2, 0, 0)].Tur, 5);
}

// A top corner of one wall on the side column of a higher one: the top corner survives.
TEST(OtoMesh, ATopCornerTakesASideNode) {
    PutPool(Rectangle(0, 0, 4, 3));
    for (const int corner : {1, 2})
        PanelTable[1].Z[corner] = 2.0;
    PanelTable[1].Y[1] = PanelTable[1].Y[2] = 0.05; // leans, so that one sees which node stays
    Mesh();
    EXPECT_EQ(PanelTable[1].Ny, 2);
    EXPECT_GT(NodeAt(0, 0.05, 2), 0);
    EXPECT_EQ(NodeAt(0, 0, 2), 0);
    EXPECT_GT(NodeAt(0, 0.025, 1), 0); // of two side nodes the first wall's
}

TEST(OtoMesh, RowsFollowTheLowerEndAndStretchToASlopedTop) {
    PutPool(Rectangle(0, 0, 4, 3));
    PanelTable[1].Z[2] = PanelTable[2].Z[1] = 4.5;
    Mesh();
    EXPECT_EQ(PanelTable[1].Ny, 3);
    EXPECT_GT(NodeAt(4, 0, 4.5), 0);
    EXPECT_GT(NodeAt(2, 0, 2.5), 0); // two thirds of 3.75
}

// Rows of neighbours, taken apart: Z of the bottom, and the links of four walls around a plate.
TEST(OtoMesh, RowsOfNeighboursAreLevelledByTheRulesAsTheyStand) {
    const struct {
        double bottom[5]; // Z of the foot of walls 1..4
        int left, right;  // neighbours of wall 2
        int rows[5];
    } cases[] = {
        {{0, 0, -1, 0, 0}, 0, 0, {0, 3, 4, 3, 3}},     // no link, no rise
        {{0, 0, -1, 0, 0}, 1, 0, {0, 3, 4, 3, 3}},     // feet at other heights do not count as neighbours
        {{0, 0, 0.009, 0, 0}, 1, 0, {0, 3, 3, 3, 3}},  // within 0.01 m they do
        {{0, 0, 0.009, 0, 0}, 0, 1, {0, 3, 2, 3, 3}},  // right of it: heights of record 0 are looked at, wanted
        {{0, 0, 0.009, -1, 0}, 1, 3, {0, 3, 4, 4, 3}}, // right of it: heights of the left one are looked at, wanted
        {{0, 0, 0.009, 0, 0}, -1, 0, {0, 3, 2, 3, 3}}, // a plate on edge 4 is no panel
    };
    for (const auto &c : cases) {
        ResetAll();
        PutPool(Rectangle(0, 0, 4, 3));
        for (int w = 1; w <= 4; ++w) {
            PanelTable[w].KenarKomsu[2] = PanelTable[w].KenarKomsu[4] = 0;
            PanelTable[w].Z[3] = PanelTable[w].Z[4] = c.bottom[w];
        }
        PanelTable[2].KenarKomsu[4] = c.left * 100 + (c.left > 0 ? 2 : 0);
        PanelTable[2].KenarKomsu[2] = c.right * 100 + (c.right > 0 ? 4 : 0);
        Mesh();
        SCOPED_TRACE(&c - cases);
        for (int w = 1; w <= 4; ++w)
            EXPECT_EQ(PanelTable[w].Ny, c.rows[w]) << w;
    }
}

TEST(OtoMesh, ALowWallGetsNoRowsAndPlatesOnOneEdgeNoCommonNodes) {
    PutPool(Rectangle(0, 0, 4, 3));
    PanelTable[1].Z[1] = PanelTable[1].Z[2] = 0.9;
    Mesh();
    EXPECT_EQ(PanelTable[1].Ny, 0);
    EXPECT_EQ(PanelTable[1].Nx, 5);
    EXPECT_EQ(MeshesOf(1), 0);
    ResetAll();
    PutPlak(Rectangle(0, 0, 4, 3));
    PutPlak(Rectangle(4, 0, 4, 3));
    PlakTable[1].KenarKodu[2] = -204;
    PlakTable[2].KenarKodu[4] = -102;
    Mesh();
    EXPECT_EQ(NoktaCount, 40);
}

TEST(OtoMesh, LimitsAreFailuresThatNamePlateAndWall) {
    const struct {
        double lx, ly, top, width;
        const char *words;
    } cases[] = {
        {19, 3, 3, 1, ""},
        {20, 3, 3, 1, "plate 1, wall 1: column(21) lies outside 0..20"},
        {4, 3, 19.5, 1, ""},
        {4, 3, 20, 1, "plate 1, wall 1: node row(21) lies outside 0..20"},
        {4, 3, 3, 0, "MeshGenisligi: division by zero"},
        {120, 3, 3, 1, "plate 1, edge 1: node(121) lies outside 0..100"},
    };
    for (const auto &c : cases) {
        ResetAll();
        PutPool(Rectangle(0, 0, c.lx, c.ly));
        for (int w = 1; w <= 4; ++w)
            PanelTable[w].Z[1] = PanelTable[w].Z[2] = c.top;
        MeshGenisligi = c.width;
        EXPECT_EQ(FailureOf(Mesh).words, c.words);
    }
    ResetAll();
    PutPool(Rectangle(0, 0, 4, 3));
    for (int k = 1; k <= 4; ++k)
        PanelTable[3].X[k] = PanelTable[3].Y[k] = PanelTable[3].Z[3] = 0.0;
    const Failed failed = FailureOf(Mesh);
    EXPECT_EQ(failed.kind, DivisionByZero);
    EXPECT_EQ(failed.words, "plate 1, wall 3: its foot has no length");
    ResetAll();
    for (int plak = 1; plak <= 23; ++plak) { // 44 edge nodes under walls each
        PutPlak(Rectangle(20 * plak, 0, 18, 2));
        for (int edge = 1; edge <= 4; ++edge)
            PlakTable[plak].KenarKodu[edge] = 903;
    }
    EXPECT_EQ(FailureOf(Mesh).words, "plate 23, edge 3: node under a wall(1001) lies outside 0..1000");
}

TEST(OtoMesh, EmptiesTheTablesAndAsksForExtentsBeforeTheRedraw) {
    struct : MeshWindow {
        void ComputeExtents() override { asked += "extents "; }
        void RefreshDrawing() override { asked += "redraw "; }
        void ListDiagnostic(const std::string &line) override { lines.push_back(line); }
        std::string asked;
        std::vector<std::string> lines;
    } window;
    ResetAll();
    PutPool(Rectangle(0, 0, 4, 3));
    NokYukTable[7].FZ = 2.0;
    NoktaTable[4000].X = 5.0;
    AutoMesh(window);
    EXPECT_EQ(window.asked, "extents redraw ");
    EXPECT_EQ(NokYukTable[7].FZ, 0.0);
    EXPECT_EQ(NoktaTable[4000].X, 0.0);
    ASSERT_EQ(window.lines.size(), 18U);
    EXPECT_EQ(window.lines[0].substr(0, 2), "1 ");
    EXPECT_EQ(window.lines[0].substr(window.lines[0].size() - 4), " 1 1");
    // the last entry is the first corner again, by another wall
    EXPECT_EQ(window.lines[17].substr(window.lines[17].size() - 4), " 4 1");
}

// Panels alone go the panels' way; with a circular pool or a plate the driver does everything.
TEST(OtoMesh, TheCommandTakesThePathByPoolTypeAndPlates) {
    for (const double type : {0.0, 1.0, 2.0}) {
        ResetAll();
        PutPool(Rectangle(0, 0, 4, 3));
        PlakCount = 0;
        HavuzTip = type;
        MeshWindow none;
        AutoMesh(none);
        EXPECT_EQ(MeshCount, type < 2 ? 2 * (4 * 3 + 3 * 3) : 0) << type;
    }
}

} // namespace havuz
