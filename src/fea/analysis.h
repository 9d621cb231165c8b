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

// Runs the analysis of the model and ends the program through the window: it does not return. project.DEP, project.SON,
// the model that they belong to as project.HSP and the hand-over file are written beside their places and take them
// together; then it starts the output program. The records of nodes keep their equation numbers, those of meshes their
// section data. Any RuntimeFailure comes out as it is: the files of the run before stand, the output program is not
// started. File: another process analyses the project.
[[noreturn]] void AnalysisRun(const AnalysisPaths &paths, AnalysisWindow &window);

} // namespace havuz
