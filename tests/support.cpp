#include "support.h"

#include "export/export_file.h"
#include "fea/plane_stress.h"
#include "fea/quad_work.h"
#include "fea/system.h"
#include "mesh/plak_mesh.h"
#include "model/options.h"
#include "model/platform.h"
#include "model/startup.h"
#include "model/store.h"
#include "ui/window/command_state.h"
#include "view/view_state.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace havuz {

void ResetAll() {
    ResetStore();
    ResetOptions();
    ResetSystem();
    ResetPlaneD();
    ResetQuadWork();
    ResetPlakMesh();
    ResetView();
    ResetCommandState();
    ResetExport();
    StartModel(HAVUZ_CLI);
}

TemporaryFolder::TemporaryFolder() : path_(platform::MakePrivateDirectory(platform::TemporaryDirectory())) {}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

HomeAt::HomeAt(const std::string &folder) : before_(platform::Environment(platform::kHome)) {
    platform::SetEnvironment(platform::kHome, folder);
}

HomeAt::~HomeAt() { platform::SetEnvironment(platform::kHome, before_); }

std::string ReadBytes(const std::string &path) {
    std::ifstream in(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteBytes(const std::string &path, const std::string &bytes) {
    std::ofstream(std::filesystem::path(path), std::ios::binary) << bytes;
}

static std::string FirstDifference(const std::string &want, const std::string &got) {
    std::size_t at = 0;
    while (at < want.size() && at < got.size() && want[at] == got[at])
        ++at;
    const auto line = std::count(want.begin(), want.begin() + static_cast<std::ptrdiff_t>(at), '\n') + 1;
    const auto lineOf = [at](const std::string &s) {
        const std::size_t begin = at == 0 ? 0 : s.rfind('\n', at - 1) + 1;
        return s.substr(begin, s.find('\n', at) - begin);
    };
    return "line " + std::to_string(line) + "\n  want " + lineOf(want) + "\n  got  " + lineOf(got);
}

bool MatchesGolden(const std::string &name, const std::string &got) {
    const std::string path = std::string(HAVUZ_SOURCE_DIR) + "/tests/golden/" + name;
    if (std::getenv("UPDATE_GOLDEN") != nullptr)
        WriteBytes(path, got);
    const std::string want = ReadBytes(path);
    if (want == got && !want.empty())
        return true;
    WriteBytes(path + ".actual", got);
    std::fprintf(stderr, "%s differs at %s\n", path.c_str(), FirstDifference(want, got).c_str());
    return false;
}

Failed FailureOf(const std::function<void()> &job) {
    try {
        job();
    } catch (const RuntimeFailure &failure) {
        return {true, failure.kind(), failure.what()};
    }
    return {};
}

} // namespace havuz
