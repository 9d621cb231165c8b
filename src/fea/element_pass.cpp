// Section data and element matrices of all active meshes. Units: m, t, thickness of records in cm.
//
// Sides: a = mean of sides 1-2 and 4-3, b = mean of sides 1-4 and 2-3: with ElementSwitch 0, as in every run, a mesh is
// computed as the rectangle a by b in its local axes, also where it is none. Loads: dead load of a plate 0.025 t/m2 per
// cm (concrete at 2.5 t/m3), of a panel its G, live load its P; the sum q acts downward on the area a*b and is spread
// evenly over the corners. Stiffness: K_global = T' * K_local * T by 3 by 3 blocks, sums in rising order. A mesh whose
// K and T differ from those of the one transformed last by no more than 0.00001 in any term takes its product: on a
// regular panel all meshes do. The tolerance is absolute: wanted.
// A record of STIF001 is 324 cells of 32 bits: 300 terms of the upper triangle row by row, then the 24 of the surface
// load. Records of meshes that are off are not read.
#include "fea/element_pass.h"

#include "fea/analysis.h"
#include "fea/element_geometry.h"
#include "fea/equations.h"
#include "fea/progress_bar.h"
#include "fea/quad_stiffness.h"
#include "fea/quad_work.h"
#include "fea/rect_shell.h"
#include "fea/system.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/mesh_facts.h"
#include "model/place.h"
#include "model/store.h"

#include <cmath>
#include <string>

namespace havuz {

namespace {

// In space, m.
double SideLength(const MeshNodes &m, std::size_t p, std::size_t q) {
    return Distance3(m.x[q] - m.x[p], m.y[q] - m.y[p], m.z[q] - m.z[p]);
}

// Thickness in cm and loads in t/m2, from the plate or the panel that owns the mesh.
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

// transpose(T) * K * T. T has eight diagonal blocks R, alike, of 3 by 3, so a block of the product is R' * K(I,J) * R:
//   first  half(i,j) = sum over k of T(k,i) * K(k,j)     then  G(i,j) = sum over k of half(i,k) * T(k,j)
// with k over the three of the block, in rising order. The zeros of T outside the blocks are not added: a sum that is
// never -0 keeps its bits without them.
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

// By more than 0.00001 in any term, whatever the size of the terms: in K, of 1e4 t/m and more, that is the last digits;
// in T, of cosines, an angle of 0.0006 degrees.
bool Differs(const Matrix<24, 24> &a, const Matrix<24, 24> &b) {
    for (int i = 1; i <= 24; ++i)
        for (int j = 1; j <= 24; ++j)
            if (std::fabs(a(i, j) - b(i, j)) > 0.00001)
                return true;
    return false;
}

// Stiffness of the rectangular element in global axes. The product is kept for a mesh like the last transformed one:
// the normal case on a regular panel. The tolerance is absolute. A mesh of the very section and axes of the one before
// it takes the same product without a look.
class RectGlobalStiffness {
public:
    const Matrix<24, 24> &of(const MeshRecord &mesh, double E, const Matrix<24, 24> &ElementT) {
        const RectSection section(mesh);
        if (section == before && ElementT == TBefore)
            return GlobalK;
        RectShellStiffness(LocalK, section.a, section.b, E, PoissonRatio, section.t);
        before = section;
        TBefore = ElementT;
        if (Differs(LocalK, LastK) || Differs(ElementT, LastT)) {
            ToGlobal(ElementT, LocalK, GlobalK);
            LastK = LocalK;
            LastT = ElementT;
        }
        return GlobalK;
    }

private:
    RectSection before;
    Matrix<24, 24> TBefore;
    Matrix<24, 24> LocalK, LastK, LastT, GlobalK; // all begin as zero
};

// Behind the 300 terms of the stiffness.
void PutSurfaceLoad(const MeshRecord &mesh, const MeshNodes &m, const Matrix<24, 24> &ElementT, ElementRecord &record) {
    const std::array<double, 25> load = SurfaceLoad(mesh, m, ElementT);
    for (std::size_t i = 1; i <= 24; ++i)
        record[kStiffnessTerms + i - 1] = load[i];
}

// The 24 by 24 corner of K: row by row from the diagonal, so that term (i, j), j >= i, is number
//   24*(i-1) - (i-1)*(i-2)/2 + j - i     from 0; 24 of row 1, 23 of row 2, ... 1 of row 24, 300 in all.
template <int Size>
void PackUpperTriangle(const Matrix<Size, Size> &K, ElementRecord &record) {
    std::size_t term = 0;
    for (int i = 1; i <= 24; ++i)
        for (int j = i; j <= 24; ++j)
            record[term++] = K(i, j);
}

} // namespace

void PlaceQuad(const MeshRecord &mesh, const MeshNodes &m) {
    for (std::size_t k = 1; k <= 4; ++k)
        QuadCorner[static_cast<int>(k)] = {m.x[k], m.y[k], m.z[k]};
    for (int i = 1; i <= 3; ++i)
        TriThickness[i] = mesh.Kalinlik / 100.0;
}

// (0, 0, q) in global axes becomes local, is spread on the corners, and goes back with T': on a rectangle that is the
// vertical load q*a*b/4 at each corner again, but for the last bits.
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
        if (IsSwitchedOff(MeshTable[i]))
            continue;
        AtPlace({Thing::MeshTable, i}, [i] {
            const MeshNodes m = MeshNodeData(i);
            MeshTable[i] = AnalysedMesh(m);
            NodeEquationFlags(m);
        });
    }
}

void ElementPass(double E, RecordFile &stif, AnalysisWindow &window) {
    RectGlobalStiffness rect;
    Matrix<24, 24> ElementT;
    ElementRecord record{};
    RecordWriter<ElementRecord> records(stif);
    for (int i = 1; i <= MeshCount; ++i) {
        window.SetProgLab("Mesh eleman no:" + std::to_string(i));
        const MeshRecord &mesh = MeshTable[i];
        if (IsSwitchedOff(mesh))
            continue;
        ProgressBar(static_cast<double>(i) / MeshCount, window);
        AtPlace({Thing::MeshTable, i}, [&] {
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
        });
        records.put(record, i);
    }
    records.flush();
}

} // namespace havuz
