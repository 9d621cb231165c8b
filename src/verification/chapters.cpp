#include "verification/examples.h"
#include "verification/page.h"

namespace havuz::verification {

std::vector<Chapter> AllChapters(const std::string &projects) {
    return {
        {"MacNeal and Harder in the plane", "", PatchExamples()},
        {"MacNeal and Harder's beams", "", BeamExamples()},
        {"Plates", "", PlateExamples()},
        {"Strips and plates on an elastic bed", "", BedExamples()},
        {"Curved shells", "", ShellExamples()},
        {"Plates at right angles", "", FoldedExamples()},
        {"Beside an independent program",
         "The targets are figures of one run of CalculiX with meshes of the finest width; it is not run when this page "
         "is made.",
         OutsideExamples()},
        {"Equilibrium of every example",
         "The projects of `examples/`; their [pages](ornekler.md) check them by hand, in Turkish. Meshes are those of "
         "the project and each as four and as sixteen; the run has those of the project.",
         EquilibriumExamples(projects)},
        {"Checks of the design by hand", "The formulas of a section have no mesh: one column stands for the program.",
         WorkedExamples()},
        {"What the literal rules make of practical tanks",
         "The run follows the rules of the program to the letter and has to. Here is their size on thirteen tanks, "
         "with the meshes that an engineer takes.",
         LiteralOutcomes()}};
}

} // namespace havuz::verification
