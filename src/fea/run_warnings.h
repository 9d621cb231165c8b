// What a run says about itself: where its rules, kept to the letter, give an answer that an engineer must not take as
// it stands. Read from the model in the store and its ".DEP"; nothing of either changes. Amounts in m, t, t/m2.
#pragma once

#include <string>
#include <vector>

namespace havuz {

// code: residual, carried-over, level-on-edge, no-weight, uplift-short, repeats, springs-pull, no-foundation,
// large-movement, lost-load. The words say what was measured and what can be done; UTF-8, one line.
struct Warning {
    std::string code, english, turkish;
};

// Loads and model alone: carried-over, level-on-edge, no-weight, uplift-short, repeats, no-foundation, lost-load.
std::vector<Warning> ModelWarnings();

// Point loads that meet no equation: at a node of no active mesh, or at one that is held.
std::vector<Warning> LostPointLoads();

// All of a run: those above and, from project.DEP, residual, springs-pull, large-movement. A file that is missing or
// ends early is File.
std::vector<Warning> RunWarnings(const std::string &project);

} // namespace havuz
