// What a table of variants can say of a tank: the names of its result columns and their values.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace havuz {

// The names without moments, in the order in which --list prints them.
const std::vector<std::string> &VariantResultNames();

// How moments are named: the greatest |M11| or |M22| of a panel (a plate is 1000 and its number) in a load case or
// combination.
constexpr const char *kMomentPattern = "M_PANEL_11|22_KEY";

// keys: of the cases and combinations that there are.
bool IsVariantResult(const std::string &name, const std::set<std::string> &keys);

// Cases and combinations of the project whose path without extension is given; "" for a pool of the library.
std::set<std::string> VariantKeys(const std::string &project);

struct VariantQuestion {
    std::string project;              // path without extension whose combinations and limits hold; "" for none
    std::vector<std::string> moments; // names as kMomentPattern says
    bool literal = false;
};

// The model in the store, meshed, analysed and checked. Every name of VariantResultNames has a value, "" where there
// is none to give.
std::map<std::string, std::string> VariantResults(const VariantQuestion &question);

} // namespace havuz
