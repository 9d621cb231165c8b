// havuz-cli: the jobs of the program from a shell or a script. Results go to standard output, everything else to
// standard error; a failure is one line and status 1, wrong usage is status 2.
#include "app/cli.h"
#include "model/failure.h"
#include "model/platform.h"
#include "model/temporary_files.h"

#include <array>
#include <cstdio>
#include <iostream>

namespace havuz {

using AddCommand = void (*)(CLI::App &parser, Job &job);

static constexpr std::array kCommands = {
    AddPoolCommand,   AddPolygonCommand, AddMeshCommand,   AddCutCommand,    AddSetCommand,      AddRunCommand,
    AddExportCommand, AddRenderCommand,  AddInfoCommand,   AddScriptCommand, AddVariantsCommand, AddMergeCommand,
    AddPlotCommand,   AddResultsCommand, AddReportCommand, AddCheckCommand,
};

static int Fail(const std::string &words, int status) {
    std::cout.flush();
    std::cerr << "havuz-cli: " << words << "\n";
    return status;
}

// A failure that names its file already is not given a second one in front.
static std::string WithFile(const std::string &file, const std::string &words) {
    return file.empty() || words.rfind(file, 0) == 0 ? words : file + ": " + words;
}

static int RunJob(const Job &job) {
    try {
        job.run();
        std::cout.flush();
        if (!std::cout)
            return Fail("standard output: cannot be written", 1);
        return 0;
    } catch (const RuntimeFailure &failure) {
        const bool namesAnother = failure.parts().inFile.has_value(); // the project itself, or an option file
        return Fail(namesAnother ? failure.what() : WithFile(job.file, failure.what()), 1);
    } catch (const UsageError &error) {
        return Fail(error.what(), 2);
    } catch (const ProgramEnd &end) {
        return end.status;
    } catch (const std::exception &error) {
        return Fail(WithFile(job.file, error.what()), 1);
    }
}

static int Main(int argc, char **argv) {
    RemoveTemporariesAtSignals();
    argv = platform::Arguments(argc, argv);
    CLI::App parser("Pools and tanks of reinforced concrete: made, meshed, analysed.", "havuz-cli");
    parser.allow_windows_style_options(false); // "/x" is a path everywhere
    parser.set_version_flag("--version", "havuz-cli " HAVUZ_VERSION);
    parser.require_subcommand(1);
    Job job;
    for (const AddCommand add : kCommands)
        add(parser, job);
    try {
        parser.parse(argc, argv);
    } catch (const CLI::Success &shown) { // --help, --version
        return parser.exit(shown);
    } catch (const CLI::ParseError &error) {
        return Fail(std::string(error.what()) + "; see havuz-cli --help", 2);
    }
    return RunJob(job);
}

} // namespace havuz

int main(int argc, char **argv) { return havuz::Main(argc, argv); }
