// The meshed tank as any shell program takes it: nodes, four- or three-cornered shells, supports, springs, load cases
// as nodal loads, and the places that hang on an edge. Node and mesh numbers are those of the project. Units: m, t.
#pragma once

#include "consistent/joining.h"
#include "consistent/tank.h"

#include <array>
#include <string>
#include <vector>

namespace havuz {

struct ShellNode {
    int number = 0;
    Vector3 at;
    std::array<bool, 6> held{}; // ux uy uz rx ry rz
    double spring = 0.0;        // along each axis, t/m
};

struct ShellMesh {
    int number = 0;
    std::vector<int> corners; // four, or three where two are at one place
    int panel = 0;            // a plate is 1000 and its number
    double thickness = 0.0;   // m
};

using NodalForce = std::array<double, 6>; // FX FY FZ MX MY MZ, t and t.m

struct ShellCase {
    std::string key;               // G, P, ...
    std::string title;             // English
    std::vector<NodalForce> force; // by node number
};

// A node whose six freedoms follow those of others.
struct ShellHanging {
    int node = 0;
    std::vector<consistent::NodeLink> links;
};

struct ShellModel {
    std::string name; // of the project
    double E = 0.0, poisson = 0.0;
    int lastNode = 0, lastMesh = 0; // numbers in the project: what a format adds goes above
    std::vector<ShellNode> nodes;   // that a mesh uses, in order
    std::vector<ShellMesh> meshes;
    std::vector<ShellCase> cases; // those that load something
    std::vector<ShellHanging> hanging;
};

// Loads and springs of the consistent analysis. Nodes at one place are one, the lowest; what they bear goes with them.
ShellModel ConsistentModel(const consistent::Tank &tank, const std::string &name);

// The tank's shells and supports alone, no node joined that the project does not join: for loads and springs of another
// analysis.
ShellModel PlainModel(const consistent::Tank &tank, const std::string &name);

// At 12 digits with a point.
std::string ShellNumber(double value);

} // namespace havuz
