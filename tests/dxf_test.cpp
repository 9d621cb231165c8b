// The drawing of the steel, read back by its group codes: layers, areas of the zones from their borders, words.
#include "design/checks.h"
#include "model/store.h"
#include "report/dxf.h"
#include "verification/pools.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

namespace havuz {

namespace {

struct ReadDrawing {
    std::set<std::string> layers;
    std::map<std::string, double> area; // inside the lines of a layer
    std::map<std::string, int> lines;
    std::map<std::string, std::string> words; // the last of a layer
    bool whole = false;                       // ends as it should
};

using Entity = std::map<int, std::string>;

void Take(ReadDrawing &drawing, const Entity &e) {
    const auto at = [&](int code) { return std::stod(e.at(code)); };
    const std::string kind = e.count(0) != 0 ? e.at(0) : "";
    if (kind == "LAYER" && e.count(6) != 0)
        drawing.layers.insert(e.at(2));
    if (kind == "LINE")
        ++drawing.lines[e.at(8)];
    if (kind == "LINE")
        drawing.area[e.at(8)] += (at(10) * at(21) - at(11) * at(20)) / 2;
    if (kind == "TEXT")
        drawing.words[e.at(8)] = e.at(1);
    if (kind == "LINE" || kind == "TEXT") {
        EXPECT_EQ(drawing.layers.count(e.at(8)), 1U) << "a layer that the table lacks: " << e.at(8);
    }
    drawing.whole = kind == "EOF";
}

ReadDrawing Read(const std::string &text) {
    ReadDrawing drawing;
    Entity entity;
    std::istringstream in(text);
    for (std::string code, value; std::getline(in, code) && std::getline(in, value);) {
        EXPECT_EQ(value.back(), '\r');
        value.pop_back();
        if (std::stoi(code) == 0) {
            Take(drawing, entity);
            entity.clear();
        }
        entity[std::stoi(code)] = value;
    }
    Take(drawing, entity);
    return drawing;
}

ReadDrawing DrawingOf(const consistent::Tank &tank) {
    const design::Design design = DesignTank(consistent::Analysis(tank), design::MakeBasis({}));
    return Read(report::SteelDxf(tank, design.steel));
}

} // namespace

// 12 x 6 x 4 m: a long wall has 48 m2, its feet and tops a quarter of the height, its corners a quarter of the length,
// at most half the height, at each end.
TEST(Dxf, ZonesOfAWallHaveTheirAreas) {
    const ReadDrawing d = DrawingOf(verification::LibraryPool(
        1, {{&Lx, 12}, {&Ly, 6}, {&UstKot, 4}, {&Bk, 0}, {&SiviKotu, 3.7}, {&MeshGenisligi, 0.5}}));
    EXPECT_TRUE(d.whole);
    EXPECT_NEAR(d.area.at("PANEL_3"), 2 * 48, 1e-3); // once in each direction
    EXPECT_NEAR(d.area.at("PANEL_3_2_FOOT"), 12, 1e-3);
    EXPECT_EQ(d.lines.at("PANEL_3_2_FOOT"), 24 + 24 + 2 + 2) << "its border alone";
    EXPECT_NEAR(d.area.at("PANEL_3_2_SPAN"), 24, 1e-3);
    EXPECT_NEAR(d.area.at("PANEL_3_2_TOP"), 12, 1e-3);
    EXPECT_NEAR(d.area.at("PANEL_3_1_CORNER"), 16, 1e-3);
    EXPECT_NEAR(d.area.at("PANEL_3_1_SPAN"), 32, 1e-3);
    EXPECT_NEAR(d.area.at("PANEL_1"), 2 * 72, 1e-3);
    const std::string &words = d.words.at("PANEL_3_2_FOOT");
    EXPECT_EQ(words.rfind("dip: i\xe7 %%c", 0), 0U) << words; // Windows-1254
}

// A round wall is rolled out: its length is the way around.
TEST(Dxf, ARoundWallIsRolledOut) {
    const ReadDrawing d = DrawingOf(verification::LibraryPool(2, {{&Lx, 8}, {&MeshGenisligi, 1}}));
    EXPECT_NEAR(d.area.at("PANEL_2") / 2 / 3, 25.1, 0.2);
}

} // namespace havuz
