// The number texts of the export files: free decimal text and columns of a fixed width. Text is UTF-8 here; the files
// are Windows-1254.
#pragma once

#include "model/fields.h"

#include <string>

namespace havuz {

// Shortest decimal text at 15 significant digits, 7 for a 32-bit field: a blank or "-" in front, no zero before the
// point
// (" .25", "-.25", " 12"). An exponent (" 1E+15") stands only where so many digits cannot show the value: one whose
// last digits would lie before the units, or whose first lies further behind the point than there are digits.
std::string PlainNumberText(double value);
std::string PlainNumberText(Float32 value);
std::string PlainNumberText(int value);

// A number as it stands when it is written to a line as such: a blank behind it as well.
std::string BareNumber(int value);

// The value in a field of so many characters with |decimals| decimals, at the right. The value itself comes back
// rounded to those decimals, ties to even. Above 1000000 it stays and the text is the one character "ì". Whole numbers
// lose what stands before the last width - |decimals| - 1 characters, values with a fraction are never cut: wanted.
// Negative decimals put "±" in front. A scaled value outside the 32-bit range is Overflow.
std::string FixedField(double &value, int width, int decimals);
std::string FixedField(Float32 &value, int width, int decimals);
std::string FixedField(int value, int width, int decimals);

} // namespace havuz
