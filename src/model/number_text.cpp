#include "model/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace havuz {

static bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the longest numeric prefix: sign, digits with at most one point, exponent with E or D when digits follow.
static std::size_t NumericPrefix(std::string_view s) {
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-'))
        ++i;
    const std::size_t start = i;
    std::size_t digits = 0;
    bool point = false;
    for (; i < s.size() && (IsDigit(s[i]) || (s[i] == '.' && !point)); ++i) {
        if (s[i] == '.')
            point = true;
        else
            ++digits;
    }
    if (digits == 0)
        return 0;
    if (i > start && i < s.size() && std::string_view("eEdD").find(s[i]) != std::string_view::npos) {
        std::size_t k = i + 1;
        if (k < s.size() && (s[k] == '+' || s[k] == '-'))
            ++k;
        const std::size_t first = k;
        while (k < s.size() && IsDigit(s[k]))
            ++k;
        if (k > first)
            i = k;
    }
    return i;
}

static double ConvertPrefix(std::string_view s) {
    std::string plain(s);
    if (!plain.empty() && plain[0] == '+')
        plain.erase(0, 1);
    for (char &c : plain)
        if (c == 'd' || c == 'D')
            c = 'E';
    double value = 0.0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too small reads as 0, too large fails: the exponent's sign tells which.
        const std::size_t e = plain.find_first_of("eE");
        if (e != std::string::npos && e + 1 < plain.size() && plain[e + 1] == '-')
            return 0.0;
        throw RuntimeFailure({.fault = Fault::NumberTooLarge, .text = plain.substr(0, 40)});
    }
    return value;
}

static std::string_view SkipBlanks(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t");
    return start == std::string_view::npos ? std::string_view{} : text.substr(start);
}

double ParsePlainNumber(std::string_view text) {
    const std::string_view s = SkipBlanks(text);
    const std::size_t n = NumericPrefix(s);
    return n == 0 ? 0.0 : ConvertPrefix(s.substr(0, n));
}

double ParseNumber(std::string_view text) {
    std::string copy(text);
    const std::size_t comma = copy.find(',');
    if (comma != std::string::npos)
        copy[comma] = '.';
    return ParsePlainNumber(copy);
}

std::optional<double> ReadNumberField(std::string_view field) {
    std::string_view s = SkipBlanks(field);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t'))
        s.remove_suffix(1);
    const std::size_t n = NumericPrefix(s);
    if (n == 0 || n != s.size())
        return std::nullopt;
    return ConvertPrefix(s);
}

DecimalDigits RoundToDigits(double value, int significant) {
    DecimalDigits d;
    d.negative = value < 0.0;
    if (value == 0.0)
        return d;
    std::array<char, 64> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                            std::chars_format::scientific, significant - 1);
    const std::string_view s(text.data(), static_cast<std::size_t>(end - text.data()));
    const std::size_t e = s.find('e');
    int exponent = 0;
    const std::string_view power = s.substr(s[e + 1] == '+' ? e + 2 : e + 1);
    std::from_chars(power.data(), power.data() + power.size(), exponent);
    std::copy_if(s.begin(), s.begin() + static_cast<std::ptrdiff_t>(e), std::back_inserter(d.digits), IsDigit);
    while (d.digits.size() > 1 && d.digits.back() == '0')
        d.digits.pop_back();
    d.point = exponent + 1;
    return d;
}

std::string ExponentForm(const DecimalDigits &d) {
    std::string s = d.digits.substr(0, 1);
    if (d.digits.size() > 1)
        s.append(".").append(d.digits, 1);
    const int exponent = d.point - 1;
    const std::string power = std::to_string(std::abs(exponent));
    return s + (exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" : "") + power;
}

std::string PlainForm(const DecimalDigits &d) {
    const int count = static_cast<int>(d.digits.size());
    std::string s = d.digits;
    if (d.point <= 0)
        s.insert(0, static_cast<std::size_t>(-d.point), '0').insert(0, 1, '.');
    else if (d.point >= count)
        s.append(static_cast<std::size_t>(d.point - count), '0');
    else
        s.insert(static_cast<std::size_t>(d.point), 1, '.');
    return s;
}

// The limits hold for the digits shown: the 32-bit number nearest to 0.01 lies just below it and is written .01.
static std::string FileForm(double value, int significant, int largestPoint) {
    const DecimalDigits d = RoundToDigits(value, significant);
    if (d.digits.empty())
        return "0";
    const bool exponent = d.point < -1 || d.point > largestPoint;
    std::string s = exponent ? ExponentForm(d) : PlainForm(d);
    if (d.negative)
        s.insert(0, 1, '-');
    return s;
}

std::string NumberText(double value) { return FileForm(value, 15, 10); }

std::string NumberText(Float32 value) { return FileForm(value, 7, 7); }

// Digits of the value rounded to so many decimals, halves away from zero, as whole part and decimals without sign.
static void RoundDecimals(double value, int decimals, std::string &whole, std::string &part) {
    const DecimalDigits d = RoundToDigits(value, 15);
    // One decimal text with the point in the middle: enough zeros before it, the digits, enough zeros behind.
    std::string text = std::string(d.point < 0 ? static_cast<std::size_t>(-d.point) : 0U, '0') + d.digits;
    std::size_t point = static_cast<std::size_t>(std::max(d.point, 0));
    text.insert(0, 1, '0');
    ++point;
    const std::size_t keep = point + static_cast<std::size_t>(decimals);
    if (text.size() <= keep)
        text.append(keep + 1 - text.size(), '0');
    const bool up = text[keep] >= '5';
    text.resize(keep);
    for (std::size_t i = keep; up && i-- > 0;) {
        if (text[i] != '9') {
            ++text[i];
            break;
        }
        text[i] = '0';
    }
    whole = text.substr(0, point);
    part = text.substr(point);
}

std::string PictureText(double value, std::string_view picture) {
    const std::size_t dot = picture.find('.');
    const std::string_view wholePicture = picture.substr(0, dot);
    const std::string_view partPicture = dot == std::string_view::npos ? "" : picture.substr(dot + 1);
    std::string whole;
    std::string part;
    RoundDecimals(value, static_cast<int>(partPicture.size()), whole, part);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    const auto required = static_cast<std::size_t>(std::count(wholePicture.begin(), wholePicture.end(), '0'));
    if (whole.size() < required)
        whole.insert(0, required - whole.size(), '0');
    const std::size_t lastZero = partPicture.rfind('0');
    const std::size_t keepDecimals = lastZero == std::string_view::npos ? 0 : lastZero + 1;
    while (part.size() > keepDecimals && part.back() == '0')
        part.pop_back();
    const bool isZero = (whole + part).find_first_not_of('0') == std::string::npos;
    std::string text = whole;
    if (!part.empty())
        text.append(".").append(part);
    if (value < 0.0 && !isZero)
        text.insert(0, 1, '-');
    return text;
}

} // namespace havuz
