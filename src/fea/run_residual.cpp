// How well the stored solution solves the system: |f - K*u| / |f| of each column, K formed anew from the element
// matrices and springs in double precision, not from the eliminated profile. Cells of 32 bits carry seven digits; what
// elimination loses of them shows here.
// With T the axes of a mesh and K its local stiffness, K*u is the sum over meshes of T' * (K * (T * u)) and of Yay*u at
// each node: three products of a vector in place of an assembled matrix. The run solves K*u = -Rhs, hence the sum of
// load and force in the rest. A residual of 1e-3 means that a thousandth of the loads is not carried by the solution.
#include "fea/run_residual.h"

#include "fea/analysis.h"
#include "fea/element_pass.h"
#include "fea/rect_shell.h"
#include "model/mesh_facts.h"
#include "model/springs.h"
#include "model/store.h"

#include <cmath>

namespace havuz {

namespace {

using Vector24 = std::array<double, 25>;

// u by FreedomAt, one vector a column.
std::vector<std::vector<double>> ReadSolution(const std::string &project, std::size_t columns) {
    const RecordFile dep(project + ".DEP", sizeof(DepRecord), RecordFile::ReadOnly);
    std::vector<std::vector<double>> u(columns, std::vector<double>(FreedomAt(NoktaCount + 1, 1), 0.0));
    DepRecord record{};
    for (int i = 1; i <= NoktaCount; ++i) {
        dep.GetRecord(record, i);
        for (std::size_t c = 0; c < columns; ++c)
            for (int d = 1; d <= 6; ++d)
                u[c][FreedomAt(i, d)] = record.at(6 * c + static_cast<std::size_t>(d - 1));
    }
    return u;
}

// T times v by its diagonal blocks, or its transpose times v.
Vector24 Turn(const Matrix<24, 24> &T, const Vector24 &v, bool transposed) {
    Vector24 turned{};
    for (int i = 1; i <= 24; ++i) {
        const int block = (i - 1) / 3 * 3;
        for (int k = block + 1; k <= block + 3; ++k)
            turned[static_cast<std::size_t>(i)] += (transposed ? T(k, i) : T(i, k)) * v[static_cast<std::size_t>(k)];
    }
    return turned;
}

Vector24 Times(const Matrix<24, 24> &K, const Vector24 &v) {
    Vector24 product{};
    for (int i = 1; i <= 24; ++i)
        for (int j = 1; j <= 24; ++j)
            product[static_cast<std::size_t>(i)] += K(i, j) * v[static_cast<std::size_t>(j)];
    return product;
}

// K*u of one mesh added to the forces of every column.
void AddElement(const MeshNodes &m, double E, const std::vector<std::vector<double>> &u,
                std::vector<std::vector<double>> &force) {
    const MeshRecord mesh = AnalysedMesh(m);
    Matrix<24, 24> ElementT, LocalK;
    ElementAxes(ElementT, m);
    RectShellStiffness(LocalK, mesh.KenarA, mesh.KenarB, E, PoissonRatio, mesh.Kalinlik / 100.0);
    const auto place = [&m](std::size_t p) { return FreedomAt(m.n[p / 6 + 1], static_cast<int>(p % 6) + 1); };
    for (std::size_t c = 0; c < u.size(); ++c) {
        Vector24 g{};
        for (std::size_t p = 0; p < 24; ++p)
            g[p + 1] = u[c][place(p)];
        const Vector24 f = Turn(ElementT, Times(LocalK, Turn(ElementT, g, false)), true);
        for (std::size_t p = 0; p < 24; ++p)
            force[c][place(p)] += f[p + 1];
    }
}

void AddSprings(const std::vector<std::vector<double>> &u, std::vector<std::vector<double>> &force) {
    const std::vector<Float32> springs = FoundationSprings();
    for (std::size_t c = 0; c < u.size(); ++c)
        for (int i = 1; i <= NoktaCount; ++i)
            for (int d = 1; d <= 3; ++d)
                force[c][FreedomAt(i, d)] += springs[static_cast<std::size_t>(i)] * u[c][FreedomAt(i, d)];
}

} // namespace

std::vector<double> RunResiduals(const std::string &project, const std::vector<RunColumn> &columns) {
    const std::vector<std::vector<double>> u = ReadSolution(project, columns.size());
    std::vector<std::vector<double>> force(columns.size(), std::vector<double>(u.front().size(), 0.0));
    for (int i = 1; i <= MeshCount; ++i)
        if (!IsSwitchedOff(MeshTable[i]))
            AddElement(MeshNodeData(i), ConcreteE(Fck), u, force);
    AddSprings(u, force);
    const std::vector<char> free = FreeFreedoms();
    std::vector<double> residuals;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        double rest = 0.0, load = 0.0;
        for (std::size_t at = 0; at < free.size(); ++at)
            if (free[at] != 0) { // the run solves K*u = -Rhs
                const double r = columns[c].load[at] + force[c][at];
                rest += r * r;
                load += columns[c].load[at] * columns[c].load[at];
            }
        residuals.push_back(load > 0.0 ? std::sqrt(rest / load) : 0.0);
    }
    return residuals;
}

} // namespace havuz
