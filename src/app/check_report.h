// What havuz-cli check says of a tank: as text for a person, as JSON for a program.
#pragma once

#include "consistent/analysis.h"
#include "consistent/causes.h"
#include "consistent/tables.h"
#include "fea/run_warnings.h"
#include "model/analysed_project.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace havuz {

struct CheckReport {
    std::string file;
    const consistent::Analysis *analysis = nullptr;
    std::vector<consistent::CaseResult> cases;        // as they are shown
    std::vector<consistent::CaseResult> combinations; // those that were solved, for their proof
    std::vector<std::string> notes;                   // assumptions and what could not be solved, in words
    std::vector<Warning> warnings;
    ResultState run = ResultState::None; // of the run's result files
    std::vector<consistent::RunComparison> comparisons;

    consistent::CaseList shown() const;  // the cases
    consistent::CaseList proved() const; // cases, then combinations
};

void PrintCheck(const CheckReport &report, std::ostream &out);
void PrintCheckAsJson(const CheckReport &report, bool full, std::ostream &out);

} // namespace havuz
