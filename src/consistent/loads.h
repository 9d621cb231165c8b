// Loads of a tank as nodal forces, exact in force and moment, and what the bed under it is worth at each node. Forces
// in t along the global axes, positive along them (up is +Z); moments of forces about the origin in t.m.
#pragma once

#include "consistent/load_case.h"
#include "consistent/tank.h"

#include <array>
#include <vector>

namespace havuz::consistent {

// What the model store does not hold.
struct LoadOptions {
    double saturatedDensity = 0.0; // t/m3; 0: soil under water keeps its full density, as in the run
    double surcharge = 0.0; // t/m2 on the ground behind the walls: case Q presses Ka times it below the soil level
};

// Force at each node by project number (element 0 unused): area loads and pressures integrated with the bilinear
// functions of the true quadrilateral, walls over the wetted part cut at the level. No moments.
std::vector<Vector3> NodalLoads(const Tank &tank, Case c, const LoadOptions &options = {});

// True when the case loads anything at all.
bool HasLoads(const std::vector<Vector3> &loads);

// Plan area that each node carries of the meshes on the bed, m2, by project number: times Tank::bedding the spring on
// z, x and y, t/m.
std::vector<double> BedAreas(const Tank &tank);

// The pressure of one case on one wall.
struct WallForce {
    int panel = 0;
    double length = 0.0, height = 0.0; // of the panel: of a round wall the way around, m
    double force = 0.0;                // along the outward normals, t
    double moment = 0.0;               // about the lower edge, t.m, positive for an outward force above it
};
// Every wall panel in order of number; cases without pressure on walls give zeros.
std::vector<WallForce> WallForces(const Tank &tank, Case c, const LoadOptions &options = {});

// The unit normal of a wall mesh that points out of the tank, by mesh in the order of Tank::meshes; zero for others.
std::vector<Vector3> OutwardNormals(const Tank &tank);

} // namespace havuz::consistent
