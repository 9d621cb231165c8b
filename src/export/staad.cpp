#include "export/staad.h"

#include "export/export_file.h"
#include "export/number_fields.h"
#include "model/mesh_facts.h"
#include "model/store.h"
#include "model/supports.h"

namespace havuz {

static void AddNodes(std::string &text) {
    AddLine(text, "JOINT COORDINATES");
    for (int i = 1; i <= NoktaCount; ++i) {
        NoktaRecord &n = NoktaTable[i];
        std::string line = "  " + FixedField(i, 4, 0);
        for (Float32 *v : {&n.X, &n.Y, &n.Z})
            line += "   " + FixedField(*v, 9, 3);
        AddLine(text, line);
    }
}

static void AddMeshes(std::string &text) {
    AddLine(text, "ELEMENT INCIDENCES");
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &m = MeshTable[i];
        if (!IsFullyOn(m))
            continue;
        std::string line = "  " + FixedField(i, 4, 0);
        for (const int n : MeshCorners(m))
            line += "   " + FixedField(n, 4, 0);
        AddLine(text, line);
    }
}

// All mesh numbers, also of meshes that are off: wanted.
static std::string AllMeshes() { return "1 TO" + PlainNumberText(MeshCount); }

// The thickness goes out in cm as it is stored, though the file is in metres: wanted.
static void AddProperties(std::string &text) {
    AddLine(text, "ELEMENT PROPERTY");
    AddLine(text, AllMeshes() + " TH" + PlainNumberText(PanelTable[1].D));
    AddLine(text, "CONSTANTS");
    AddLine(text, "E 2400000. ALL");
}

// What follows the node's number, or "". Both rotations held and nothing else writes nothing: wanted.
static std::string SupportText(int code) {
    const bool translation = HoldsTranslation(code);
    const bool x = HoldsRotationX(code);
    const bool y = HoldsRotationY(code);
    const bool z = x && y;
    if (!translation && !x && !y)
        return "";
    const std::string rotations = std::string(x ? "" : " MX") + (y ? "" : " MY") + (z ? "" : " MZ");
    if (translation && z)
        return " FIXED";
    if (!translation && rotations.empty())
        return "";
    // the translation along Z is the one held: "FZ" falls out of " FX FY FZ" and leaves both its blanks
    return " FIXED BUT" + std::string(translation ? " FX FY " : "") + rotations;
}

static void AddSupports(std::string &text) {
    AddLine(text, "SUPPORTS");
    for (int i = 1; i <= NoktaCount; ++i) {
        const std::string support = SupportText(NoktaTable[i].Mesnet);
        if (!support.empty())
            AddLine(text, BareNumber(i) + support);
    }
}

static std::string ForceText(const char *name, double factor, double force) {
    return force != 0.0 ? name + PlainNumberText(factor * force) : "";
}

// A point load takes the factor of the dead load, and its Z sign turns.
static void AddPointLoads(std::string &text, const LoadFactors &f) {
    std::string lines;
    for (int i = 1; i <= NoktaCount; ++i) {
        const NokYukRecord &load = NokYukTable[i];
        if (HasPointLoad(load))
            AddLine(lines, PlainNumberText(i) + ForceText(" FX ", f.f1, load.FX) + ForceText(" FY ", f.f1, load.FY) +
                               ForceText(" FZ ", -f.f1, load.FZ));
    }
    if (lines.empty())
        return;
    AddLine(text, "JOINT LOAD");
    text += lines;
}

static void AddLoads(std::string &text) {
    const LoadFactors f = ExportFactors();
    AddLine(text, "LOAD 1");
    AddLine(text, "ELEMENT LOAD");
    AddLine(text, AllMeshes() + " PR " + PlainNumberText(ExportPressure(f)));
    AddPointLoads(text, f);
}

static void AddCommands(std::string &text) {
    for (const char *line :
         {"PERFORM ANALYSIS", "PLOT STRESS FILE", "PLOT BENDING FILE", "PLOT DISPLACEMENT", "PRINT MEMBER FORCES ALL",
          "PRINT ELEMENT FORCES ALL", "PRINT DISPLACEMENT ALL", "PRINT SUPPORT REACTIONS", "UNIT CM KG", "FINISH"})
        AddLine(text, line);
}

std::string StaadText() {
    std::string text;
    AddLine(text, "STAAD SPACE " + ProjeAdi + " BRIRUG ORNEGI");
    AddLine(text, "INPUT WIDTH 79");
    AddLine(text, "UNIT METER MTON");
    AddNodes(text);
    AddMeshes(text);
    AddProperties(text);
    AddSupports(text);
    AddLoads(text);
    AddCommands(text);
    return text;
}

void ExportStaad(FileDialog &dialog) { RunExport(dialog, "STAAD-III PROGRAMI ICIN BIR DOSYA ADI GIRINIZ", StaadText); }

} // namespace havuz
