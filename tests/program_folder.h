// A program folder of the test's own, named by HAVUZ_HOME: the option files of a fresh installation.
#pragma once

#include "model/options.h"
#include "model/store.h"
#include "support.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace havuz {

class ProgramFolder {
public:
    ProgramFolder() {
        std::filesystem::copy(std::string(HAVUZ_SOURCE_DIR) + "/programdir", folder_.path(),
                              std::filesystem::copy_options::recursive);
        setenv("HAVUZ_HOME", folder_.path().c_str(), 1);
        ResetStore();
        ResetOptions();
    }
    ~ProgramFolder() { unsetenv("HAVUZ_HOME"); }
    ProgramFolder(const ProgramFolder &) = delete;
    ProgramFolder &operator=(const ProgramFolder &) = delete;
    std::string file(const std::string &name) const { return folder_.file(name); }
    const std::string &path() const { return folder_.path(); }

private:
    TemporaryFolder folder_;
};

} // namespace havuz
