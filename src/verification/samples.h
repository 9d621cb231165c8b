// The sample projects: equilibrium of each, and the figures of their page, docs/ornekler.md. In a section whose heading
// names `NAME.POL` the last cell of a table row is the program's value of what the first cell asks for:
//   ölü yük | sıvı ağırlığı | kaldırma (t), G/U, zemin KEY (t/m2), çökme KEY (mm, of what lies on the bed),
//   duvar N, CASE, itki (t/m) or dip torku (t.m/m), about the foot, duvar|taban N, CASE, M22 (and the other results:
//   the greatest by magnitude), koşum duvar N, CASE, M11|M22 (of the program's own run; CASE L or S).
// What stands in brackets behind is for the reader.
#pragma once

#include "verification/example.h"

#include <string>
#include <vector>

namespace havuz::verification {

// One example a project of the folder: loads of each case beside springs and reactions.
std::vector<Example> EquilibriumExamples(const std::string &projects);

// The page with the last cells as the program has them now. A cell that asks for nothing known, a project that is not
// there, and a project of the folder without a section are std::runtime_error.
std::string FillSamples(const std::string &page, const std::string &projects);

} // namespace havuz::verification
