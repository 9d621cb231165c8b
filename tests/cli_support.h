// havuz-cli run by a shell, for tests.
#pragma once

#include "support.h"

#include <filesystem>
#include <string>
#include <sys/wait.h>

namespace havuz {

struct Ended {
    int status = -1;
    std::string out, error;
};

// Runs havuz-cli in the folder.
inline Ended Cli(const TemporaryFolder &folder, const std::string &arguments) {
    const std::string command = "cd " + folder.path() + " && " + HAVUZ_CLI + " " + arguments + " >out 2>error";
    const int status = std::system(command.c_str());
    const Ended ended{WEXITSTATUS(status), ReadBytes(folder.file("out")), ReadBytes(folder.file("error"))};
    std::filesystem::remove(folder.file("out"));
    std::filesystem::remove(folder.file("error"));
    return ended;
}

inline bool Contains(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

} // namespace havuz
