// The output program: its Qt application and its window.
#pragma once

#include "ui/raporcu/raporcu_window.h"

namespace havuz {

// Shows the project (path without extension) until the window is closed; the status that the program ends with.
int RunRaporcu(int &argc, char **argv, const std::string &stem, const std::string &version,
               const RaporcuServices &services);

} // namespace havuz
