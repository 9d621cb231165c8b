#include "app/variants_results.h"

#include "app/variants_literal.h"
#include "consistent/loads.h"
#include "consistent/tank.h"
#include "model/store.h"
#include "report/csv_table.h"

#include <algorithm>
#include <cmath>

namespace havuz {

namespace {

using namespace consistent;

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

} // namespace

const std::vector<std::string> &VariantResultNames() {
    static const std::vector<std::string> names = {"nodes",         "meshes",    "weight_t",  "concrete_m3",
                                                   "settlement_mm", "soil_t_m2", "flotation", "steel_t",
                                                   "steel_kg_m3",   "crack_mm",  "verdict",   "residual"};
    return names;
}

bool IsVariantResult(const std::string &name, const std::set<std::string> &keys) {
    const std::vector<std::string> &fixed = VariantResultNames();
    if (std::find(fixed.begin(), fixed.end(), name) != fixed.end())
        return true;
    const MomentName m = ParseMoment(name);
    return m.panel > 0 && keys.count(m.key) > 0;
}

std::set<std::string> VariantKeys(const std::string & /*project*/) {
    std::set<std::string> keys;
    for (const Case c : kAllCases)
        keys.emplace(NameOf(c).key);
    return keys;
}

std::map<std::string, std::string> VariantResults(const VariantQuestion &question) {
    const Tank tank = ReadTank();
    const Amounts amounts = AmountsOf(tank);
    std::map<std::string, std::string> results;
    for (const std::string &name : VariantResultNames())
        results[name];
    results["nodes"] = std::to_string(NoktaCount);
    results["meshes"] = std::to_string(tank.meshes.size());
    results["weight_t"] = CsvNumber(amounts.weight).text;
    results["concrete_m3"] = CsvNumber(amounts.concrete).text;
    if (question.literal)
        for (const auto &[name, value] : LiteralResults())
            results[name] = value;
    return results;
}

} // namespace havuz
