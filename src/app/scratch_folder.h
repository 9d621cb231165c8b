// A private folder under the system's folder for temporary files; it goes with the object.
#pragma once

#include "model/failure.h"
#include "model/platform.h"

#include <cerrno>
#include <filesystem>
#include <string>

namespace havuz {

class ScratchFolder {
public:
    ScratchFolder() {
        const std::string folder = platform::TemporaryDirectory();
        path_ = platform::MakePrivateDirectory(folder);
        if (path_.empty())
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
