// The command line of havuz-cli: each command is one row of the table in main_cli.cpp and one file of src/app. A
// command adds its own options to the parser and leaves its job.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>
#include <string>

namespace havuz {

// What the chosen command does. file stands at the head of the line that a failure prints: the file it works on, or for
// a command that only writes, the file it would write.
struct Job {
    std::string file;
    std::function<void()> run;
};

// Wrong usage that only shows while the job runs: ends with status 2.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A mesh width given on the command line, m. Not finite or out of reason: UsageError.
double CheckedMeshWidth(double width);

void AddPoolCommand(CLI::App &parser, Job &job);
void AddPolygonCommand(CLI::App &parser, Job &job);
void AddMeshCommand(CLI::App &parser, Job &job);
void AddCutCommand(CLI::App &parser, Job &job);
void AddSetCommand(CLI::App &parser, Job &job);
void AddRunCommand(CLI::App &parser, Job &job);
void AddExportCommand(CLI::App &parser, Job &job);
void AddRenderCommand(CLI::App &parser, Job &job);
void AddInfoCommand(CLI::App &parser, Job &job);
void AddCheckCommand(CLI::App &parser, Job &job);
void AddScriptCommand(CLI::App &parser, Job &job);
void AddVariantsCommand(CLI::App &parser, Job &job);
void AddMergeCommand(CLI::App &parser, Job &job);
void AddPlotCommand(CLI::App &parser, Job &job);
void AddResultsCommand(CLI::App &parser, Job &job);
void AddReportCommand(CLI::App &parser, Job &job);

} // namespace havuz
