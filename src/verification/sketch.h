// Sketches of the manual as SVG text: a tank seen from above and aside with supports and loads, a section with its
// bars, values beside their target over the meshes.
#pragma once

#include "consistent/tank.h"

#include <string>
#include <vector>

namespace havuz::verification {

// Meshes from far to near, held nodes as marks (filled: every translation), forces as arrows, the longest 1/8 of the
// picture. forces by node.
std::string Sketch(const consistent::Tank &tank, const std::vector<Vector3> &forces);

// A rectangular section: thickness and depth of the bars, cm.
std::string SectionSketch(double h, double d, const std::string &words);

struct PlotLine {
    std::string name;
    std::vector<double> ratio; // value over target, by mesh
};
// The way of ratios to 1 over the meshes.
std::string ConvergencePlot(const std::vector<std::string> &meshes, const std::vector<PlotLine> &lines);

} // namespace havuz::verification
