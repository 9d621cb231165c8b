#include "design/combination.h"

#include <array>
#include <string_view>

namespace havuz::design {

namespace {

struct Situation {
    std::string_view key, turkish;
    std::string_view cases; // keys of the load cases
};
constexpr std::array<Situation, 4> kSituations = {{
    {"test", "su deneyi", "GNL"},
    {"full", "dolu, dolgulu", "GPNLSWUQ"},
    {"empty", "boş, dolgulu", "GNSQ"},
    {"empty-water", "boş, yeraltı sulu", "GNSWUQ"},
}};

DesignCombination Make(const Situation &s, std::string_view ending, double dead, double rest, bool surcharge) {
    DesignCombination c;
    c.sum.key = std::string(s.key) + std::string(ending);
    c.factored = !ending.empty();
    for (const consistent::Case kase : consistent::kAllCases) {
        const bool taken = s.cases.find(consistent::NameOf(kase).key) != std::string_view::npos;
        if (taken && (kase != consistent::kSurcharge || surcharge))
            c.sum.factor.at(static_cast<std::size_t>(kase)) = kase == consistent::kDead ? dead : rest;
    }
    return c;
}

} // namespace

std::vector<DesignCombination> DefaultCombinations(DesignMethod method, const LoadFactors &factors, bool surcharge) {
    std::vector<DesignCombination> all;
    for (const Situation &s : kSituations)
        all.push_back(Make(s, "", 1.0, 1.0, surcharge));
    if (method == DesignMethod::Elastic)
        return all;
    for (const Situation &s : kSituations) {
        all.push_back(Make(s, "-u", factors.dead, factors.rest, surcharge));
        all.push_back(Make(s, "-g", kHelpingDead, factors.rest, surcharge));
    }
    return all;
}

std::string TurkishName(const std::string &key) {
    for (const Situation &s : kSituations) {
        if (key == s.key)
            return std::string(s.turkish);
        if (key == std::string(s.key) + "-u")
            return std::string(s.turkish) + " (katsayılı)";
        if (key == std::string(s.key) + "-g")
            return std::string(s.turkish) + " (katsayılı, 0,9 G)";
    }
    return key;
}

} // namespace havuz::design
