// Plate grid meshing: one polygonal plate of PlakTable becomes four-node meshes on a square grid of a given step
// that is anchored on the plate's longest edge. Plan coordinates and heights in metres.
// The automatic driver (oto_mesh.h) calls it once a plate, in plate order.
#pragma once

#include "mesh/plane_geometry.h"
#include "model/fields.h"
#include "model/table.h"

#include <array>
#include <string>

namespace havuz {

constexpr int kPlakGrid = 500;         // grid points of one plate along each axis, 0..500
constexpr int kPlakMeshPoints = 1000;  // points of one plate
constexpr int kDortluCapacity = 1000;  // quadrilaterals of one plate
constexpr int kMeshedPlakPoints = 199; // outline points of a plate that is meshed: slot n + 1 closes the outline

// A quadrilateral of the plate in work: its four points and the grid cell that it was made in. Record 0 is scratch.
struct DortluRecord {
    Int16 Unused;
    Row<Int16, 4> Kose;
    Int16 CI, CJ;
};
extern Table<DortluRecord, kDortluCapacity> DortluTable;

// Where the inside test last hit the outline to the left, right, below and above (elements 1..4). Neither a point nor
// a plate resets them: wanted, the test measures from them.
extern std::array<PlanPoint, 5> StoredHits;

void ResetPlakMesh();

// Meshes plate plak at a mesh width in m: appends to NoktaTable (X, Y, Z, PlakKodu) and MeshTable (N1..N4, PanelNo) and
// raises NoktaCount and MeshCount. Closes the plate's outline in slot n + 1 and leaves a copy of it in record PlakCount
// + 10. A plate without an inside point gives nothing. Subscript, with plate and limit in words: more than 199 outline
// points, 500 grid steps, 1000 points, 1000 quadrilaterals, the node or mesh table full. Overflow: a plate number
// above 32. DivisionByZero: an outline of zero width or height in plan, a slope of zero length, a width of 0.
void PlakMeshle(int plak, double width);

} // namespace havuz
