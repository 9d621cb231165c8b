// Random models for the sound mesher, by a seed: one or more plates with or without walls, of many kinds of outline.
// And what is measured of a mesh: angles, lengths, areas, open sides. Shared by the test and the benchmark.
#pragma once

#include "mesh/plane_geometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace havuz {

// Numbers from a seed, the same on every machine.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed * 2654435769U + 88172645463325252U) {}
    double between(double low, double high) {
        return low + (high - low) * (static_cast<double>(next() >> 11) * 0x1p-53);
    }
    int whole(int low, int high) { return low + static_cast<int>(next() % static_cast<std::uint64_t>(high - low + 1)); }

private:
    std::uint64_t next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return state_;
    }
    std::uint64_t state_;
};

constexpr int kOutlineKinds = 10;
std::string OutlineKindInWords(int kind);

// Puts a random model of the kind into a fresh store, and a mesh width that fits its size into MeshGenisligi.
void PutRandomModel(int kind, std::uint64_t seed);

struct MeshMeasure {
    int meshes = 0, sharp = 0; // of floors; sharp: with a corner below 30 degrees, away from sharper outline corners
    double leastAngle = 180.0; // of floors, there, degrees
    double leastAngleAtAll = 180.0; // of floors, everywhere
    double aspect = 1.0;            // greatest ratio of the sides of a mesh of a floor
    double longestSide = 0.0;       // of floors, in widths
    double areaError = 0.0;         // greatest of the plates, by the plate's own area
    int folded = 0, openInside = 0; // meshes; sides of one mesh alone off the rim
    int close = 0, lostCorners = 0; // nodes within 1 mm; outline corners without a node
};
MeshMeasure MeasureMesh();

} // namespace havuz
