// The fullest model there is: 5000 meshes on 5000 nodes, in the rotated view.
#pragma once

#include "model/store.h"
#include "view/view_state.h"

#include <cmath>

namespace havuz {

inline constexpr int kAround = 100, kAcross = 50;

// A ring-shaped tube: both ways round, so there are as many meshes as nodes.
inline void MakeFullModel() {
    ViewAngleA = -140.0 / 180.0 * std::acos(-1.0);
    ViewAngleB = 20.0 / 180.0 * std::acos(-1.0);
    IsoView = 1;
    PanelCount = 1;
    PanelTable[1].Tip = 1;
    const auto node = [](int i, int j) { return 1 + i % kAround * kAcross + j % kAcross; };
    for (int i = 0; i < kAround; ++i)
        for (int j = 0; j < kAcross; ++j) {
            const double u = 2.0 * std::acos(-1.0) * i / kAround;
            const double v = 2.0 * std::acos(-1.0) * j / kAcross;
            NoktaRecord &n = NoktaTable[node(i, j)];
            n.X = (20.0 + 5.0 * std::cos(v)) * std::cos(u);
            n.Y = (20.0 + 5.0 * std::cos(v)) * std::sin(u);
            n.Z = 5.0 * std::sin(v);
            MeshRecord &m = MeshTable[node(i, j)];
            m.N1 = node(i, j);
            m.N2 = node(i + 1, j);
            m.N3 = node(i + 1, j + 1);
            m.N4 = node(i, j + 1);
            m.PanelNo = 1;
        }
    NoktaCount = MeshCount = kAround * kAcross;
}

} // namespace havuz
