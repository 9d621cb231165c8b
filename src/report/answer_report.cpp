#include "report/answer_report.h"

#include "fea/result_summary.h"
#include "fea/run_warnings.h"
#include "model/analysed_project.h"
#include "model/failure.h"
#include "model/store.h"
#include "report/chapters.h"
#include "report/sha256.h"
#include "report/summary_chapters.h"

#include <filesystem>

namespace havuz {

namespace {

// What the run itself says: its warnings, its columns, and why they are not those of the consistent analysis. Files
// that cannot be read are a notice.
void TakeRun(const TankAnswer &answer, report::ReportInput &input) {
    std::vector<Warning> warnings;
    try {
        warnings = answer.hasFiles ? RunWarnings(answer.stem) : ModelWarnings();
        for (const ColumnSummary &c : answer.hasFiles ? SummariseResults(answer.stem) : std::vector<ColumnSummary>{})
            input.literal.push_back({LoadCodeInTurkish(c.code), c.settlement.value * 1000.0, c.mx.value, c.my.value,
                                     c.verticalLoad, c.springForce});
        if (answer.hasFiles)
            input.comparison = consistent::CompareWithRun(*answer.analysis, answer.stem);
    } catch (const RuntimeFailure &failure) {
        input.literal.clear();
        input.notices.push_back(".SON okunamadı: " + FailureInTurkish(failure));
        warnings = ModelWarnings();
    }
    for (const Warning &w : warnings)
        input.warnings.push_back({w.code, w.turkish});
}

report::ReportInput InputOf(const TankAnswer &answer) {
    report::ReportInput input;
    input.title = ProjeIsmi;
    input.name = std::filesystem::path(answer.stem).filename().generic_string();
    if (!answer.noAnalysed.empty())
        input.notices.push_back(answer.noAnalysed);
    if (answer.changed)
        input.notices.emplace_back(report::kModelChanged);
    if (!answer.hasFiles)
        input.notices.push_back(answer.noFiles);
    if (!answer.settings.turkish.empty())
        input.notices.push_back(answer.settings.turkish);
    input.meshFaults = answer.meshFaults;
    TakeRun(answer, input);
    input.facts = report::ProjectFacts(answer.design.basis);
    return input;
}

} // namespace

AnswerReport MakeAnswerReport(const TankAnswer &answer, const std::string &date, const std::string &version) {
    report::ReportInput input = InputOf(answer);
    input.date = report::TurkishDate(date);
    input.version = version;
    input.hash = report::Sha256(AnalysedText());
    return {report::ReportHtml(input, *answer.analysis, answer.design), input.notices};
}

std::string SummaryHtml(const TankAnswer &answer) {
    const report::ReportInput input = InputOf(answer);
    const report::Source source{input, *answer.analysis, answer.design};
    report::Html html("Özet");
    report::VerdictChapter(html, source);
    report::ProofChapter(html, source);
    report::WeightChapter(html, source);
    report::LoadChapter(html, source);
    report::SoilChapter(html, source);
    report::FlotationChapter(html, source);
    report::ComparisonChapter(html, source);
    report::MeshChapter(html, source);
    report::WarningChapter(html, source);
    return html.file();
}

std::string AnswerReportTitle(const TankAnswer &answer, const std::string &date) {
    return "Hesap Raporu: " + std::filesystem::path(answer.stem).filename().generic_string() + ", " +
           report::TurkishDate(date);
}

} // namespace havuz
