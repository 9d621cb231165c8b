// The pictures of the report as vector drawings of the page's width: plan, section with levels, mesh, contours of a
// result on a panel laid flat, and the steel of a panel by zones. Words Turkish, numbers with comma and unit.
#pragma once

#include "design/steel.h"
#include "report/svg.h"
#include "report/unfold.h"

#include <array>
#include <string>
#include <vector>

namespace havuz::report {

constexpr double kPageWidth = 480.0; // points: A4 less its margins

// Walls cut at half their height, the outline of the floors, the greatest lengths.
Svg PlanPicture(const consistent::Tank &tank);

// Cut along X through the middle, with the levels of liquid, soil and groundwater.
Svg SectionPicture(const consistent::Tank &tank);

// All meshes seen from above at an angle, the farther ones first.
Svg MeshPicture(const consistent::Tank &tank);

// A result of stress by its name: N11 N22 N12 M11 M22 M12 Q1 Q2, its unit, or nothing of that name.
struct ShellField {
    const char *name;
    const char *unit;
    double consistent::ShellResult::*value;
};
const ShellField *FindShellField(const std::string &name);

// One value of a result at each corner of each mesh of a panel laid flat, in the order of FlatPanel::meshes.
using CornerValues = std::vector<std::array<double, 4>>;
CornerValues ValuesOf(const FlatPanel &flat, const consistent::CaseResult &result, const ShellField &field);

// Bands between round limits with their legend; the greatest and the least value marked.
Svg ContourPicture(const FlatPanel &flat, const CornerValues &values, const std::string &title,
                   const std::string &unit);

// Zones of the bars in both directions with what was chosen on each face.
Svg SteelPicture(const consistent::Tank &tank, const FlatPanel &flat, const std::vector<design::SteelRow> &rows);

} // namespace havuz::report
