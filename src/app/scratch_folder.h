// A private folder under the system's folder for temporary files; it goes with the object.
#pragma once

#include "model/failure.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace havuz {

class ScratchFolder {
public:
    ScratchFolder() {
        const char *wanted = std::getenv("TMPDIR");
        const std::string folder = wanted != nullptr && *wanted != '\0' ? wanted : "/tmp";
        path_ = folder + "/havuz-XXXXXX";
        if (mkdtemp(path_.data()) == nullptr)
            FailFile(Fault::CannotCreateScratch, folder, errno);
    }
    ~ScratchFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder &operator=(const ScratchFolder &) = delete;
    const std::string &path() const { return path_; }

private:
    std::string path_;
};

} // namespace havuz
