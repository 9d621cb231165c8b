// Mesh report: each warning on a mesh that was sound until one thing was changed, and nothing on sound ones.
#include "analysis_support.h"
#include "mesh/mesh_report.h"
#include "mesh/numbering.h"
#include "mesh/oto_mesh.h"
#include "mesh/panel_mesh.h"
#include "plak_support.h"
#include "pool/pool_library.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

std::string Report() {
    std::string text;
    for (const std::string &line : MeshReport())
        text += line + "\n";
    return text;
}

bool Reports(const std::string &words) { return Report().find(words) != std::string::npos; }

void LibraryPool(int page, double width, double bk) {
    ResetAll();
    MeshGenisligi = width;
    Bk = bk;
    PoolWindow window;
    GeneratePool(page, window);
}

void Mesh() {
    MeshWindow none;
    AutoMesh(none);
}

// Of how many meshes a kind of warning is; -1: the report has none of it.
int MeshesAt(const std::string &turkish) {
    for (const MeshFault &fault : MeshFaults())
        if (fault.turkish == turkish)
            return static_cast<int>(fault.meshes.size());
    return -1;
}

int FirstMeshOf(int owner) {
    int i = 1;
    while (MeshTable[i].PanelNo != owner)
        ++i;
    return i;
}

} // namespace

TEST(MeshReport, SoundMeshesGiveNoWarning) {
    for (const double width : {0.5, 0.75, 1.0, 2.0}) {
        ResetAll();
        MeshPool(Rectangle(-1, 2, 6, 4), width);
        EXPECT_EQ(Report(), "") << width;
        LibraryPool(1, width, 1.0);
        Mesh();
        EXPECT_EQ(Report(), "") << width;
        LibraryPool(2, width, 1.0); // meshed by its generator, on panels without a shape
        EXPECT_EQ(Report(), "") << width;
    }
}

TEST(MeshReport, NamesWhatIsWrongAndWhere) {
    const struct {
        void (*spoil)();
        const char *words;
    } cases[] = {
        {[] { MeshTable[FirstMeshOf(1001)].N1 = 0; }, "of plate 1 names node 0, beside ("},
        {[] { MeshTable[FirstMeshOf(2)].N3 = NoktaCount + 1; }, "of wall 2 names node 63, beside ("},
        {[] { MeshTable[FirstMeshOf(1001)].PanelNo = 1; },
         "plate 1: its meshes cover 11 m2 in plan, its area is 12 m2 (-8.3 %), from (0, 0, 0)"},
        {[] { NoktaTable[NodeAt(4, 3, 0)].Z = 0.25; },
         "plate 1: corner 3 at (4, 3, 0) stands at height 0.25 in the mesh"},
        {[] { NoktaTable[NodeAt(4, 3, 0)].X = 4.25; }, "plate 1: corner 3 at (4, 3, 0) is no node of its meshes"},
        {[] { NoktaTable[NodeAt(2, 0, 0)].Y = 0.1; },
         "plate 1: the border of its meshes leaves its outline on 2 sides"},
        {[] { NoktaTable[NodeAt(1, 1, 0)].X = 3.5; }, "is folded at ("},
        {[] { NoktaTable[NodeAt(1, 1, 0)].X = 3.5; }, "of plate 1 overlap at ("},
        {[] { NoktaTable[NodeAt(2, 0, 1)].Z = 0.0; }, "nodes "},
        {[] { NoktaTable[NodeAt(2, 0, 1)].Z = 0.0; }, " stand at one place and are not joined: (2, 0, 0)"},
        {[] { NoktaTable[NodeAt(0, 0, 3)].Z = NoktaTable[NodeAt(1, 0, 3)].Z = 2.0; }, "of wall 1 has no area at ("},
        {[] { MeshTable[FirstMeshOf(2)].PanelNo = 5; },
         "1 meshes from mesh 25 on belong to panel 5, which is not there"},
        {[] { MeshTable[FirstMeshOf(2)].PanelNo = 1000; }, " belong to plate 0, which is not there"},
        {[] { PanelTable[3].D = 0; }, "wall 3 has a thickness of 0 cm"},
        {[] { PlakTable[1].Kalinlik = -30; }, "plate 1 has a thickness of -30 cm"},
        {[] { ZeminYogunluk = 0; }, "the density of the soil is 0 t/m3"},
        {[] { MeshTable[FirstMeshOf(1001)].N2 = MeshTable[FirstMeshOf(1001)].N1; }, "of plate 1 uses node "},
        {[] { NoktaTable[++NoktaCount] = NoktaTable[1]; }, "node 63 is of no mesh, at ("},
        {[] {
             PanelTable[++PanelCount].Tip = 0;
             PanelTable[PanelCount].No = PanelCount;
         },
         "base panel 5 got no mesh, at (0, 0, 0)"},
    };
    for (const auto &c : cases) {
        ResetAll();
        MeshPool(Rectangle(0, 0, 4, 3), 1.0);
        ASSERT_EQ(Report(), "");
        c.spoil();
        EXPECT_TRUE(Reports(c.words)) << c.words << "\n" << Report();
    }
}

TEST(MeshReport, OpenJointsOfWallsAndSlabs) {
    MeshPool(Rectangle(0, 0, 4, 3), 1.0);
    // Wall 2 gets nodes of its own along its foot and along its joint with wall 1.
    for (const double z : {0.0, 1.0, 2.0, 3.0}) {
        const int node = NodeAt(4, 0, z);
        NoktaTable[++NoktaCount] = NoktaTable[node];
        for (int i = 1; i <= MeshCount; ++i)
            for (Int16 *n : {&MeshTable[i].N1, &MeshTable[i].N2, &MeshTable[i].N3, &MeshTable[i].N4})
                if (MeshTable[i].PanelNo == 2 && *n == node)
                    *n = NoktaCount;
    }
    EXPECT_TRUE(Reports("wall 1 and wall 2 are not joined over 3 m of 3 m, from (4, 0, 3) to (4, 0, 0)")) << Report();
    EXPECT_TRUE(Reports("wall 2 and plate 1 are not joined over 1 m of 3 m, from (4, 1, 0) to (4, 0, 0)")) << Report();
    EXPECT_FALSE(Reports("wall 2 and wall 3"));
    EXPECT_EQ(MeshesAt("birleşmemiş"), 3 + 3 + 1); // along the corner of the walls, and the plate's at its foot
    // Two plates on one edge are never joined.
    ResetAll();
    PutPlak(Rectangle(0, 0, 4, 3));
    PutPlak(Rectangle(4, 0, 4, 3));
    Mesh();
    EXPECT_TRUE(Reports("plate 1 and plate 2 are not joined over 3 m of 3 m, from (4, 0, 0) to (4, 3, 0)")) << Report();
}

TEST(MeshReport, TellsThePictureWhereItIs) {
    MeshPool(Rectangle(0, 0, 4, 3), 1.0);
    EXPECT_TRUE(MeshFaults().empty());
    NoktaTable[NodeAt(1, 1, 0)].X = 3.5; // of four meshes: two are folded over their neighbours
    EXPECT_EQ(MeshesAt("katlanmış"), 2);
    EXPECT_GE(MeshesAt("üst üste"), 2);
    NoktaTable[NodeAt(0, 0, 3)].Z = 2.0; // onto the node of the corner below: two walls meet in both
    EXPECT_EQ(MeshesAt("aynı yerde iki nokta"), 4);
    PanelTable[3].D = 0;
    EXPECT_EQ(MeshesAt("kalınlığı yok"), 0);
}

// Strips of 1.5 m on walls divided by 1 m: the first command raises divisions, the second meets them.
TEST(MeshReport, RaisedDivisionsAskForOneMoreCommand) {
    LibraryPool(1, 1.0, 1.5);
    Mesh();
    EXPECT_TRUE(
        Reports("strip 8 has 16 meshes, its divisions were raised to 2 x 9: needs one more auto mesh, at (-1.5,"))
        << Report();
    EXPECT_TRUE(Reports("strip 6 and strip 8 are not joined over"));
    Mesh();
    EXPECT_EQ(Report(), "");
}

// What is poor by the rules as they stand is not passed off as good.
TEST(MeshReport, PoorShapesAreNotPassedOff) {
    MeshPool({{0, 0}, {6, 0}, {6, 3}, {3, 3}, {3, 6}, {0, 6}}, 1.0);
    EXPECT_TRUE(Reports("plate 1: corner 4 at (3, 3, 0) is no node of its meshes"));
    EXPECT_TRUE(Reports("wall 3 and wall 4 are not joined over 3 m of 3 m"));
    ResetAll();
    MeshPool({{0, -4}, {4, 0}, {0, 4}, {-4, 0}}, 1.0);
    EXPECT_TRUE(Reports("(+4.3 %)"));
    EXPECT_TRUE(Reports("overlap"));
}

TEST(MeshReport, ReadsAndChangesNothingAndShowsTheFirstOfMany) {
    MeshPool(Rectangle(0, 0, 8, 6), 0.5);
    for (int i = 1; i <= 40; ++i)
        MeshTable[i].N2 = 0;
    const MeshRecord before = MeshTable[3];
    const std::vector<std::string> report = MeshReport();
    EXPECT_EQ(report[5], "... and 35 more like the last");
    EXPECT_EQ(MeshReport(), report);
    EXPECT_EQ(MeshTable[3].N1, before.N1);
    EXPECT_FALSE(EveryCornerIsANode());
}

} // namespace havuz
