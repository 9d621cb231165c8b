// havuz-cli run: the analysis of a meshed project, its result files and a summary of them.
#include "app/cli.h"
#include "app/project.h"
#include "app/scratch_folder.h"
#include "fea/analysis.h"
#include "fea/result_summary.h"
#include "fea/run_residual.h"
#include "fea/run_warnings.h"
#include "model/files.h"
#include "model/options.h"
#include "model/platform.h"
#include "model/store.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>

namespace havuz {

namespace {

// The three sizes on standard output, as the window shows them; the progress as a bar on a terminal.
class ShellAnalysisWindow : public AnalysisWindow {
public:
    explicit ShellAnalysisWindow(bool quiet) : bar_(!quiet && platform::ErrorsOnTerminal()), quiet_(quiet) {}
    ~ShellAnalysisWindow() override {
        if (bar_)
            std::cerr << "\r\033[K";
    }
    void Label(const std::string &text, bool /*white*/) override {
        if (!bar_)
            return;
        const auto filled = static_cast<std::size_t>(std::atoi(text.c_str())) * 2 / 5;
        std::cerr << "\r[" << std::string(filled, '#') << std::string(40 - filled, '.') << "] " << text << std::flush;
    }
    void TextLine(int height, const std::string &text) override {
        if (height < 120)
            std::cout << text << std::endl; // also before a failure
        else if (!quiet_)
            std::cerr << text << "\n";
    }
    void StartProgram(const std::string &command, const std::string &projectPath) override {
        std::cout.flush();
        if (const int reason = platform::StartCommand(command, projectPath); reason != 0)
            FailFile(Fault::CannotStart, command, reason);
    }

private:
    bool bar_, quiet_;
};

std::string Place(int node) {
    const NoktaRecord &n = NoktaTable[node];
    char text[96];
    std::snprintf(text, sizeof text, "(%.2f, %.2f, %.2f)", n.X + 0.0, n.Y + 0.0, n.Z + 0.0);
    return text;
}

void PrintExtreme(const char *label, double value, const char *unit, const NodeExtreme &e) {
    if (e.node == 0)
        return;
    std::printf("  %-34s %10.3f %-6s %s %d at %s\n", label, value, unit, e.mesh != 0 ? "mesh" : "node",
                e.mesh != 0 ? e.mesh : e.node, Place(e.node).c_str());
}

void PrintColumn(int c, const ColumnSummary &s, double residual) {
    std::printf("\nload column %d: %s\n", c, LoadCodeWords(s.code).c_str());
    if (s.settlement.value >= 0.0)
        PrintExtreme("greatest settlement", s.settlement.value * 1000.0, "mm", s.settlement);
    else
        PrintExtreme("everything rises, least by", -s.settlement.value * 1000.0, "mm", s.settlement);
    PrintExtreme("greatest wall displacement", s.wall.value * 1000.0, "mm", s.wall);
    PrintExtreme("greatest Mx", s.mx.value, "t.m/m", s.mx);
    PrintExtreme("greatest My", s.my.value, "t.m/m", s.my);
    std::printf("  %-34s %10.3f t\n  %-34s %10.3f t\n", "sum of vertical loads, downward", s.verticalLoad,
                "sum of spring forces, upward", s.springForce);
    std::printf("  %-34s %10.3f %%\n", "residual |f - K u|/|f|", 100.0 * residual);
}

void PrintSummary() {
    const std::vector<double> residuals = RunResiduals(ProjeYolu, RunColumns());
    std::size_t c = 0;
    for (const ColumnSummary &column : SummariseResults(ProjeYolu)) {
        PrintColumn(static_cast<int>(c) + 1, column, residuals.at(c));
        ++c;
    }
    const std::vector<Warning> warnings = RunWarnings(ProjeYolu);
    if (!warnings.empty())
        std::printf("\n");
    for (const Warning &warning : warnings)
        std::printf("warning %s: %s\n", warning.code.c_str(), warning.english.c_str());
    std::fflush(stdout);
}

void RunProject(const std::string &file, const std::string &outputProgram, bool quiet) {
    OpenProject(file);
    if (MeshCount == 0)
        std::cerr << file << ": the model has no mesh, the result files stay empty; havuz-cli mesh makes one\n";
    try {
        ShellAnalysisWindow window(quiet);
        AnalysisRun({ProjeYolu, CalismaDizini + "/WORKPOOL", outputProgram}, window);
    } catch (const ProgramEnd &) { // the end of a run that went well
    }
    if (!quiet)
        PrintSummary();
}

} // namespace

void AddRunCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string file, outputProgram;
        bool quiet = false;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("run", "analyse a meshed project: FILE.DEP, FILE.SON, WORKPOOL");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("--output-program", o->outputProgram, "started at the end with the project path")
        ->type_name("CMD");
    command->add_flag("--quiet", o->quiet, "no summary, no progress");
    command->callback([o, &job] { job = {o->file, [o] { RunProject(o->file, o->outputProgram, o->quiet); }}; });
}

} // namespace havuz
