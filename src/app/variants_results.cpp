#include "app/variants_results.h"

#include "app/designed_project.h"
#include "app/variants_literal.h"
#include "design/steel.h"
#include "model/store.h"
#include "report/csv_table.h"
#include "report/lightest.h"

#include <algorithm>
#include <cmath>
#include <iostream>

namespace havuz {

namespace {

using namespace consistent;

// The combination of settlement and soil.
constexpr const char *kFull = "full";

struct MomentName {
    int panel = 0;
    bool first = true; // M11, else M22
    std::string key;
};

// panel 0 when the name is none.
MomentName ParseMoment(const std::string &name) {
    MomentName m;
    if (name.rfind("M_", 0) != 0)
        return m;
    const std::size_t end = name.find('_', 2);
    if (end == std::string::npos || end == 2 || end > 8 ||
        name.substr(2, end - 2).find_first_not_of("0123456789") != std::string::npos)
        return m;
    const std::string direction = name.substr(end, 4);
    if (direction != "_11_" && direction != "_22_")
        return m;
    m.panel = std::stoi(name.substr(2, end - 2));
    m.first = direction == "_11_";
    m.key = name.substr(end + 4);
    return m;
}

struct Amounts {
    double weight = 0.0, concrete = 0.0; // t, m3
};

// Half the cross product of the diagonals is the area of a flat quadrilateral.
Amounts AmountsOf(const Tank &tank) {
    Amounts all;
    for (const TankMesh &m : tank.meshes) {
        const Vector3 normal = Cross(tank.corner(m, 2) - tank.corner(m, 0), tank.corner(m, 3) - tank.corner(m, 1));
        const double area = std::sqrt(Dot(normal, normal)) / 2.0;
        all.weight += area * tank.panelOf(m).dead;
        all.concrete += area * tank.panelOf(m).thickness;
    }
    return all;
}

const CaseResult *ResultOf(const design::Design &design, const std::string &key) {
    for (const auto *list : {&design.cases, &design.combinations})
        for (const CaseResult &result : *list)
            if (result.key == key)
                return &result;
    return nullptr;
}

// Greatest |value| at the corners of the panel's meshes; empty where the tank has no such panel.
std::string GreatestMoment(const Analysis &analysis, const design::Design &design, const MomentName &name) {
    const Tank &tank = analysis.tank();
    if (tank.panels.count(name.panel) == 0)
        return "";
    const CaseResult *result = ResultOf(design, name.key);
    if (result == nullptr)
        throw TableFailure("there is no case or combination \"" + name.key + "\"");
    double greatest = 0.0;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 1; k <= 4 && tank.meshes[i].panel == name.panel; ++k) {
            const ShellResult &r = result->meshes[i][k];
            greatest = std::max(greatest, std::fabs(name.first ? r.M11 : r.M22));
        }
    return CsvNumber(greatest).text;
}

// Of the nodes with a spring; below 0 where all rise.
std::string Settlement(const Analysis &analysis, const design::Design &design) {
    const CaseResult *full = ResultOf(design, kFull);
    bool any = false;
    double greatest = 0.0;
    for (std::size_t n = 1; full != nullptr && n < full->nodes.size(); ++n)
        if (analysis.bedAreas()[n] > 0.0) {
            greatest = any ? std::max(greatest, -full->nodes[n].u[2]) : -full->nodes[n].u[2];
            any = true;
        }
    return any ? CsvNumber(1000.0 * greatest).text : "";
}

std::string SoilPressure(const design::Design &design) {
    for (const design::SoilState &state : design.soil)
        if (state.combination == kFull && state.node != 0)
            return CsvNumber(state.pressure).text;
    return "";
}

double WidestCrack(const design::Design &design) {
    double widest = 0.0;
    for (const design::SteelRow &row : design.steel)
        widest = std::max(widest, row.layer.crack.wk);
    return widest;
}

double GreatestResidual(const design::Design &design) {
    double greatest = 0.0;
    for (const auto *list : {&design.cases, &design.combinations})
        for (const CaseResult &result : *list)
            greatest = std::max(greatest, result.proof.residual);
    return greatest;
}

} // namespace

const std::vector<std::string> &VariantResultNames() {
    static const std::vector<std::string> names = {"nodes",         "meshes",    "weight_t",     kConcreteColumn,
                                                   "settlement_mm", "soil_t_m2", "flotation",    kSteelColumn,
                                                   "steel_kg_m3",   "crack_mm",  kVerdictColumn, "residual"};
    return names;
}

bool IsVariantResult(const std::string &name, const std::set<std::string> &keys) {
    const std::vector<std::string> &fixed = VariantResultNames();
    if (std::find(fixed.begin(), fixed.end(), name) != fixed.end())
        return true;
    const MomentName m = ParseMoment(name);
    return m.panel > 0 && keys.count(m.key) > 0;
}

static std::string SettingsStem(const std::string &project) {
    return project.empty() ? "/proc/self/none" : project; // a tank without a project has no settings beside it
}

std::set<std::string> VariantKeys(const std::string &project) {
    const design::SettingsFile file = design::ReadSettings(SettingsStem(project) + ".RAP");
    if (!file.english.empty())
        std::cerr << file.english << "\n";
    std::set<std::string> keys;
    for (const Case c : kAllCases)
        keys.emplace(NameOf(c).key);
    for (const auto method : {design::DesignMethod::Strength, design::DesignMethod::Elastic})
        for (const auto &combination : design::DefaultCombinations(method, {}, true))
            keys.insert(combination.sum.key);
    for (const auto &combination : file.settings.combinations)
        keys.insert(combination.sum.key);
    return keys;
}

std::map<std::string, std::string> VariantResults(const VariantQuestion &question) {
    const TankAnswer project = DesignModel(SettingsStem(question.project));
    const design::Design &design = project.design;
    const Amounts amounts = AmountsOf(project.analysis->tank());
    const double steel = design::SteelWeight(project.analysis->tank(), design.steel);
    std::map<std::string, std::string> results;
    results["nodes"] = std::to_string(NoktaCount);
    results["meshes"] = std::to_string(project.analysis->tank().meshes.size());
    results["weight_t"] = CsvNumber(amounts.weight).text;
    results[kConcreteColumn] = CsvNumber(amounts.concrete).text;
    results["settlement_mm"] = Settlement(*project.analysis, design);
    results["soil_t_m2"] = SoilPressure(design);
    results["flotation"] = design.flotation.asked() ? CsvNumber(design.flotation.ratio()).text : "";
    results[kSteelColumn] = CsvNumber(steel).text;
    results["steel_kg_m3"] = CsvNumber(1000.0 * steel / amounts.concrete).text;
    results["crack_mm"] = CsvNumber(WidestCrack(design)).text;
    results[kVerdictColumn] = design.met() ? kVerdictMet : "not met";
    results["residual"] = CsvNumber(GreatestResidual(design)).text;
    for (const std::string &name : question.moments)
        results[name] = GreatestMoment(*project.analysis, design, ParseMoment(name));
    if (question.literal)
        for (const auto &[name, value] : LiteralResults())
            results[name] = value;
    return results;
}

} // namespace havuz
