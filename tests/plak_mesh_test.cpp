// Plate grid meshing: places and codes on plain rectangles, whole meshes of other shapes against a golden file, slopes,
// limits.
#include "mesh/plak_mesh.h"
#include "mesh/plak_mesh_work.h"
#include "model/number_text.h"
#include "plak_support.h"
#include "support.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <set>

namespace havuz {

namespace {

int NodesWithCode(int code) {
    int count = 0;
    for (int n = 1; n <= NoktaCount; ++n)
        count += NoktaTable[n].PlakKodu == code ? 1 : 0;
    return count;
}

std::set<double> PlacesAlong(double (*axis)(int)) {
    std::set<double> places;
    for (int n = 1; n <= NoktaCount; ++n)
        places.insert(axis(n));
    return places;
}
double X(int n) { return NoktaTable[n].X; }
double Y(int n) { return NoktaTable[n].Y; }

double CoveredArea() {
    double twice = 0.0;
    for (int i = 1; i <= MeshCount; ++i)
        twice += TwicePlanArea(i);
    return twice / 2.0;
}

// The plate in work as text: places and codes of its nodes, corners of its meshes.
std::string MeshAsText() {
    std::string text;
    for (int n = 1; n <= NoktaCount; ++n)
        text += NumberText(NoktaTable[n].X) + " " + NumberText(NoktaTable[n].Y) + " " + NumberText(NoktaTable[n].Z) +
                " " + std::to_string(NoktaTable[n].PlakKodu) + "\n";
    for (int i = 1; i <= MeshCount; ++i) {
        for (const int n : Corners(i))
            text += std::to_string(n) + " ";
        text += std::to_string(MeshTable[i].PanelNo) + "\n";
    }
    return text;
}

// The inside test as it is written down: every probe against every edge.
bool LiesInsideLiteral(const PlakMeshWork &w, PlanPoint at, std::array<PlanPoint, 5> &stored) {
    bool filled[5] = {};
    double distance[5] = {1000, 1000, 1000, 1000, 1000};
    Kesisim k;
    const auto take = [&](std::size_t slot) {
        const double d = PlanDistance({k.xi, k.yi}, stored[slot]);
        if (!filled[slot] || d < distance[slot]) {
            filled[slot] = true;
            distance[slot] = d;
            stored[slot] = {k.xi, k.yi};
        }
    };
    for (int e = 1; e <= w.n; ++e) {
        DogruKesisimi({at.x - 1000, at.y}, {at.x + 1000, at.y}, w.outline(e), w.outline(e + 1), k);
        if (k.kod == 2)
            take(k.xi <= at.x ? 1 : 2);
        DogruKesisimi({at.x, at.y - 1000}, {at.x, at.y + 1000}, w.outline(e), w.outline(e + 1), k);
        if (k.kod == 2)
            take(k.yi <= at.y ? 3 : 4);
    }
    const auto between = [&](PlanPoint a, PlanPoint b) {
        return PlanDistance(a, at) + PlanDistance(b, at) < PlanDistance(a, b) + 0.1;
    };
    return filled[1] && filled[2] && filled[3] && filled[4] && between(stored[1], stored[2]) &&
           between(stored[3], stored[4]);
}

// Outlines with edges of all lengths and slopes, some of them level, upright or nearly so.
std::vector<PlanPoint> AnyOutline(std::mt19937 &random) {
    const auto pick = [&random](double from, double to) {
        return from + (to - from) * static_cast<double>(random()) / 4294967296.0;
    };
    std::vector<PlanPoint> outline;
    const auto n = 3 + random() % 9;
    for (auto k = n; k > 0; --k) {
        PlanPoint p{pick(-8, 8), pick(-8, 8)};
        if (!outline.empty() && random() % 4 == 0)
            p.x = outline.back().x + (random() % 2 == 0 ? 0.0 : 1e-6);
        if (random() % 4 == 0)
            p.y = std::round(p.y);
        outline.push_back(p);
    }
    return outline;
}

} // namespace

TEST(PlakMesh, TheInsideTestStoresTheBitsOfTheLiteralOne) {
    std::mt19937 random(3);
    int inside = 0;
    for (int i = 0; i < 300; ++i) {
        ResetAll();
        PlakMeshWork w = BeginPlak(PutPlak(AnyOutline(random)));
        CopyOutline(w);
        LayGrid(w, MeshGenisligi);
        TestInside(w);
        std::array<PlanPoint, 5> stored;
        for (int a = 0; a <= w.imax; ++a)
            for (int b = 0; b <= w.jmax; ++b) {
                ASSERT_EQ(w.Durum(a, b) == Inside, LiesInsideLiteral(w, w.grid(a, b), stored)) << i;
                inside += w.Durum(a, b);
            }
        for (std::size_t slot = 1; slot <= 4; ++slot) {
            EXPECT_EQ(StoredHits[slot].x, stored[slot].x);
            EXPECT_EQ(StoredHits[slot].y, stored[slot].y);
        }
    }
    EXPECT_GT(inside, 5000);
}

TEST(PlakMesh, WholeStepsGiveTheRegularGrid) {
    for (const bool reversed : {false, true}) {
        ResetAll();
        const std::vector<PlanPoint> outline = Rectangle(2, -1, 4, 3);
        PlakMeshle(PutPlak(reversed ? Reversed(outline) : outline, 1.5), MeshGenisligi);
        EXPECT_EQ(NoktaCount, 5 * 4);
        EXPECT_EQ(MeshCount, 4 * 3);
        for (int i = 1; i <= MeshCount; ++i) {
            EXPECT_EQ(TwicePlanArea(i), 2.0);
            EXPECT_EQ(MeshTable[i].PanelNo, 1001);
        }
        for (int corner = 1; corner <= 4; ++corner)
            EXPECT_EQ(NodesWithCode(-1000 - corner), 1);
        EXPECT_EQ(NodesWithCode(-1000), 3 * 2);
        for (const auto &[edge, inner] : {std::pair(1, 3), {2, 2}, {3, 3}, {4, 2}})
            EXPECT_EQ(NodesWithCode(1000 + edge), inner) << edge;
        EXPECT_EQ(NoktaTable[1].Z, 1.5);
    }
}

TEST(PlakMesh, HalfStepsAreSharedOut) {
    // Along x the grid points at 4 move onto the edge at 4.25 and those at 3 are centred, but for points on an edge.
    // Along y the last row of the grid, at 4, comes in to the edge at 3.75; from the last row nothing is centred.
    PlakMeshle(PutPlak(Rectangle(0, 0, 4.25, 3.75)), MeshGenisligi);
    EXPECT_EQ(PlacesAlong(X), (std::set<double>{0, 1, 2, 3, 3.125, 4.25}));
    EXPECT_EQ(PlacesAlong(Y), (std::set<double>{0, 1, 2, 3, 3.75}));
    EXPECT_EQ(MeshCount, 4 * 4);
    EXPECT_NEAR(CoveredArea(), 4.25 * 3.75, 1e-6);
}

// Every shape whose literal outcome matters, node by node. Places of the nodes and the corners of the meshes have been
// worked out by a second, independent procedure as well.
TEST(PlakMesh, ShapesMatchTheirGoldenMesh) {
    const double s = std::sqrt(3.0) / 2;
    const struct {
        const char *name;
        std::vector<PlanPoint> outline;
        double width;
    } shapes[] = {
        {"two and a half steps", Rectangle(0, 0, 2.5, 3.5), 1},
        {"diamond", {{0, -4}, {4, 0}, {0, 4}, {-4, 0}}, 1},
        {"L", {{0, 0}, {6, 0}, {6, 3}, {3, 3}, {3, 6}, {0, 6}}, 1},
        {"hexagon", {{4, 0}, {2, 4 * s}, {-2, 4 * s}, {-4, 0}, {-2, -4 * s}, {2, -4 * s}}, 1},
        {"trapezoid", {{0, 0}, {8, 0}, {6, 4}, {2, 4}}, 1},
        {"triangle, other sense", {{0, 0}, {0, 6}, {6, 0}}, 1},
        {"turned rectangle", Turned(Rectangle(0, 0, 6, 3), 0.5), 0.8},
        {"two corners near one grid point", {{0, 0}, {6, 0}, {6, 3}, {5.8, 3.2}, {0, 3}}, 2},
        {"narrow", {{3.5, 2.5}, {3.5, 4.7}, {0.2, 4.7}, {0.2, 2.5}}, 2},
        {"re-entrant", {{0, 0}, {8, 0}, {8, 5}, {5, 5}, {5, 2}, {3, 2}, {3, 5}, {0, 5}}, 0.9},
    };
    std::string text;
    for (const auto &shape : shapes) {
        ResetAll();
        MeshGenisligi = shape.width;
        PlakMeshle(PutPlak(shape.outline), MeshGenisligi);
        text += shape.name + std::string("\n") + MeshAsText();
    }
    EXPECT_TRUE(MatchesGolden("plak_mesh_shapes.txt", text));
}

TEST(PlakMesh, TheDiamondHasQuadrilateralsOnlyAndEveryCorner) {
    const std::vector<PlanPoint> outline = {{0, -4}, {4, 0}, {0, 4}, {-4, 0}};
    PlakMeshle(PutPlak(outline), MeshGenisligi);
    for (int corner = 1; corner <= 4; ++corner)
        EXPECT_EQ(NodesWithCode(-1000 - corner), 1) << corner;
    for (int i = 1; i <= MeshCount; ++i) {
        const std::array<int, 4> ring = Corners(i);
        EXPECT_EQ(std::set<int>(ring.begin(), ring.end()).size(), 4U) << i;
    }
    EXPECT_GT(CoveredArea(), 32.5); // lone corners mark the wrong second cell, so meshes overlap there: wanted
}

// Wanted: what the probes hit last stays, for the next point and for the next plate. It never decides what lies inside.
TEST(PlakMesh, StoredHitsOutliveThePlate) {
    const std::vector<PlanPoint> comb = {{0, 0}, {9, 0}, {9, 6}, {7, 6}, {7, 2},
                                         {5, 2}, {5, 6}, {3, 6}, {3, 1}, {0, 1}};
    PlakMeshle(PutPlak(comb), MeshGenisligi);
    const std::string text = MeshAsText();
    const PlanPoint left = StoredHits[1];
    EXPECT_NE(left.x, 0.0);
    ResetAll();
    EXPECT_EQ(StoredHits[1].x, 0.0);
    StoredHits.fill({-900, 40});
    PlakMeshle(PutPlak(comb), MeshGenisligi);
    EXPECT_EQ(MeshAsText(), text);
    EXPECT_EQ(StoredHits[1].x, left.x);
}

TEST(PlakMesh, SlopedPlatesTakeTheirHeightFromTheFallLine) {
    const int plak = PutPlak(Rectangle(0, 0, 4, 3));
    PlakTable[plak].Z[3] = PlakTable[plak].Z[4] = 1.5;
    PlakMeshle(plak, MeshGenisligi);
    for (int n = 1; n <= NoktaCount; ++n)
        EXPECT_NEAR(NoktaTable[n].Z, NoktaTable[n].Y / 2, 1e-6) << n;
    // Lowest and highest point at the ends of one edge along the slope: the fall line shrinks to a point.
    ResetAll();
    const int other = PutPlak(Rectangle(0, 0, 4, 3));
    PlakTable[other].Z[2] = PlakTable[other].Z[3] = 1.5;
    const Failed failed = FailureOf([other] { PlakMeshle(other, MeshGenisligi); });
    EXPECT_EQ(failed.kind, DivisionByZero);
    EXPECT_EQ(failed.words, "plate 1: its line of steepest slope has no length");
}

TEST(PlakMesh, AWidthGreaterThanThePlateGivesNothing) {
    MeshGenisligi = 9.0;
    PlakMeshle(PutPlak(Rectangle(0.5, 0.5, 4, 3)), MeshGenisligi);
    EXPECT_EQ(NoktaCount, 0);
    EXPECT_EQ(MeshCount, 0);
}

TEST(PlakMesh, LimitsAreFailuresThatNamePlateAndLimit) {
    const auto star = [](int n) {
        std::vector<PlanPoint> outline;
        for (int k = 0; k < n; ++k)
            outline.push_back({5 * std::cos(2 * M_PI * k / n), 5 * std::sin(2 * M_PI * k / n)});
        return outline;
    };
    const struct {
        std::vector<PlanPoint> outline;
        double width;
        int platesBefore;
        FailureKind kind;
        const char *words;
    } cases[] = {
        {Rectangle(0, 0, 40, 40), 1, 0, Subscript, "plate 1: point(1001) lies outside 0..1000"},
        {Rectangle(0, 0, 600, 2), 1, 2, Subscript, "plate 3: grid step(602) lies outside 0..500"},
        {{{0, 0}, {498, 0}, {498, 0.2}, {0, 0.2}}, 1, 0, Subscript, "plate 1: grid Durum(501) lies outside 0..500"},
        {Rectangle(0, 0, 4, 3), 1e-12, 0, Subscript, "plate 1: grid step(4000000000002) lies outside 0..500"},
        {Rectangle(0, 0, 4, 3), 1, 91, Subscript, "plate 92: working copy, PlakTable(102) lies outside 0..100"},
        {star(200), 1, 0, Subscript, "plate 1: outline point(200) lies outside 0..199"},
        {Rectangle(0, 0, 4, 3), 1, 32, Overflow,
         "plate 33: PlakKodu -33001 leaves the 16-bit range, plates are meshed up to number 32"},
        {Rectangle(0, 0, 4, 0), 1, 0, DivisionByZero, "plate 1: its outline has no width or no height in plan"},
        {Rectangle(0, 0, 4, 3), 0, 0, DivisionByZero, "MeshGenisligi: division by zero"},
    };
    for (const auto &c : cases) {
        ResetAll();
        MeshGenisligi = c.width;
        PlakCount = c.platesBefore;
        const int plak = PutPlak(c.outline);
        const Failed failed = FailureOf([plak] { PlakMeshle(plak, MeshGenisligi); });
        EXPECT_EQ(failed.words, c.words);
        EXPECT_EQ(failed.kind, c.kind) << c.words;
    }
    ResetAll();
    const int plak = PutPlak(star(199)); // the last that fits
    EXPECT_EQ(FailureOf([plak] { PlakMeshle(plak, MeshGenisligi); }).words, "");
    EXPECT_GT(MeshCount, 50);
    ResetAll();
    PlakCount = 31;
    const int last = PutPlak(Rectangle(0, 0, 4, 3));
    NoktaCount = kNoktaCapacity - 19;
    EXPECT_EQ(FailureOf([last] { PlakMeshle(last, MeshGenisligi); }).words,
              "plate 32: NoktaTable(5001) lies outside 0..5000");
}

} // namespace havuz
