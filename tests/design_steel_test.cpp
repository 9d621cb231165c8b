// Combinations, zones, the choice of bars and the checks made of them, on tanks and results made by hand.
#include "design/failure.h"
#include "design/settings.h"
#include "design/steel.h"
#include "support.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace havuz;
using namespace havuz::design;
namespace cons = havuz::consistent;

namespace {

std::vector<DesignCombination> Defaults(DesignMethod method, bool surcharge = false) {
    return DefaultCombinations(method, {1.4, 1.6}, surcharge);
}

std::string InWords(const DesignCombination &c) {
    std::string words = c.sum.key + ":";
    for (const cons::Case kase : cons::kAllCases)
        if (const double f = c.sum.factor[static_cast<std::size_t>(kase)]; f != 0.0)
            words += " " + std::string(cons::NameOf(kase).key) + std::to_string(f).substr(0, 3);
    return words;
}

Basis MakeTestBasis(DesignMethod method) {
    Basis basis;
    basis.materials = MakeMaterials(300, 4200, method);
    basis.diameters = {10, 12, 16};
    basis.allowableSoil = 20;
    basis.combinations = Defaults(method);
    return basis;
}

// A box of 4 x 2 x 2 m: floor 1 and four walls 2 to 5 in meshes of .5 m, walls 30 cm, floor 40 cm; node numbers by
// place.
class Box {
public:
    Box() {
        tank.nodes.resize(1);
        tank.liquidLevel = 1.8;
        face(1, 0, .4, {0, 0, 0}, {.5, 0, 0}, 8, {0, .5, 0}, 4);
        face(2, 1, .3, {0, 0, 0}, {.5, 0, 0}, 8, {0, 0, .5}, 4);
        face(3, 1, .3, {4, 0, 0}, {0, .5, 0}, 4, {0, 0, .5}, 4);
        face(4, 1, .3, {4, 2, 0}, {-.5, 0, 0}, 8, {0, 0, .5}, 4);
        face(5, 1, .3, {0, 2, 0}, {0, -.5, 0}, 4, {0, 0, .5}, 4);
    }

    cons::Tank tank;

    // Results of a combination, all of them zero.
    cons::CaseResult blank() const {
        cons::CaseResult r;
        r.nodes.resize(tank.nodes.size());
        r.meshes.resize(tank.meshes.size());
        return r;
    }

private:
    int nodeAt(const Vector3 &p) {
        for (std::size_t i = 1; i < tank.nodes.size(); ++i) {
            const Vector3 gap = tank.nodes[i].at - p;
            if (Dot(gap, gap) < 1e-8)
                return static_cast<int>(i);
        }
        tank.nodes.push_back({p, 0, {}, true});
        return static_cast<int>(tank.nodes.size()) - 1;
    }

    // Corners 1-2 of each mesh are its first edge along a, then it goes on along b.
    void face(int panel, int kind, double thickness, Vector3 from, Vector3 a, int na, Vector3 b, int nb) {
        cons::TankPanel p;
        p.number = panel;
        p.kind = kind;
        p.thickness = thickness;
        tank.panels[panel] = p;
        for (int j = 0; j < nb; ++j)
            for (int i = 0; i < na; ++i) {
                const auto at = [&](int di, int dj) { return nodeAt(from + (1.0 * i + di) * a + (1.0 * j + dj) * b); };
                cons::TankMesh m;
                m.mesh = static_cast<int>(tank.meshes.size()) + 1;
                m.node = {at(0, 0), at(1, 0), at(1, 1), at(0, 1)};
                m.panel = panel;
                tank.meshes.push_back(m);
            }
    }
};

const SteelRow &RowOf(const std::vector<SteelRow> &rows, int panel, Zone zone, int direction, Face face) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const SteelRow &r) {
        return r.panel == panel && r.zone == zone && r.direction == direction && r.face == face;
    });
    EXPECT_NE(found, rows.end()) << panel << " " << NameOf(zone) << " " << direction;
    return *found;
}

std::vector<cons::CaseResult> BlankResults(const Box &box, const Basis &basis) {
    return std::vector<cons::CaseResult>(basis.combinations.size(), box.blank());
}

std::size_t PlaceOf(const Basis &basis, const std::string &key) {
    for (std::size_t i = 0; i < basis.combinations.size(); ++i)
        if (basis.combinations[i].sum.key == key)
            return i;
    ADD_FAILURE() << key;
    return 0;
}

} // namespace

TEST(DesignCombinations, FourSituationsAndTheirFactors) {
    std::vector<std::string> words;
    for (const DesignCombination &c : Defaults(DesignMethod::Strength))
        words.push_back(InWords(c));
    EXPECT_EQ(words, (std::vector<std::string>{
                         "test: G1.0 N1.0 L1.0",
                         "full: G1.0 P1.0 N1.0 L1.0 S1.0 W1.0 U1.0",
                         "empty: G1.0 N1.0 S1.0",
                         "empty-water: G1.0 N1.0 S1.0 W1.0 U1.0",
                         "test-u: G1.4 N1.6 L1.6",
                         "test-g: G0.9 N1.6 L1.6",
                         "full-u: G1.4 P1.6 N1.6 L1.6 S1.6 W1.6 U1.6",
                         "full-g: G0.9 P1.6 N1.6 L1.6 S1.6 W1.6 U1.6",
                         "empty-u: G1.4 N1.6 S1.6",
                         "empty-g: G0.9 N1.6 S1.6",
                         "empty-water-u: G1.4 N1.6 S1.6 W1.6 U1.6",
                         "empty-water-g: G0.9 N1.6 S1.6 W1.6 U1.6",
                     }));
    const auto elastic = Defaults(DesignMethod::Elastic, true);
    ASSERT_EQ(elastic.size(), 4U);
    EXPECT_EQ(InWords(elastic[2]), "empty: G1.0 N1.0 S1.0 Q1.0");
    EXPECT_EQ(InWords(elastic[0]), "test: G1.0 N1.0 L1.0");
}

// Wall 2 is 4 x 2 m: foot and top are its lowest and highest quarter (one row of .5 m each), corners min(4/4, 2/2) = 1
// m.
TEST(DesignPlaces, ZonesOfAWallAndAFloor) {
    const Box box;
    const std::vector<MeshPlace> places = FindPlaces(box.tank);
    const auto wall = [&](int column, int row) { return places[static_cast<std::size_t>(32 + row * 8 + column)]; };
    EXPECT_EQ(wall(0, 0).zone, (std::array{Zone::Corner, Zone::Foot}));
    EXPECT_EQ(wall(1, 1).zone, (std::array{Zone::Corner, Zone::Span}));
    EXPECT_EQ(wall(2, 2).zone, (std::array{Zone::Span, Zone::Span}));
    EXPECT_EQ(wall(7, 3).zone, (std::array{Zone::Corner, Zone::Top}));
    const auto floor = [&](int column, int row) { return places[static_cast<std::size_t>(row * 8 + column)]; };
    EXPECT_EQ(floor(0, 0).zone, (std::array{Zone::Foot, Zone::Foot}));
    EXPECT_EQ(floor(3, 1).zone, (std::array{Zone::Span, Zone::Span})); // .75 m from the wall, the strip is .5 m
    EXPECT_DOUBLE_EQ(wall(2, 2).toSupport[0], 1.0);                    // 1 m above the floor, 1 m from the corner
    EXPECT_DOUBLE_EQ(wall(4, 3).toSupport[3], 2.0);
    const PanelSize size = SizeOf(box.tank, 2);
    EXPECT_DOUBLE_EQ(size.length, 4.0);
    EXPECT_DOUBLE_EQ(size.width, 2.0);
}

// A lighter pair of diameter and spacing must fail one of the three demands: looked for one by one.
TEST(DesignBars, TheLightestPairThatServes) {
    const Materials m = MakeMaterials(300, 4200, DesignMethod::Strength);
    const Settings settings;
    const std::vector<double> diameters = {8, 10, 12, 14, 16, 20};
    for (const auto &[M, N] : {std::pair(.2, 0.0), std::pair(3.0, 2.0), std::pair(7.0, 12.0), std::pair(1.0, 30.0)}) {
        SCOPED_TRACE(M);
        LayerDemand inner{{{1.6 * M, 1.6 * N, 1, 1, 0}}, {{M, N, 1, 1, 1}, {.3 * M, 1.1 * N, 2, 1, 1}}, 4.0, .15};
        const std::vector<LayerChoice> chosen = ChooseBars(m, 35.0, settings, diameters, {inner, inner});
        ASSERT_TRUE(chosen[0].serves);
        EXPECT_GE(chosen[0].bars.area(), std::max(chosen[0].need.area, chosen[0].least));
        EXPECT_LE(chosen[0].crack.wk, .15);
        for (const double diameter : diameters)
            for (double spacing = 8; spacing <= 25; ++spacing) {
                const Bars bars{diameter, spacing};
                if (bars.area() > chosen[0].bars.area() - 1e-9)
                    continue;
                const Section s{35.0, 35.0 - 4.0 - diameter / 20.0};
                const bool strength = bars.area() >= RequiredSteel(m, s, 1.6 * M, 1.6 * N).area;
                const bool least = bars.area() >= LeastSteel(m, s.d);
                double wk = 0;
                for (const Demand &d : inner.service)
                    wk = std::max(wk, CrackWidthOf(m, s, bars, 4.0, d.M, d.N).wk);
                EXPECT_FALSE(strength && least && wk <= .15) << diameter << "/" << spacing;
            }
    }
}

// .0025 * 100 * 60 = 15 cm2/m for both faces; by itself each face asks for .0013683 * 100 * d, about 7.6.
TEST(DesignBars, TheTotalOfBothFacesIsHeld) {
    const Materials m = MakeMaterials(200, 4200, DesignMethod::Strength);
    const LayerDemand none{{{0, 0, 1, 1, 0}}, {{0, 0, 1, 1, 0}}, 4.0, .2};
    Settings settings;
    settings.leastTotal = .005;
    const auto chosen = ChooseBars(m, 60.0, settings, {12, 16}, {none, none});
    EXPECT_GE(chosen[0].bars.area() + chosen[1].bars.area(), 30.0);
    EXPECT_LT(chosen[0].bars.area() + chosen[1].bars.area(), 31.0);
    settings.leastTotal = .05;
    EXPECT_FALSE(ChooseBars(m, 60.0, settings, {12, 16}, {none, none})[0].totalMet);
}

// Nothing serves: the heaviest bars stand and say so. No diameter chosen in the project: no bars, not met.
TEST(DesignBars, WhatCannotBeServedSaysSo) {
    const Materials m = MakeMaterials(300, 4200, DesignMethod::Strength);
    const LayerDemand heavy{{{40, 0, 7, 2, 0}}, {{25, 0, 7, 2, 1}}, 4.0, .2};
    const auto chosen = ChooseBars(m, 30.0, Settings{}, {10, 12}, {heavy, heavy});
    EXPECT_FALSE(chosen[0].serves);
    EXPECT_EQ(chosen[0].bars.diameter, 12.0);
    EXPECT_EQ(chosen[0].bars.spacing, 8.0);
    EXPECT_EQ(chosen[0].governs.mesh, 7);
    const auto without = ChooseBars(m, 30.0, Settings{}, {}, {heavy, heavy});
    EXPECT_FALSE(without[0].serves);
    EXPECT_EQ(without[0].bars.area(), 0.0);
}

// One corner of wall 2 in its foot row under "test-u": M22 -3, M12 .5, N22 4, N12 -1. Outer face, direction 2:
// M* = 3 + .5, N* = 4 + 1. fcd 200, fyd 3652.174, k1 .82; bars of 10: d 25.5; Ms = 3.5 - 5 * .105 = 2.975 t.m;
// a = 25.5 - sqrt(650.25 - 2 * 297500/17000) = .6957; As = (17000 * .6957 + 5000)/3652.174 = 4.607 cm2/m.
TEST(DesignSteel, DemandOfOneCornerReachesItsRow) {
    const Box box;
    Basis basis = MakeTestBasis(DesignMethod::Strength);
    basis.diameters = {10};
    auto results = BlankResults(box, basis);
    cons::ShellResult &r = results[PlaceOf(basis, "test-u")].meshes[32 + 3][2];
    r.M22 = -3.0, r.M12 = .5, r.N22 = 4.0, r.N12 = -1.0;
    // The same in a service combination does not count for strength, nor does a centre.
    results[PlaceOf(basis, "test")].meshes[32 + 4][2].M22 = -9.0;
    results[PlaceOf(basis, "test-u")].meshes[32 + 4][0].M22 = -9.0;
    const std::vector<SteelRow> rows = DesignSteel(box.tank, basis, results);
    const SteelRow &outer = RowOf(rows, 2, Zone::Foot, 2, Face::Outer);
    EXPECT_NEAR(outer.layer.governs.M, 3.5, 1e-12);
    EXPECT_NEAR(outer.layer.governs.N, 5.0, 1e-12);
    EXPECT_EQ(outer.layer.governs.mesh, 36);
    EXPECT_EQ(outer.layer.governs.corner, 2);
    EXPECT_EQ(basis.combinations[static_cast<std::size_t>(outer.layer.governs.combination)].sum.key, "test-u");
    EXPECT_NEAR(outer.layer.need.area, 4.607, 1e-3);
    // The crack is that of the service combination: M* 9.
    EXPECT_NEAR(outer.layer.crackPlace.M, 9.0, 1e-12);
    // Inner face: M22 turns, direction 2 asks for N alone; direction 1 for Wood's rest .5^2/3.
    EXPECT_NEAR(RowOf(rows, 2, Zone::Foot, 2, Face::Inner).layer.governs.M, 0.0, 1e-12);
    EXPECT_NEAR(RowOf(rows, 2, Zone::Span, 1, Face::Inner).layer.governs.M, .25 / 3.0, 1e-12);
    // Head on wall 2: 1.8 m on 30 cm; on the floor 1.4 m on 40 cm is below 5 thicknesses.
    EXPECT_NEAR(outer.crackLimit, CrackLimit(1.8, 30.0), 1e-12);
    EXPECT_NEAR(RowOf(rows, 1, Zone::Span, 1, Face::Inner).crackLimit, .20, 1e-12);
}

// Q2 falls from 10 at the foot to 6 at .5 m; d = 30 - 4 - .5 = 25.5 cm: Q = 10 - 4 * .255/.5 = 7.96 t/m. M22 is
// negative there: the outer bars carry it. With M22 positive the same shear belongs to the inner bars.
TEST(DesignSteel, ShearIsTakenOneEffectiveDepthFromTheSupport) {
    const Box box;
    Basis basis = MakeTestBasis(DesignMethod::Strength);
    basis.diameters = {10};
    auto results = BlankResults(box, basis);
    cons::MeshResult &mesh = results[PlaceOf(basis, "empty-u")].meshes[32 + 3];
    for (const std::size_t corner : {1U, 2U})
        mesh[corner].Q2 = -10.0, mesh[corner].M22 = -2.0;
    for (const std::size_t corner : {3U, 4U})
        mesh[corner].Q2 = -6.0, mesh[corner].M22 = -1.0;
    std::vector<SteelRow> rows = DesignSteel(box.tank, basis, results);
    EXPECT_NEAR(RowOf(rows, 2, Zone::Foot, 2, Face::Outer).shear.V, 7.96, 1e-9);
    EXPECT_EQ(RowOf(rows, 2, Zone::Foot, 2, Face::Inner).shear.V, 0.0);
    for (cons::ShellResult &r : mesh)
        r.M22 = -r.M22;
    rows = DesignSteel(box.tank, basis, results);
    EXPECT_NEAR(RowOf(rows, 2, Zone::Foot, 2, Face::Inner).shear.V, 7.96, 1e-9);
}

// 30 t/m is too much for 30 cm: the row is not met and names the thickness that would be; elastic: VRd is divided
// by 1.5.
TEST(DesignSteel, TooMuchIsNotMetAndNamesTheThickness) {
    const Box box;
    const auto rowsOf = [&](DesignMethod method, const char *key) {
        Basis basis = MakeTestBasis(method);
        auto results = BlankResults(box, basis);
        for (cons::ShellResult &r : results[PlaceOf(basis, key)].meshes[32 + 8 + 3])
            r.Q2 = 30.0, r.M22 = .1;
        return DesignSteel(box.tank, basis, results);
    };
    const auto strength = rowsOf(DesignMethod::Strength, "test-u");
    const SteelRow &row = RowOf(strength, 2, Zone::Span, 2, Face::Inner);
    EXPECT_FALSE(row.shearMet());
    EXPECT_FALSE(row.met());
    EXPECT_GT(row.thickerForShear, 60.0);
    const auto elastic = rowsOf(DesignMethod::Elastic, "test");
    const SteelRow &service = RowOf(elastic, 2, Zone::Span, 2, Face::Inner);
    EXPECT_NEAR(service.shear.allowed, service.shear.strength.vrd / 1.5, 1e-12);
    EXPECT_GT(service.thickerForShear, row.thickerForShear);
}

TEST(DesignSettings, RoundTripKeepsEverythingAndWhatItDoesNotKnow) {
    const TemporaryFolder folder;
    const std::string path = folder.file("P.RAP");
    EXPECT_EQ(ReadSettings(path).state, SettingsFile::Absent);
    Settings s;
    s.coverInner = 5.0;
    s.crackLimit = .1;
    s.saturatedDensity = 2.1;
    s.combinations = Defaults(DesignMethod::Elastic);
    s.combinations[1].sum.factor[cons::kUplift] = 1.2;
    s.texts["muhendis"] = "Ayşe Yılmaz";
    WriteSettings(path, s);
    std::string bytes = ReadBytes(path);
    WriteBytes(path, "{\"ofALaterHand\": [1, 2]," + bytes.substr(1));
    SettingsFile read = ReadSettings(path);
    ASSERT_EQ(read.state, SettingsFile::Read) << read.english;
    EXPECT_EQ(read.settings.coverInner, 5.0);
    EXPECT_EQ(read.settings.coverOuter, 4.0);
    EXPECT_EQ(read.settings.crackLimit, .1);
    EXPECT_EQ(read.settings.saturatedDensity, 2.1);
    ASSERT_EQ(read.settings.combinations.size(), 4U);
    EXPECT_EQ(read.settings.combinations[1].sum.factor[cons::kUplift], 1.2);
    EXPECT_EQ(read.settings.texts["muhendis"], "Ayşe Yılmaz");
    read.settings.combinations.clear();
    WriteSettings(path, read.settings);
    EXPECT_NE(ReadBytes(path).find("ofALaterHand"), std::string::npos);
    EXPECT_EQ(ReadBytes(path).find("\"combinations\""), std::string::npos);
}

TEST(DesignSettings, ADamagedOrNewerFileIsSaidAndLeftAlone) {
    const TemporaryFolder folder;
    const std::string path = folder.file("P.RAP");
    for (const char *damage :
         {"", "{", "[]", "\xff\xfe", "{\"version\": \"1\"}", "{\"version\": 1, \"coverInner\": \"4\"}",
          "{\"version\": 1, \"coverInner\": -4}", "{\"version\": 1, \"coverInner\": 1e999}",
          "{\"version\": 1, \"combinations\": 5}", "{\"version\": 1, \"combinations\": [{\"key\": \"a\"}]}",
          "{\"version\": 1, \"combinations\": [{\"key\": \"a\", \"factored\": 3, \"factors\": {}}]}",
          "{\"version\": 1, \"combinations\": [{\"key\": \"a,b\", \"factors\": {}}]}",
          "{\"version\": 1, \"combinations\": [{\"key\": \"a\", \"factors\": {}}, {\"key\": \"a\", \"factors\": {}}]}",
          "{\"version\": 1, \"texts\": {\"not\": 3}}", "{\"version\": 1, \"spacingLeast\": 40}"}) {
        SCOPED_TRACE(damage);
        WriteBytes(path, damage);
        const SettingsFile file = ReadSettings(path);
        EXPECT_EQ(file.state, SettingsFile::Damaged);
        EXPECT_EQ(file.settings.coverInner, 4.0);
        EXPECT_FALSE(file.turkish.empty());
        EXPECT_THROW(WriteSettings(path, Settings{}), DesignFailure);
        EXPECT_EQ(ReadBytes(path), damage);
    }
    WriteBytes(path, "{\"version\": 2, \"coverInner\": 6}");
    EXPECT_EQ(ReadSettings(path).state, SettingsFile::Newer);
    EXPECT_THROW(WriteSettings(path, Settings{}), DesignFailure);
}
