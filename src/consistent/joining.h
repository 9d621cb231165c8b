// Which nodes are one and which hang on an edge. Nodes of active meshes within 1 mm are one; a node within 1 mm of a
// mesh edge between two other nodes hangs on that edge and follows it: linear along it and in the plane of the mesh,
// the cubic of thin bending across it, whose slope is the rotation about the edge's normal in the plane, the twist
// linear. What follows is eliminated exactly; rigid motions of the masters move it rigidly. Lengths in m.
#pragma once

#include "consistent/results.h"

#include <Eigen/Dense>
#include <vector>

namespace havuz::consistent {

using Matrix6 = Eigen::Matrix<double, 6, 6>;

// Part of a node's six freedoms that comes from those of a master.
struct NodeLink {
    int master = 0; // project number
    Matrix6 from;
};

struct Joints {
    std::vector<int> one;                      // by project number: the node it is one with, itself or a lower one
    std::vector<bool> hangs;                   // by project number, of the nodes that stand for others
    std::vector<std::vector<NodeLink>> follow; // by project number: its masters; none for a node of its own freedoms
    std::vector<ExtraJoint> list;

    // Nodes whose freedoms those of n come from.
    std::vector<int> mastersOf(int n) const;
};

Joints JoinNodes(const Tank &tank);
// Every node for itself.
Joints NoJoints(const Tank &tank);

} // namespace havuz::consistent
