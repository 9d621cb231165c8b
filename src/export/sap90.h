// The model as one input file of SAP90. The surface load goes out as nodal forces, and nodes without a support get
// restraints by a rule of their own.
#pragma once

#include "export/file_dialog.h"

#include <string>

namespace havuz {

// Asks for a path and writes the file; nothing without nodes or meshes.
void ExportSap(FileDialog &dialog);

// The file's text, lines ended by CR LF. Rounds the stored coordinates of all nodes to three decimals.
std::string SapText();

} // namespace havuz
