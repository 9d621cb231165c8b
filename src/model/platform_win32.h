// What the sources for Windows share.
#pragma once

#include <cstdint>
#include <string>

namespace havuz::platform {

std::wstring Wide(const std::string &utf8);
std::string Narrow(const std::wstring &utf16);
void TakeLastError(); // GetLastError as errno

extern std::uintmax_t largestChild; // bytes; kept by those who wait for children

} // namespace havuz::platform
