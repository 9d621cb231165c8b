// The analysis driver: one linear static run over all load columns, from the meshed model to its result files.
#pragma once

#include "fea/analysis_window.h"

#include <string>

namespace havuz {

constexpr double PoissonRatio = 0.25; // no input

// Elastic modulus of the concrete class, t/m2: below 170 kg/cm2 2700000, below 250 2850000, else 3000000.
double ConcreteE(double fck);

// The paths of a run.
struct AnalysisPaths {
    std::string project;       // without extension; ".SON" and ".DEP" go behind it
    std::string handOver;      // the file WORKPOOL: one line, the project path
    std::string outputProgram; // command to start with the project path at the end; empty: none
};

// Runs the analysis of the model and ends the program through the window: it does not return. Writes project.DEP and
// project.SON, then the model that they belong to as project.HSP and the hand-over file, and starts the output program;
// STIF001 is deleted. The records of nodes keep their equation numbers, those of meshes their section data. Any
// RuntimeFailure comes out as it is, the result files left half written and the output program not started.
[[noreturn]] void AnalysisRun(const AnalysisPaths &paths, AnalysisWindow &window);

} // namespace havuz
