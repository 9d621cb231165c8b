#include "fea/run_warnings.h"

#include "fea/element_pass.h"
#include "fea/result_summary.h"
#include "fea/run_residual.h"
#include "fea/run_warnings_work.h"
#include "model/link_code.h"
#include "model/load_codes.h"
#include "model/mesh_facts.h"
#include "model/springs.h"
#include "model/store.h"
#include "model/supports.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace havuz {

namespace {

double DeadLoadOf(const PanelRecord &panel) { return 2.5 * panel.D / 100.0; } // concrete, t/m2

// The load situation or cell filling that asks for a column.
std::string SwitchOf(int code) {
    return IsFillingCode(code) ? "YukKombinasyon(" + std::to_string(FillingOf(code)) + ")"
                               : "YukDurum(" + std::to_string(SituationOf(code)) + ")";
}

double SquareSum(const std::vector<double> &v) {
    double sum = 0.0;
    for (const double x : v)
        sum += x * x;
    return sum;
}

// Loads that differ by no more than the rounding of 32 bits are the same to a run.
bool SameLoads(const std::vector<double> &a, const std::vector<double> &b) {
    double apart = 0.0;
    for (std::size_t k = 0; k < a.size(); ++k)
        apart += (a[k] - b[k]) * (a[k] - b[k]);
    return apart <= 1e-12 * SquareSum(a);
}

bool NodeIsHeld(int node) { return HoldsTranslation(NoktaTable[node].Mesnet); }

} // namespace

void WarnOfRepeats(const std::vector<RunColumn> &columns, std::vector<Warning> &warnings) {
    for (std::size_t c = 1; c < columns.size(); ++c)
        for (std::size_t b = 0; b < c; ++b)
            if (const double sum = SquareSum(columns[c].load);
                sum > 0.0 && SameLoads(columns[c].load, columns[b].load)) {
                warnings.push_back(
                    Say("repeats",
                        "load column {0} repeats load column {1}: the same loads at every node (their "
                        "root sum of squares is {2} t in both); give its level where it belongs, or leave "
                        "it out with {3}=0",
                        "{0}. kolon {1}. kolonun aynısı: her noktada aynı yük (kareleri toplamının kökü "
                        "ikisinde de {2} t); kotunu düzeltin ya da {3}=0 ile çıkarın",
                        {ColumnName(c, columns[c].code), ColumnName(b, columns[b].code), Number(std::sqrt(sum), 2),
                         Names(SwitchOf(columns[c].code))}));
                break;
            }
}

void WarnOfWeightlessWalls(std::vector<Warning> &warnings) {
    double missing = 0.0;
    std::vector<int> panels;
    for (int i = 1; i <= MeshCount; ++i) {
        const int owner = MeshTable[i].PanelNo;
        if (IsSwitchedOff(MeshTable[i]) || OwnerIsPlate(owner))
            continue;
        const PanelRecord &panel = PanelTable[owner];
        if (panel.Tip != 1 || panel.G != 0.0 || !(panel.D > 0.0))
            continue;
        const MeshRecord mesh = AnalysedMesh(MeshNodeData(i));
        missing += DeadLoadOf(panel) * mesh.KenarA * mesh.KenarB;
        if (std::find(panels.begin(), panels.end(), owner) == panels.end())
            panels.push_back(owner);
    }
    if (panels.empty())
        return;
    std::vector<SaidAmount> settings;
    for (const int panel : panels)
        settings.push_back(
            Names("G(" + std::to_string(panel) + ")=" + Number(DeadLoadOf(PanelTable[panel]), 3).english));
    warnings.push_back(
        Say("no-weight",
            "{0} wall panels have G 0 and weigh nothing: {1} t of concrete (2.5 t/m3) are missing in load "
            "column 1; give it to them with set: {2}",
            "{0} duvar panelinin G değeri 0, ağırlıkları yok: 1. kolonda {1} t beton (2,5 t/m³) eksik; "
            "verin: {2}",
            {Count(static_cast<int>(panels.size())), Number(missing, 2), List(settings)}));
}

void WarnOfNoFoundation(std::vector<Warning> &warnings) {
    int nodes = 0;
    const std::vector<char> free = FreeFreedoms();
    for (int i = 1; i <= MeshCount; ++i)
        if (!IsSwitchedOff(MeshTable[i]))
            for (const int node : MeshCorners(MeshTable[i]))
                if (NodeIsHeld(node))
                    return;
    for (const Float32 spring : FoundationSprings())
        if (spring != 0.0)
            return;
    for (int i = 1; i <= NoktaCount; ++i)
        nodes += free[FreedomAt(i, 3)];
    if (nodes > 0)
        warnings.push_back(
            Say("no-foundation",
                "no spring and no support holds the model ({0} nodes, Ko {1} t/m3): its displacements and "
                "moments mean nothing; give ZeminKo above 0 and a base panel (Tip 0), or supports "
                "(Mesnet(n)=4)",
                "modeli tutan ne yay ne mesnet var ({0} nokta, Ko {1} t/m³): yer değiştirme ve momentlerin "
                "anlamı yok; ZeminKo'yu 0'dan büyük verip taban paneli (Tip 0) koyun ya da mesnet verin "
                "(Mesnet(n)=4)",
                {Count(nodes), Level(ZeminKo)}));
}

std::vector<Warning> LostPointLoads() {
    const std::vector<char> free = FreeFreedoms();
    std::vector<Warning> lost;
    for (int i = 1; i <= NoktaCount; ++i) {
        const NokYukRecord &load = NokYukTable[i];
        if (!HasPointLoad(load) || free[FreedomAt(i, 1)] != 0)
            continue;
        const std::vector<SaidAmount> amounts = {Count(i), Number(load.FX, 3), Number(load.FY, 3), Number(load.FZ, 3)};
        if (NodeIsHeld(i))
            lost.push_back(
                Say("lost-load",
                    "the point load of node {0} (FX {1}, FY {2}, FZ {3} t) meets no equation: the node is held "
                    "and its support takes it; a run with more than one load column fails on it; remove it "
                    "with set 'FX({0})=0' 'FY({0})=0' 'FZ({0})=0'",
                    "{0} noktasının yükü (FX {1}, FY {2}, FZ {3} t) hiçbir denkleme girmez: nokta tutulu, yükü "
                    "mesneti alır; birden çok kolonlu analiz onda durur; FX, FY, FZ değerlerini 0 yapın",
                    amounts));
        else
            lost.push_back(
                Say("lost-load",
                    "the point load of node {0} (FX {1}, FY {2}, FZ {3} t) meets no equation: no active mesh "
                    "uses the node; a run with more than one load column fails on it; put the load on a node "
                    "of a mesh",
                    "{0} noktasının yükü (FX {1}, FY {2}, FZ {3} t) hiçbir denkleme girmez: noktayı kullanan açık "
                    "mesh yok; birden çok kolonlu analiz onda durur; yükü bir meshin noktasına verin",
                    amounts));
    }
    return lost;
}

std::vector<Warning> ModelWarnings() {
    const std::vector<RunColumn> columns = RunColumns();
    std::vector<Warning> warnings;
    WarnOfWallPressures(columns, warnings);
    WarnOfWeightlessWalls(warnings);
    WarnOfUplift(columns, warnings);
    WarnOfRepeats(columns, warnings);
    WarnOfNoFoundation(warnings);
    for (Warning &lost : LostPointLoads())
        warnings.push_back(std::move(lost));
    return warnings;
}

} // namespace havuz
