// Tables of extremes by panel, as CSV text: of every case and combination, of their envelopes, and of the columns of
// the run's own files.
#pragma once

#include "report/tank_answer.h"

#include <string>

namespace havuz {

// panel,kind,case,result,unit,least,mesh_least,greatest,mesh_greatest. Displacements and the soil at the nodes of a
// panel, else the corner values. Results that are zero in a panel are left out.
std::string ExtremesTable(const TankAnswer &answer);

// The same over the combinations in service, and over the factored ones, with the combination of either value.
std::string EnvelopeTable(const TankAnswer &answer);

// The first table of .DEP and .SON: case is the Turkish name of the column. A file that cannot be read is File.
std::string FileExtremesTable(const TankAnswer &answer);

} // namespace havuz
