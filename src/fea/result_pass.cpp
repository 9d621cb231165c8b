#include "fea/result_pass.h"

#include "fea/analysis.h"
#include "fea/element_geometry.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/quad_stress.h"
#include "fea/rect_shell.h"
#include "fea/system.h"
#include "model/mesh_facts.h"
#include "model/store.h"

namespace havuz {

namespace {

std::array<double, 25> ElementDisplacements(const std::array<int, 25> &MeshEqs, int c) {
    std::array<double, 25> g{};
    for (std::size_t p = 1; p <= 24; ++p)
        g[p] = MeshEqs[p] > 0 ? SolutionValue(MeshEqs[p], c) : 0.0;
    return g;
}

std::array<double, 25> Multiply(const Matrix<24, 24> &A, const std::array<double, 25> &v) {
    std::array<double, 25> product{};
    for (int i = 1; i <= 24; ++i) {
        double sum = 0.0;
        for (int j = 1; j <= 24; ++j)
            sum = sum + A(i, j) * v[static_cast<std::size_t>(j)];
        product[static_cast<std::size_t>(i)] = sum;
    }
    return product;
}

void PutCornerResults(int mesh, double E, SonRecord &record) {
    const MeshRecord &m = MeshTable[mesh];
    const MeshNodes nodes = MeshNodeData(mesh);
    const std::array<int, 25> MeshEqs = MeshEquations(nodes);
    Matrix<24, 24> ElementT;
    Matrix<24, 24> StressMatrix;
    if (ElementSwitch == 0) {
        ElementAxes(ElementT, nodes);
        RectShellStress(StressMatrix, m.KenarA, m.KenarB, E, PoissonRatio, m.Kalinlik / 100.0);
    } else { // the step to local axes lies inside the matrix
        PlaceQuad(m, nodes);
        QuadShellStress(StressMatrix, 4, 4);
    }
    for (int c = 1; c <= YukSayisi; ++c) {
        const std::array<double, 25> g = ElementDisplacements(MeshEqs, c);
        const std::array<double, 25> s = Multiply(StressMatrix, ElementSwitch == 0 ? Multiply(ElementT, g) : g);
        for (std::size_t r = 1; r <= 24; ++r)
            record[static_cast<std::size_t>(c - 1) * 24 + r - 1] = s[r];
    }
}

} // namespace

void WriteDisplacements(RecordFile &dep) {
    DepRecord record{};
    for (int i = 1; i <= NoktaCount; ++i) {
        for (int d = 1; d <= 6; ++d) {
            const int e = NoktaTable[i].Denklem[d];
            for (int c = 1; c <= YukSayisi; ++c)
                record[static_cast<std::size_t>(DepColumn(c) + d - 1)] = e > 0 ? SolutionValue(e, c) : 0.0;
        }
        dep.PutRecord(record, i);
    }
}

void StressPass(double E, RecordFile &son) {
    for (int i = 1; i <= MeshCount; ++i) {
        SonRecord record{};
        if (!IsSwitchedOff(MeshTable[i]))
            PutCornerResults(i, E, record);
        son.PutRecord(record, i);
    }
}

} // namespace havuz
