#include "mesh/panel_mesh.h"

#include "mesh/box_cells.h"
#include "mesh/panel_blocks.h"
#include "model/arithmetic.h"
#include "model/mesh_facts.h"
#include "model/points.h"
#include "model/store.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace havuz {

static constexpr int kUsedCapacity = 20000;

void NoktaSikistir() {
    std::vector<int> newNo(kUsedCapacity + 1, 0);
    for (int i = 1; i <= MeshCount; ++i)
        if (IsFullyOn(MeshTable[i]))
            for (const int n : MeshCorners(MeshTable[i]))
                CheckedElement(newNo, Thing::NoktaTable, n) = 1;
    int count = 0;
    for (int p = 1; p <= HamNoktaCount; ++p)
        if (int &no = newNo[static_cast<std::size_t>(p)]; no != 0)
            no = ++count;
    const auto renumber = [&newNo](Int16 &n) { n = CheckedElement(newNo, Thing::NoktaTable, n); };
    for (int i = 1; i <= MeshCount; ++i) {
        MeshRecord &mesh = MeshTable[i];
        if (IsFullyOn(mesh))
            for (Int16 *n : CornerFields(mesh))
                renumber(*n);
    }
    for (int p = 1; p <= HamNoktaCount; ++p) {
        const int no = newNo[static_cast<std::size_t>(p)];
        if (no == 0)
            continue;
        NoktaRecord kept = NoktaTable[p];
        renumber(kept.AnaNo);
        NoktaTable[no] = kept; // never behind p
    }
    HamNoktaCount = count;
}

// Marks every pair of boundary nodes with one master by the other's number. Grouped by master: the pairs come in the
// order of all pairs p < q.
static void MarkPartners() {
    std::vector<std::vector<int>> nodesOf(kNoktaCapacity + 1);
    for (int p = 1; p <= HamNoktaCount; ++p)
        if (NoktaTable[p].Tur != 0)
            CheckedElement(nodesOf, Thing::NoktaTable, NoktaTable[p].AnaNo).push_back(p);
    for (const std::vector<int> &nodes : nodesOf)
        for (std::size_t i = 0; i < nodes.size(); ++i)
            for (std::size_t k = i + 1; k < nodes.size(); ++k) {
                NoktaTable[nodes[i]].YeniNo = nodes[k];
                NoktaTable[nodes[k]].YeniNo = nodes[i];
            }
}

static double PointDistance(const NoktaRecord &node, const PanelRecord &panel, int corner) {
    return Distance3(node.X - panel.X[corner], node.Y - panel.Y[corner], node.Z - panel.Z[corner]);
}

static double EdgeLength(const PanelRecord &panel, int edge) {
    const int next = edge % 4 + 1;
    return Distance3(panel.X[next] - panel.X[edge], panel.Y[next] - panel.Y[edge], panel.Z[next] - panel.Z[edge]);
}

static constexpr double kOnEdge = 0.001; // m, detour over a node on an edge

// Box 4*(panel-1) + edge-1 holds the nodes on that edge.
static BoxCells EdgeCells() {
    std::vector<SpaceBox> boxes;
    for (int p = 1; p <= PanelCount; ++p)
        for (int e = 1; e <= 4; ++e)
            boxes.push_back(BoxAlong(PanelCorner(PanelTable[p], e), PanelCorner(PanelTable[p], e % 4 + 1), kOnEdge));
    return BoxCells(boxes);
}

// A node without a partner asks every edge of another panel on which it lies for one division more. The counts of panel
// p stand in the X slots of the scratch record p + PanelCount.
static void CountUnmatched(const NoktaRecord &node, const BoxCells &edges) {
    for (const int box : edges.near({node.X, node.Y, node.Z})) {
        const int other = box / 4 + 1;
        const int e = box % 4 + 1;
        if (other == node.PanelNo)
            continue;
        const PanelRecord &panel = PanelTable[other];
        const double a = PointDistance(node, panel, e);
        const double c = PointDistance(node, panel, e % 4 + 1);
        if (a + c <= EdgeLength(panel, e) + kOnEdge)
            PanelTable[other + PanelCount].X[e] += 1.0;
    }
}

static void RaiseCount(Int16 &divisions, double first, double second, int &degisti) {
    if (first > divisions || second > divisions) {
        divisions = std::max(first, second);
        degisti = 1;
    }
}

void PanelSayiUyumu(int &degisti) {
    for (int p = 1; p <= PanelCount; ++p) {
        PanelRecord &scratch = PanelTable[p + PanelCount];
        scratch.X[1] = scratch.X[3] = int(PanelTable[p].Nx);
        scratch.X[2] = scratch.X[4] = int(PanelTable[p].Ny);
    }
    MarkPartners();
    const BoxCells edges = EdgeCells();
    for (int i = 1; i <= HamNoktaCount; ++i)
        if (const NoktaRecord &node = NoktaTable[i]; node.Tur == kEdge && node.YeniNo == 0)
            CountUnmatched(node, edges);
    for (int p = 1; p <= PanelCount; ++p) {
        const PanelRecord &scratch = PanelTable[p + PanelCount];
        RaiseCount(PanelTable[p].Nx, scratch.X[1], scratch.X[3], degisti);
        RaiseCount(PanelTable[p].Ny, scratch.X[2], scratch.X[4], degisti);
    }
    for (int p = 1; p <= PanelCount; ++p)
        PanelTable[p + PanelCount] = PanelTable[0];
}

static void RunPass(int &degisti) {
    ClearMeshTables();
    MakePanelBlocks();
    JoinCornersOnCorners();
    JoinCornersOnEdges();
    JoinEdgesOnEdges();
    NoktaSikistir();
    PanelSayiUyumu(degisti);
}

static void ShowPartialResult(MeshWindow &window) {
    NodesHidden = 1;
    NoktaCount = HamNoktaCount;
    window.RefreshDrawing();
}

void PanelMeshle(MeshWindow &window) {
    const int nodesWereHidden = NodesHidden;
    int degisti = 0;
    for (int pass = 1;; ++pass) {
        if (pass > 1)
            window.ShowIteration(pass);
        degisti = 0;
        RunPass(degisti);
        if (pass > 1 || degisti > 0)
            ShowPartialResult(window);
        // The bound stays 0.6, so one command gives one pass; raised counts wait in PanelTable for the next: wanted.
        if (!(degisti == 1 && pass < 0.6))
            break;
    }
    NodesHidden = nodesWereHidden;
    window.HideLabel();
}

} // namespace havuz
