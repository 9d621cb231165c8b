// Pools of the library and of polygons in the model store, meshed, as tanks.
#pragma once

#include "consistent/tank.h"

#include <string>
#include <utility>
#include <vector>

namespace havuz::verification {

using Parameters = std::vector<std::pair<double *, double>>; // a parameter of the store and its value

// The program as a fresh start leaves it. Reads the option files beside the program that runs.
void FreshModel();

// A fresh program with that project in it.
void OpenProject(const std::string &path);

// Names of the projects of a folder, "NAME.POL", in order.
std::vector<std::string> ProjectsOf(const std::string &folder);

// A fresh program with the pool of a page (1 rectangular, 2 circular) in it, meshed.
consistent::Tank LibraryPool(int page, const Parameters &parameters);

struct PolygonShape {
    std::vector<std::pair<double, double>> points; // outline, m
    double top = 0.0, bottom = 0.0;                // m
    double wall = 20.0, base = 30.0;               // thickness, cm
    double width = 0.0;                            // of the meshes, m
};
// A fresh program with that polygon pool in it, meshed. sound: by the sound mesher.
consistent::Tank PolygonTank(const PolygonShape &shape, const Parameters &parameters = {}, bool sound = false);

} // namespace havuz::verification
