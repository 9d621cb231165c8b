// The two drawings, request by request, on a surface that records them.
#include "hand_models.h"
#include "mesh/numbering.h"
#include "mesh/panel_mesh.h"
#include "model/analysed_project.h"
#include "model/link_code.h"
#include "model/options.h"
#include "pool/pool_library.h"
#include "recording_surface.h"
#include "support.h"
#include "view/far_to_near.h"
#include "view/marks.h"
#include "view/mesh_drawing.h"
#include "view/plate_drawing.h"
#include "view/polygons.h"
#include "view/redraw.h"
#include "view/view_state.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace havuz {

namespace {

struct LoggingWindow : ViewWindow {
    std::string log;
    int result = -1; // the chosen Option1
    void ShowFrame(int i, bool on) override { log += (on ? "show Frame " : "hide Frame ") + std::to_string(i) + "\n"; }
    void ShowViewPicture(int mode) override { log += "picture " + std::to_string(mode) + "\n"; }
    void EnablePlanTools(bool on) override {
        for (const char *tool : {"0", "1", "5", "6", "7"}) // as the main window numbers them
            log += std::string(on ? "enable " : "disable ") + tool + "\n";
    }
    bool ResultChosen(int i) override { return i == result; }
    void TellOlderResults() override { log += "older results\n"; }
};

void BeginView(int isoView) {
    ResetAll();
    TakeSurfaceSize(RecordingSurface{});
    IsoView = isoView;
}

void TakeDefaultAngles() {
    ViewAngleA = -140.0 / 180.0 * kPi;
    ViewAngleB = 20.0 / 180.0 * kPi;
}

// A pool of the library with few meshes.
void MakePool(int page, double lx, double ly, double meshWidth) {
    Lx = lx;
    Ly = ly;
    UstKot = SiviKotu = ToprakKotu = 2.0;
    MeshGenisligi = meshWidth;
    PoolWindow pool;
    GeneratePool(page, pool);
    TakeDefaultAngles();
}

void MeshPool() {
    MeshWindow window;
    PanelMeshle(window);
    NoktaNumarala();
}

void AddPlate(std::initializer_list<Corner> points) {
    PlakRecord &plate = PlakTable[++PlakCount];
    int k = 0;
    for (const Corner &q : points) {
        ++k;
        plate.X[k] = q[0];
        plate.Y[k] = q[1];
        plate.Z[k] = q[2];
    }
    plate.NoktaSayisi = k;
}

void RectangularPlates() {
    MakePool(1, 4, 3, 1.5);
    PanelTable[3].KenarMesnet[1] = 1;
    SelectedPanel = 2;
    EdgeHitCount = 1;
    EdgeMarkerX = 100;
    EdgeMarkerY = 50;
}

// An L-shaped floor with one wall on it.
void PolygonPlates() {
    AddPlate({{0, 0, 0}, {6, 0, 0}, {6, 2, 0}, {3, 2, 0}, {3, 5, 0}, {0, 5, 0}});
    AddPanel(1, {0, 0, 3}, {6, 0, 3}, {6, 0, 0}, {0, 0, 0});
    SelectedPanel = PlateOwner(1);
}

void RectangularMesh() {
    MakePool(1, 4, 3, 1.5);
    MeshPool();
    for (const int node : {1, 2, 4})
        NoktaTable[node].Mesnet = 4;
    NoktaTable[3].Mesnet = 3; // rotations held: no support mark
    MeshTable[2].Sil = 1;
    AddLoad(5, 0, 0, 2);
    AddLoad(NoktaCount, 1, 0, 0);
}

void CircularMesh() { MakePool(2, 4, 4, 2.0); }

void Displacements() {
    AddGrid(1, 1);
    AddPanel(0, {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0});
    TakeDefaultAngles();
}

} // namespace

TEST(Drawings, GoldenDrawings) {
    struct Case {
        const char *name;
        int isoView, gorunusModu;
        void (*make)();
    };
    const Case cases[] = {
        {"empty_plates_plan", 0, 1, [] {}},
        {"empty_mesh_rotated", 1, 2, TakeDefaultAngles},
        {"rectangular_plates_plan", 0, 1, RectangularPlates},
        {"rectangular_plates_rotated", 1, 1, RectangularPlates},
        {"polygon_plates_plan", 0, 1, PolygonPlates},
        {"polygon_plates_rotated", 1, 1, PolygonPlates},
        {"rectangular_mesh_plan", 0, 2, RectangularMesh},
        {"rectangular_mesh_rotated", 1, 2, RectangularMesh},
        {"circular_mesh_rotated", 1, 2, CircularMesh},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        BeginView(c.isoView);
        c.make();
        GorunusModu = c.gorunusModu;
        RecordingSurface scr;
        LoggingWindow window;
        PlateBoundsAndDepth(scr); // the extents
        scr.log.clear();
        Redraw(scr, window);
        EXPECT_TRUE(MatchesGolden(std::string("drawing_") + c.name + ".txt", scr.log + window.log));
    }
}

TEST(Drawings, TheQuickOutlineShowsOffMeshesToo) {
    BeginView(0);
    AddGrid(2, 1);
    AddPanel(0, {0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {0, 1, 0});
    MeshTable[1].Sil = 1;
    RecordingSurface scr;
    LoggingWindow window;
    PlateBoundsAndDepth(scr);
    NodesHidden = 1;
    DrawMeshView(scr, window);
    const auto count = [&](const std::string &what) {
        int n = 0;
        for (std::size_t at = 0; (at = scr.log.find(what, at)) != std::string::npos; ++at)
            ++n;
        return n;
    };
    EXPECT_EQ(count("polygon"), 1);
    EXPECT_EQ(count("circle") + count("text"), 2) << "hidden nodes leave the meshes and the axis labels";
    scr.log.clear();
    QuickMeshOutline(scr);
    EXPECT_EQ(count("line"), 8 + 2);
    EXPECT_EQ(count("polygon"), 0);
    EXPECT_EQ(scr.log.substr(0, 6), "clear\n");
}

TEST(Drawings, TheWindowShowsTheToolsOfTheView) {
    BeginView(0);
    RecordingSurface scr;
    LoggingWindow window;
    DrawMeshView(scr, window);
    EXPECT_EQ(window.log, "hide Frame 2\nshow Frame 1\npicture 2\n");
    EXPECT_EQ(GorunusModu, 2);
    window.log.clear();
    IsoView = 1;
    DrawPlateView(scr, window);
    EXPECT_EQ(window.log, "show Frame 2\nhide Frame 1\npicture 1\n"
                          "disable 0\ndisable 1\ndisable 5\ndisable 6\ndisable 7\n");
}

TEST(Drawings, WhileALineIsDrawnThePictureStandsStill) {
    BeginView(0);
    RecordingSurface scr;
    LoggingWindow window;
    AddPanel(0, {0, 0, 0}, {10, 0, 0}, {10, 5, 0}, {0, 5, 0});
    DrawPlateView(scr, window);
    const double scale = PlateScale;
    AddPanel(1, {0, 0, 0}, {50, 0, 0}, {50, 0, 3}, {0, 0, 3});
    CommandState = 10;
    DrawPlateView(scr, window);
    EXPECT_EQ(PlateScale, scale);
    CommandState = 11;
    DrawPlateView(scr, window);
    EXPECT_LT(PlateScale, scale);
}

// The key of the plates goes on from the last panel and never rises, so a far plate takes the key of a near one.
TEST(Drawings, DepthKeysOfPlatesRunOn) {
    BeginView(1);
    TakeDefaultAngles();
    RecordingSurface scr;
    AddPanel(0, {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0});
    AddPanel(1, {0, 0, -9}, {1, 0, -9}, {1, 1, -9}, {0, 1, -9});
    AddPlate({{0, 0, -5}, {1, 0, -5}, {1, 1, -5}});
    AddPlate({{0, 0, -50}, {1, 0, -50}, {1, 1, -50}});
    PlateBoundsAndDepth(scr);
    EXPECT_EQ(DepthOrder[1], 2) << "the farther panel first";
    EXPECT_EQ(DepthOrder[2], PlateOwner(1));
    EXPECT_EQ(DepthOrder[3], PlateOwner(2));
    EXPECT_EQ(DepthKey[3], DepthKey[2]) << "45 m farther, and the same key";
    EXPECT_EQ(DepthOrder[4], 1);
    PanelCount = PlakCount = 1;
    for (int k = 1; k <= 3; ++k)
        PlakTable[1].Z[k] = -5.0; // far behind the one panel left: just nearer all the same
    PlateBoundsAndDepth(scr);
    EXPECT_EQ(DepthOrder[1], 1);
    EXPECT_EQ(DepthKey[2], DepthKey[1] - 0.1);
    PanelCount = PlakCount = 2;
    IsoView = 0;
    PlateBoundsAndDepth(scr); // no sort in plan
    EXPECT_EQ(DepthOrder[1], 1);
    EXPECT_EQ(DepthOrder[4], PlateOwner(2));
}

namespace {

// What the quick sort must come to: the exchange sort itself.
void ExchangeSort(std::vector<std::pair<double, int>> &entries) {
    for (std::size_t i = 0; i < entries.size(); ++i)
        for (std::size_t j = i + 1; j < entries.size(); ++j)
            if (entries[i].first < entries[j].first)
                std::swap(entries[i], entries[j]);
}

} // namespace

TEST(Drawings, EqualDistancesStandAsTheExchangesLeaveThem) {
    std::mt19937 random(7);
    int turned = 0; // orders that no stable sort gives
    for (int count = 0; count <= 200; ++count)
        for (const unsigned distances : {1U, 3U, 20U, 1000U}) {
            std::vector<std::pair<double, int>> entries;
            for (int i = 1; i <= count; ++i)
                entries.emplace_back(static_cast<double>(random() % distances), i);
            std::vector<std::pair<double, int>> expected = entries, stable = entries;
            ExchangeSort(expected);
            std::stable_sort(stable.begin(), stable.end(),
                             [](const auto &a, const auto &b) { return a.first > b.first; });
            SortFarToNear(entries);
            ASSERT_EQ(entries, expected) << count << " entries, " << distances << " distances";
            turned += expected == stable ? 0 : 1;
        }
    EXPECT_GT(turned, 100);
}

// Two entries as far as each other before a farther one: its exchange with the first puts that behind the second.
TEST(Drawings, EquallyFarPanelsAndMeshesChangePlaces) {
    BeginView(1);
    TakeDefaultAngles();
    RecordingSurface scr;
    LoggingWindow window;
    for (const double z : {0.0, 0.0, -9.0})
        AddPanel(0, {0, 0, z}, {1, 0, z}, {1, 1, z}, {0, 1, z});
    PlateBoundsAndDepth(scr);
    EXPECT_EQ(DepthKey[2], DepthKey[3]);
    EXPECT_EQ(DepthOrder[1], 3);
    EXPECT_EQ(DepthOrder[2], 2);
    EXPECT_EQ(DepthOrder[3], 1);
    for (const double z : {0.0, 0.0, -9.0})
        AddGrid(1, 1, z);
    DrawMeshView(scr, window);
    EXPECT_EQ(MeshTable[2].Derinlik, MeshTable[3].Derinlik);
    EXPECT_EQ(MeshTable[1].Sira, 3);
    EXPECT_EQ(MeshTable[2].Sira, 2);
    EXPECT_EQ(MeshTable[3].Sira, 1);
}

namespace {

// The direction in which a point may move without leaving its pixel: square to both rows of the projection without
// perspective, towards the side on which things look larger.
std::array<double, 3> TowardsTheViewer() {
    ViewDistance = 1e12;
    double r[2][3];
    for (int i = 0; i < 3; ++i)
        ProjectToView(i == 0, i == 1, i == 2, r[0][i], r[1][i]);
    ViewDistance = 1000.0;
    std::array<double, 3> k{};
    for (std::size_t i = 0; i < 3; ++i)
        k[i] = r[0][(i + 1) % 3] * r[1][(i + 2) % 3] - r[0][(i + 2) % 3] * r[1][(i + 1) % 3];
    const auto size = [&](double t) { // of two points beside k * t
        double x1, y1, x2, y2;
        ProjectToView(k[0] * t + r[0][0], k[1] * t + r[0][1], k[2] * t + r[0][2], x1, y1);
        ProjectToView(k[0] * t - r[0][0], k[1] * t - r[0][1], k[2] * t - r[0][2], x2, y2);
        return std::hypot(x1 - x2, y1 - y2);
    };
    if (size(100) < size(-100))
        for (double &v : k)
            v = -v;
    return k;
}

} // namespace

TEST(Drawings, NearMeshesAreDrawnOverFarOnesFromEverySide) {
    BeginView(1);
    LoggingWindow window;
    int sides = 0;
    for (int a = -175; a <= 180; a += 15)
        for (int b = -175; b <= 180; b += 15) {
            ViewAngleA = a / 180.0 * kPi;
            ViewAngleB = b / 180.0 * kPi;
            const std::array<double, 3> k = TowardsTheViewer();
            NoktaCount = MeshCount = 0;
            for (const double t : {3.0, -3.0, 0.0}) // mesh 1 the nearest, mesh 2 the farthest
                AddMesh(AddNode(k[0] * t, k[1] * t, k[2] * t), 1, AddNode(k[0] * t, k[1] * t, k[2] * t), 1);
            RecordingSurface scr;
            DrawMeshView(scr, window);
            EXPECT_EQ(MeshTable[1].Sira, 2) << a << " " << b;
            EXPECT_EQ(MeshTable[2].Sira, 3) << a << " " << b;
            EXPECT_EQ(MeshTable[3].Sira, 1) << a << " " << b;
            EXPECT_GT(MeshTable[1].Derinlik, MeshTable[3].Derinlik);
            ++sides;
        }
    EXPECT_EQ(sides, 24 * 24);
}

TEST(Drawings, ArrowsKeepAwayFromAFillOfTheirColour) {
    BeginView(1);
    TakeDefaultAngles();
    MeshScale = 20.0;
    AddNode(1, 1, 0);
    RecordingSurface scr;
    DrawPointLoadArrow(scr, 1);
    EXPECT_EQ(scr.log, "") << "no load, no arrow";
    AddLoad(1, 0, 0, 2);
    DrawPointLoadArrow(scr, 1);
    EXPECT_NE(scr.log.find(" 9\n"), std::string::npos) << scr.log;
    EXPECT_EQ(scr.log.find(" 1\n"), std::string::npos);
    scr.log.clear();
    scr.under = QbColour(9);
    DrawPointLoadArrow(scr, 1);
    EXPECT_EQ(std::count(scr.log.begin(), scr.log.end(), '\n'), 4) << "the read and three lines";
    EXPECT_EQ(scr.log.find(" 9\n"), std::string::npos);
    scr.log.clear();
    IsoView = 0;
    DrawPointLoadArrow(scr, 1);
    EXPECT_EQ(scr.log, "");
}

TEST(Drawings, DisplacementsOfTheChosenResult) {
    BeginView(1);
    Displacements();
    TemporaryFolder folder;
    ProjeYolu = folder.file("POOL");
    std::string bytes(4 * 384, '\0');
    const float moved[2][3] = {{0.003F, -0.004F, 0.0F}, {0.0F, 0.0F, -0.005F}}; // of nodes 1 and 3, m
    bytes.replace(24, 12, std::string(reinterpret_cast<const char *>(moved[0]), 12));
    bytes.replace(2 * 384 + 24, 12, std::string(reinterpret_cast<const char *>(moved[1]), 12));
    WriteBytes(ProjeYolu + ".DEP", bytes);
    WriteBytes(ProjeYolu + ".SON", "");
    WriteBytes(ProjeYolu + ".HSP", AnalysedText());
    RecordingSurface scr;
    LoggingWindow window;
    PlateBoundsAndDepth(scr);
    scr.log.clear();
    window.result = 1; // the second: column 2
    DrawMeshView(scr, window);
    EXPECT_TRUE(MatchesGolden("drawing_displacements.txt", scr.log));
    EXPECT_EQ(GreatestDisplacements(2), "SUTUN 2, mm: YATAY EN COK 5 (NOKTA 1), DUSEY EN COK -5 (NOKTA 3)");
    EXPECT_EQ(GreatestDisplacements(1), "SUTUN 1: YERDEGISTIRME YOK");
    EXPECT_EQ(window.log.find("older"), std::string::npos);
    EXPECT_EQ(scr.pen.lineWidth, 1);
    scr.log.clear();
    window.result = 0; // column 1 is all zero
    DrawMeshView(scr, window);
    EXPECT_EQ(scr.log.find("width 2"), std::string::npos);
    window.result = 1;
    NoktaTable[2].Yay = 7; // a spring is made anew by every analysis: the model is the same
    DrawMeshView(scr, window);
    EXPECT_NE(scr.log.find("width 2"), std::string::npos);
    scr.log.clear();
    SiviKotu = 2.9; // results of another model move nothing, and it is said
    DrawMeshView(scr, window);
    EXPECT_EQ(scr.log.find("width 2"), std::string::npos);
    EXPECT_NE(window.log.find("older results\n"), std::string::npos) << window.log;
    EXPECT_EQ(NoktaTable[2].Yay, 7);
}

TEST(Drawings, PolygonsLeaveAPlainPen) {
    BeginView(0);
    RecordingSurface scr;
    PutPoint(1, {0, 0});
    PutPoint(2, {9.4, 0});
    PutPoint(3, {9.5, 8.6});
    FillPolygonHatched(scr, 3, 11, 1, 4);
    EXPECT_EQ(scr.log, "polygon 11 on 1 0,0 9,0 10,9 line style 2\n"
                       "polygon 11 on #0000a0 style 4 0,0 9,0 10,9 line style 2\n");
    EXPECT_EQ(scr.pen.lineStyle, LineStyle::Solid);
    EXPECT_EQ(scr.pen.fillStyle, FillStyle::None);
    EXPECT_EQ(scr.pen.colour, QbColour(0));
    EXPECT_EQ(FailureOf([] { PutPoint(201, {0, 0}); }).kind, Subscript);
}

// A supported edge (12) and a free one (7), each merged with any of the fills that may lie under it, and the supported
// one over the free one of its neighbour: they differ clearly.
TEST(Palette, ASupportedEdgeIsToldFromAFreeOneOnEveryFill) {
    const auto apart = [](std::uint32_t a, std::uint32_t b) {
        int sum = 0;
        for (const int shift : {0, 8, 16})
            sum += std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF));
        return sum;
    };
    const int fills[] = {kQbBlue, kQbGrey, kQbLightBlue, kQbLightGreen};
    const std::uint32_t released = QbColour(kQbWhite).rgb, held = QbColour(kQbLightRed).rgb;
    int least = 999;
    for (unsigned under = 0; under < 16; ++under) {
        std::uint32_t fill = 0;
        for (unsigned k = 0; k < 4; ++k)
            fill |= (under >> k & 1U) != 0 ? QbColour(fills[k]).rgb : 0;
        least = std::min({least, apart(fill | released, fill | held), apart(fill | released, fill | held | released)});
    }
    EXPECT_GE(least, 95); // of 765; 0 with 7 as an even grey
}

} // namespace havuz
