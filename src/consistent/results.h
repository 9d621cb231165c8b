// Results of the consistent analysis, in doubles, each with its proof. Units: m, rad, t, t/m, t.m/m, t/m2.
// Axes of stress results: walls 1 horizontal, 2 upward, 3 inward (1 runs to the right when one looks at the wet face);
// slabs 1 = X, 2 = Y, 3 = Z upward; floors and strips of circular pools 1 tangential (counter-clockwise from above),
// 2 radial (outward), at the centre X and Y.
// Signs: N positive in tension. M = integral of stress times the distance along 3: positive is tension on the inner
// (wet) face of walls and on the upper face of slabs; M11 bends bars that lie along 1; M12 a tensor component.
// Q = integral of the shear stress on the face whose normal is 1 or 2, positive along 3: Qa = Ma1,1 + Ma2,2.
#pragma once

#include "consistent/loads.h"

#include <array>
#include <string>
#include <vector>

namespace havuz::consistent {

struct NodeResult {
    std::array<double, 6> u{}; // ux uy uz (m), rx ry rz (rad, right-hand), global axes
    double soil = 0.0;         // pressure of the bed, t/m2, positive pressed; 0 where there is no bed
    double reaction = 0.0;     // of a held node, t, upward; 0 elsewhere
};

struct ShellResult {
    double N11 = 0.0, N22 = 0.0, N12 = 0.0; // t/m
    double M11 = 0.0, M22 = 0.0, M12 = 0.0; // t.m/m
    double Q1 = 0.0, Q2 = 0.0;              // t/m
};
using MeshResult = std::array<ShellResult, 5>; // 0 the centre, 1..4 the corners in the mesh's stored order

// Components FX FY FZ MX MY MZ, moments about the origin; global axes, t and t.m.
using Resultant = std::array<double, 6>;
constexpr std::array<const char *, 6> kComponents = {"FX", "FY", "FZ", "MX", "MY", "MZ"};

// Forces on the structure: loads, springs and reactions together are nothing.
struct Proof {
    Resultant load{}, spring{}, reaction{}, sum{};
    double residual = 0.0; // |f - K u| / |f|, 2-norm; 0 for a case without load
};

// One case or one combination.
struct CaseResult {
    std::string key;
    std::vector<NodeResult> nodes;  // by project number; element 0 and nodes that no active mesh uses stay zero
    std::vector<MeshResult> meshes; // in the order of Tank::meshes
    std::vector<ShellResult> means; // mean at a node within one plane: places by Analysis::planeNodes
    std::vector<WallForce> walls;   // by panel
    Proof proof;
    // Bed without tension; of an ordinary bed liftedArea 0 and rounds 0.
    bool tensionFree = false;
    double liftedArea = 0.0; // m2 of plan whose springs were let go
    int rounds = 0;          // solutions until the set stood
};

// A node in one plane (one panel, or panels in one plane): the place of an element of CaseResult::means.
struct PlaneNode {
    int node = 0;
    int plane = 0; // numbered from 0; Analysis::meshPlanes has that of each mesh
};

// A joint that the project's own numbering does not have.
struct ExtraJoint {
    int node = 0;     // project number
    int with = 0;     // the node it is one with, or an end of the edge it hangs on
    int otherEnd = 0; // the other end of the edge; 0 where two nodes are one
    int mesh = 0;     // a mesh that has the edge; 0 where two nodes are one
};

} // namespace havuz::consistent
