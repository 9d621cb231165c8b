// havuz-raporcu: the output program. Without a project it reads WORKPOOL, which the last analysis left. Wrong usage is
// status 2.
#include "app/project.h"
#include "model/failure.h"
#include "model/files.h"
#include "model/options.h"
#include "model/platform.h"
#include "ui/qt/programs.h"
#include "ui/raporcu/raporcu.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

namespace havuz {

namespace {

// The project that the last analysis of the working directory named.
std::string HandedOver() {
    BeginProgram();
    const std::string text = ReadWholeFile(FindFile(CalismaDizini + "/WORKPOOL"));
    return text.substr(0, text.find_first_of("\r\n"));
}

bool HasEnding(const std::string &path) {
    const std::string ending = std::filesystem::path(path).extension().generic_string();
    return ending == ".POL" || ending == ".pol" || ending == ".HSP" || ending == ".Pol";
}

std::string StemOf(const std::string &project) {
    if (project.empty())
        return HandedOver();
    return HasEnding(project) ? ProjectStem(project)
                              : std::filesystem::absolute(project).lexically_normal().generic_string();
}

std::string Beside(const char *program) {
    return (std::filesystem::path(OwnProgram()).parent_path() / program).generic_string();
}

// The run of the command line, which writes the files and says why when it does not.
std::string AnalyseAgain(const std::string &stem) {
    return RunToItsEnd(Beside("havuz-cli"), {"run", FindFile(stem + ".POL"), "--quiet"});
}

int Main(int argc, char **argv) {
    argv = platform::Arguments(argc, argv);
    std::string project;
    CLI::App parser("Results, checks and the calculation report of a pool or tank.", "havuz-raporcu");
    parser.allow_windows_style_options(false); // "/x" is a path everywhere
    parser.set_version_flag("--version", "havuz-raporcu " HAVUZ_VERSION);
    parser.add_option("project", project, "project to show; the one analysed last without it")->type_name("FILE.POL");
    try {
        parser.parse(argc, argv);
    } catch (const CLI::Success &shown) { // --help, --version
        return parser.exit(shown);
    } catch (const CLI::ParseError &error) {
        std::cerr << "havuz-raporcu: " << error.what() << "; see havuz-raporcu --help\n";
        return 2;
    }
    RaporcuServices services;
    services.open = [](const std::string &path) { OpenProject(path); };
    services.edit = [](const std::string &stem) {
        return StartDetached(Beside("havuz"), {"--open", FindFile(stem + ".POL")});
    };
    services.analyse = AnalyseAgain;
    services.cli = Beside("havuz-cli");
    std::string stem;
    try {
        stem = StemOf(project);
    } catch (const RuntimeFailure &failure) { // from a menu nobody sees standard error: the window says it too
        std::cerr << "havuz-raporcu: " << failure.what() << "\n";
        services.noProject = FailureInTurkish(failure);
    }
    return RunRaporcu(argc, argv, stem, HAVUZ_VERSION, services);
}

} // namespace

} // namespace havuz

int main(int argc, char **argv) { return havuz::Main(argc, argv); }
