// The columns of a run beside the consistent analysis, and why they differ: one cause after another is switched from
// the run's way to the consistent one, and what each switch moves is told. The switches end at the consistent value, so
// the causes add up to the difference. Units: t.m/m.
#pragma once

#include "consistent/analysis.h"

#include <array>
#include <string>
#include <vector>

namespace havuz::consistent {

enum Cause { kCells, kCarryOver, kLevelOnEdge, kUpliftDatum, kWallWeight, kElementShape, kJoining };
constexpr std::size_t kCauses = 7;
struct CauseName {
    std::string_view code, english, turkish;
};
const CauseName &NameOf(Cause cause);

// The greatest value by magnitude of a moment in a panel and a load column.
struct RunComparison {
    int column = 0;    // of the run, from 1
    int code = 0;      // of YukListesi, 0 for column 1
    std::string cases; // the load cases that the column stands for: "L+S"
    int panel = 0;
    std::string quantity; // "M11", "M22"
    int mesh = 0, corner = 0, node = 0;
    double run = 0.0, consistent = 0.0;
    bool split = false; // the causes are known; not where the run's own equations do not stand in doubles
    std::array<double, kCauses> cause{};
};

// project: path without extension of a ".SON" of the model in the store. A file that ends early is File.
std::vector<RunComparison> CompareWithRun(const Analysis &analysis, const std::string &project);

} // namespace havuz::consistent
