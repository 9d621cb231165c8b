#include "design/number_words.h"

#include <charconv>
#include <cmath>

namespace havuz::design {

std::string Turkish(double value, int decimals) {
    if (!std::isfinite(value))
        return std::isnan(value) ? "?" : value > 0.0 ? "∞" : "-∞";
    char text[400];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
    std::string number(text, end);
    if (number.front() == '-' && number.find_first_not_of("-0.") == std::string::npos)
        number.erase(0, 1);
    if (const std::size_t point = number.find('.'); point != std::string::npos)
        number[point] = ',';
    return number;
}

std::string TwelveDigits(double value) {
    if (value == 0.0)
        return "0";
    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 12).ptr;
    return std::string(text, end);
}

} // namespace havuz::design
