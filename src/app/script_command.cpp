// havuz-cli script: the program worked by a script instead of a person, on a window without a platform.
#include "app/cli.h"
#include "app/project.h"
#include "app/script_player.h"
#include "model/failure.h"
#include "model/files.h"
#include "model/options.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <memory>

namespace havuz {

namespace {

struct ScriptOptions {
    std::string file, project, record;
};

std::string CurrentDirectory() {
    std::error_code error;
    const std::filesystem::path here = std::filesystem::current_path(error);
    if (error)
        FailFile(Fault::CannotOpen, ".", error.value());
    return here.generic_string();
}

// The start of the program, with the project on its command line or without one. Paths follow the rules of havuz-cli.
void Start(Stage &stage, const std::string &project) {
    try {
        stage.main.Start(project.empty() ? "" : ProjectStem(project));
        if (project.empty())
            CalismaDizini = CurrentDirectory();
        else
            TakeProjectPaths(FindFile(project));
    } catch (const ProgramEnd &) {
        throw ScriptFailure(LastError(stage, "the program ended at its start"));
    }
}

// The program takes a project by its name without the extension, whatever its case.
bool IsProjectFile(const std::string &path) {
    std::string extension = std::filesystem::path(path).extension().generic_string();
    for (char &c : extension)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return extension == ".POL";
}

void PlayRecorded(Stage &stage, const ScriptOptions &o, const std::vector<ScriptLine> &lines) {
    std::ofstream out(std::filesystem::path(o.record), std::ios::binary);
    const auto check = [&] {
        if (!out)
            FailFile(Fault::CannotWrite, o.record, errno);
    };
    check();
    {
        Recorder recorder(stage.window, out, o.project);
        stage.recorder = &recorder;
        PlayScript(stage, o.file, lines);
        stage.recorder = nullptr;
    }
    check();
}

void Script(const ScriptOptions &o) {
    const std::vector<ScriptLine> lines = SplitScript(o.file, ReadWholeFile(o.file));
    if (!o.project.empty() && !IsProjectFile(o.project))
        throw UsageError("--project: \"" + o.project + "\" is no .POL file");
    HeadlessStage stage(OwnProgram());
    Start(stage, o.project);
    if (o.record.empty())
        PlayScript(stage, o.file, lines);
    else
        PlayRecorded(stage, o, lines);
}

} // namespace

void AddScriptCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<ScriptOptions>();
    CLI::App *command = parser.add_subcommand("script", "replay tool clicks, pointer events and dialog input");
    command->add_option("file", o->file, "script, a line an action (docs/script.md)")->required()->type_name("FILE");
    command->add_option("--project", o->project, "project that the program starts with")->type_name("FILE.POL");
    command->add_option("--record", o->record, "script to write what the window was told into")->type_name("FILE");
    command->callback([o, &job] { job = {o->file, [o] { Script(*o); }}; });
}

} // namespace havuz
