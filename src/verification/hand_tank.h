// Small shell models made by hand for the consistent analysis, without the model store.
#pragma once

#include "consistent/analysis.h"

#include <functional>

namespace havuz::consistent {

constexpr int kPlain = 3; // kind of a panel that is neither floor, wall nor strip

class HandTank {
public:
    HandTank(double E, double poisson) {
        tank.nodes.resize(1);
        tank.E = E;
        tank.poisson = poisson;
    }
    int panel(int kind, double thickness, double dead = 0.0) {
        const int number = static_cast<int>(tank.panels.size()) + 1;
        tank.panels[number] = {number, kind, thickness, dead, 0.0, false, 0};
        return number;
    }
    int node(Vector3 at, int held = 0) {
        TankNode n;
        n.at = at;
        n.held = held;
        tank.nodes.push_back(n);
        return static_cast<int>(tank.nodes.size()) - 1;
    }
    void mesh(int panel, int a, int b, int c, int d) {
        tank.meshes.push_back({static_cast<int>(tank.meshes.size()) + 1, {a, b, c, d}, panel, true});
        for (const int n : {a, b, c, d})
            tank.nodes[static_cast<std::size_t>(n)].used = true;
    }
    // columns * rows meshes; at(s, t) places the nodes, s and t from 0 to 1. Returns the first node; the node of column
    // i and row j is first + j * (columns + 1) + i.
    int grid(int panel, int columns, int rows, const std::function<Vector3(double, double)> &at) {
        const int first = static_cast<int>(tank.nodes.size());
        for (int j = 0; j <= rows; ++j)
            for (int i = 0; i <= columns; ++i)
                node(at(static_cast<double>(i) / columns, static_cast<double>(j) / rows));
        const auto number = [&](int i, int j) { return first + j * (columns + 1) + i; };
        for (int j = 0; j < rows; ++j)
            for (int i = 0; i < columns; ++i)
                mesh(panel, number(i, j), number(i + 1, j), number(i + 1, j + 1), number(i, j + 1));
        return first;
    }
    // bits on every node for which where() is true.
    void hold(int bits, const std::function<bool(const Vector3 &)> &where) {
        for (TankNode &n : tank.nodes)
            if (where(n.at))
                n.held |= bits;
    }
    void load(int node, Vector3 force) { tank.nodes[static_cast<std::size_t>(node)].load = force; }
    int nodeAt(Vector3 at) const {
        for (std::size_t n = 1; n < tank.nodes.size(); ++n)
            if (const Vector3 d = tank.nodes[n].at - at; Dot(d, d) < 1e-10)
                return static_cast<int>(n);
        return 0;
    }

    Tank tank;
};

} // namespace havuz::consistent
