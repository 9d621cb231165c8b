// What an engineer reads first in the result files: the extreme values of each load column and the balance of loads and
// springs. Lengths in m, moments in t.m/m, forces in t.
#pragma once

#include <string>
#include <vector>

namespace havuz {

// A value at a node; node 0 where the model has none.
struct NodeExtreme {
    double value = 0.0;
    int node = 0;
    int mesh = 0; // of a corner result
};

struct ColumnSummary {
    int code = 0;            // of YukListesi; 0 for column 1
    NodeExtreme settlement;  // greatest downward displacement of a node with a spring; below 0 when all of them rise
    NodeExtreme wall;        // greatest horizontal displacement of a node of a wall (Tip 1)
    NodeExtreme mx, my;      // greatest by magnitude, with their signs
    double verticalLoad = 0; // downward
    double springForce = 0;  // sum of Yay times settlement
};

// The meaning of a column in words: 0 surface and point loads, 1..4 load situations, 11..13 cell fillings.
std::string LoadCodeWords(int code);
std::string LoadCodeInTurkish(int code); // UTF-8

// Reads project.DEP and project.SON of the run just made, by the model in the store.
std::vector<ColumnSummary> SummariseResults(const std::string &project);

} // namespace havuz
