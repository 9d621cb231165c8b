// Plays a script on the headless window, a line an action. One table of verbs; the words are told in docs/script.md.
#pragma once

#include "app/script_stage.h"

#include <string>
#include <vector>

namespace havuz {

// The script to its end, or to the end of the program that it works. Wrong words are UsageError; ScriptFailure tells of
// an action that cannot be done, an expectation that does not hold, and a program that ended by a failure. Both begin
// with the script's name and the line. Verbs are looked up before the first line runs.
void PlayScript(Stage &stage, const std::string &file, const std::vector<ScriptLine> &lines);

// What the program said last on standard error, without its own name in front.
std::string LastError(Stage &stage, const std::string &otherwise);

} // namespace havuz
