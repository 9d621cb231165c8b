// Numbers as a reader sees them: fixed decimals with the Turkish comma, and table fields of 12 digits. No locale.
#pragma once

#include <string>

namespace havuz::design {

// "-12,50": so many decimals, comma, no thousands mark; a value that rounds to 0 has no sign; "∞" for what no number
// holds.
std::string Turkish(double value, int decimals);

// Up to 12 significant digits in the shortest general form; "inf" for infinity, 0 without a sign.
std::string TwelveDigits(double value);

} // namespace havuz::design
