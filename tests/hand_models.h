// Small models made by hand: nodes, meshes and panels put into the tables one by one.
#pragma once

#include "model/mesh_facts.h"

#include <array>

namespace havuz {

// Each returns the number of the new record.
inline int AddNode(double x, double y, double z, int support = 0) {
    NoktaRecord &n = NoktaTable[++NoktaCount];
    n = NoktaRecord{};
    n.X = x;
    n.Y = y;
    n.Z = z;
    n.Mesnet = support;
    return NoktaCount;
}

inline int AddMesh(int n1, int n2, int n3, int n4, int owner = 1, int off = 0) {
    MeshRecord &m = MeshTable[++MeshCount];
    m = MeshRecord{};
    PutCorners(m, n1, n2, n3, n4);
    m.PanelNo = owner;
    m.Sil = off;
    return MeshCount;
}

using Corner = std::array<double, 3>;

inline int AddPanel(int kind, Corner a, Corner b, Corner c, Corner d) {
    PanelRecord &p = PanelTable[++PanelCount];
    p = PanelRecord{};
    p.No = PanelCount;
    p.Tip = kind;
    int k = 0;
    for (const Corner &q : {a, b, c, d}) {
        ++k;
        p.X[k] = q[0];
        p.Y[k] = q[1];
        p.Z[k] = q[2];
    }
    return PanelCount;
}

inline void AddLoad(int node, double fx, double fy, double fz) {
    NokYukTable[node].Nokta = node;
    NokYukTable[node].FX = fx;
    NokYukTable[node].FY = fy;
    NokYukTable[node].FZ = fz;
}

// columns * rows square meshes of side 1 m in the plane z, node 1 at the origin, nodes numbered along x first.
inline void AddGrid(int columns, int rows, double z = 0.0, int owner = 1) {
    const int first = NoktaCount;
    for (int j = 0; j <= rows; ++j)
        for (int i = 0; i <= columns; ++i)
            AddNode(i, j, z);
    const auto at = [&](int i, int j) { return first + 1 + j * (columns + 1) + i; };
    for (int j = 0; j < rows; ++j)
        for (int i = 0; i < columns; ++i)
            AddMesh(at(i, j), at(i + 1, j), at(i + 1, j + 1), at(i, j + 1), owner);
}

} // namespace havuz
