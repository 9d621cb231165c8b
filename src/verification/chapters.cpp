#include "verification/examples.h"
#include "verification/page.h"
#include "verification/samples.h"

namespace havuz::verification {

std::vector<Chapter> AllChapters(const std::string &projects) {
    return {{"MacNeal and Harder's patch", "", PatchExamples()},
            {"MacNeal and Harder's beams", "", BeamExamples()},
            {"Plates", "", PlateExamples()},
            {"Strips and plates on an elastic bed", "", BedExamples()},
            {"Curved shells", "", ShellExamples()},
            {"Plates at right angles", "", FoldedExamples()},
            {"Beside an independent program",
             "The targets are figures of one run of CalculiX; it is not run when this page is made.",
             OutsideExamples()},
            {"Equilibrium of every example",
             "The projects of `examples/`; their [page](ornekler.md) checks them by hand, in Turkish.",
             EquilibriumExamples(projects)},
            {"Checks of the design by hand", "", WorkedExamples()},
            {"What the literal rules make of practical tanks",
             "The run follows the rules of the program to the letter and has to. Here is their size on thirteen tanks, "
             "its first mesh "
             "width the one that an engineer takes.",
             LiteralOutcomes()}};
}

} // namespace havuz::verification
