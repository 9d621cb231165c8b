// The pages of the sample projects, docs/ornekler.md and docs/ornek-*.md, and the program's figures in them. In a
// section whose heading names `NAME.POL` the last cell of a table row is the program's value of what the first cell
// asks for:
//   ölü yük | sıvı ağırlığı | kaldırma (t), G/U, zemin KEY (t/m2), çökme KEY (mm, of what lies on the bed),
//   duvar N, CASE, itki (t/m) or dip torku (t.m/m), about the foot, duvar|taban N, CASE, M22 (and the other results:
//   the greatest by magnitude), koşum duvar N, CASE, M11|M22 (of the program's own run; CASE L or S),
//   hesap M|N|As duvar|taban N, iç|dış, 1|2 (where that face of the panel asks for most steel; of a floor iç is above).
// What stands in brackets behind is for the reader.
#pragma once

#include <map>
#include <string>

namespace havuz::verification {

using SamplePages = std::map<std::string, std::string>; // text by file name

SamplePages ReadSamplePages(const std::string &docs);

// The pages with the last cells as the program has them now. A cell that asks for nothing known, a project that is not
// there, and a project of the folder without a section are std::runtime_error.
SamplePages FillSamples(const SamplePages &pages, const std::string &projects);

} // namespace havuz::verification
