// The results of a run, written mesh by mesh and node by node.
//
// Displacements: the six solved freedoms of a node in every column, 0 where held, m and radians, into its record of
// .DEP. Stresses: for each mesh and column the element's freedoms are gathered by their equations, turned to local
// axes, and multiplied by the stress matrix at the four corners,
//   r = S * T * u       S 24 by 24: sx, sy, sxy, Mx, My, Mxy of corners 1 to 4 (rect_stress.cpp; the S of
//                       quad_stress.cpp holds the turn),
// into its record of .SON. Corner results are not averaged between meshes: a jump from mesh to mesh shows how fine the
// mesh is. The thickness and the section are those that the run has stored in the mesh.
// Places in a record, from 0, of column c, freedom d, corner k and result r, all from 1:
//   .DEP   6*(c-1) + d-1             .SON   24*(c-1) + 6*(k-1) + r-1
// Columns behind the last one of the run stay 0: records have one length, whatever was asked for.
#include "fea/result_pass.h"

#include "fea/analysis.h"
#include "fea/element_geometry.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/quad_stress.h"
#include "fea/rect_shell.h"
#include "fea/system.h"
#include "model/mesh_facts.h"
#include "model/place.h"
#include "model/store.h"

namespace havuz {

namespace {

// The 24 freedoms of a mesh in column c, global, 0 where held.
std::array<double, 25> ElementDisplacements(const std::array<int, 25> &MeshEqs, int c) {
    std::array<double, 25> g{};
    for (std::size_t p = 1; p <= 24; ++p)
        g[p] = MeshEqs[p] > 0 ? SolutionValue(MeshEqs[p], c) : 0.0;
    return g;
}

// A * v, each sum from the first column to the last; columns outside, as A lies by columns. The order of a sum is the
// same either way, and so are its bits.
std::array<double, 25> Multiply(const Matrix<24, 24> &A, const std::array<double, 25> &v) {
    std::array<double, 25> product{};
    for (std::size_t j = 0; j < 24; ++j) {
        const double *column = A.data() + 24 * j;
        for (std::size_t i = 0; i < 24; ++i)
            product[i + 1] = product[i + 1] + column[i] * v[j + 1];
    }
    return product;
}

// T * v where T has diagonal blocks of 3 by 3 alone: what lies outside them adds 0 to a sum that is never -0.
std::array<double, 25> MultiplyBlocks(const Matrix<24, 24> &T, const std::array<double, 25> &v) {
    std::array<double, 25> product{};
    for (int i = 0; i < 24; ++i) {
        const int block = i / 3 * 3;
        double sum = 0.0;
        for (int j = block + 1; j <= block + 3; ++j)
            sum = sum + T(i + 1, j) * v[static_cast<std::size_t>(j)];
        product[static_cast<std::size_t>(i + 1)] = sum;
    }
    return product;
}

// Stress matrix of the rectangular element, once for meshes of one section that follow each other.
class RectStressMatrix {
public:
    const Matrix<24, 24> &of(const MeshRecord &mesh, double E) {
        const RectSection section(mesh);
        if (!(section == before))
            RectShellStress(S, section.a, section.b, E, PoissonRatio, section.t);
        before = section;
        return S;
    }

private:
    RectSection before;
    Matrix<24, 24> S;
};

// The record of a mesh: for each column 24 results, six of each corner.
class CornerResults {
public:
    explicit CornerResults(double E) : E_(E) {}

    void put(int mesh, SonRecord &record) {
        const MeshRecord &m = MeshTable[mesh];
        const MeshNodes nodes = MeshNodeData(mesh);
        const std::array<int, 25> MeshEqs = MeshEquations(nodes);
        const Matrix<24, 24> &StressMatrix = matrixOf(m, nodes);
        for (int c = 1; c <= YukSayisi; ++c) {
            const std::array<double, 25> g = ElementDisplacements(MeshEqs, c);
            const std::array<double, 25> s =
                Multiply(StressMatrix, ElementSwitch == 0 ? MultiplyBlocks(ElementT_, g) : g);
            for (std::size_t r = 1; r <= 24; ++r)
                record[static_cast<std::size_t>(c - 1) * 24 + r - 1] = s[r];
        }
    }

private:
    const Matrix<24, 24> &matrixOf(const MeshRecord &m, const MeshNodes &nodes) {
        if (ElementSwitch == 0) {
            ElementAxes(ElementT_, nodes);
            return rect_.of(m, E_);
        }
        PlaceQuad(m, nodes); // the step to local axes lies inside the matrix
        QuadShellStress(quad_, 4, 4);
        return quad_;
    }

    double E_;
    Matrix<24, 24> ElementT_, quad_;
    RectStressMatrix rect_;
};

} // namespace

void WriteDisplacements(RecordFile &dep) {
    DepRecord record{};
    RecordWriter<DepRecord> records(dep);
    for (int i = 1; i <= NoktaCount; ++i) {
        for (int d = 1; d <= 6; ++d) {
            const int e = NoktaTable[i].Denklem[d];
            for (int c = 1; c <= YukSayisi; ++c)
                record[static_cast<std::size_t>(DepColumn(c) + d - 1)] = e > 0 ? SolutionValue(e, c) : 0.0;
        }
        records.put(record, i);
    }
    records.flush();
}

void StressPass(double E, RecordFile &son) {
    CornerResults results(E);
    RecordWriter<SonRecord> records(son);
    for (int i = 1; i <= MeshCount; ++i) {
        SonRecord record{};
        if (!IsSwitchedOff(MeshTable[i]))
            AtPlace({Thing::MeshTable, i}, [&] { results.put(i, record); });
        records.put(record, i);
    }
    records.flush();
}

} // namespace havuz
