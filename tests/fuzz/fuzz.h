// The fuzzers: one entry point each, from bytes to a verdict. An entry returns on sound input and on input that the
// program refuses by a RuntimeFailure; it aborts where a rule of the program is broken. A crash, a hang or a
// sanitizer's word is found by whoever calls it: the plain driver (fuzz_driver.cpp) or libFuzzer (libfuzzer_entry.cpp).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace havuz::fuzz {

void ProjectBytes(const std::uint8_t *data, std::size_t size);     // a project file, any bytes
void ProjectStructure(const std::uint8_t *data, std::size_t size); // a project file whose lines are in order
void OptionFiles(const std::uint8_t *data, std::size_t size);      // first byte: which file of the program directory
void ScriptText(const std::uint8_t *data, std::size_t size);       // a script on the headless window
void WindowSession(const std::uint8_t *data, std::size_t size);    // acts of a person, each taken back and made again

std::string WindowSessionsTold(); // counts of all sessions so far

struct Target {
    const char *name;
    void (*run)(const std::uint8_t *, std::size_t);
    std::vector<std::string> seeds;  // files and folders under the source directory; none: random bytes
    std::string (*told)() = nullptr; // what the inputs did, beside their number
};
const std::vector<Target> &Targets();

// A folder of this process, made at the first call, removed at the end; the current directory from then on.
const std::string &Sandbox();

// Ends with a word of what is wrong.
[[noreturn]] void Broken(const std::string &rule);

// The model in the store as it was read: saved and read again it is the same, and looking at it changes nothing.
void CheckModel();

} // namespace havuz::fuzz
