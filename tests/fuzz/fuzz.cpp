#include "fuzz/fuzz.h"

#include "fea/run_warnings.h"
#include "mesh/mesh_report.h"
#include "model/analysed_project.h"
#include "model/failure.h"
#include "model/project_file.h"
#include "model/store.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace havuz::fuzz {

namespace fs = std::filesystem;

void Broken(const std::string &rule) {
    std::fprintf(stderr, "broken: %s\n", rule.c_str());
    std::abort();
}

static std::string MakeSandbox() {
    std::string path = (fs::temp_directory_path() / "havuz-fuzz-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr || chdir(path.c_str()) != 0)
        Broken("no sandbox in " + path);
    fs::copy(std::string(HAVUZ_SOURCE_DIR) + "/programdir", path + "/program", fs::copy_options::recursive);
    setenv("HAVUZ_HOME", (path + "/program").c_str(), 1);
    setenv("HOME", path.c_str(), 1);
    setenv("XDG_STATE_HOME", path.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", path.c_str(), 1);
    return path;
}

const std::string &Sandbox() {
    static const struct Folder {
        std::string path = MakeSandbox();
        ~Folder() {
            std::error_code error;
            fs::remove_all(path, error);
        }
    } folder;
    return folder.path;
}

// A failure is an answer.
template <class Look>
static void LookAt(Look look) {
    try {
        look();
    } catch (const RuntimeFailure &) {}
}

void CheckModel() {
    const std::string text = ProjectText();
    LookAt([] { MeshReport(); });
    LookAt([] { AnalysedText(); });
    LookAt([] { ModelWarnings(); });
    if (ProjectText() != text)
        Broken("looking at a model changed it");
    if (TitleAsRead() != ProjeIsmi)
        return;
    const std::string path = Sandbox() + "/again.POL";
    std::ofstream(path, std::ios::binary) << text;
    ResetStore();
    ProjectWindow none;
    LoadProject(path, none);
    if (const std::string again = ProjectText(); again != text) {
        std::ofstream(Sandbox() + "/differs.POL", std::ios::binary) << again;
        Broken("a saved project reads as another one: " + Sandbox() + "/again.POL, differs.POL");
    }
}

const std::vector<Target> &Targets() {
    static const std::vector<Target> targets = {
        {"project_bytes", ProjectBytes, {"examples", "tests/golden"}},
        {"project_structure", ProjectStructure, {"examples"}},
        {"option_files", OptionFiles, {"programdir"}},
        {"script_text", ScriptText, {"examples"}},
        {"window_session", WindowSession, {}, WindowSessionsTold},
    };
    return targets;
}

} // namespace havuz::fuzz
