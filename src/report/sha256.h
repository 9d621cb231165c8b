// SHA-256 of bytes as 64 hexadecimal digits, as sha256sum prints it. Source: FIPS 180-4.
#pragma once

#include <string>
#include <string_view>

namespace havuz::report {

std::string Sha256(std::string_view bytes);

} // namespace havuz::report
