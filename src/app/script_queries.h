// What a script can ask: one table, served by "print" and "expect".
#pragma once

#include "app/script_stage.h"

#include <optional>
#include <span>
#include <string>

namespace havuz {

struct QueryRow {
    const char *word;
    const char *arguments;
    std::string (*answer)(Stage &stage, Words &words);
    bool number; // a number is expected as a number, the same in six digits, and not as the same text
};

std::span<const QueryRow> Queries();

void PrintQuery(Stage &stage, Words words);
void ExpectQuery(Stage &stage, Words words); // ScriptFailure when the answer is another

} // namespace havuz
