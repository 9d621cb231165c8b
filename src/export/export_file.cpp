#include "export/export_file.h"

#include "model/code_page.h"
#include "model/options.h"
#include "model/store.h"
#include "model/write_file.h"

namespace havuz {

std::string ExportPath;

void ResetExport() { ExportPath.clear(); }

LoadFactors ExportFactors() {
    if (HesapYontem == 0.0)
        return {};
    return {YukFaktorG, YukFaktorP};
}

double ExportPressure(const LoadFactors &f) { return -(f.f1 * PanelTable[1].G + f.f2 * PanelTable[1].P); }

void AddLine(std::string &text, std::string_view line) {
    text += line;
    text += "\r\n";
}

bool NothingToExport() { return NoktaCount == 0 || MeshCount == 0; }

void WriteExport(const std::string &path, ExportText text) {
    BesideFile file(path); // opened before the text rounds the model
    file.write(ToCodePage(text()));
    file.replaceTarget();
}

void RunExport(FileDialog &dialog, const char *title, ExportText text) {
    ResetExport();
    if (NothingToExport())
        return;
    ExportPath = dialog.AskSaveName(title, "", ProjeAdi);
    if (ExportPath.empty())
        return;
    WriteExport(ExportPath, text);
}

} // namespace havuz
