#include "view/colour_scale.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace havuz {

namespace {

constexpr int kSmoothSteps = 128;
constexpr int kWantedBands = 12;

struct Lab {
    double L, a, b;
};

Lab Between(const Lab &from, const Lab &to, double t) {
    return {from.L + t * (to.L - from.L), from.a + t * (to.a - from.a), from.b + t * (to.b - from.b)};
}

// CIE 15: the inverse of the lightness function, and the reference white D65.
double FromLightness(double f) {
    constexpr double kKnee = 6.0 / 29.0;
    return f > kKnee ? f * f * f : 3.0 * kKnee * kKnee * (f - 4.0 / 29.0);
}

// IEC 61966-2-1: linear light to the value of a channel, 0..255.
std::uint32_t Channel(double linear) {
    const double v = std::clamp(linear, 0.0, 1.0);
    const double s = v <= 0.0031308 ? 12.92 * v : 1.055 * std::pow(v, 1.0 / 2.4) - 0.055;
    return static_cast<std::uint32_t>(std::lround(255.0 * s));
}

Colour ToRgb(const Lab &c) {
    const double fy = (c.L + 16.0) / 116.0;
    const double x = 0.95047 * FromLightness(fy + c.a / 500.0);
    const double y = FromLightness(fy);
    const double z = 1.08883 * FromLightness(fy - c.b / 200.0);
    return Rgb(Channel(3.2406 * x - 1.5372 * y - 0.4986 * z), Channel(-0.9689 * x + 1.8758 * y + 0.0415 * z),
               Channel(0.0557 * x - 0.2040 * y + 1.0570 * z));
}

// The least lightness of the ends differs a little, so that a print in grey still tells below from above.
constexpr Lab kDeepBlue = {28.0, 12.0, -52.0}, kWhite = {97.0, 0.0, 0.0}, kDeepRed = {38.0, 56.0, 38.0};
constexpr std::array<Lab, 4> kRising = {
    {{96.0, -6.0, 24.0}, {73.0, -28.0, 8.0}, {50.0, -20.0, -18.0}, {27.0, 6.0, -34.0}}};

} // namespace

Colour ScaleColour(ScaleKind kind, double t) {
    t = std::clamp(t, 0.0, 1.0);
    if (kind == ScaleKind::Diverging)
        return ToRgb(t < 0.5 ? Between(kDeepBlue, kWhite, 2.0 * t) : Between(kWhite, kDeepRed, 2.0 * t - 1.0));
    const double at = t * (kRising.size() - 1);
    const auto part = std::min(static_cast<std::size_t>(at), kRising.size() - 2);
    return ToRgb(Between(kRising[part], kRising[part + 1], at - static_cast<double>(part)));
}

ColourMap::ColourMap(ScaleKind kind, double low, double high, int bands)
    : kind_(kind), low_(low), high_(high), bands_(bands) {
    const int count = bands > 0 ? bands : kSmoothSteps;
    for (int i = 0; i < count; ++i)
        colours_.push_back(ScaleColour(kind, (i + 0.5) / count));
}

int ColourMap::stepOf(double value) const {
    const double t = high_ > low_ ? (value - low_) / (high_ - low_) * steps() : 0.0;
    if (!(t > 0.0))
        return 0;
    return t >= steps() ? steps() - 1 : static_cast<int>(t);
}

Colour ColourMap::colour(int step) const {
    return colours_[static_cast<std::size_t>(std::clamp(step, 0, steps() - 1))];
}

double ColourMap::limit(int step) const { return low_ + (high_ - low_) * step / steps(); }

// The smallest round step that is not below the wanted one.
static double RoundStep(double wanted) {
    const double power = std::pow(10.0, std::floor(std::log10(wanted)));
    for (const double factor : {1.0, 2.0, 2.5, 5.0})
        if (factor * power >= wanted * (1.0 - 1e-9))
            return factor * power;
    return 10.0 * power;
}

ColourMap RoundMap(double least, double greatest, bool isSigned, bool smooth) {
    const double reach = std::max(std::fabs(least), std::fabs(greatest));
    const double span = isSigned ? 2.0 * reach : greatest - least;
    const ScaleKind kind = isSigned ? ScaleKind::Diverging : ScaleKind::Rising;
    if (!(span > 0.0) || !std::isfinite(span)) { // one value only
        const double half = reach > 0.0 && std::isfinite(reach) ? reach : 1.0;
        return isSigned ? ColourMap(kind, -half, half, smooth ? 0 : 2)
                        : ColourMap(kind, least, least + half, smooth ? 0 : 1);
    }
    const double step = RoundStep(span / kWantedBands);
    const double slack = 1e-9 * step;
    const double high = step * std::ceil(((isSigned ? reach : greatest) - slack) / step);
    const double low = isSigned ? -high : step * std::floor((least + slack) / step);
    return {kind, low, high, smooth ? 0 : static_cast<int>(std::lround((high - low) / step))};
}

} // namespace havuz
