// What a script can ask: one table, served by "print" and "expect".
#pragma once

#include "app/script_stage.h"

namespace havuz {

void PrintQuery(Stage &stage, Words words);
void ExpectQuery(Stage &stage, Words words); // ScriptFailure when the answer is another

} // namespace havuz
