#include "export/sap90.h"

#include "export/export_file.h"
#include "export/number_fields.h"
#include "model/mesh_facts.h"
#include "model/springs.h"
#include "model/store.h"
#include "model/supports.h"

#include <cmath>
#include <vector>

namespace havuz {

static constexpr double kLevel = 0.01; // m: a side whose ends differ by no more is level

// One entry for each node number.
using SlopeFlags = std::vector<int>;    // 1: the node lies on a mesh side that is not level
using NodeForces = std::vector<double>; // vertical force from the surface load, t

static std::size_t Slot(int node) { return static_cast<std::size_t>(node); }

static std::string NodeField(int n) { return FixedField(n, 4, 0); }

static void AddHead(std::string &text) {
    AddLine(text, "SAP90 " + ProjeAdi + " BRIRUG ORNEGI");
    AddLine(text, "SYSTEM P = 1");
    AddLine(text, "N=" + BareNumber(NoktaCount) + "     L=1");
}

static void AddJoints(std::string &text) {
    AddLine(text, "JOINTS");
    for (int i = 1; i <= NoktaCount; ++i) {
        NoktaRecord &n = NoktaTable[i];
        const std::string x = FixedField(n.X, 9, 3);
        const std::string y = FixedField(n.Y, 9, 3);
        const std::string z = FixedField(n.Z, 9, 3);
        AddLine(text, NodeField(i) + "  X= " + x + "  Y= " + y + "  Z= " + z);
    }
    AddLine(text, "");
}

// Off meshes count as well.
static SlopeFlags FindSlopes() {
    SlopeFlags flag(kNoktaCapacity + 1, 0);
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &m = MeshTable[i];
        const auto ring = MeshRing(m);
        for (std::size_t k = 0; k < 4; ++k) {
            if (!(std::fabs(NoktaTable[ring[k]].Z - NoktaTable[ring[k + 1]].Z) > kLevel))
                continue;
            flag[Slot(ring[k])] = 1;
            flag[Slot(ring[k + 1])] = 1;
        }
    }
    return flag;
}

// The sixth place is held when either rotation is, and bit 4 holds all translations: not as in the other export.
// Wanted.
static std::string RestraintText(int code, int slope) {
    if (code == 0)
        return slope == 0 ? "0,0,0,0,0,0" : "1,1,0,0,0,0";
    std::string t = HoldsTranslation(code) ? "1,1,1" : "0,0,0";
    for (const int bits : {kRotationXHeld, kRotationYHeld, kRotationXHeld | kRotationYHeld})
        t += (code & bits) != 0 ? ",1" : ",0";
    return t;
}

static void AddRestraints(std::string &text) {
    const SlopeFlags slope = FindSlopes();
    AddLine(text, "RESTRAINTS");
    for (int i = 1; i <= NoktaCount; ++i)
        AddLine(text, NodeField(i) + "                  R=" + RestraintText(NoktaTable[i].Mesnet, slope[Slot(i)]));
    AddLine(text, "");
}

// The shell card names the corners across, n1 n2 n4 n3; the mesh record goes round.
static std::string ShellLine(int mesh) {
    const auto [n1, n2, n3, n4] = MeshCorners(MeshTable[mesh]);
    Float32 t = PanelTable[1].D;
    return NodeField(mesh) + "   JQ= " + NodeField(n1) + ", " + NodeField(n2) + ", " + NodeField(n4) + ", " +
           NodeField(n3) + "    M= 1  ETYPE=0   TH=" + FixedField(t, 6, 3);
}

// A mesh that is off has no line, but its area still loads its nodes: wanted.
static NodeForces AddShells(std::string &text, double pressure) {
    NodeForces force(kNoktaCapacity + 1, 0.0);
    AddLine(text, "SHELL");
    AddLine(text, "NM=1");
    AddLine(text, "1       E=2.4E6   U=0.15  W=0");
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &m = MeshTable[i];
        if (IsFullyOn(m))
            AddLine(text, ShellLine(i));
        const double share = pressure * MeshPlanArea(i) / 4.0;
        for (const int n : MeshCorners(m))
            force[Slot(n)] += share;
    }
    AddLine(text, "");
    return force;
}

static std::string Thousandths(double scaled) {
    const std::string text = PlainNumberText(std::floor(scaled) / 1000.0);
    return text[0] == ' ' ? text.substr(1) : text;
}

// A load on a vertically held node is dropped: wanted.
static void AddLoads(std::string &text, const NodeForces &force, double f1) {
    AddLine(text, "LOADS");
    for (int i = 1; i <= NoktaCount; ++i) {
        if (HoldsTranslation(NoktaTable[i].Mesnet))
            continue;
        const NokYukRecord &load = NokYukTable[i];
        const std::string fx = Thousandths(1000.0 * f1 * load.FX);
        const std::string fy = Thousandths(1000.0 * f1 * load.FY);
        const std::string fz = Thousandths(1000.0 * (force[Slot(i)] - f1 * load.FZ));
        AddLine(text, BareNumber(i) + "  L=1   F=" + fx + "," + fy + "," + fz);
    }
}

std::string SapText() {
    const LoadFactors f = ExportFactors();
    std::string text;
    AddHead(text);
    AddJoints(text);
    AddRestraints(text);
    const NodeForces force = AddShells(text, ExportPressure(f));
    AddLoads(text, force, f.f1);
    return text;
}

void ExportSap(FileDialog &dialog) { RunExport(dialog, "SAP90 PROGRAMI ICIN BIR DOSYA ADI GIRINIZ", SapText); }

} // namespace havuz
