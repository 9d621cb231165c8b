// A check as a person checks it by hand: clause, formula, the numbers put in, the result with its unit, the verdict.
// Turkish, decimal comma; symbols as in the clause.
#pragma once

#include "design/checks.h"

#include <string>
#include <vector>

namespace havuz::design {

struct Worked {
    std::string title;   // "Donatı alanı"
    std::string clause;  // "EN 1992-1-1 6.2.2 (1)"
    std::string formula; // symbols
    std::string numbers; // the same with the numbers put in
    std::string result;  // "As = 4,56 cm²/m"
    bool met = true;
    std::string advice; // what would have to change; empty when it is met
};

Worked SteelWorked(const Basis &basis, const SteelRow &row);
Worked LeastSteelWorked(const Basis &basis, const SteelRow &row);
Worked SpacingWorked(const Basis &basis, const SteelRow &row);
Worked CrackWorked(const SteelRow &row);
Worked ShearWorked(const Basis &basis, const SteelRow &row);
Worked SoilWorked(const SoilState &state, double allowable);
Worked FlotationWorked(const Flotation &flotation);

// "Ø12/15"; "-" without bars.
std::string BarsText(const Bars &bars);

// "sağlanıyor" or "sağlanmıyor".
const char *VerdictText(bool met);

} // namespace havuz::design
