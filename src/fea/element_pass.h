// The passes of the analysis over the meshes before the solution: section data and free flags, element matrices into
// STIF001. Results: result_pass.h. Private to the driver and its tests. Units: m, t.
#pragma once

#include "fea/analysis_window.h"
#include "fea/element_geometry.h"
#include "fea/matrix.h"
#include "fea/record_file.h"
#include "model/store.h"

#include <array>

namespace havuz {

// The record of a mesh with its mean side lengths, thickness and area loads as a run stores them.
MeshRecord AnalysedMesh(const MeshNodes &m);

// The surface load of such a mesh, (0, 0, q), spread on its nodes in local axes and turned back to global ones:
// elements 1..24, positive pushes down.
std::array<double, 25> SurfaceLoad(const MeshRecord &mesh, const MeshNodes &m, const Matrix<24, 24> &ElementT);

// What the matrices of the rectangular element follow from; meshes with the same have the same. Begins as that of no
// mesh: none has a side below 0.
struct RectSection {
    double a = -1.0, b = -1.0, t = -1.0; // sides and thickness, m
    RectSection() = default;
    explicit RectSection(const MeshRecord &mesh) : a(mesh.KenarA), b(mesh.KenarB), t(mesh.Kalinlik / 100.0) {}
    bool operator==(const RectSection &) const = default;
};

// Mean side lengths, thickness and area loads of every active mesh into its record; free flags of its nodes.
void MeshPass();

// Stiffness and surface load of every active mesh, in global axes, into its record of STIF001. ElementSwitch chooses
// the element: 0 the rectangular one of modulus E (t/m2), else the general quadrilateral of PlaneD (plane_stress.h).
void ElementPass(double E, RecordFile &stif, AnalysisWindow &window);

// The mesh as the general quadrilateral takes it: its corners and its thickness.
void PlaceQuad(const MeshRecord &mesh, const MeshNodes &m);

} // namespace havuz
