// Arithmetic of vectors in space for element geometry, in double precision.
#pragma once

#include "model/points.h"

#include <cmath>

namespace havuz {

using Vector3 = SpacePoint;

inline Vector3 operator+(const Vector3 &a, const Vector3 &b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vector3 operator-(const Vector3 &a, const Vector3 &b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vector3 operator*(double f, const Vector3 &v) { return {f * v.x, f * v.y, f * v.z}; }

// v divided by its length. A length of 0 is DivisionByZero, naming what was to be normalised.
inline Vector3 Normalised(const Vector3 &v, Thing what) {
    const double length = std::sqrt(Dot(v, v));
    return {Divide(v.x, length, what), Divide(v.y, length, what), Divide(v.z, length, what)};
}

} // namespace havuz
