// The records of the result files, numbers in them IEEE 754 32-bit floats, least significant byte first; record n of a
// file begins at byte (n - 1) * length. Units: m, rad; t/m2, t.m/m, t/m.
#pragma once

#include "model/fields.h"

#include <array>
#include <cstddef>

namespace havuz {

constexpr int kResultColumns = 16; // column slots of a result record
constexpr int kNodeResults = 6;    // ux, uy, uz, rx, ry, rz
constexpr int kMeshResults = 24;   // six results at four corners
// ".SON": one record a mesh, 1536 bytes.
using SonRecord = std::array<Float32, static_cast<std::size_t>(kResultColumns *kMeshResults)>;
// ".DEP": one record a node, 384 bytes.
using DepRecord = std::array<Float32, static_cast<std::size_t>(kResultColumns *kNodeResults)>;
static_assert(sizeof(SonRecord) == 1536 && sizeof(DepRecord) == 384);

// First element of a column (1..16) of a DepRecord.
constexpr int DepColumn(int column) { return (column - 1) * kNodeResults; }

} // namespace havuz
