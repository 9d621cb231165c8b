// havuz-cli report: the calculation report of a project as HTML or PDF.
#include "app/cli.h"
#include "app/pictures.h"
#include "app/project.h"
#include "model/platform.h"
#include "model/write_file.h"
#include "report/answer_report.h"

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
    const std::tm day = platform::LocalTime(std::time(nullptr));
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d", &day);
    return text.data();
}

bool EndsWith(const std::string &text, const std::string &ending) {
    return text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

void WriteReport(const Options &o) {
    const std::string date = o.date.empty() ? Today() : o.date;
    if (report::TurkishDate(date).empty())
        throw UsageError("--date: \"" + o.date + "\" is not a day as 2026-01-31");
    const bool pdf = EndsWith(o.out, ".pdf");
    if (!pdf && !EndsWith(o.out, ".html"))
        throw UsageError("-o: \"" + o.out + "\" ends neither with .pdf nor with .html");
    OpenProject(o.file); // a project that cannot be read is told before anything else
    RefuseProjectAsTarget(o.file, o.out);
    TankAnswer answer = ReadAnswer(ProjectStem(o.file), [&o](const std::string &path) {
        OpenProject(path);
        TakeProjectPaths(o.file);
    });
    AnalyseAnswer(answer);
    const AnswerReport report = MakeAnswerReport(answer, date, HAVUZ_VERSION);
    for (const std::string &notice : report.notices)
        std::cerr << o.file << ": " << notice << "\n";
    WriteWholeFile(o.out, pdf ? Pictures().pdfOfHtml(report.html, AnswerReportTitle(answer, date), date) : report.html);
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
