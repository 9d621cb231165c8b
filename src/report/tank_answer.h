// Everything that there is to say of a project after a run, in one value: the model as it was analysed, the consistent
// analysis, the checks, and what is known of the files beside it. Who shows or prints results takes this.
#pragma once

#include "consistent/analysis.h"
#include "design/checks.h"
#include "design/settings.h"
#include "mesh/mesh_report.h"

#include <functional>
#include <optional>
#include <string>

namespace havuz {

// Where the model came from.
enum class ModelOrigin {
    Analysed, // NAME.HSP: the model of the last run
    Project   // the project itself: there is no NAME.HSP
};

struct TankAnswer {
    std::string stem; // full path of the project without extension
    ModelOrigin origin = ModelOrigin::Project;
    std::string noAnalysed; // NAME.HSP is there and cannot be read: why, Turkish
    bool changed = false;   // the project would be analysed as another model than NAME.HSP
    bool hasFiles = false;  // NAME.DEP and NAME.SON are there, and of this model
    std::string noFiles;    // else why not, Turkish: ".SON yok"
    consistent::Tank tank;
    design::SettingsFile settings;
    design::Basis basis;
    std::vector<MeshFault> meshFaults; // of the mesh as it stands; ReadAnswer alone fills it
    std::vector<std::string> columns;  // Turkish names of the load columns of the files, from column 1
    // after AnalyseAnswer
    std::shared_ptr<const consistent::Analysis> analysis;
    design::Design design;
};

// The model in the store, as it stands, with the settings and what is known of the files beside the project: path
// without extension.
TankAnswer AnswerOfModel(const std::string &project);

// Reads project.HSP into the store, or the project where there is none: open loads a file as a fresh program does, with
// its paths. What the project and its settings file are is read and nothing is written. Failures of reading come out
// as they are.
TankAnswer ReadAnswer(const std::string &project, const std::function<void(const std::string &path)> &open);

// The analysis and the checks; works on the value alone, so that it may run beside a window. step tells in Turkish what
// is done. A model that cannot be analysed is an AnalysisFailure.
void AnalyseAnswer(
    TankAnswer &answer, const std::function<void(const std::string &step)> &step = [](const std::string &) {});

} // namespace havuz
