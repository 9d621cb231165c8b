// What both export formats share: the chosen path, the load factors, lines, the way to the disk. Files have lines ended
// by CR LF, in Windows-1254.
#pragma once

#include "export/file_dialog.h"

#include <string>
#include <string_view>

namespace havuz {

extern std::string ExportPath; // what the file dialog gave last

void ResetExport();

// Factors of dead and live load: both 1 when HesapYontem is 0, else YukFaktorG and YukFaktorP.
struct LoadFactors {
    double f1 = 1.0, f2 = 1.0;
};
LoadFactors ExportFactors();

// The one surface pressure of the model, t/m2: of panel 1, whatever the other panels carry. Wanted.
double ExportPressure(const LoadFactors &f);

void AddLine(std::string &text, std::string_view line);

// Nothing can be exported without nodes and meshes.
bool NothingToExport();

using ExportText = std::string (*)();

// Writes beside the file and renames over it; a failure (File) leaves an older export whole.
void WriteExport(const std::string &path, ExportText text);

// Asks for a path and writes there; ExportPath is "" when nothing was written.
void RunExport(FileDialog &dialog, const char *title, ExportText text);

} // namespace havuz
