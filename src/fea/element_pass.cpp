#include "fea/element_pass.h"

#include "fea/analysis.h"
#include "fea/element_geometry.h"
#include "fea/equations.h"
#include "fea/progress_bar.h"
#include "fea/quad_stiffness.h"
#include "fea/quad_stress.h"
#include "fea/quad_work.h"
#include "fea/rect_shell.h"
#include "fea/system.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/store.h"

#include <cmath>
#include <string>

namespace havuz {

namespace {

double SideLength(const MeshNodes &m, std::size_t p, std::size_t q) {
    return Distance3(m.x[q] - m.x[p], m.y[q] - m.y[p], m.z[q] - m.z[p]);
}

void CopySection(MeshRecord &mesh) {
    if (OwnerIsPlate(mesh.PanelNo)) {
        mesh.Kalinlik = int(PlakTable[OwnerPlate(mesh.PanelNo)].Kalinlik);
        mesh.OluYuk = mesh.Kalinlik * 0.025; // concrete at 2.5 t/m3, thickness in cm
        mesh.HareketliYuk = 0.0;
    } else {
        const PanelRecord &panel = PanelTable[mesh.PanelNo];
        mesh.Kalinlik = panel.D;
        mesh.OluYuk = panel.G;
        mesh.HareketliYuk = panel.P;
    }
}

// transpose(T) * K * T by 3 by 3 blocks: T has only diagonal blocks.
void ToGlobal(const Matrix<24, 24> &T, const Matrix<24, 24> &K, Matrix<24, 24> &G) {
    Matrix<24, 24> half; // transpose(T) * K
    for (int i = 0; i < 24; ++i) {
        const int block = i / 3 * 3;
        for (int j = 1; j <= 24; ++j) {
            double sum = 0.0;
            for (int k = block + 1; k <= block + 3; ++k)
                sum = sum + T(k, i + 1) * K(k, j);
            half(i + 1, j) = sum;
        }
    }
    for (int i = 1; i <= 24; ++i)
        for (int j = 0; j < 24; ++j) {
            const int block = j / 3 * 3;
            double sum = 0.0;
            for (int k = block + 1; k <= block + 3; ++k)
                sum = sum + half(i, k) * T(k, j + 1);
            G(i, j + 1) = sum;
        }
}

bool Differs(const Matrix<24, 24> &a, const Matrix<24, 24> &b) {
    for (int i = 1; i <= 24; ++i)
        for (int j = 1; j <= 24; ++j)
            if (std::fabs(a(i, j) - b(i, j)) > 0.00001)
                return true;
    return false;
}

// Stiffness of the rectangular element in global axes. The product is kept for a mesh like the last transformed one:
// the normal case on a regular panel. The tolerance is absolute.
class RectGlobalStiffness {
public:
    const Matrix<24, 24> &of(const MeshRecord &mesh, double E, const Matrix<24, 24> &ElementT) {
        RectShellStiffness(LocalK, mesh.KenarA, mesh.KenarB, E, PoissonRatio, mesh.Kalinlik / 100.0);
        if (Differs(LocalK, LastK) || Differs(ElementT, LastT)) {
            ToGlobal(ElementT, LocalK, GlobalK);
            LastK = LocalK;
            LastT = ElementT;
        }
        return GlobalK;
    }

private:
    Matrix<24, 24> LocalK, LastK, LastT, GlobalK; // all begin as zero
};

void PutSurfaceLoad(const MeshRecord &mesh, const MeshNodes &m, const Matrix<24, 24> &ElementT, ElementRecord &record) {
    const std::array<double, 25> load = SurfaceLoad(mesh, m, ElementT);
    for (std::size_t i = 1; i <= 24; ++i)
        record[kStiffnessTerms + i - 1] = load[i];
}

// The mesh as the general quadrilateral takes it.
void PlaceQuad(const MeshRecord &mesh, const MeshNodes &m) {
    for (std::size_t k = 1; k <= 4; ++k)
        QuadCorner[static_cast<int>(k)] = {m.x[k], m.y[k], m.z[k]};
    for (int i = 1; i <= 3; ++i)
        TriThickness[i] = mesh.Kalinlik / 100.0;
}

// The 24 by 24 corner of K.
template <int Size>
void PackUpperTriangle(const Matrix<Size, Size> &K, ElementRecord &record) {
    std::size_t term = 0;
    for (int i = 1; i <= 24; ++i)
        for (int j = i; j <= 24; ++j)
            record[term++] = K(i, j);
}

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

std::array<double, 25> SurfaceLoad(const MeshRecord &mesh, const MeshNodes &m, const Matrix<24, 24> &ElementT) {
    const double q = mesh.OluYuk + mesh.HareketliYuk;
    const double area = mesh.KenarA * mesh.KenarB;
    std::array<double, 25> LocalLoad{}, load{};
    UniformLoadVector(area, LoadToLocal({0.0, 0.0, q}, m), LocalLoad);
    for (int i = 0; i < 24; ++i) {
        const int block = i / 3 * 3;
        double sum = 0.0;
        for (int k = block + 1; k <= block + 3; ++k)
            sum = sum + ElementT(k, i + 1) * LocalLoad[static_cast<std::size_t>(k)];
        load[static_cast<std::size_t>(i + 1)] = sum;
    }
    return load;
}

MeshRecord AnalysedMesh(const MeshNodes &m) {
    MeshRecord mesh = MeshTable[m.mesh];
    const double a = (SideLength(m, 1, 2) + SideLength(m, 4, 3)) / 2.0;
    const double b = (SideLength(m, 1, 4) + SideLength(m, 2, 3)) / 2.0;
    CopySection(mesh);
    mesh.KenarA = a;
    mesh.KenarB = b;
    return mesh;
}

void MeshPass() {
    for (int i = 1; i <= MeshCount; ++i) {
        if (MeshTable[i].Sil == 1)
            continue;
        const MeshNodes m = MeshNodeData(i);
        MeshTable[i] = AnalysedMesh(m);
        NodeEquationFlags(m);
    }
}

void ElementPass(double E, RecordFile &stif, AnalysisWindow &window) {
    RectGlobalStiffness rect;
    Matrix<24, 24> ElementT;
    ElementRecord record{};
    for (int i = 1; i <= MeshCount; ++i) {
        window.SetProgLab("Mesh eleman no:" + std::to_string(i));
        const MeshRecord &mesh = MeshTable[i];
        if (mesh.Sil == 1)
            continue;
        ProgressBar(static_cast<double>(i) / MeshCount, window);
        const MeshNodes m = MeshNodeData(i);
        ElementAxes(ElementT, m);
        PutSurfaceLoad(mesh, m, ElementT, record);
        if (ElementSwitch == 0) {
            PackUpperTriangle(rect.of(mesh, E, ElementT), record);
        } else {
            PlaceQuad(mesh, m);
            QuadShellStiffness(4);
            PackUpperTriangle(QuadK, record);
        }
        stif.PutRecord(record, i);
    }
}

void WriteDisplacements(RecordFile &dep) {
    DepRecord record{};
    for (int i = 1; i <= NoktaCount; ++i) {
        for (int d = 1; d <= 6; ++d) {
            const int e = NoktaTable[i].Denklem[d];
            for (int c = 1; c <= YukSayisi; ++c)
                record[static_cast<std::size_t>((c - 1) * 6 + d - 1)] = e > 0 ? SolutionValue(e, c) : 0.0;
        }
        dep.PutRecord(record, i);
    }
}

void StressPass(double E, RecordFile &son) {
    for (int i = 1; i <= MeshCount; ++i) {
        SonRecord record{};
        if (MeshTable[i].Sil != 1)
            PutCornerResults(i, E, record);
        son.PutRecord(record, i);
    }
}

} // namespace havuz
