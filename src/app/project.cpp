#include "app/project.h"

#include "model/files.h"
#include "model/options.h"
#include "model/project_file.h"
#include "model/startup.h"
#include "model/store.h"

#include <filesystem>

namespace havuz {

namespace fs = std::filesystem;

void BeginProgram() {
    std::error_code error;
    StartModel(fs::read_symlink("/proc/self/exe", error).string());
}

std::string ProjectStem(const std::string &path) {
    const fs::path full = fs::absolute(path).lexically_normal();
    return (full.parent_path() / full.stem()).string();
}

static void TakePaths(const std::string &path) {
    CalismaDizini = fs::absolute(path).lexically_normal().parent_path().string();
    ProjeYolu = ProjectStem(path);
    ProjeAdi = UpToFirstDot(fs::path(path).filename().string());
}

void OpenProject(const std::string &path) {
    BeginProgram();
    ProjectWindow none;
    const std::string found = FindFile(path);
    LoadProject(found, none);
    ProjeDosyasi = fs::absolute(found).string();
    TakePaths(found);
}

void StoreProject(const std::string &path) {
    ProjectWindow none;
    SaveProject(FindFile(path), none);
    TakePaths(path);
}

} // namespace havuz
