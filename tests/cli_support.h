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

// Runs havuz-cli in the folder. What it says stays there, in the files out and error.
inline int CliStatus(const TemporaryFolder &folder, const std::string &arguments) {
    const std::string command = "cd " + folder.path() + " && " + HAVUZ_CLI + " " + arguments + " >out 2>error";
    return WEXITSTATUS(std::system(command.c_str()));
}

// The same, and nothing stays.
inline Ended Cli(const TemporaryFolder &folder, const std::string &arguments) {
    const int status = CliStatus(folder, arguments);
    const Ended ended{status, ReadBytes(folder.file("out")), ReadBytes(folder.file("error"))};
    std::filesystem::remove(folder.file("out"));
    std::filesystem::remove(folder.file("error"));
    return ended;
}

inline bool Contains(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

} // namespace havuz
