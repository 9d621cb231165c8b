// The pressures of the run, mesh by mesh: liquid, soil and groundwater on floors and walls, with the rule by which a
// pressure that does not reach a wall mesh keeps the shares of the pressure before it. Units: m, t.
// Signs are those of Rhs, which holds the negative of the load: positive in z pushes down.
#pragma once

#include "fea/element_geometry.h"

#include <array>
#include <functional>

namespace havuz {

enum class Pressure { Liquid, Soil, Water };

// Whether a load column of this code takes the pressure.
bool TakesPressure(int code, Pressure pressure);

// How the shares of a wall mesh came about: under the level, cut by it, or kept from the pressure before.
enum class ShareRule { Wet, Cut, Kept };

// What one pressure puts on one mesh.
struct MeshPressure {
    Pressure pressure = Pressure::Liquid;
    MeshNodes nodes;
    double level = 0.0, density = 0.0; // t/m3; of soil times Ka
    bool wall = false;
    // floors: plan area, mean height of the nodes, thickness that stands on it
    double area = 0.0, z = 0.0, thickness = 0.0;
    // walls: depth of edges 1-2 and 3-4 below the level, length in plan, height, whose shares they are when kept
    double d12 = 0.0, d34 = 0.0, length = 0.0, height = 0.0;
    ShareRule rule = ShareRule::Wet;
    Pressure keptFrom = Pressure::Liquid;
    // the result: of each corner 1..4 its force in x, y (walls) or z (floors)
    std::array<double, 5> fx{}, fy{}, fz{};
    double share12 = 0.0, share34 = 0.0; // walls: horizontal force of each corner of the edge, t
};

// Every pressure of every mesh with Sil 0, liquid first, in the order of meshes. A wall without length in plan is
// DivisionByZero, naming the mesh.
void ForEachPressure(const std::function<void(const MeshPressure &)> &take);

// +1 or -1: the sense of plate 1's outline, which decides the way of the wall pressures of all walls; 1 without plates.
double OutlineSign();

} // namespace havuz
