// The element matrices and the corner results of one mesh as the method is written down: matrices made anew, full sums
// over all 24 columns. The reference of the passes over the meshes in the tests and of their speed in the benchmarks.
#pragma once

#include "fea/analysis.h"
#include "fea/element_geometry.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/rect_shell.h"
#include "fea/result_pass.h"
#include "fea/system.h"

namespace havuz {

// The corner results of one mesh with full sums over all 24 columns, as the method is written down.
inline SonRecord PlainResults(int mesh) {
    SonRecord record{};
    const MeshRecord &m = MeshTable[mesh];
    const MeshNodes nodes = MeshNodeData(mesh);
    const std::array<int, 25> MeshEqs = MeshEquations(nodes);
    Matrix<24, 24> T, S;
    ElementAxes(T, nodes);
    RectShellStress(S, m.KenarA, m.KenarB, ConcreteE(Fck), PoissonRatio, m.Kalinlik / 100.0);
    for (int c = 1; c <= YukSayisi; ++c) {
        std::array<double, 25> local{};
        for (int i = 1; i <= 24; ++i)
            for (int j = 1; j <= 24; ++j) {
                const int e = MeshEqs[static_cast<std::size_t>(j)];
                local[static_cast<std::size_t>(i)] += T(i, j) * (e > 0 ? SolutionValue(e, c) : 0.0);
            }
        for (int i = 1; i <= 24; ++i) {
            double sum = 0.0;
            for (int j = 1; j <= 24; ++j)
                sum += S(i, j) * local[static_cast<std::size_t>(j)];
            record[static_cast<std::size_t>(24 * (c - 1) + i - 1)] = sum;
        }
    }
    return record;
}

inline Matrix<24, 24> PlainProduct(const Matrix<24, 24> &A, const Matrix<24, 24> &B, bool transposed) {
    Matrix<24, 24> C;
    for (int i = 1; i <= 24; ++i)
        for (int j = 1; j <= 24; ++j) {
            double sum = 0.0;
            for (int k = 1; k <= 24; ++k)
                sum = sum + (transposed ? A(k, i) : A(i, k)) * B(k, j);
            C(i, j) = sum;
        }
    return C;
}

// The record of STIF001: transpose(T) * K * T, then the surface load.
inline ElementRecord PlainElement(int mesh) {
    ElementRecord record{};
    const MeshRecord &m = MeshTable[mesh];
    Matrix<24, 24> T, K;
    ElementAxes(T, MeshNodeData(mesh));
    RectShellStiffness(K, m.KenarA, m.KenarB, ConcreteE(Fck), PoissonRatio, m.Kalinlik / 100.0);
    const Matrix<24, 24> G = PlainProduct(PlainProduct(T, K, true), T, false);
    std::size_t term = 0;
    for (int i = 1; i <= 24; ++i)
        for (int j = i; j <= 24; ++j)
            record[term++] = G(i, j);
    const std::array<double, 25> load = SurfaceLoad(m, MeshNodeData(mesh), T);
    for (std::size_t i = 1; i <= 24; ++i)
        record[term++] = load[i];
    return record;
}

} // namespace havuz
