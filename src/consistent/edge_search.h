// Nodes that lie on mesh edges between two other nodes. Lengths in m.
#pragma once

#include "consistent/wall_side.h"

#include <cstddef>
#include <vector>

namespace havuz::consistent {

struct EdgePlace {
    int node = 0;
    int first = 0, second = 0; // ends of the edge
    double s = 0.0;            // from first, in parts of the edge
    double length = 0.0;       // of the edge
    std::size_t meshIndex = 0; // in Tank::meshes; the first mesh that has the edge
};

// Every pair of a node and an edge of an active mesh within 1 mm of each other, the node neither end nor a corner of
// that mesh. one: by project number, the node that stands for it; only those appear.
std::vector<EdgePlace> NodesOnEdges(const Tank &tank, const std::vector<int> &one);

} // namespace havuz::consistent
