// havuz-cli info: what an engineer wants to know of a project.
#include "app/cli.h"
#include "app/facts.h"
#include "app/project.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/result_summary.h"
#include "fea/run_warnings.h"
#include "fea/system.h"
#include "mesh/mesh_report.h"
#include "model/analysed_project.h"
#include "model/files.h"
#include "model/load_codes.h"
#include "model/parameters.h"
#include "model/store.h"
#include "model/supports.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>

namespace havuz {

namespace {

FactSection ProjectFacts(const std::string &file) {
    const char *types[] = {"cell layout", "rectangular", "circular"};
    const std::string type = HavuzTip >= 0 && HavuzTip <= 2 ? types[static_cast<int>(HavuzTip)] : "other";
    return {"project",
            "project",
            {{"file", "file", file, ""},
             {"title", "title", ProjeIsmi, ""},
             {"poolType", "pool type", type, ""},
             {"panels", "panels", PanelCount + 0.0, ""},
             {"plates", "plates", PlakCount + 0.0, ""},
             {"meshed", "meshed", MeshCount > 0, ""},
             {"nodes", "nodes", NoktaCount + 0.0, ""},
             {"meshes", "meshes", MeshCount + 0.0, ""}}};
}

// The box around everything the model has: panel corners, plate points, nodes.
class Extents {
public:
    void take(double x, double y, double z) {
        add(0, x);
        add(1, y);
        add(2, z);
    }
    FactSection facts() const {
        FactSection section{"extents", "extents", {}};
        const char *axes[] = {"x", "y", "z"};
        for (std::size_t i = 0; i < 3; ++i)
            if (!empty_)
                section.facts.push_back(
                    {axes[i], std::string(axes[i]) + " from, to", std::vector<double>{low_[i], high_[i]}, "m"});
        return section;
    }

private:
    void add(std::size_t axis, double v) {
        low_[axis] = empty_ ? v : std::min(low_[axis], v);
        high_[axis] = empty_ ? v : std::max(high_[axis], v);
        empty_ = empty_ && axis < 2;
    }
    bool empty_ = true;
    double low_[3] = {}, high_[3] = {};
};

FactSection ExtentFacts() {
    Extents extents;
    for (int i = 1; i <= NoktaCount; ++i)
        extents.take(NoktaTable[i].X, NoktaTable[i].Y, NoktaTable[i].Z);
    if (NoktaCount > 0)
        return extents.facts();
    for (int i = 1; i <= PanelCount; ++i)
        for (int k = 1; k <= 4; ++k)
            extents.take(PanelTable[i].X[k], PanelTable[i].Y[k], PanelTable[i].Z[k]);
    for (int i = 1; i <= PlakCount; ++i)
        for (int k = 1; k <= PlakTable[i].NoktaSayisi; ++k)
            extents.take(PlakTable[i].X[k], PlakTable[i].Y[k], PlakTable[i].Z[k]);
    return extents.facts();
}

int HeldNodes(int bit) {
    int count = 0;
    for (int i = 1; i <= NoktaCount; ++i)
        count += (NoktaTable[i].Mesnet & bit) != 0 ? 1 : 0;
    return count;
}

FactSection SupportFacts() {
    int edges = 0;
    for (int i = 1; i <= PanelCount; ++i)
        for (int e = 1; e <= 4; ++e)
            edges += PanelTable[i].KenarMesnet[e] != 0 ? 1 : 0;
    return {"supports",
            "supports",
            {{"translationHeld", "nodes held against translation", HeldNodes(kTranslationHeld) + 0.0, ""},
             {"rotationXHeld", "nodes held against rotation x", HeldNodes(kRotationXHeld) + 0.0, ""},
             {"rotationYHeld", "nodes held against rotation y", HeldNodes(kRotationYHeld) + 0.0, ""},
             {"supportedEdges", "supported panel edges", edges + 0.0, ""}}};
}

FactSection LoadFacts() {
    int nodes = 0;
    double fx = 0.0;
    double fy = 0.0;
    double fz = 0.0;
    for (int i = 1; i <= NoktaCount; ++i) {
        const NokYukRecord &load = NokYukTable[i];
        nodes += HasPointLoad(load) ? 1 : 0;
        fx += load.FX;
        fy += load.FY;
        fz += load.FZ;
    }
    std::vector<std::string> situations;
    for (int i = 0; i <= kYukKombinasyonLast; ++i)
        if (YukKombinasyon[i] > 0)
            situations.push_back(LoadCodeWords(FillingCode(i)));
    for (int i = 0; i <= kYukDurumLast; ++i)
        if (YukDurum[i] > 0)
            situations.push_back(LoadCodeWords(SituationCode(i)));
    return {"loads",
            "loads",
            {{"situations", "load situations", situations, ""},
             {"pointLoads", "nodes with a point load", nodes + 0.0, ""},
             {"pointLoadSum", "sum of FX, FY, FZ", std::vector<double>{fx, fy, fz}, "t"}}};
}

Fact ParameterFact(const Parameter &p) {
    const bool diameter = p.value == &Lx && HavuzTip == 2;
    return {p.name, diameter ? "Lx diameter" : p.label, *p.value, p.unit};
}

FactSection ParameterFacts() {
    std::vector<double> diameters;
    for (int i = 1; i <= 13; ++i)
        if (DonatiCaplari[i] > 0)
            diameters.push_back(DonatiCaplari[i]);
    FactSection section{"parameters", "parameters", {}};
    for (const char *name :
         {"ZeminKo", "ZeminGzem", "ZeminKa", "ZeminYogunluk", "SiviYogunluk", "YeraltiSuKotu", "SiviKotu", "ToprakKotu",
          "UstKot", "AltKot", "Lx", "Ly", "Bk", "KenarKalinlik", "AltKalinlik", "Fck", "Fyk"})
        section.facts.push_back(ParameterFact(*FindParameter(name)));
    section.facts.push_back(
        {"HesapYontem", "design method", HesapYontem == 0 ? "EMNIYET GERILMESI" : "TASIMA GUCU", ""});
    section.facts.push_back({"DonatiCaplari", "bar diameters", diameters, "mm"});
    return section;
}

// By ResultState.
constexpr std::array<const char *, 3> kResultWords = {"none", "of an older model", "of this model"};

// The sizes that a run would have; the model in the store keeps its section data and equation numbers.
FactSection AnalysisFacts() {
    AnalysisWindow none;
    MeshPass();
    NumberEquations();
    ProfileBuild(none);
    LoadColumnSetup(none);
    std::vector<std::string> results;
    for (const char *extension : {".DEP", ".SON"})
        if (FileExists(ProjeYolu + extension))
            results.push_back(ProjeYolu + extension);
    Lines lost;
    for (const Warning &warning : LostPointLoads())
        lost.lines.push_back(warning.english);
    const ResultState state = ResultsBeside(ProjeYolu);
    return {"analysis",
            "analysis",
            {{"equations", "equations", EquationCount + 0.0, ""},
             {"profileSize", "profile size S()", ProfileSize + 0.0, "cells"},
             {"loadColumns", "load columns", YukSayisi + 0.0, ""},
             {"fits", "fits the arrays of the analysis", SystemFits(), ""},
             {"lostLoads", "point loads lost", lost, ""},
             {"resultFiles", "result files", results, ""},
             {"resultsOf", "results are", std::string(kResultWords.at(static_cast<std::size_t>(state))), ""}}};
}

// The same lines that the mesh command prints.
FactSection MeshFacts() { return {"mesh", "mesh report", {{"warnings", "warnings", Lines{MeshReport()}, ""}}}; }

// A mesh with a corner that is no node can be reported, not analysed.
std::vector<FactSection> AllFacts(const std::string &file) {
    std::vector<FactSection> sections = {ProjectFacts(file), ExtentFacts(), SupportFacts(), LoadFacts(),
                                         ParameterFacts()};
    if (MeshCount > 0)
        sections.push_back(MeshFacts());
    if (EveryCornerIsANode())
        sections.push_back(AnalysisFacts());
    return sections;
}

void PrintInfo(const std::string &file, bool json) {
    OpenProject(file);
    const std::vector<FactSection> sections = AllFacts(file);
    if (json)
        PrintFactsAsJson(sections, std::cout);
    else
        PrintFacts(sections, std::cout);
}

} // namespace

void AddInfoCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string file;
        bool json = false;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("info", "what is in a project");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_flag("--json", o->json, "the same for programs");
    command->callback([o, &job] { job = {o->file, [o] { PrintInfo(o->file, o->json); }}; });
}

} // namespace havuz
