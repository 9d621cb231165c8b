// Facts about a project, printed as text for a person or as JSON for a program from the same rows.
#pragma once

#include <iosfwd>
#include <string>
#include <variant>
#include <vector>

namespace havuz {

// Texts too long to stand in a row: a person gets one line for each.
struct Lines {
    std::vector<std::string> lines;
};

using FactValue = std::variant<double, bool, std::string, std::vector<double>, std::vector<std::string>, Lines>;

struct Fact {
    std::string key;   // name in JSON
    std::string label; // words for a person
    FactValue value;
    std::string unit; // shown to a person
};

struct FactSection {
    std::string key, title;
    std::vector<Fact> facts;
};

void PrintFacts(const std::vector<FactSection> &sections, std::ostream &out);
void PrintFactsAsJson(const std::vector<FactSection> &sections, std::ostream &out);

} // namespace havuz
