// The model as one input file of STAAD-III. One thickness, one pressure (those of panel 1) stand for all meshes.
#pragma once

#include "export/file_dialog.h"

#include <string>

namespace havuz {

// Asks for a path and writes the file; nothing without nodes or meshes.
void ExportStaad(FileDialog &dialog);

// The file's text, lines ended by CR LF. Rounds the stored coordinates of all nodes to three decimals.
std::string StaadText();

} // namespace havuz
