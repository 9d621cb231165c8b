// A project with its consistent analysis and its checks, as check, results and report read it.
#pragma once

#include "consistent/analysis.h"
#include "design/checks.h"
#include "design/settings.h"

#include <memory>
#include <string>

namespace havuz {

struct DesignedProject {
    std::unique_ptr<consistent::Analysis> analysis;
    design::Design design;
    design::SettingsFile settings; // NAME.RAP as it was found
};

// Analyses and checks the model in the store with the settings beside it: path without extension. What is wrong with
// the settings is a line on standard error. A model that cannot be analysed is an AnalysisFailure.
DesignedProject DesignModel(const std::string &stem);

// The bytes of the model in the store as a project file: what reports name by their hash.
std::string ModelBytes();

} // namespace havuz
