// havuz-cli report: the calculation report of a project as HTML or PDF.
#include "app/cli.h"
#include "app/designed_project.h"
#include "app/project.h"
#include "fea/result_summary.h"
#include "model/files.h"
#include "model/store.h"
#include "model/write_file.h"
#include "report/report.h"
#include "report/sha256.h"
#include "ui/qt/report_paper.h"

#include <array>
#include <ctime>
#include <iostream>
#include <memory>

namespace havuz {

namespace {

struct Options {
    std::string file, out, date;
};

std::string Today() {
    const std::time_t now = std::time(nullptr);
    std::tm day{};
    localtime_r(&now, &day);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d", &day);
    return text.data();
}

bool EndsWith(const std::string &text, const std::string &ending) {
    return text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

void Notice(report::ReportInput &input, const std::string &file, const std::string &words) {
    input.notices.push_back(words);
    std::cerr << file << ": " << words << "\n";
}

// The model as it was analysed, when it is there; what the project itself says now only decides the notice.
void TakeAnalysedModel(const std::string &file, report::ReportInput &input) {
    OpenProject(file);
    const std::string stem = ProjectStem(file), analysed = FindFile(stem + ".HSP");
    if (!FileExists(FindFile(stem + ".SON")))
        Notice(input, file, report::kNoStresses);
    if (!FileExists(analysed))
        return;
    if (ModelBytes() != ReadWholeFile(analysed))
        Notice(input, file, report::kModelChanged);
    OpenProject(analysed);
    TakeProjectPaths(file);
}

// The run's own columns, when its files are there and of this model. Files that cannot be read are a notice.
void TakeLiteral(const std::string &file, report::ReportInput &input) {
    const std::string stem = ProjectStem(file);
    if (!FileExists(FindFile(stem + ".SON")) || !FileExists(FindFile(stem + ".HSP")))
        return;
    try {
        for (const ColumnSummary &c : SummariseResults(stem))
            input.literal.push_back({LoadCodeInTurkish(c.code), c.settlement.value * 1000.0, c.mx.value, c.my.value,
                                     c.verticalLoad, c.springForce});
    } catch (const RuntimeFailure &failure) {
        input.literal.clear();
        Notice(input, file, ".SON okunamadı: " + FailureInTurkish(failure));
    }
}

void WriteReport(const Options &o) {
    const std::string date = o.date.empty() ? Today() : o.date;
    report::ReportInput input;
    input.date = report::TurkishDate(date);
    if (input.date.empty())
        throw UsageError("--date: \"" + o.date + "\" is not a day as 2026-01-31");
    const bool pdf = EndsWith(o.out, ".pdf");
    if (!pdf && !EndsWith(o.out, ".html"))
        throw UsageError("-o: \"" + o.out + "\" ends neither with .pdf nor with .html");
    TakeAnalysedModel(o.file, input);
    const DesignedProject project = DesignModel(ProjectStem(o.file));
    TakeLiteral(o.file, input);
    if (!project.settings.turkish.empty())
        input.notices.push_back(project.settings.turkish);
    input.title = ProjeIsmi;
    input.name = ProjeAdi;
    input.version = HAVUZ_VERSION;
    input.hash = report::Sha256(ModelBytes());
    input.facts = report::ProjectFacts(project.design.basis);
    const std::string html = report::ReportHtml(input, *project.analysis, project.design);
    WriteWholeFile(o.out, pdf ? PdfOfHtml(html, "Hesap Raporu: " + input.name + ", " + input.date, date) : html);
}

} // namespace

void AddReportCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("report", "the calculation report as PDF or HTML");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("-o", o->out, "report to write, .pdf or .html")->required()->type_name("OUT");
    command->add_option("--date", o->date, "date of the report; today without it")->type_name("YYYY-MM-DD");
    command->callback([o, &job] { job = {o->file, [o] { WriteReport(*o); }}; });
}

} // namespace havuz
