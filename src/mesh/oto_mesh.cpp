#include "mesh/oto_mesh.h"

#include "mesh/numbering.h"
#include "mesh/oto_mesh_work.h"
#include "mesh/panel_blocks.h"
#include "mesh/panel_mesh.h"
#include "mesh/plak_mesh.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/parameters.h"
#include "model/store.h"

#include <algorithm>
#include <cmath>

namespace havuz {

namespace {

// An edge node lies on its edge, a corner node on the edge that begins there and on the one that ends there.
bool NodeOnEdge(const NoktaRecord &node, int edge, int edges) {
    const int m = PlakKoduPlace(node.PlakKodu);
    if (m == 0)
        return false;
    if (node.PlakKodu > 0)
        return m == edge;
    return m == edge || (m == 1 ? edges : m - 1) == edge;
}

// An exchange sort, so that nodes at equal distances come out in one certain order.
void SortByDistance(std::vector<int> &nodes, PlanPoint from) {
    const auto distance = [from](int node) { return PlanDistance({NoktaTable[node].X, NoktaTable[node].Y}, from); };
    for (std::size_t s = 0; s + 1 < nodes.size(); ++s)
        for (std::size_t t = s + 1; t < nodes.size(); ++t)
            if (distance(nodes[s]) > distance(nodes[t]))
                SwapValues(nodes[s], nodes[t]);
}

void AppendEdge(StripList &strips, int plak, int edge, int nodesBefore) {
    const PlakRecord &plate = PlakTable[plak];
    std::vector<int> nodes;
    for (int node = nodesBefore + 1; node <= NoktaCount; ++node)
        if (NodeOnEdge(NoktaTable[node], edge, plate.NoktaSayisi))
            nodes.push_back(node);
    const Spots where = {{Thing::Plate, plak}, {Thing::Edge, edge}};
    if (nodes.size() > kEdgeNodes)
        FailSubscript(where, Thing::Node, static_cast<int>(nodes.size()), kEdgeNodes);
    SortByDistance(nodes, {plate.X[edge], plate.Y[edge]});
    const int wall = LinkPanel(plate.KenarKodu[edge]);
    for (const int node : nodes) {
        if (strips.size() > kStripCapacity)
            FailSubscript(where, Thing::NodeUnderWall, static_cast<int>(strips.size()), kStripCapacity);
        strips.push_back({node, wall, 0, plak});
    }
}

// Edges without a wall add nothing: plates that share an edge get no common nodes, wanted.
StripList MeshPlates(double width) {
    StripList strips(1);
    for (int plak = 1; plak <= PlakCount; ++plak) {
        const int nodesBefore = NoktaCount;
        PlakMeshle(plak, width);
        for (int edge = 1; edge <= PlakTable[plak].NoktaSayisi; ++edge)
            if (PlakTable[plak].KenarKodu[edge] > 0)
                AppendEdge(strips, plak, edge, nodesBefore);
    }
    strips.emplace_back();
    return strips;
}

void GroupByNode(StripList &strips, MeshWindow &window) {
    int groups = 0;
    for (std::size_t a = 1; a + 1 < strips.size(); ++a) {
        if (strips[a].group == 0) {
            strips[a].group = ++groups;
            for (std::size_t b = a + 1; b + 1 < strips.size(); ++b)
                if (strips[b].node == strips[a].node)
                    strips[b].group = groups;
        }
        window.ListDiagnostic(std::to_string(a) + " " + std::to_string(strips[a].node) + " " +
                              std::to_string(strips[a].panel) + " " + std::to_string(strips[a].group));
    }
}

void CountRows(double width) {
    for (int w = 1; w <= PanelCount; ++w) {
        PanelRecord &wall = PanelTable[w];
        const double a = wall.Z[1] - wall.Z[4], c = wall.Z[2] - wall.Z[3];
        wall.Ny = FloorToWhole(Divide(std::min(a, c), width, Thing::MeshGenisligi));
    }
}

int NeighbourPanel(const PanelRecord &wall, int edge) { return std::max(LinkPanel(wall.KenarKomsu[edge]), 0); }

bool SameLevel(double a, double b) { return std::fabs(a - b) < 0.01; }

void TakeGreaterRows(PanelRecord &a, PanelRecord &b) {
    if (a.Ny < b.Ny)
        a.Ny = b.Ny;
    else
        b.Ny = a.Ny;
}

// Both tests read the heights of the left neighbour, record 0 when there is none: wanted. One walk, so that a rise may
// miss a panel already passed: wanted as well.
void LevelRowsOfNeighbours() {
    for (int q = 1; q <= PanelCount; ++q) {
        PanelRecord &wall = PanelTable[q];
        const int L = NeighbourPanel(wall, 4), R = NeighbourPanel(wall, 2);
        const PanelRecord &left = PanelTable[L];
        if (L > 0 && wall.Ny != left.Ny && SameLevel(wall.Z[1], left.Z[2]) && SameLevel(wall.Z[4], left.Z[3]))
            TakeGreaterRows(wall, PanelTable[L]);
        if (R > 0 && wall.Ny != PanelTable[R].Ny && SameLevel(wall.Z[2], left.Z[1]) && SameLevel(wall.Z[3], left.Z[4]))
            TakeGreaterRows(wall, PanelTable[R]);
    }
}

void CountFootNodes(const StripList &strips) {
    for (int w = 1; w <= PanelCount; ++w)
        PanelTable[w].Nx = static_cast<int>(
            std::count_if(strips.begin(), strips.end(), [w](const StripEntry &entry) { return entry.panel == w; }));
}

void MakeOwnMasters() {
    for (int p = 1; p <= NoktaCount; ++p)
        NoktaTable[p].AnaNo = p;
    HamNoktaCount = NoktaCount;
}

} // namespace

void OtoMesh(double width, MeshWindow &window) {
    ClearMeshTables();
    NoktaCount = 0;
    StripList strips = MeshPlates(width);
    GroupByNode(strips, window);
    CountRows(width);
    LevelRowsOfNeighbours();
    CountFootNodes(strips);
    const int c0 = NoktaCount, m0 = MeshCount;
    RaiseWalls(strips);
    JoinWalls(c0, m0);
    MakeOwnMasters();
    NoktaNumarala();
    window.ComputeExtents();
    window.RefreshDrawing();
}

void AutoMesh(MeshWindow &window) {
    if (HavuzTip < 2 && PlakCount == 0) {
        PanelMeshle(window);
        NoktaNumarala();
        window.DrawMeshes();
    } else {
        OtoMesh(MeshWidth(), window);
    }
}

} // namespace havuz
