// The examples of the manual by their chapters.
#pragma once

#include "verification/example.h"

namespace havuz::verification {

std::vector<Example> PatchExamples();  // MacNeal and Harder's patch and thick cylinder
std::vector<Example> BeamExamples();   // their beams
std::vector<Example> PlateExamples();  // rectangular plates
std::vector<Example> ShellExamples();  // roofs, cylinders, spheres
std::vector<Example> BedExamples();    // strips and plates on an elastic bed
std::vector<Example> FoldedExamples(); // plates at right angles

std::vector<Example> WorkedExamples();  // checks of the design by hand
std::vector<Example> OutsideExamples(); // pools beside CalculiX
std::vector<Example> LiteralOutcomes(); // what the rules of the run make of practical tanks

// One example a project of the folder: loads of each case beside springs and reactions.
std::vector<Example> EquilibriumExamples(const std::string &projects);

// All models of the first six, in the order of the manual.
std::vector<Example> AllExamples();
// The one of that key; std::logic_error where there is none.
Example ExampleOf(const std::string &key);

} // namespace havuz::verification
