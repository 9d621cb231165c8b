// The sound mesher: a thousand random outlines, the library's pools, what is carried over, what is refused.
#include "mesh/mesh_report.h"
#include "mesh/oto_mesh.h"
#include "mesh/polygon_pool.h"
#include "mesh/sound_mesh.h"
#include "mesh/sound_work.h"
#include "mesh/space_point.h"
#include "model/link_code.h"
#include "model/options.h"
#include "model/project_file.h"
#include "model/store.h"
#include "pool/pool_library.h"
#include "sound_models.h"
#include "support.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace havuz {

namespace {

SoundLosses MeshSoundly(double width = 0.0, double foot = 0.0) {
    MeshWindow none;
    SoundOptions options;
    options.width = width;
    options.foot = foot;
    return SoundMesh(none, options);
}

// The words of a refusal, "" when there is none.
std::string RefusalOf(const std::function<void()> &job) {
    try {
        job();
    } catch (const RuntimeFailure &failure) {
        EXPECT_EQ(FailureInTurkish(failure).find("its"), std::string::npos);
        return failure.what();
    }
    return "";
}

std::string Report() {
    std::string lines;
    for (const std::string &line : MeshReport())
        lines += line + "\n";
    return lines;
}

void PutPolygon(const std::vector<PlanPoint> &points, double width = 1.0, double top = 3.0) {
    ResetAll();
    MeshGenisligi = width;
    PolygonPool pool;
    pool.points = points;
    pool.dp = 20;
    pool.ds = 30;
    pool.UstKot = top;
    BuildPolygonPool(pool);
}

void PutLibraryPool(int page, double width, double strip) {
    ResetAll();
    MeshGenisligi = width;
    Bk = strip;
    PoolWindow none;
    GeneratePool(page, none);
}

const std::vector<PlanPoint> kL = {{0, 0}, {6, 0}, {6, 3}, {3, 3}, {3, 6}, {0, 6}};

std::vector<PlanPoint> Hexagon(double side) {
    std::vector<PlanPoint> points;
    for (int k = 0; k < 6; ++k)
        points.push_back({side * std::cos(k * kPi / 3), side * std::sin(k * kPi / 3)});
    return points;
}

// Places of all meshes, whatever their numbers.
using Place = std::array<double, 3>;
std::multiset<std::array<Place, 4>> MeshPlaces() {
    std::multiset<std::array<Place, 4>> places;
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &m = MeshTable[i];
        std::array<Place, 4> ring;
        int k = 0;
        for (const int n : {int(m.N1), int(m.N2), int(m.N3), int(m.N4)}) {
            const auto round = [](double v) { return std::round(v * 1e5) / 1e5 + 0.0; };
            ring[static_cast<std::size_t>(k++)] = {round(NoktaTable[n].X), round(NoktaTable[n].Y),
                                                   round(NoktaTable[n].Z)};
        }
        std::rotate(ring.begin(), std::min_element(ring.begin(), ring.end()), ring.end());
        places.insert(ring);
    }
    return places;
}

std::string SavedBytes() {
    TemporaryFolder folder;
    ProjectWindow none;
    SaveProject(folder.file("P.POL"), none);
    return ReadBytes(folder.file("P.POL"));
}

int NodeAt(double x, double y, double z) {
    for (int n = 1; n <= NoktaCount; ++n)
        if (SpaceDistance(NodePlace(n), {x, y, z}) < 1e-4)
            return n;
    return 0;
}

// Relative error of the areas of all plates, of the mesh before it is cut to the tables' 32 bits.
double ExactAreaError() {
    const sound::Wish wish{MeshGenisligi, true, {}, 0.0};
    sound::Model model = sound::ReadParts();
    sound::AgreeLines(model, wish);
    sound::Mesh mesh;
    sound::MeshParts(model, sound::AgreeDivisions(model, wish), wish, mesh);
    std::map<int, double> twice;
    for (const sound::Quad &quad : mesh.quad) {
        const auto at = [&](std::size_t k) { return mesh.node.at(quad.node[k]); };
        const SpacePoint a = Minus(at(2), at(0)), b = Minus(at(3), at(1));
        twice[quad.owner] += a.x * b.y - a.y * b.x;
    }
    double worst = 0.0;
    for (const sound::Part &part : model.part) {
        double own = 0.0;
        const auto outline = sound::OutlineInPlane(model, part);
        for (std::size_t k = 0; part.plate && k < outline.size(); ++k)
            own += sound::Twice(outline[0], outline[k], outline[(k + 1) % outline.size()]);
        if (part.plate)
            worst = std::max(worst, std::fabs(twice[part.owner] / own - 1.0));
    }
    return worst;
}

} // namespace

// Convex, concave, L, T, U, stars, slivers, sloped floors, touching plates and cut pools, turned by any angle.
TEST(SoundMesh, AThousandRandomOutlinesAreSound) {
    for (int kind = 0; kind < kOutlineKinds; ++kind) {
        int meshes = 0, sharp = 0;
        for (std::uint64_t seed = 0; seed < 100; ++seed) {
            SCOPED_TRACE(OutlineKindInWords(kind) + ", seed " + std::to_string(seed));
            PutRandomModel(kind, seed);
            ASSERT_NO_THROW(MeshSoundly());
            ASSERT_EQ(Report(), "");
            const MeshMeasure measure = MeasureMesh();
            EXPECT_EQ(measure.folded, 0);
            EXPECT_EQ(measure.openInside, 0);
            EXPECT_EQ(measure.close, 0);
            EXPECT_EQ(measure.lostCorners, 0);
            EXPECT_LE(measure.longestSide, 3.0);
            EXPECT_LT(measure.areaError, 2e-6); // by the tables' seven digits, on slivers most
            // Those that touch do so by the tables' digits.
            EXPECT_LT(ExactAreaError(), kind == 8 ? 1e-6 : 1e-9);
            meshes += measure.meshes;
            sharp += measure.sharp;
        }
        EXPECT_LT(sharp, 0.01 * meshes) << OutlineKindInWords(kind) << ": corners below 30 degrees";
    }
}

TEST(SoundMesh, RectanglesGetTheLiteralMeshWhereThatIsSound) {
    MeshWindow none;
    const auto compare = [&] {
        AutoMesh(none);
        const auto literal = MeshPlaces();
        ASSERT_EQ(Report(), "");
        MeshSoundly();
        EXPECT_EQ(Report(), "");
        EXPECT_TRUE(MeshPlaces() == literal);
    };
    for (const double strip : {0.0, 1.0, 2.0}) {
        SCOPED_TRACE(strip);
        PutLibraryPool(1, 1.0, strip);
        compare();
    }
    PutLibraryPool(1, 2.0, 0.0);
    MeshGenisligi = 1.0; // as after a load: the panels' own divisions count
    compare();
    for (const double width : {0.5, 0.75, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(width);
        PutPolygon({{0, 0}, {6, 0}, {6, 4}, {0, 4}}, width);
        compare();
        PutPolygon({{0, 4}, {6, 4}, {6, 0}, {0, 0}}, width);
        compare();
    }
    PutPolygon({{0, 0}, {5.4, 0}, {5.4, 3.4}, {0, 3.4}}, 0.75);
    compare();
}

TEST(SoundMesh, AStripOfHalfStepsNeedsNoSecondCommand) {
    PutLibraryPool(1, 1.0, 1.5);
    MeshSoundly();
    EXPECT_EQ(Report(), "");
}

TEST(SoundMesh, ASecondRunGivesTheSameBytes) {
    const std::vector<std::function<void()>> models = {
        [] { PutPolygon(kL); },
        [] { PutPolygon(Hexagon(4)); },
        [] { PutLibraryPool(1, 1.0, 1.5); },
        [] { PutLibraryPool(2, 1.0, 1.0); },
        [] { PutRandomModel(8, 4); },
        [] { PutRandomModel(9, 4); },
    };
    for (std::size_t m = 0; m < models.size(); ++m)
        for (const double foot : {0.0, 0.3}) {
            SCOPED_TRACE(std::to_string(m) + " foot " + std::to_string(foot));
            models[m]();
            MeshSoundly(0.0, foot);
            const std::string once = SavedBytes();
            MeshSoundly(0.0, foot);
            EXPECT_TRUE(SavedBytes() == once);
        }
}

// Floors turn counter-clockwise and belong to 1000 + plate; the upper side of a wall's mesh is its first.
TEST(SoundMesh, FloorsAndWallsStandAsTheOtherMeshersHaveThem) {
    for (const bool reversed : {false, true}) {
        std::vector<PlanPoint> points = Hexagon(4);
        if (reversed)
            std::reverse(points.begin(), points.end());
        PutPolygon(points);
        MeshSoundly();
        int floors = 0, walls = 0;
        for (int i = 1; i <= MeshCount; ++i) {
            const MeshRecord &m = MeshTable[i];
            const SpacePoint a = NodePlace(m.N1), b = NodePlace(m.N2), c = NodePlace(m.N3), d = NodePlace(m.N4);
            if (m.PanelNo == PlateOwner(1)) {
                ++floors;
                EXPECT_GT(Cross(Minus(c, a), Minus(d, b)).z, 0.0);
            } else {
                ++walls;
                EXPECT_GT(std::min(a.z, b.z), std::max(c.z, d.z) + 0.25);
            }
        }
        EXPECT_GT(floors, 30);
        EXPECT_EQ(walls, PanelTable[1].Ny * 6 * (PanelTable[1].Nx - 1));
        EXPECT_EQ(PanelTable[1].G, 0.5F); // the library's formula for 20 cm
    }
}

TEST(SoundMesh, ACircularPoolKeepsRimAndWallAndGetsANewFloor) {
    for (const double strip : {0.0, 1.0})
        for (const auto &[diameter, width] : {std::pair(10.0, 1.0), {12.0, 0.5}, {8.0, 2.0}, {4.0, 3.0}}) {
            ResetAll();
            Lx = diameter;
            MeshGenisligi = width;
            Bk = strip;
            PoolWindow none;
            GeneratePool(2, none);
            const auto walls = [] {
                std::set<Place> places;
                for (int i = 1; i <= MeshCount; ++i)
                    for (const int n :
                         {int(MeshTable[i].N1), int(MeshTable[i].N2), int(MeshTable[i].N3), int(MeshTable[i].N4)})
                        if (MeshTable[i].PanelNo > 1)
                            places.insert({NoktaTable[n].X, NoktaTable[n].Y, NoktaTable[n].Z});
                return places;
            };
            const auto before = walls();
            const int rim = PanelTable[1].Nx;
            MeshSoundly();
            EXPECT_TRUE(walls() == before);
            EXPECT_EQ(Report(), "");
            double area = 0.0, least = 180.0;
            for (int i = 1; i <= MeshCount; ++i) {
                const MeshRecord &m = MeshTable[i];
                const SpacePoint p[4] = {NodePlace(m.N1), NodePlace(m.N2), NodePlace(m.N3), NodePlace(m.N4)};
                EXPECT_NE(m.N1, m.N4);
                if (m.PanelNo != 1)
                    continue;
                area += Cross(Minus(p[2], p[0]), Minus(p[3], p[1])).z / 2.0;
                for (int k = 0; k < 4; ++k) {
                    const SpacePoint a = Minus(p[(k + 1) % 4], p[k]), b = Minus(p[(k + 3) % 4], p[k]);
                    least = std::min(least, std::atan2(Cross(a, b).z, Dot(a, b)) * 180.0 / kPi);
                }
            }
            EXPECT_NEAR(area, rim * diameter * diameter / 8.0 * std::sin(2.0 * kPi / rim), 1e-4);
            EXPECT_GT(least, 30.0) << diameter << " " << width;
        }
}

// Each row at most twice the one below, the first as high as was asked, none above the width.
TEST(SoundMesh, RowsGrowFromTheFoot) {
    const std::vector<std::function<void()>> models = {[] { PutPolygon(kL); }, [] { PutPolygon(Hexagon(4)); },
                                                       [] { PutLibraryPool(1, 1.0, 0.0); },
                                                       [] { PutLibraryPool(2, 1.0, 0.0); }};
    for (std::size_t m = 0; m < models.size(); ++m) {
        SCOPED_TRACE(m);
        models[m]();
        MeshSoundly(0.0, 0.25);
        EXPECT_EQ(Report(), "");
        std::set<double> heights;
        for (int i = 1; i <= MeshCount; ++i)
            if (!OwnerIsPlate(MeshTable[i].PanelNo) && PanelTable[MeshTable[i].PanelNo].Tip == 1)
                for (const int n : {int(MeshTable[i].N1), int(MeshTable[i].N3)})
                    heights.insert(std::round(NoktaTable[n].Z * 1e4) / 1e4);
        double below = 0.0, last = 0.0;
        for (const double z : heights) {
            const double row = z - below;
            if (row > 0.0) {
                EXPECT_LE(row, last == 0.0 ? 0.2501 : std::min(2.001 * last, 1.5));
                last = row;
            }
            below = z;
        }
        EXPECT_GE(heights.size(), 5U);
    }
}

TEST(SoundMesh, SupportsAndLoadsGoOverAndTheRestIsTold) {
    PutPolygon(kL);
    PanelTable[1].KenarMesnet[1] = 1;
    MeshSoundly();
    EXPECT_EQ(NoktaTable[NodeAt(3, 0, 3)].Mesnet, 4);
    EXPECT_EQ(NoktaTable[NodeAt(3, 0, 2)].Mesnet, 0);
    const int corner = NodeAt(3, 3, 0), inner = NodeAt(1, 1, 0);
    NoktaTable[corner].Mesnet = 3;
    NokYukTable[corner].FZ = 2.5;
    NoktaTable[inner].Mesnet = 4;
    NokYukTable[inner].FX = 1.0;
    MeshTable[1].Sil = 1;
    const SoundLosses losses = MeshSoundly(1.5);
    ASSERT_EQ(losses.size(), 3U);
    EXPECT_EQ(losses[0], "the support of node " + std::to_string(inner) +
                             " at (1, 1, 0) is lost: no node of the new mesh stands there");
    EXPECT_NE(losses[1].find("point load"), std::string::npos);
    EXPECT_NE(losses[2].find("switched off"), std::string::npos);
    EXPECT_EQ(NoktaTable[NodeAt(3, 3, 0)].Mesnet, 3);
    EXPECT_EQ(NokYukTable[NodeAt(3, 3, 0)].FZ, 2.5);
    EXPECT_EQ(NoktaTable[NodeAt(3, 0, 3)].Mesnet, 4);
}

TEST(SoundMesh, AWidthThatIsTooFineTellsTheLeastThatFits) {
    PutPolygon(kL);
    MeshSoundly();
    const std::string before = SavedBytes();
    const std::string words = RefusalOf([] { MeshSoundly(0.03); });
    const std::size_t told = words.find("fits is ");
    ASSERT_NE(told, std::string::npos) << words;
    EXPECT_TRUE(SavedBytes() == before);
    const double least = std::stod(words.substr(told + 8));
    EXPECT_NO_THROW(MeshSoundly(least));
    EXPECT_GT(NoktaCount, 4000);
    EXPECT_NE(RefusalOf([least] { MeshSoundly(0.95 * least); }), "");
}

TEST(SoundMesh, WhatIsNoOutlineIsRefusedAndTheModelStays) {
    const struct {
        std::vector<PlanPoint> points;
        const char *words;
    } cases[] = {
        {{{0, 0}, {4, 4}, {4, 0}, {0, 4}}, "plate 1: its outline crosses itself near (0, 0, 0)"},
        {{{0, 0}, {4, 0}, {2, 0}}, "plate 1: its outline has no area in plan"},
        {{{0, 0}, {4, 0}, {4, 4}, {2, 2}, {0, 4}, {2, 2}}, "plate 1: its outline touches itself near (2, 2, 0)"},
    };
    for (const auto &c : cases) {
        PutPolygon(c.points);
        NoktaCount = 3;
        EXPECT_EQ(RefusalOf([] { MeshSoundly(); }), c.words);
        EXPECT_EQ(NoktaCount, 3);
    }
    PutPolygon(kL);
    EXPECT_EQ(RefusalOf([] { MeshSoundly(-1.0); }), "MeshGenisligi: -1 m is no mesh width");
    MeshGenisligi = 0.0;
    EXPECT_EQ(FailureOf([] { MeshSoundly(); }).kind, DivisionByZero);
}

// A wall across the floor, one that ends on another wall's face, and one in the place of another.
TEST(SoundMesh, InnerWallsStandOnTheNodesOfTheirFloor) {
    PutPolygon(Hexagon(4));
    const auto wall = [](PlanPoint a, PlanPoint b) {
        PanelRecord &panel = PanelTable[++PanelCount];
        panel = PanelTable[1];
        panel.No = PanelCount;
        for (const int k : {1, 2, 3, 4}) {
            panel.KenarKomsu[k] = 0;
            panel.X[k] = k == 1 || k == 4 ? a.x : b.x;
            panel.Y[k] = k == 1 || k == 4 ? a.y : b.y;
        }
    };
    wall({-4, 0}, {4, 0});
    wall({0, 0}, {1.2, -2.1});
    wall({0, 2 * std::sqrt(3.0)}, {0, 0});
    wall({-4, 0}, {4, 0});
    MeshSoundly();
    EXPECT_EQ(Report(), "");
    const MeshMeasure measure = MeasureMesh();
    EXPECT_EQ(measure.folded, 0);
    EXPECT_EQ(measure.close, 0);
    EXPECT_LT(measure.areaError, 1e-6);
}

} // namespace havuz
