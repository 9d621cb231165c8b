#include "app/designed_project.h"

#include "model/analysed_project.h"

#include <iostream>

namespace havuz {

DesignedProject DesignModel(const std::string &stem) {
    DesignedProject project;
    project.settings = design::ReadSettings(stem + ".RAP");
    if (!project.settings.english.empty())
        std::cerr << project.settings.english << "\n";
    const design::Basis basis = design::MakeBasis(project.settings.settings);
    consistent::Options options;
    options.loads.saturatedDensity = basis.settings.saturatedDensity;
    options.loads.surcharge = basis.settings.surcharge;
    options.threads = consistent::AllowedThreads();
    project.analysis = std::make_unique<consistent::Analysis>(consistent::ReadTank(), options);
    project.design = design::DesignTank(*project.analysis, basis);
    return project;
}

std::string ModelBytes() { return AnalysedText(); }

} // namespace havuz
