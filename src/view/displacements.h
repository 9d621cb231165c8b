// Nodal displacements as the analysis left them: the file ProjeYolu + ".DEP", a record a node (model/result_records.h).
#pragma once

#include "model/points.h"

#include <string>
#include <vector>

namespace havuz {

using Displacement = SpacePoint; // m

// Of a node in a column 1..kResultColumns (else Subscript). Where there is no file, or it ends before the node's
// record, the node has no displacement: a model that was not analysed yet, or was meshed anew since.
Displacement ReadDisplacement(int node, int column);

// What the mesh view shows of one column.
struct LoadCase {
    std::vector<Displacement> node; // 1..NoktaCount
    double factor = 0.0;            // pixels per metre: the longest mark is as long as the arrow of a point load
};
LoadCase ReadLoadCase(int column);

// A length in m as millimetres: "1.492".
std::string MillimetreText(double metres);

// The greatest plan part and the greatest vertical part of a column in mm, in words for the prompt line.
std::string GreatestDisplacements(int column);

} // namespace havuz
