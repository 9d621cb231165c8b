// Numbers as text: what a person types, the number fields of the project file, the number pictures of tables and
// dialogs. Nothing here depends on the locale of the process.
#pragma once

#include "model/fields.h"

#include <optional>
#include <string>
#include <string_view>

namespace havuz {

// What a person typed: the first comma (only the first) counts as a point, leading blanks are skipped, the longest
// numeric prefix is read; text that does not begin with a number gives 0. A number no double can hold is Overflow.
double ParseNumber(std::string_view text);

// The same without the comma step.
double ParsePlainNumber(std::string_view text);

// A whole field as one number: any decimal or exponent form with E or D in either case; nothing when it is none.
std::optional<double> ReadNumberField(std::string_view field);

// Shortest form at 15 significant digits, 7 for a 32-bit field: no zero before the point, no point at the end; with an
// exponent of two digits or more below 0.01 and from 1E+10 (32-bit: 1E+07) on.
std::string NumberText(double value);
std::string NumberText(Float32 value);

// The decimal digits of a value rounded to so many significant places: 0.digits * 10^point, without trailing zeros.
// Zero has no digits.
struct DecimalDigits {
    bool negative = false;
    std::string digits;
    int point = 0; // place of the decimal point, counted from the first digit
};
DecimalDigits RoundToDigits(double value, int significant);

// Such digits as text without a sign: ".05", "1200", "1.5" or "5E-02", "1.2E+03" (an exponent of two digits at least).
std::string PlainForm(const DecimalDigits &d);
std::string ExponentForm(const DecimalDigits &d);

// A value in a picture such as "###0.###": "#" shows a digit only when there is one, "0" always, and the point stands
// only before a digit. Rounding is of the decimal text, halves away from zero. A value that rounds to zero is empty
// where the picture holds no "0".
std::string PictureText(double value, std::string_view picture);

} // namespace havuz
