// The joining of panel blocks by AnaNo: corners on corners, corners on edges, edges on edges. Lengths in m.
//
// Each node is held against the few panel lines beside it, which a grid of cells finds; among their nodes the choice is
// the same as among all nodes in their order: the nearest, and of several the first.
#include "mesh/box_cells.h"
#include "mesh/panel_blocks.h"
#include "model/arithmetic.h"
#include "model/store.h"

#include <array>
#include <cfloat>
#include <map>
#include <utility>

namespace havuz {

namespace {

constexpr double kSameCorner = 0.05; // of two corners
constexpr double kOnLine = 0.05;     // detour over a point on a line

SpacePoint PlaceOf(int p) {
    const NoktaRecord &node = NoktaTable[p];
    return {node.X, node.Y, node.Z};
}

double NodeDistance(int p, int q) {
    const NoktaRecord &a = NoktaTable[p];
    const NoktaRecord &b = NoktaTable[q];
    return Distance3(a.X - b.X, a.Y - b.Y, a.Z - b.Z);
}

bool IsCorner(int p) { return NoktaTable[p].UcA == p && NoktaTable[p].UcB == p; }

// The edge nodes of one side of a panel.
struct PanelLine {
    int panel, a, b;        // a, b: its ends
    std::vector<int> nodes; // rising

    // The node p lies on it, is of another panel, and is joined with neither end.
    bool takes(int p) const {
        const NoktaRecord &node = NoktaTable[p];
        if (node.PanelNo == panel || NoktaTable[a].AnaNo == node.AnaNo || NoktaTable[b].AnaNo == node.AnaNo)
            return false;
        return !(NodeDistance(a, b) + kOnLine < NodeDistance(p, a) + NodeDistance(p, b));
    }

    // Distance of two of its nodes: along a side edge the panel has Ny divisions, else Nx.
    double meshLength() const {
        const int from = NoktaTable[a].Tur;
        const int to = NoktaTable[b].Tur;
        const bool side = (from == kCorner1 && to == kCorner4) || (from == kCorner2 && to == kCorner3);
        const PanelRecord &of = PanelTable[panel];
        return NodeDistance(a, b) / (side ? of.Ny : of.Nx);
    }

    // Its ends are corners, which no joining moves. Others a panel has only that is divided less than once.
    SpaceBox box() const {
        const auto isNode = [](int n) { return n >= 1 && n <= HamNoktaCount; };
        if (isNode(a) && isNode(b) && IsCorner(a) && IsCorner(b))
            return BoxAlong(PlaceOf(a), PlaceOf(b), kOnLine);
        return BoxAround({0.0, 0.0, 0.0}, 2.0 * static_cast<double>(FLT_MAX));
    }
};

std::vector<PanelLine> AllLines() {
    std::vector<PanelLine> lines;
    std::map<std::array<int, 3>, std::size_t> known;
    for (int q = 1; q <= HamNoktaCount; ++q) {
        const NoktaRecord &node = NoktaTable[q];
        if (node.Tur != kEdge)
            continue;
        const auto [line, isNew] = known.try_emplace({node.PanelNo, node.UcA, node.UcB}, lines.size());
        if (isNew)
            lines.push_back({node.PanelNo, node.UcA, node.UcB, {}});
        lines[line->second].nodes.push_back(q);
    }
    return lines;
}

std::vector<SpaceBox> BoxesOf(const std::vector<PanelLine> &lines) {
    std::vector<SpaceBox> boxes;
    boxes.reserve(lines.size());
    for (const PanelLine &line : lines)
        boxes.push_back(line.box());
    return boxes;
}

// Captures edge nodes.
class Captor {
public:
    Captor() : lines_(AllLines()), cells_(BoxesOf(lines_)), nodesOf_(static_cast<std::size_t>(PanelCount) + 1) {
        for (int i = HamNoktaCount; i >= 1; --i) {
            auto &[first, last] = nodesOf_[static_cast<std::size_t>(NoktaTable[i].PanelNo)];
            first = i;
            last = last == 0 ? i : last;
        }
    }

    // p captures the nearest edge node behind the node `behind` on a line that it lies on; where withinMesh, only a
    // node that is no farther than two nodes of that line are from each other.
    void capture(int p, int behind, bool withinMesh) {
        double least = 1000.0;
        int best = 0;
        for (const int l : cells_.near(PlaceOf(p))) {
            const PanelLine &line = lines_[static_cast<std::size_t>(l)];
            if (!line.takes(p))
                continue;
            const double farthest = withinMesh ? line.meshLength() : 1000.0;
            for (const int q : line.nodes) {
                if (q <= behind || NoktaTable[q].Tur != kEdge)
                    continue;
                const double d = NodeDistance(p, q);
                if (!(d > farthest) && (d < least || (d == least && q < best))) {
                    least = d;
                    best = q;
                }
            }
        }
        if (best != 0)
            join(p, best);
    }

private:
    // The node q takes the place of p, unless another node of q's panel has p's master already: then p is given up, and
    // no second best is looked for.
    void join(int p, int q) {
        const NoktaRecord &master = NoktaTable[p];
        NoktaRecord &node = NoktaTable[q];
        const auto [first, last] = nodesOf_[static_cast<std::size_t>(node.PanelNo)];
        for (int i = first; i <= last; ++i)
            if (i != p && i != q && NoktaTable[i].PanelNo == node.PanelNo && NoktaTable[i].AnaNo == master.AnaNo)
                return;
        node.AnaNo = master.AnaNo;
        node.Tur = master.Tur;
        node.X = master.X;
        node.Y = master.Y;
        node.Z = master.Z;
    }

    std::vector<PanelLine> lines_;
    BoxCells cells_;
    std::vector<std::pair<int, int>> nodesOf_; // first and last node of each panel
};

} // namespace

// In the order of all pairs p < q: the corners that p reaches take its master as it is then.
void JoinCornersOnCorners() {
    std::vector<int> corners;
    std::vector<SpaceBox> boxes;
    for (int p = 1; p <= HamNoktaCount; ++p)
        if (IsCorner(p)) {
            corners.push_back(p);
            boxes.push_back(BoxAround(PlaceOf(p), kSameCorner));
        }
    const BoxCells cells(boxes);
    for (const int p : corners)
        for (const int k : cells.near(PlaceOf(p)))
            if (const int q = corners[static_cast<std::size_t>(k)];
                q > p && NoktaTable[p].PanelNo != NoktaTable[q].PanelNo && NodeDistance(p, q) <= kSameCorner)
                NoktaTable[q].AnaNo = NoktaTable[p].AnaNo;
}

void JoinCornersOnEdges() {
    Captor captor;
    for (int p = 1; p <= HamNoktaCount; ++p)
        if (IsCorner(p))
            captor.capture(p, 0, false);
}

void JoinEdgesOnEdges() {
    Captor captor;
    for (int p = 1; p <= HamNoktaCount - 1; ++p)
        if (NoktaTable[p].Tur == kEdge)
            captor.capture(p, p, true);
}

} // namespace havuz
