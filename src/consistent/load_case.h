// Load cases and combinations of the consistent analysis: their keys, their names, their factors.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace havuz::consistent {

// Each case stands alone: a combination adds them with factors.
enum Case { kDead, kLive, kPoint, kLiquid, kSoil, kGroundwater, kUplift, kSurcharge };
constexpr std::size_t kCases = 8;
constexpr std::array<Case, kCases> kAllCases = {kDead, kLive,        kPoint,  kLiquid,
                                                kSoil, kGroundwater, kUplift, kSurcharge};

struct CaseName {
    std::string_view key;              // "G P N L S W U Q"
    std::string_view english, turkish; // UTF-8
};
const CaseName &NameOf(Case c);

// A sum of cases under a key of its own, as "full" = G + P + N + L + S + W + U. Factors in the order of Case.
struct Combination {
    std::string key;
    std::array<double, kCases> factor{};
};

} // namespace havuz::consistent
