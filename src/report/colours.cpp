#include "report/colours.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace havuz::report {

namespace {

std::string Hex(const std::array<double, 3> &rgb) {
    constexpr const char *digits = "0123456789abcdef";
    std::string text = "#";
    for (const double v : rgb) {
        const auto whole = static_cast<unsigned>(std::lround(std::clamp(v, 0.0, 255.0)));
        text += digits[whole >> 4U];
        text += digits[whole & 15U];
    }
    return text;
}

// 1, 2 or 5 times a power of ten, not below the step asked for.
double RoundStep(double step) {
    const double power = std::pow(10.0, std::floor(std::log10(step)));
    for (const double digit : {1.0, 2.0, 5.0})
        if (digit * power >= step * (1.0 - 1e-9))
            return digit * power;
    return 10.0 * power;
}

} // namespace

std::string Diverging(double t) {
    constexpr std::array<double, 3> white{247, 247, 247}, blue{33, 102, 172}, red{178, 24, 43};
    const std::array<double, 3> &end = t < 0.0 ? blue : red;
    const double part = std::min(1.0, std::fabs(t));
    std::array<double, 3> rgb{};
    for (std::size_t k = 0; k < 3; ++k)
        rgb[k] = white[k] + part * (end[k] - white[k]);
    return Hex(rgb);
}

std::size_t Bands::bandOf(double value) const {
    const auto above = std::upper_bound(limits.begin(), limits.end(), value);
    const auto place = static_cast<std::ptrdiff_t>(above - limits.begin()) - 1;
    return static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(place, 0, static_cast<std::ptrdiff_t>(colours.size()) - 1));
}

Bands MakeBands(double least, double greatest, int count) {
    Bands bands;
    const double range = greatest - least, size = std::max(std::fabs(least), std::fabs(greatest));
    if (!(range > 1e-9 * size) || !(range > 1e-12)) {
        bands.limits = {least - 1e-9 - size * 1e-9, greatest + 1e-9 + size * 1e-9};
        bands.colours = {Diverging(0.0)};
        return bands;
    }
    const double step = RoundStep(range / count);
    const double first = std::floor(least / step + 1e-9), last = std::ceil(greatest / step - 1e-9);
    for (double k = first; k <= last; k += 1.0)
        bands.limits.push_back(k * step);
    const double outermost = std::max(std::fabs(bands.limits.front()), std::fabs(bands.limits.back()));
    for (std::size_t i = 0; i + 1 < bands.limits.size(); ++i)
        bands.colours.push_back(Diverging((bands.limits[i] + bands.limits[i + 1]) / 2.0 / outermost));
    return bands;
}

} // namespace havuz::report
