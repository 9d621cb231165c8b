// The acts of a person in the language of scripts: a row each. The recorder writes with these words, the player reads
// them.
#pragma once

#include "ui/window/window_state.h"

namespace havuz {

struct ActWords {
    Act::Kind kind;
    const char *word;
    const char *arguments; // of the line, for the messages of the player
};

// clang-format off
inline constexpr ActWords kActWords[] = {
    {Act::Click,          "click",   "[FORM] NAME [INDEX]"},
    {Act::Type,           "field",   "[FORM] NAME [INDEX] TEXT"},
    {Act::Select,         "select",  "[FORM] NAME [INDEX] START LENGTH"},
    {Act::GoTo,           "focus",   "[FORM] NAME [INDEX]"},
    {Act::Press,          "key",     "[[FORM] NAME [INDEX]] KEY"},
    {Act::Choose,         "choose",  "[FORM] NAME [INDEX] ITEM"},
    {Act::Scroll,         "scroll",  "FORM VALUE"},
    {Act::Hover,          "hover",   "[FORM] NAME [INDEX]"},
    {Act::PointerPress,   "press",   "[FORM] left|right|middle PLACE"},
    {Act::PointerMove,    "move",    "[FORM] [left|right|middle] PLACE"},
    {Act::PointerRelease, "release", "[FORM] left|right|middle PLACE"},
    {Act::Wheel,          "wheel",   "[FORM] STEPS PLACE"},
    {Act::Pan,            "pan",     "[FORM] DX DY"},
    {Act::Resize,         "surface", "W H"},
    {Act::Open,           "open",    "FILE.POL"},
    {Act::CloseForm,      "close",   "FORM"},
    {Act::Restore,        "restore", "FORM"},
    {Act::Leave,          "leave",   ""},
    {Act::Tick,           "timer",   "[TIMES]"},
    {Act::Answer,         "answer",  "PATH"},
};
// clang-format on

constexpr const ActWords &WordsOf(Act::Kind kind) {
    for (const ActWords &row : kActWords)
        if (row.kind == kind)
            return row;
    return kActWords[0]; // the compiler meets every kind in the table: see the check below
}

// Every kind has its row.
static_assert([] {
    for (int kind = Act::Click; kind <= Act::Answer; ++kind)
        if (WordsOf(static_cast<Act::Kind>(kind)).kind != kind)
            return false;
    return true;
}());

} // namespace havuz
