#include "export/number_fields.h"

#include "model/arithmetic.h"
#include "model/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace havuz {

static constexpr int kDoubleDigits = 15, kSingleDigits = 7;
static constexpr double kLargestField = 1000000.0;

static std::string SignedText(double value, int significant) {
    const DecimalDigits d = RoundToDigits(value, significant);
    if (d.digits.empty())
        return " 0";
    const bool plain = d.point <= significant && d.point > -significant;
    std::string text(1, d.negative ? '-' : ' ');
    text += plain ? PlainForm(d) : ExponentForm(d);
    return text;
}

std::string PlainNumberText(double value) { return SignedText(value, kDoubleDigits); }
std::string PlainNumberText(Float32 value) { return SignedText(value, kSingleDigits); }
std::string PlainNumberText(int value) { return SignedText(value, kDoubleDigits); }

std::string BareNumber(int value) { return PlainNumberText(value) + " "; }

static std::string WithoutLeftBlanks(const std::string &s) {
    return s.substr(std::min(s.find_first_not_of(' '), s.size()));
}

// One character less than the width leaves room for is kept, so 1000 in a field of 4 shows 000: wanted.
static std::string WholePart(std::int32_t value, int width, int places) {
    const std::string t = std::string(static_cast<std::size_t>(width), ' ') + PlainNumberText(value);
    const int keep = std::clamp(width - places - 1, 0, static_cast<int>(t.size()));
    return t.substr(t.size() - static_cast<std::size_t>(keep));
}

// The field of a value that has been rounded. Number is the type of the variable: its digits are those of its width.
template <class Number>
static std::string FieldOf(const Number &value, int width, int decimals) {
    const int places = std::abs(decimals);
    std::string s = WithoutLeftBlanks(PlainNumberText(value));
    const std::size_t point = s.find('.');
    if (point != std::string::npos) {
        const int shown = static_cast<int>(s.size() - point) - 1;
        if (shown < places)
            s.append(static_cast<std::size_t>(places - shown), '0');
    } else {
        s = WholePart(RoundToWhole32(value), width, places);
        if (decimals > 0)
            s.append(1, '.').append(static_cast<std::size_t>(places), '0');
    }
    if (static_cast<int>(s.size()) < width)
        s.insert(0, static_cast<std::size_t>(width) - s.size(), ' ');
    return decimals < 0 ? "±" + WithoutLeftBlanks(s) : s;
}

template <class Number>
static std::string RoundedField(Number &value, int width, int decimals) {
    if (std::fabs(value) > kLargestField)
        return "ì";
    const double scale = std::pow(10.0, std::abs(decimals));
    const std::int32_t r = RoundToWhole32(value * scale);
    value = r / scale;
    return FieldOf(value, width, decimals);
}

std::string FixedField(double &value, int width, int decimals) { return RoundedField(value, width, decimals); }
std::string FixedField(Float32 &value, int width, int decimals) { return RoundedField(value, width, decimals); }
std::string FixedField(int value, int width, int decimals) {
    double whole = value;
    return RoundedField(whole, width, decimals);
}

} // namespace havuz
