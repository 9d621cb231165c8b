// The report and its first pages from an answer. Reads the parameters of the project in the model store, which
// ReadAnswer left there.
#pragma once

#include "report/report.h"
#include "report/tank_answer.h"

namespace havuz {

struct AnswerReport {
    std::string html;
    std::vector<std::string> notices; // what the reader must know first, Turkish
};

// date as 2026-01-31; version of the program.
AnswerReport MakeAnswerReport(const TankAnswer &answer, const std::string &date, const std::string &version);

// Verdict, proof, ground, flotation and the run beside the consistent analysis, for a window.
std::string SummaryHtml(const TankAnswer &answer);

// What stands at the foot of each printed page.
std::string AnswerReportTitle(const TankAnswer &answer, const std::string &date);

} // namespace havuz
