// Assembly by element equations, the direct stiffness method (Turner, Clough, Martin and Topp 1956). Units: m, t.
//
// Each mesh has 24 freedoms, p = 6*(corner - 1) + slot, slots ux, uy, uz, rx, ry, rz; e(p) is the equation of a
// freedom, 0 for a held one, which is left out. For p <= q
//   S(row, column) += K(p, q)   row = min(e(p), e(q)), column = max(e(p), e(q)),
// so that the symmetric matrix is stored once, in the profile (system.h). STIF001 holds the upper triangle of each mesh
// row by row, 300 terms, and behind it the 24 terms of its surface load:
//   Rhs(e(p), 1) += load(p),    column 1.
// Behind the meshes come the springs on the diagonal, the point loads in column 1 and the pressures in the columns of
// their load situations (loads.h). Rhs holds the negative of the load throughout.
// Every sum is formed in double precision and cut to 32 bits when it is stored; meshes are added in the order of their
// numbers, and that order is part of the results: a cell that five meshes share has been rounded five times.
#include "fea/assembly.h"

#include "fea/element_geometry.h"
#include "fea/equations.h"
#include "fea/loads.h"
#include "fea/system.h"
#include "model/mesh_facts.h"
#include "model/store.h"

#include <algorithm>

namespace havuz {

static void AddStiffness(const ElementRecord &element, const std::array<int, 25> &MeshEqs) {
    std::size_t term = 0;
    for (std::size_t p = 1; p <= kElementFreedoms; ++p)
        for (std::size_t q = p; q <= kElementFreedoms; ++q, ++term)
            if (MeshEqs[p] != 0 && MeshEqs[q] != 0)
                ProfileAdd(element[term], std::min(MeshEqs[p], MeshEqs[q]), std::max(MeshEqs[p], MeshEqs[q]));
}

static void AddSurfaceLoad(const ElementRecord &element, const std::array<int, 25> &MeshEqs) {
    for (std::size_t p = 1; p <= kElementFreedoms; ++p)
        if (MeshEqs[p] > 0) {
            float &cell = Rhs[RhsIndex(MeshEqs[p], 1)];
            cell = static_cast<float>(static_cast<double>(cell) + element[kStiffnessTerms + p - 1]);
        }
}

void AssembleSystem(const RecordFile &stif, AnalysisWindow &window) {
    ClearSystem();
    RecordReader<ElementRecord> elements(stif);
    for (int i = 1; i <= MeshCount; ++i) {
        window.SetProgLab("Mesh eleman no:" + std::to_string(i));
        if (IsSwitchedOff(MeshTable[i]))
            continue;
        const std::array<int, 25> MeshEqs = MeshEquations(MeshNodeData(i));
        const ElementRecord &element = elements.get(i);
        AddStiffness(element, MeshEqs);
        AddSurfaceLoad(element, MeshEqs);
    }
    AddSprings();
    AddPointLoads();
    AddPressures();
}

} // namespace havuz
