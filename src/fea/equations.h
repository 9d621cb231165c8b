// From nodes to equations: free flags, numbers, the envelope of the profile, the load columns of a run.
#pragma once

#include "fea/analysis_window.h"
#include "fea/element_geometry.h"

#include <array>
#include <vector>

namespace havuz {

// Slots ux, uy, uz, rx, ry, rz (elements 1..6): 1 where free, 0 where held. Bit 4 of Mesnet holds all three
// translations, bit 1 rx, bit 2 ry, either of the two rz.
std::array<int, 7> FreeSlots(int mesnet);

// The slots of the four nodes of a mesh become 1 where free, 0 where held.
void NodeEquationFlags(const MeshNodes &m);

// Every slot above 0 of the nodes 1..NoktaCount takes the next equation number; sets EquationCount.
void NumberEquations();

// Equation numbers of a mesh's 24 freedoms, elements 1..24; 0 where held.
std::array<int, 25> MeshEquations(const MeshNodes &m);

// Row lengths from every coupling of active meshes, the envelope closed, lengths turned to addresses: ProfileDiag and
// ProfileSize. A row's length counts the distance to smaller equations too, and row N keeps one cell: wanted, the size
// shown to the user follows from it.
void ProfileBuild(AnalysisWindow &window);

// Codes of the load columns that the load situations ask for, column 1 (0) first.
std::vector<int> ColumnCodes();

// YukListesi, YukSayisi, RhsSize, and the three text lines of the sizes.
void LoadColumnSetup(AnalysisWindow &window);

} // namespace havuz
