// What the tests of plates share: plates and polygon pools put into the model, meshes read back as points and areas.
#pragma once

#include "mesh/plane_geometry.h"
#include "mesh/space_point.h"

#include <array>
#include <map>
#include <utility>
#include <vector>

namespace havuz {

// A plate with this outline at one height and no walls. Gives its number.
int PutPlak(const std::vector<PlanPoint> &outline, double z = 0.0);

// A polygon pool from z 0 to z 3, meshed by OtoMesh with this width.
void PutPool(const std::vector<PlanPoint> &outline);
void MeshPool(const std::vector<PlanPoint> &outline, double width);

std::vector<PlanPoint> Rectangle(double x, double y, double lx, double ly);
std::vector<PlanPoint> Turned(std::vector<PlanPoint> outline, double angle);
std::vector<PlanPoint> Reversed(std::vector<PlanPoint> outline);

// Four nodes of a mesh, and twice its signed area in plan.
std::array<int, 4> Corners(int mesh);
double TwicePlanArea(int mesh);

// How many meshes each side has, by its nodes.
std::map<std::pair<int, int>, int> MeshesBySide();

} // namespace havuz
