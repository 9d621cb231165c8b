// Small arithmetic that every part uses: distances, exchange, checked division, the roundings of the model.
#pragma once

#include "model/failure.h"

#include <cmath>
#include <cstdint>

namespace havuz {

// Square root of dx*dx + dy*dy; exactly 0 when the sum is not positive.
inline double Distance2(double dx, double dy) {
    const double sum = dx * dx + dy * dy;
    return sum > 0.0 ? std::sqrt(sum) : 0.0;
}

inline double Distance3(double dx, double dy, double dz) {
    const double sum = dx * dx + dy * dy + dz * dz;
    return sum > 0.0 ? std::sqrt(sum) : 0.0;
}

template <class Number>
void SwapValues(Number &a, Number &b) {
    const Number kept = a;
    a = b;
    b = kept;
}

// a / b where a zero divisor ends the job: DivisionByZero, naming what was divided.
inline double Divide(double a, double b, Thing what) {
    if (b == 0.0)
        throw RuntimeFailure({.fault = Fault::Divided, .thing = what});
    return a / b;
}

// The whole number nearest to v, ties to even, for counts that are not stored in a record first. Outside the 16-bit
// range, which every count of the model keeps to, it is Overflow.
inline int RoundToWhole(double v) {
    const double r = std::nearbyint(v);
    if (!(r >= -32768.0 && r <= 32767.0))
        FailOverflow(Fault::CountPast16Bits, v);
    return static_cast<int>(r);
}

// What a store into a 32-bit integer leaves of v: the whole number nearest to it, ties to even. Outside the range, or
// NaN, it is Overflow.
inline std::int32_t RoundToWhole32(double v) {
    const double r = std::nearbyint(v);
    if (!(r >= -2147483648.0 && r <= 2147483647.0))
        FailOverflow(Fault::WholePast32Bits, v);
    return static_cast<std::int32_t>(r);
}

// The greatest whole number not above v (Int of the formulas). Outside the 32-bit range it is Overflow.
inline int FloorToWhole(double v) {
    const double r = std::floor(v);
    if (!(r >= -2147483648.0 && r <= 2147483647.0))
        FailOverflow(Fault::WholePast32Bits, v);
    return static_cast<int>(r);
}

} // namespace havuz
