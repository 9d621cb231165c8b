#include "view/displacements.h"

#include "model/arithmetic.h"
#include "model/failure.h"
#include "model/number_text.h"
#include "model/result_records.h"
#include "model/store.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace havuz {

static constexpr double kLongestMark = 30.0; // pixels

static std::size_t Place(int node) { return static_cast<std::size_t>(node); }

static double Single(const unsigned char *bytes) {
    std::uint32_t bits = 0;
    for (unsigned k = 0; k < 4; ++k)
        bits |= static_cast<std::uint32_t>(bytes[k]) << (8U * k);
    return static_cast<double>(std::bit_cast<float>(bits));
}

static std::ifstream OpenDisplacements() {
    return std::ifstream(std::filesystem::path(ProjeYolu + ".DEP"), std::ios::binary);
}

static Displacement ReadRecord(std::ifstream &file, int node, int column) {
    std::array<char, 12> bytes{};
    file.seekg(static_cast<std::streamoff>(node - 1) * static_cast<std::streamoff>(sizeof(DepRecord)) +
               DepColumn(column) * static_cast<std::streamoff>(sizeof(Float32)));
    if (!file.read(bytes.data(), bytes.size()))
        return {};
    const auto *number = reinterpret_cast<const unsigned char *>(bytes.data());
    return {Single(number), Single(number + 4), Single(number + 8)};
}

static void CheckColumn(int column) {
    if (column < 1 || column > kResultColumns)
        FailSubscript(Thing::DisplacementColumn, column, kResultColumns);
}

Displacement ReadDisplacement(int node, int column) {
    CheckColumn(column);
    std::ifstream file = OpenDisplacements();
    return ReadRecord(file, node, column);
}

// Of the marks of one displacement, drawn with twice its plan part, the longer.
static double MarkLength(const Displacement &d) { return std::max(Distance2(2.0 * d.x, 2.0 * d.y), std::fabs(d.z)); }

LoadCase ReadLoadCase(int column) {
    CheckColumn(column);
    std::ifstream file = OpenDisplacements();
    LoadCase result;
    result.node.resize(Place(NoktaCount) + 1);
    double longest = 0.0;
    for (int i = 1; i <= NoktaCount; ++i) {
        const Displacement d = ReadRecord(file, i, column);
        result.node[Place(i)] = d;
        longest = std::max(longest, MarkLength(d));
    }
    if (longest > 0.0)
        result.factor = kLongestMark / longest;
    return result;
}

std::string MillimetreText(double metres) { return PictureText(1000.0 * metres, "##0.###"); }

std::string GreatestDisplacements(int column) {
    const LoadCase read = ReadLoadCase(column);
    int plan = 0, vertical = 0;
    const auto planPart = [&](int i) { return Distance2(read.node[Place(i)].x, read.node[Place(i)].y); };
    const auto verticalPart = [&](int i) { return read.node[Place(i)].z; };
    for (int i = 1; i <= NoktaCount; ++i) {
        if (planPart(i) > planPart(plan))
            plan = i;
        if (std::fabs(verticalPart(i)) > std::fabs(verticalPart(vertical)))
            vertical = i;
    }
    if (plan == 0 && vertical == 0)
        return "SUTUN " + std::to_string(column) + ": YERDEGISTIRME YOK";
    return "SUTUN " + std::to_string(column) + ", mm: YATAY EN COK " + MillimetreText(planPart(plan)) + " (NOKTA " +
           std::to_string(plan) + "), DUSEY EN COK " + MillimetreText(verticalPart(vertical)) + " (NOKTA " +
           std::to_string(vertical) + ")";
}

} // namespace havuz
