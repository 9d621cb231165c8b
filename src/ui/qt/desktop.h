// The desktop program: its Qt application, its window, its main loop.
#pragma once

#include <string>

class QApplication;

namespace havuz {

struct DesktopOptions {
    std::string project; // path, with or without its extension; none: ""
    bool open = false;   // starts empty and reads the project as the open dialog does
    std::string record;  // file that the person's acts are written to; none: ""
};

// argc, argv: Qt's own options are taken out. executable: path of the program. The status that the program ends with.
int RunDesktop(int &argc, char **argv, const std::string &executable, const DesktopOptions &options);

// False, with a line on standard error, without an X or Wayland session.
bool HasDisplay(const char *program);

// Turkish texts of Qt's own dialogs, Turkish numbers.
void SpeakTurkish(QApplication &application);

} // namespace havuz
