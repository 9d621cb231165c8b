// Automatic mesh driver: columns of nodes and meshes of the walls, and the joining of walls that meet.
#include "mesh/oto_mesh.h"
#include "mesh/oto_mesh_work.h"
#include "mesh/plak_mesh.h"
#include "mesh/space_point.h"
#include "model/mesh_facts.h"

namespace havuz {

namespace {

constexpr double kMergeDistance = 0.1; // m

// Tur of a node as merge priority: the greater survives.
enum MergePriority { InnerNode = 0, SideOrTopNode = 1, TopCorner = 2, FootNode = 5 };

// Nodes of one wall by column and row, row 1 at the foot.
struct WallGrid {
    Spots where; // for a failure
    int node[kWallGrid + 1][kWallGrid + 1] = {};

    int &at(int col, int row) {
        if (col > kWallGrid)
            FailSubscript(where, Thing::WallColumn, col, kWallGrid);
        if (row > kWallGrid)
            FailSubscript(where, Thing::NodeRow, row, kWallGrid);
        return node[col][row];
    }
};

int AppendNode(const WallGrid &grid, SpacePoint at, MergePriority priority) {
    if (NoktaCount + 1 > kNoktaCapacity)
        FailSubscript(grid.where, Thing::NoktaTable, NoktaCount + 1, kNoktaCapacity);
    NoktaRecord &node = NoktaTable[++NoktaCount];
    node.X = at.x;
    node.Y = at.y;
    node.Z = at.z;
    node.Tur = priority;
    return NoktaCount;
}

// A column from foot node P to the place at the same part of the wall's top edge.
void RaiseColumn(WallGrid &grid, int col, const PanelRecord &wall, int foot, bool side) {
    const SpacePoint P = NodePlace(foot), C1 = PanelCorner(wall, 1), C2 = PanelCorner(wall, 2),
                     C3 = PanelCorner(wall, 3), C4 = PanelCorner(wall, 4);
    const double B = SpaceDistance(C4, C3);
    if (B == 0.0)
        throw RuntimeFailure({.fault = Fault::NoLengthOfFoot, .where = grid.where});
    const double t = SpaceDistance(C4, P) / B;
    const SpacePoint T = Along(C1, C2, t);
    NoktaTable[foot].Tur = FootNode;
    grid.at(col, 1) = foot;
    const int Ny = wall.Ny;
    for (int r = 1; r <= Ny; ++r) {
        const MergePriority priority =
            side ? (r == Ny ? TopCorner : SideOrTopNode) : (r == Ny ? SideOrTopNode : InnerNode);
        const SpacePoint at{P.x + r * (T.x - P.x) / Ny, P.y + r * (T.y - P.y) / Ny, P.z + r * (T.z - P.z) / Ny};
        grid.at(col, r + 1) = AppendNode(grid, at, priority);
    }
}

void MakeWallMeshes(WallGrid &grid, int w, int columns, int rows) {
    for (int col = 1; col <= columns - 1; ++col) {
        for (int r = 1; r <= rows - 1; ++r) {
            if (MeshCount + 1 > kMeshCapacity)
                FailSubscript(grid.where, Thing::MeshTable, MeshCount + 1, kMeshCapacity);
            MeshRecord &mesh = MeshTable[++MeshCount];
            PutCorners(mesh, grid.at(col, r + 1), grid.at(col + 1, r + 1), grid.at(col + 1, r), grid.at(col, r));
            mesh.PanelNo = w;
        }
    }
}

void RaiseWall(int w, const StripList &strips) {
    WallGrid grid;
    int col = 0;
    for (std::size_t a = 1; a + 1 < strips.size(); ++a) {
        if (strips[a].panel != w)
            continue;
        grid.where = {{Thing::Plate, strips[a].plak}, {Thing::Wall, w}};
        const bool side = strips[a - 1].panel != w || strips[a + 1].panel != w;
        RaiseColumn(grid, ++col, PanelTable[w], strips[a].node, side);
    }
    MakeWallMeshes(grid, w, col, PanelTable[w].Ny + 1);
}

// Hedef: the node that took a node's place. Sira: a node's number after compaction, 0 for one that was merged away.
struct MergeTables {
    std::vector<int> Hedef, Sira;
    explicit MergeTables(int nodes) : Hedef(static_cast<std::size_t>(nodes) + 1), Sira(Hedef.size()) {}
    int &hedef(int p) { return Hedef[static_cast<std::size_t>(p)]; }
    int &sira(int p) { return Sira[static_cast<std::size_t>(p)]; }
};

// The node of lower priority goes into the other; of equals the later one. Plate nodes, up to c0, are not looked at.
void MergeNodes(MergeTables &t, int c0) {
    for (int p = 1; p <= NoktaCount; ++p) {
        t.sira(p) = p;
        t.hedef(p) = p > c0 ? p : 0;
    }
    for (int p = c0 + 1; p <= NoktaCount - 1; ++p) {
        const int priority = NoktaTable[p].Tur;
        if (priority <= 0)
            continue;
        for (int q = p + 1; q <= NoktaCount; ++q) {
            const int other = NoktaTable[q].Tur;
            if (other <= 0 || !(SpaceDistance(NodePlace(p), NodePlace(q)) < kMergeDistance))
                continue;
            const int loser = priority >= other ? q : p;
            t.hedef(loser) = loser == q ? p : q;
            t.sira(loser) = 0;
        }
    }
}

void CloseGaps(MergeTables &t, int c0) {
    const int N = NoktaCount;
    NoktaCount = c0;
    for (int p = c0 + 1; p <= N; ++p) {
        if (t.sira(p) == 0)
            continue;
        NoktaTable[++NoktaCount] = NoktaTable[p];
        t.sira(p) = NoktaCount;
    }
}

// One link is followed: a corner whose node went into a node that went away itself becomes 0: wanted.
void RenumberCorners(MergeTables &t, int m0) {
    for (int i = m0 + 1; i <= MeshCount; ++i) {
        MeshRecord &mesh = MeshTable[i];
        for (Int16 *corner : CornerFields(mesh)) {
            const int n = *corner;
            *corner = t.sira(t.sira(n) == 0 ? t.hedef(n) : n);
        }
    }
}

} // namespace

void RaiseWalls(const StripList &strips) {
    for (int w = 1; w <= PanelCount; ++w)
        RaiseWall(w, strips);
}

void JoinWalls(int c0, int m0) {
    MergeTables tables(NoktaCount);
    MergeNodes(tables, c0);
    CloseGaps(tables, c0);
    RenumberCorners(tables, m0);
}

} // namespace havuz
