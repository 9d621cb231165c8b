// The report and its first pages from an answer. Reads the parameters of the project in the model store, which
// ReadAnswer left there.
#pragma once

#include "report/report.h"
#include "report/tank_answer.h"

namespace havuz {

// date as 2026-01-31; version of the program.
std::string AnswerReportHtml(const TankAnswer &answer, const std::string &date, const std::string &version);

// Verdict, proof, ground, flotation and the run's own columns, for a window.
std::string SummaryHtml(const TankAnswer &answer);

// What stands at the foot of each printed page.
std::string AnswerReportTitle(const TankAnswer &answer, const std::string &date);

} // namespace havuz
