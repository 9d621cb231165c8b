// Vectors of three components in double precision, for element geometry. Sums run x, y, z.
#pragma once

#include "model/arithmetic.h"

#include <cassert>
#include <cmath>

namespace havuz {

struct Vector3 {
    double x = 0.0, y = 0.0, z = 0.0;
    double operator()(int i) const { // component 1..3
        assert(i >= 1 && i <= 3);
        return i == 1 ? x : i == 2 ? y : z;
    }
};

inline Vector3 operator+(const Vector3 &a, const Vector3 &b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vector3 operator-(const Vector3 &a, const Vector3 &b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vector3 operator*(double f, const Vector3 &v) { return {f * v.x, f * v.y, f * v.z}; }

inline double Dot(const Vector3 &a, const Vector3 &b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

inline Vector3 Cross(const Vector3 &a, const Vector3 &b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// v divided by its length. A length of 0 is DivisionByZero, naming what was to be normalised.
inline Vector3 Normalised(const Vector3 &v, Thing what) {
    const double length = std::sqrt(Dot(v, v));
    return {Divide(v.x, length, what), Divide(v.y, length, what), Divide(v.z, length, what)};
}

} // namespace havuz
