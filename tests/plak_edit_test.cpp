// Plate editing: cuts through edges and corners, walls split with them, link codes rebuilt. Polygon pools.
#include "mesh/plak_edit.h"
#include "mesh/polygon_pool.h"
#include "model/project_file.h"
#include "plak_support.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

struct PlateListWindow : MeshWindow {
    void RebuildPlateList() override { ++rebuilt; }
    int rebuilt = 0;
};

int Cut(PlanPoint a, PlanPoint b) {
    PlateListWindow window;
    int degisti = 0;
    PlakKes({a, b}, degisti, window);
    EXPECT_EQ(window.rebuilt, degisti);
    return degisti;
}

std::vector<PlanPoint> OutlineOf(int plak) {
    std::vector<PlanPoint> outline;
    for (int k = 1; k <= PlakTable[plak].NoktaSayisi; ++k)
        outline.push_back({PlakTable[plak].X[k], PlakTable[plak].Y[k]});
    return outline;
}

std::string Text(const std::vector<PlanPoint> &points) {
    std::string text;
    for (const PlanPoint p : points)
        text += (text.empty() ? "" : " ") + std::to_string(p.x).substr(0, 4) + "," + std::to_string(p.y).substr(0, 4);
    return text;
}

std::vector<int> Codes(int plak) {
    std::vector<int> codes;
    for (int k = 1; k <= PlakTable[plak].NoktaSayisi; ++k)
        codes.push_back(PlakTable[plak].KenarKodu[k]);
    return codes;
}

std::vector<int> Neighbours(int panel) {
    const auto &codes = PanelTable[panel].KenarKomsu;
    return {codes[1], codes[2], codes[3], codes[4]};
}

} // namespace

TEST(PlakKes, ACutThroughTwoWallsSplitsPlateAndWalls) {
    PutPool(Rectangle(0, 0, 4, 3));
    ASSERT_EQ(Cut({1, -5}, {2, 8}), 1);
    EXPECT_EQ(PlakCount, 2);
    EXPECT_EQ(PanelCount, 6);
    EXPECT_EQ(Text(OutlineOf(1)), "0.00,0.00 1.38,0.00 1.61,3.00 0.00,3.00");
    EXPECT_EQ(Text(OutlineOf(2)), "1.38,0.00 4.00,0.00 4.00,3.00 1.61,3.00");
    EXPECT_EQ(Codes(1), (std::vector<int>{103, -204, 503, 603}));
    EXPECT_EQ(Codes(2), (std::vector<int>{203, 303, 403, -102})); // the common edge points both ways
    for (int w = 1; w <= 6; ++w) {
        EXPECT_EQ(PanelTable[w].No, w);
        const int link = -PanelTable[w].KenarKomsu[3]; // the foot of each wall points back at its edge
        EXPECT_EQ(PlakTable[link / 100].KenarKodu[link % 100], 100 * w + 3) << w;
        EXPECT_EQ(PanelTable[w].X[1], PanelTable[w].X[4]);
        EXPECT_EQ(PanelTable[w].X[2], PanelTable[w].X[3]);
    }
    EXPECT_EQ(PanelTable[1].X[2], PanelTable[2].X[1]);
    EXPECT_EQ(PanelTable[2].X[1], PlakTable[2].X[1]);
    EXPECT_EQ(PanelTable[4].Nx, 2); // 4 - 1.6 m by the mesh width
}

TEST(PlakKes, FromCornersOnInsertsOnlyWhatIsMissing) {
    const struct {
        PlanPoint a, b;
        const char *first, *second;
        int panels;
    } cases[] = {
        {{0, 0}, {4, 3}, "0.00,0.00 4.00,3.00 0.00,3.00", "0.00,0.00 4.00,0.00 4.00,3.00", 4},
        {{0.05, 0}, {4, 3.05}, "0.00,0.00 4.00,3.00 0.00,3.00", "0.00,0.00 4.00,0.00 4.00,3.00", 4},
        {{0, 0}, {4, 2}, "0.00,0.00 4.00,2.00 4.00,3.00 0.00,3.00", "0.00,0.00 4.00,0.00 4.00,2.00", 5},
        {{8, 4}, {0, 0}, "0.00,0.00 4.00,2.00 4.00,3.00 0.00,3.00", "0.00,0.00 4.00,0.00 4.00,2.00", 5},
        {{4, 3}, {2, 0}, "0.00,0.00 2.00,0.00 4.00,3.00 0.00,3.00", "2.00,0.00 4.00,0.00 4.00,3.00", 5},
        {{0, 0.09}, {4, 2.09}, "0.00,0.00 4.00,2.09 4.00,3.00 0.00,3.00", "0.00,0.00 4.00,0.00 4.00,2.09", 5}, // on it
        {{0, 0.1}, {4, 2.1}, "0.00,0.00 4.00,0.00 4.00,2.10 0.00,0.10", "4.00,2.10 4.00,3.00 0.00,3.00 0.00,0.10", 6},
    };
    for (const auto &c : cases) {
        ResetAll();
        PutPool(Rectangle(0, 0, 4, 3));
        SCOPED_TRACE(&c - cases);
        ASSERT_EQ(Cut(c.a, c.b), 1);
        // which of the two pieces stays plate 1 depends on the outline alone
        const std::string one = Text(OutlineOf(1)), two = Text(OutlineOf(2));
        EXPECT_TRUE((one == c.first && two == c.second) || (one == c.second && two == c.first)) << one << " | " << two;
        EXPECT_EQ(PanelCount, c.panels);
        for (const int plak : {1, 2})
            for (const int code : Codes(plak))
                if (code < 0) {
                    EXPECT_EQ(-code / 100, 3 - plak);
                    EXPECT_EQ(PlakTable[3 - plak].KenarKodu[-code % 100] / -100, plak);
                }
    }
}

TEST(PlakKes, DegenerateCutsChangeNothing) {
    const std::vector<PlanPoint> comb = {{0, 0}, {9, 0}, {9, 6}, {6, 6}, {6, 2}, {3, 2}, {3, 6}, {0, 6}};
    const struct {
        PlanPoint a, b;
    } lines[] = {
        {{0, 0}, {9, 0}},                        // along an edge
        {{0, 0}, {0, 0}},                        // both ends at one corner
        {{0, 0}, {0.5, 3}},                      // from a corner, ends inside
        {{1, 1}, {8, 1}},                        // inside
        {{-1, 4}, {10, 4}},                      // four edges
        {{-1, -1}, {10, -1}}, {{-1, 1}, {2, 1}}, // one edge
    };
    for (const auto &line : lines) {
        ResetAll();
        PutPool(comb);
        const std::string before = ProjectText();
        EXPECT_EQ(Cut(line.a, line.b), 0) << &line - lines;
        EXPECT_EQ(ProjectText(), before) << &line - lines;
    }
}

// Wanted: codes of moved points change as if walls stood there, and the last edge's code after a cut from a corner.
TEST(PlakKes, CodesOfAPlateWithoutWalls) {
    PutPlak(Rectangle(0, 0, 4, 3));
    PlakTable[1].Z[2] = 2.0;
    ASSERT_EQ(Cut({1, -1}, {1, 4}), 1);
    EXPECT_EQ(Codes(1), (std::vector<int>{0, -204, -100, -200}));
    EXPECT_EQ(Codes(2), (std::vector<int>{0, -100, -100, -102}));
    EXPECT_EQ(PlakTable[2].Z[1], 0.5); // a quarter of the way up the edge
    ResetAll();
    PutPlak(Rectangle(0, 0, 4, 3));
    ASSERT_EQ(Cut({0, 0}, {4, 2}), 1);
    EXPECT_EQ(PlakTable[1].KenarKodu[4], 503);
}

TEST(PlakKes, EveryPlateIsCutAndPiecesAreNotCutAgain) {
    PutPlak(Rectangle(0, 0, 4, 3));
    PutPlak(Rectangle(4, 0, 4, 3));
    ASSERT_EQ(Cut({-1, 1}, {9, 1}), 1);
    EXPECT_EQ(PlakCount, 4);
    EXPECT_EQ(Codes(1)[1], -204); // lower halves still meet, and so do the upper ones
    EXPECT_EQ(Codes(3)[0], -403);
}

TEST(PlakKes, FullTablesAreFailures) {
    std::vector<PlanPoint> outline;
    for (int k = 0; k < 200; ++k)
        outline.push_back({5 * std::cos(k * 0.0314), 5 * std::sin(k * 0.0314)});
    PutPlak(outline);
    EXPECT_EQ(FailureOf([] { Cut({-9, 0.1}, {9, 0.2}); }).words, "plate 1: outline point(201) lies outside 0..200");
    ResetAll();
    PutPool(Rectangle(0, 0, 4, 3));
    PanelCount = kPanelCapacity;
    EXPECT_EQ(FailureOf([] { Cut({1, -1}, {1, 4}); }).words, "PanelTable(1001) lies outside 0..1000");
    ResetAll();
    PutPlak(Rectangle(0, 0, 4, 3));
    PlakCount = kPlakCapacity;
    EXPECT_EQ(FailureOf([] { Cut({1, -1}, {1, 4}); }).words, "PlakTable(101) lies outside 0..100");
}

TEST(PanelBol, MovesCornersByTheEdgeOfTheCode) {
    const struct {
        int kod;
        double x[2][5]; // X of corners 1..4 of both walls
    } cases[] = {
        {203, {{0, 4, 9, 9, 4}, {0, 9, 4, 4, 9}}},
        {201, {{0, 4, 9, 9, 4}, {0, 9, 4, 4, 9}}},
        {204, {{0, 4, 4, 9, 9}, {0, 9, 9, 4, 4}}},
        {202, {{0, 4, 4, 4, 4}, {0, 4, 4, 4, 4}}}, // edge 2: wanted
    };
    for (const auto &c : cases) {
        ResetAll();
        PutPool(Rectangle(0, 0, 4, 3));
        PanelTable[2].X[1] = PanelTable[2].X[2] = PanelTable[2].X[3] = PanelTable[2].X[4] = 4.0;
        PanelBol(c.kod, 9.0, 1.0);
        EXPECT_EQ(PanelCount, 5);
        for (const int w : {2, 3})
            for (int k = 1; k <= 4; ++k)
                EXPECT_EQ(PanelTable[w].X[k], c.x[w - 2][k]) << c.kod << " " << w << " " << k;
    }
    ResetAll();
    PutPool(Rectangle(0, 0, 4, 3));
    PanelBol(-203, 9.0, 1.0);
    EXPECT_EQ(PanelCount, 4);
    PanelBol(203, 4.0, 1.0);
    const std::vector<std::vector<int>> ring = {
        {0, 204, -101, 502}, {0, 304, -102, 101}, {0, 404, -103, 202}, {0, 504, -104, 302}, {0, 104, -105, 402}};
    for (int w = 1; w <= 5; ++w)
        EXPECT_EQ(Neighbours(w), ring[static_cast<std::size_t>(w - 1)]) << w;
}

TEST(PlakKoseKes, TheNumberStaysWithThePieceBetween) {
    PutPlak({{0, 0}, {4, 0}, {5, 2}, {4, 3}, {0, 3}});
    int sonuc = 0;
    PlakKoseKes(1, 4, 2, sonuc);
    EXPECT_EQ(sonuc, 2);
    EXPECT_EQ(Text(OutlineOf(1)), "4.00,0.00 5.00,2.00 4.00,3.00");
    EXPECT_EQ(Text(OutlineOf(2)), "0.00,0.00 4.00,0.00 4.00,3.00 0.00,3.00");
    EXPECT_EQ(Codes(1)[2], -202);
    EXPECT_EQ(Codes(2)[1], -103);
    EXPECT_EQ(PlakTable[0].NoktaSayisi, 0);
    sonuc = 0;
    PlakKoseKes(1, 1, 2, sonuc);
    EXPECT_EQ(sonuc, 0);
    EXPECT_EQ(PlakCount, 2);
}

// Wanted: before point 1 stands the last point of the last plate, and edge 4 takes the wall behind.
TEST(KomsulukKur, LinksByPlaceAndClearsNothing) {
    PutPool(Rectangle(0, 0, 4, 3));
    for (int w = 1; w <= 4; ++w)
        for (int e = 2; e <= 4; ++e)
            PanelTable[w].KenarKomsu[e] = 0;
    for (int k = 1; k <= 4; ++k)
        PlakTable[1].KenarKodu[k] = 0;
    PanelTable[4].X[2] = 0.2; // its end stands off the corner
    MeshGenisligi = 2.0;
    KomsulukKur(MeshGenisligi);
    EXPECT_EQ(Codes(1), (std::vector<int>{103, 203, 303, 0}));
    EXPECT_EQ(Neighbours(1), (std::vector<int>{0, 204, -101, 0}));
    EXPECT_EQ(Neighbours(2), (std::vector<int>{0, 304, -102, 302}));
    EXPECT_EQ(Neighbours(3), (std::vector<int>{0, 0, -103, 2}));
    EXPECT_EQ(PanelTable[1].Nx, 2);
    EXPECT_EQ(PanelTable[2].Nx, 2); // 1.5, to even
    PutPlak({{9, 9}, {10, 9}, {9, 10}});
    PlakTable[1].KenarKodu[4] = -555; // nothing clears it
    KomsulukKur(MeshGenisligi);
    EXPECT_EQ(Codes(1)[3], -555);
    EXPECT_EQ(Neighbours(1), (std::vector<int>{0, 204, -101, 202})); // point 3 of plate 1 stands "before" its point 1
    MeshGenisligi = 0.0;
    EXPECT_EQ(FailureOf([] { KomsulukKur(MeshGenisligi); }).kind, DivisionByZero);
}

TEST(PolygonPool, PlateWallsAndTheirCodes) {
    PanelTable[2].G = 1.25;
    BuildPolygonPool({{{0, 0}, {2.5, 0}, {0, 0.4}}, 22.5, 32.5, 4.0, 1.0});
    EXPECT_EQ(UstKot, 4.0);
    EXPECT_EQ(AltKot, 1.0);
    EXPECT_EQ(PlakTable[1].Kalinlik, 32); // to even
    EXPECT_EQ(Codes(1), (std::vector<int>{103, 203, 303}));
    EXPECT_EQ(PlakTable[1].Z[3], 1.0);
    EXPECT_EQ(Neighbours(1), (std::vector<int>{0, 204, -101, 301}));
    EXPECT_EQ(Neighbours(3), (std::vector<int>{0, 404, -103, 201})); // panel 4 does not exist: wanted
    EXPECT_EQ(PanelTable[1].Nx, 2);
    EXPECT_EQ(PanelTable[3].Nx, 1); // 0.4 m
    EXPECT_EQ(PanelTable[1].Ny, 3);
    EXPECT_EQ(PanelTable[1].D, 22.5);
    EXPECT_EQ(PanelTable[2].G, 1.25); // stays as it was
    EXPECT_EQ(PanelTable[2].Z[2], 4.0);
    EXPECT_EQ(PanelTable[2].Z[3], 1.0);
    EXPECT_EQ(PanelTable[3].X[2], 0.0); // the last wall ends at the first point
    BuildPolygonPool({Rectangle(5, 5, 2, 2), 20, 30, 3, 0});
    EXPECT_EQ(Codes(2)[0], 103); // counts from 1 again, whatever walls stand before: wanted
    EXPECT_EQ(PanelTable[4].KenarKomsu[3], -201);
    EXPECT_EQ(PanelTable[4].No, 4);
    EXPECT_EQ(FailureOf([] {
                  BuildPolygonPool({std::vector<PlanPoint>(201), 20, 30, 3, 0});
              }).words,
              "outline point(201) lies outside 0..200");
}

} // namespace havuz
