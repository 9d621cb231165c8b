#include "app/project.h"

#include "model/files.h"
#include "model/options.h"
#include "model/platform.h"
#include "model/project_file.h"
#include "model/startup.h"
#include "model/store.h"

#include <filesystem>
#include <iostream>

namespace havuz {

namespace fs = std::filesystem;

std::string OwnProgram() { return platform::OwnProgram(); }

void BeginProgram() { StartModel(OwnProgram()); }

static std::string FullPath(const std::string &path) { return fs::absolute(path).lexically_normal().generic_string(); }

std::string ProjectStem(const std::string &path) {
    const fs::path full = FullPath(path);
    return (full.parent_path() / full.stem()).generic_string();
}

void TakeProjectPaths(const std::string &path) {
    CalismaDizini = fs::path(FullPath(path)).parent_path().generic_string();
    ProjeYolu = ProjectStem(path);
    ProjeAdi = UpToFirstDot(fs::path(path).filename().generic_string());
}

void OpenProject(const std::string &path) {
    BeginProgram();
    ProjectWindow none;
    const std::string found = FindFile(path);
    LoadProject(found, none);
    ProjeDosyasi = fs::absolute(found).generic_string();
    TakeProjectPaths(found);
}

namespace {

// What a save without a window has to tell, on standard error.
class ShellProjectWindow : public ProjectWindow {
public:
    explicit ShellProjectWindow(std::string path) : path_(std::move(path)) {}
    void TellTitle(const std::optional<std::string> &asRead) override {
        if (asRead)
            std::cerr << path_ << ": the title will be read as \"" << *asRead << "\"\n";
        else
            std::cerr << path_ << ": the title breaks the file, which cannot be read again: take the comma or quote "
                      << "out of it (set ProjeIsmi=...)\n";
    }

private:
    std::string path_;
};

} // namespace

void StoreProject(const std::string &path) {
    ShellProjectWindow window(path);
    StoreProject(path, window);
}

void StoreProject(const std::string &path, ProjectWindow &window) {
    SaveProject(path, window);
    TakeProjectPaths(path);
}

std::string SaveTarget(const std::string &file, const std::string &out) { return out.empty() ? FindFile(file) : out; }

void RefuseProjectAsTarget(const std::string &project, const std::string &out) {
    std::error_code error;
    if (fs::equivalent(FindFile(project), out, error))
        FailFile(Fault::IsTheProject, out, 0);
}

} // namespace havuz
