// The joining of panel blocks as it is written down: every node is held against every other. The reference of the
// joining by cells in the tests and of its speed in the benchmarks.
#pragma once

#include "mesh/panel_blocks.h"
#include "model/arithmetic.h"
#include "model/store.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace havuz {

inline double PlainNodeDistance(int p, int q) {
    const NoktaRecord &a = NoktaTable[p];
    const NoktaRecord &b = NoktaTable[q];
    return Distance3(a.X - b.X, a.Y - b.Y, a.Z - b.Z);
}

inline bool PlainIsCorner(int p) { return NoktaTable[p].UcA == p && NoktaTable[p].UcB == p; }

// p may capture the edge node q: another panel, q on an edge, neither end of q's line joined to p already, p on that
// line.
inline bool PlainCanCapture(int p, int q) {
    const NoktaRecord &node = NoktaTable[q];
    if (node.Tur != kEdge || node.PanelNo == NoktaTable[p].PanelNo)
        return false;
    const int a = node.UcA;
    const int b = node.UcB;
    const int master = NoktaTable[p].AnaNo;
    if (NoktaTable[a].AnaNo == master || NoktaTable[b].AnaNo == master)
        return false;
    return !(PlainNodeDistance(a, b) + 0.05 < PlainNodeDistance(p, a) + PlainNodeDistance(p, b));
}

// Distance of two nodes of q's line, m: along a side edge the panel has Ny divisions, else Nx.
inline double PlainMeshLengthAt(int q) {
    const NoktaRecord &node = NoktaTable[q];
    const int a = NoktaTable[node.UcA].Tur;
    const int b = NoktaTable[node.UcB].Tur;
    const bool side = (a == kCorner1 && b == kCorner4) || (a == kCorner2 && b == kCorner3);
    const PanelRecord &panel = PanelTable[node.PanelNo];
    return PlainNodeDistance(node.UcA, node.UcB) / (side ? panel.Ny : panel.Nx);
}

// The node q takes the place of p, unless another node of q's panel has p's master already: then p is given up, and no
// second best is looked for.
inline void PlainCapture(int p, int q) {
    const NoktaRecord &master = NoktaTable[p];
    NoktaRecord &node = NoktaTable[q];
    for (int i = 1; i <= HamNoktaCount; ++i)
        if (i != p && i != q && NoktaTable[i].PanelNo == node.PanelNo && NoktaTable[i].AnaNo == master.AnaNo)
            return;
    node.AnaNo = master.AnaNo;
    node.Tur = master.Tur;
    node.X = master.X;
    node.Y = master.Y;
    node.Z = master.Z;
}

inline void PlainJoinCornersOnCorners() {
    for (int p = 1; p <= HamNoktaCount; ++p) {
        if (!PlainIsCorner(p))
            continue;
        for (int q = p + 1; q <= HamNoktaCount; ++q)
            if (NoktaTable[p].PanelNo != NoktaTable[q].PanelNo && PlainIsCorner(q) && PlainNodeDistance(p, q) <= 0.05)
                NoktaTable[q].AnaNo = NoktaTable[p].AnaNo;
    }
}

inline void PlainJoinCornersOnEdges() {
    for (int p = 1; p <= HamNoktaCount; ++p) {
        if (!PlainIsCorner(p))
            continue;
        double least = 1000.0;
        int best = 0;
        for (int q = 1; q <= HamNoktaCount; ++q)
            if (!PlainIsCorner(q) && PlainCanCapture(p, q)) {
                const double d = PlainNodeDistance(p, q);
                if (d < least) {
                    least = d;
                    best = q;
                }
            }
        if (best != 0)
            PlainCapture(p, best);
    }
}

inline void PlainJoinEdgesOnEdges() {
    for (int p = 1; p <= HamNoktaCount - 1; ++p) {
        if (NoktaTable[p].Tur != kEdge)
            continue;
        double least = 1000.0;
        int best = 0;
        for (int q = p + 1; q <= HamNoktaCount; ++q)
            if (PlainCanCapture(p, q)) {
                const double d = PlainNodeDistance(p, q);
                if (!(d > PlainMeshLengthAt(q)) && d < least) {
                    least = d;
                    best = q;
                }
            }
        if (best != 0)
            PlainCapture(p, best);
    }
}

// The divisions Nx, Ny of every panel as unmatched edge nodes raise them, each node held against every edge.
inline std::vector<std::array<int, 2>> PlainRaisedCounts() {
    std::vector<std::array<int, 2>> raised;
    for (int other = 1; other <= PanelCount; ++other) {
        const PanelRecord &panel = PanelTable[other];
        std::array<int, 5> count = {0, panel.Nx, panel.Ny, panel.Nx, panel.Ny};
        for (int i = 1; i <= HamNoktaCount; ++i) {
            const NoktaRecord &node = NoktaTable[i];
            bool partner = false;
            for (int k = 1; k <= HamNoktaCount && !partner; ++k)
                partner = k != i && NoktaTable[k].Tur != kInterior && NoktaTable[k].AnaNo == node.AnaNo;
            if (node.Tur != kEdge || partner || node.PanelNo == other)
                continue;
            for (int e = 1; e <= 4; ++e) {
                const int f = e % 4 + 1;
                const auto to = [&](int c) {
                    return Distance3(node.X - panel.X[c], node.Y - panel.Y[c], node.Z - panel.Z[c]);
                };
                if (to(e) + to(f) <=
                    Distance3(panel.X[f] - panel.X[e], panel.Y[f] - panel.Y[e], panel.Z[f] - panel.Z[e]) + 0.001)
                    ++count[static_cast<std::size_t>(e)];
            }
        }
        raised.push_back({std::max(count[1], count[3]), std::max(count[2], count[4])});
    }
    return raised;
}

// A random lattice of panels on three kinds of planes, their corners off by a few centimetres here and there.
inline void PutRandomPanels(std::mt19937 &random, int count, int mostDivisions) {
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const int side = 2 + static_cast<int>(std::sqrt(count) / 2.0);
    PanelCount = 0;
    while (PanelCount < count) {
        PanelRecord &panel = PanelTable[++PanelCount];
        panel.No = PanelCount;
        panel.Nx = 1 + below(mostDivisions);
        panel.Ny = 1 + below(mostDivisions);
        const int plane = below(3);
        const std::array<int, 3> at = {below(side), below(side), below(side)};
        const int w = 1 + below(3), h = 1 + below(2);
        for (int k = 1; k <= 4; ++k) {
            std::array<double, 3> p = {double(at[0]), double(at[1]), double(at[2])};
            p[static_cast<std::size_t>(plane)] += k == 2 || k == 3 ? w : 0;
            p[static_cast<std::size_t>((plane + 1) % 3)] += k >= 3 ? h : 0;
            for (double &v : p)
                v += below(8) == 0 ? 0.02 * (below(7) - 3) : 0.0;
            panel.X[k] = p[0];
            panel.Y[k] = p[1];
            panel.Z[k] = p[2];
        }
    }
}

// What the joining leaves in the nodes.
inline std::vector<std::array<double, 5>> JoinedNodes() {
    std::vector<std::array<double, 5>> nodes;
    for (int i = 1; i <= HamNoktaCount; ++i) {
        const NoktaRecord &n = NoktaTable[i];
        nodes.push_back({n.X, n.Y, n.Z, double(n.AnaNo), double(n.Tur)});
    }
    return nodes;
}

} // namespace havuz
