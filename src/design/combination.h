// Combinations of load cases that the checks go through: the four situations of a tank in service, and factored for the
// strength method.
#pragma once

#include "consistent/load_case.h"
#include "design/materials.h"

#include <string>
#include <vector>

namespace havuz::design {

struct DesignCombination {
    consistent::Combination sum; // key and factors
    bool factored = false;       // of the strength method; else in service
};

// G and the rest: YukFaktorG and YukFaktorP.
struct LoadFactors {
    double dead = 1.4, rest = 1.6;
};
constexpr double kHelpingDead = .9; // on G where it helps

// "test" G+N+L, "full" G+P+N+L+S+W+U, "empty" G+N+S, "empty-water" G+N+S+W+U, each with Q where S is; with the strength
// method also factored: "-u" with the dead load factor on G, "-g" with .9 on it.
std::vector<DesignCombination> DefaultCombinations(DesignMethod method, const LoadFactors &factors, bool surcharge);

// Turkish name of a combination by its key: "su deneyi", ... with the kind of factors; an unknown key stays itself.
std::string TurkishName(const std::string &key);

} // namespace havuz::design
