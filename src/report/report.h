// The calculation report: one Turkish document from the values of an analysis and a design. The same values give the
// same bytes: date, version and hash come in as text.
#pragma once

#include "consistent/analysis.h"
#include "consistent/causes.h"
#include "design/checks.h"
#include "mesh/mesh_report.h"

#include <string>
#include <utility>
#include <vector>

namespace havuz::report {

// Label and words, as what the project says besides its geometry: value with unit.
using Facts = std::vector<std::pair<std::string, std::string>>;

// A load column of the run's own result files, beside the consistent values.
struct LiteralColumn {
    std::string name;                         // Turkish
    double settlement = 0, mx = 0, my = 0;    // mm, t.m/m: greatest by magnitude
    double verticalLoad = 0, springForce = 0; // t
};

struct ReportInput {
    std::string title, name;          // of the project; its file's name
    std::string version, date;        // "0.1.0", "31.01.2026"
    std::string hash;                 // SHA-256 of the model's bytes
    std::vector<std::string> notices; // what the reader must know first, Turkish
    Facts warnings;                   // of the run: code and words, Turkish
    std::vector<MeshFault> meshFaults;
    Facts facts;
    std::vector<LiteralColumn> literal; // empty without result files, so too the comparison
    std::vector<consistent::RunComparison> comparison;
};

constexpr const char *kModelChanged = "Model bu analizden sonra değişti";

// The parameters of the project in the model store.
Facts ProjectFacts(const design::Basis &basis);

std::string ReportHtml(const ReportInput &input, const consistent::Analysis &analysis, const design::Design &design);

// "2026-01-31" as "31.01.2026"; nothing when it is no date.
std::string TurkishDate(const std::string &date);

} // namespace havuz::report
