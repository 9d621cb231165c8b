// Text in memory is UTF-8, files are Windows-1254. The seven bytes that the code page leaves undefined stand for the
// control characters of the same number (byte 0x81 is U+0081), so that every byte survives load and save.
#pragma once

#include <string>
#include <string_view>

namespace havuz {

std::string FromCodePage(std::string_view bytes);

// A character that the code page lacks, and a byte that is no UTF-8, become "?".
std::string ToCodePage(std::string_view utf8);

} // namespace havuz
