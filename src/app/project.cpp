#include "app/project.h"

#include "model/files.h"
#include "model/options.h"
#include "model/project_file.h"
#include "model/startup.h"
#include "model/store.h"

#include <filesystem>

namespace havuz {

namespace fs = std::filesystem;

std::string OwnProgram() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).string();
}

void BeginProgram() { StartModel(OwnProgram()); }

static std::string FullPath(const std::string &path) { return fs::absolute(path).lexically_normal().string(); }

std::string ProjectStem(const std::string &path) {
    const fs::path full = FullPath(path);
    return (full.parent_path() / full.stem()).string();
}

void TakeProjectPaths(const std::string &path) {
    CalismaDizini = fs::path(FullPath(path)).parent_path().string();
    ProjeYolu = ProjectStem(path);
    ProjeAdi = UpToFirstDot(fs::path(path).filename().string());
}

void OpenProject(const std::string &path) {
    BeginProgram();
    ProjectWindow none;
    const std::string found = FindFile(path);
    LoadProject(found, none);
    ProjeDosyasi = fs::absolute(found).string();
    TakeProjectPaths(found);
}

void StoreProject(const std::string &path) {
    ProjectWindow none;
    StoreProject(path, none);
}

void StoreProject(const std::string &path, ProjectWindow &window) {
    SaveProject(FindFile(path), window);
    TakeProjectPaths(path);
}

} // namespace havuz
