// Stored widths: the 16-bit and 32-bit fields of the model's records, and rows of such fields inside a record.
// A field cuts a value to its width when the value is stored; reading one gives an int or a double, so that all
// arithmetic runs at full width and two 32-bit fields never meet in 32-bit arithmetic.
#pragma once

#include "model/failure.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace havuz {

// A double is rounded to the nearest integer, ties to even; a value outside the 16-bit range, or NaN, is Overflow.
class Int16 {
public:
    Int16() = default;
    explicit Int16(double v) : v_(cut(v)) {}
    explicit Int16(int v) : v_(cut(v)) {}
    Int16 &operator=(double v) {
        v_ = cut(v);
        return *this;
    }
    Int16 &operator=(int v) {
        v_ = cut(v);
        return *this;
    }
    operator int() const { return v_; }

private:
    static std::int16_t cut(int v) {
        if (v < -32768 || v > 32767)
            FailOverflow(Fault::Past16Bits, v);
        return static_cast<std::int16_t>(v);
    }
    static std::int16_t cut(double v) {
        const double r = std::nearbyint(v); // the default mode is to nearest, ties to even
        if (!(r >= -32768.0 && r <= 32767.0))
            FailOverflow(Fault::Past16Bits, v);
        return static_cast<std::int16_t>(r);
    }
    std::int16_t v_ = 0;
};

// A float, rounded to nearest when stored. A value that no float can hold, or NaN, is Overflow.
class Float32 {
public:
    Float32() = default;
    explicit Float32(double v) : v_(cut(v)) {}
    Float32 &operator=(double v) {
        v_ = cut(v);
        return *this;
    }
    Float32 &operator+=(double v) {
        v_ = cut(static_cast<double>(v_) + v);
        return *this;
    }
    operator double() const { return static_cast<double>(v_); }
    float raw() const { return v_; }

private:
    static float cut(double v) {
        const float f = static_cast<float>(v);
        if (!(std::fabs(f) <= std::numeric_limits<float>::max()))
            FailOverflow(Fault::Past32Bits, v);
        return f;
    }
    float v_ = 0.0F;
};

static_assert(sizeof(Int16) == 2 && sizeof(Float32) == 4);
static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<float>::is_iec559);

// Elements 0..Last of one field. The bound is checked in every build.
template <class Element, int Last>
class Row {
public:
    Element &operator[](int k) { return element_[place(k)]; }
    const Element &operator[](int k) const { return element_[place(k)]; }
    static constexpr int last() { return Last; }

private:
    static std::size_t place(int k) {
        if (k < 0 || k > Last)
            FailSubscript(Thing::RowElement, k, Last);
        return static_cast<std::size_t>(k);
    }
    std::array<Element, Last + 1> element_{};
};

} // namespace havuz
