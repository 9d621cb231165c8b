// A window session out of bytes: each few of them become an act of a person on the headless window - a click, a text, a
// key, the pointer, a file - on whatever can be reached then.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace havuz {

struct SessionReport {
    int acts = 0, failures = 0, steps = 0;
    std::string broken = {}; // the promise that did not hold, "" for none
};

// Plays the bytes. Held after every act: the model is that of the last step unless a dialog, a table or a drag is
// open; a step taken back gives the model before it to the byte, made again the model after it. At the end all steps
// are taken back, and the model must be that of the start. No act may end the program but those that say so.
SessionReport PlaySession(const std::uint8_t *bytes, std::size_t size);

} // namespace havuz
