// The desktop program: its Qt application, its window, its main loop.
#pragma once

#include <string>

namespace havuz {

struct DesktopOptions {
    std::string project; // path, with or without its extension; none: ""
    std::string record;  // file that the person's acts are written to; none: ""
};

// argc, argv: Qt's own options are taken out. executable: path of the program. The status that the program ends with.
int RunDesktop(int &argc, char **argv, const std::string &executable, const DesktopOptions &options);

} // namespace havuz
