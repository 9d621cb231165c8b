// What a mesh record says, told in one place: its corners in order, and the three meanings of Sil.
//   Sil 0 is on. Sil 1 is switched off by the user: no stiffness, no weight, no results, not drawn. Any other value
//   comes from a file: such a mesh has stiffness, weight and results, and neither pressure nor, above 0, springs; the
//   exports leave it out. The three tests differ and stay different.
#pragma once

#include "model/store.h"

#include <array>

namespace havuz {

// N1..N4.
inline std::array<int, 4> MeshCorners(const MeshRecord &mesh) { return {mesh.N1, mesh.N2, mesh.N3, mesh.N4}; }
// The same, and N1 again: side k runs from element k to k + 1.
inline std::array<int, 5> MeshRing(const MeshRecord &mesh) { return {mesh.N1, mesh.N2, mesh.N3, mesh.N4, mesh.N1}; }
inline std::array<Int16 *, 4> CornerFields(MeshRecord &mesh) { return {&mesh.N1, &mesh.N2, &mesh.N3, &mesh.N4}; }
inline void PutCorners(MeshRecord &mesh, int n1, int n2, int n3, int n4) {
    mesh.N1 = n1;
    mesh.N2 = n2;
    mesh.N3 = n3;
    mesh.N4 = n4;
}

inline bool IsSwitchedOff(const MeshRecord &mesh) { return mesh.Sil == 1; }
inline bool IsFullyOn(const MeshRecord &mesh) { return mesh.Sil == 0; }
inline bool TakesSprings(const MeshRecord &mesh) { return !(mesh.Sil > 0); }

} // namespace havuz
