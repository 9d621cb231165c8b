// The patch of MacNeal and Harder, "A proposed standard set of problems to test finite element accuracy", Finite
// Elements in Analysis and Design 1 (1985): five distorted elements, E = 1e6, v = 0.25, t = 0.001, membrane and bending
// at once.
#include "fea/matrix_invert.h"
#include "fea/quad_stiffness.h"
#include "quad_support.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

constexpr Point kNode[] = {{0, 0},       {0.24, 0},    {0.24, 0.12}, {0, 0.12}, // held
                           {0.04, 0.02}, {0.18, 0.03}, {0.16, 0.08}, {0.08, 0.08}};
constexpr std::size_t kElement[5][4] = {{0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}, {4, 5, 6, 7}};

// A part of the problem: membrane and bending do not meet in a flat patch. Rotation in the plane has no stiffness.
struct Problem {
    const char *name;
    std::vector<int> freedoms; // of a node, 0..5
};

Six Exact(Point p) {
    return {1e-3 * (p.x + p.y / 2), 1e-3 * (p.y + p.x / 2),  1e-3 * (p.x * p.x + p.x * p.y + p.y * p.y) / 2,
            1e-3 * (p.x / 2 + p.y), -1e-3 * (p.x + p.y / 2), 0};
}

// The assembled stiffness on the problem's freedoms of the eight nodes, from 0.
std::vector<std::vector<double>> Assemble(const Problem &problem) {
    const std::size_t m = problem.freedoms.size();
    std::vector<std::vector<double>> K(8 * m, std::vector<double>(8 * m));
    for (const auto &element : kElement) {
        PutQuad({kNode[element[0]], kNode[element[1]], kNode[element[2]], kNode[element[3]]}, kFlat, 0.001);
        FillPlaneD(1e6, 0.25);
        QuadShellStiffness(4);
        for (std::size_t p = 0; p < 4 * m; ++p)
            for (std::size_t q = 0; q < 4 * m; ++q)
                K[element[p / m] * m + p % m][element[q / m] * m + q % m] +=
                    QuadK(6 * static_cast<int>(p / m) + problem.freedoms[p % m] + 1,
                          6 * static_cast<int>(q / m) + problem.freedoms[q % m] + 1);
    }
    return K;
}

} // namespace

TEST(QuadPatch, FiveDistortedElementsPass) {
    ResetAll();
    for (const Problem &problem : {Problem{"membrane", {0, 1}}, Problem{"bending", {2, 3, 4}}}) {
        SCOPED_TRACE(problem.name);
        const auto K = Assemble(problem);
        const std::size_t m = problem.freedoms.size(), held = 4 * m, all = 8 * m, free = all - held;
        std::vector<double> exact(all);
        double largestK = 0.0, largestU = 0.0;
        for (std::size_t i = 0; i < all; ++i) {
            exact[i] = Exact(kNode[i / m])[static_cast<std::size_t>(problem.freedoms[i % m])];
            largestK = std::max(largestK, K[i][i]);
            largestU = std::max(largestU, std::fabs(exact[i]));
        }
        std::vector<double> inverse(free * free), load(free);
        double force = 0.0, error = 0.0;
        for (std::size_t i = 0; i < free; ++i) {
            double sum = 0.0;
            for (std::size_t j = 0; j < all; ++j)
                sum += K[held + i][j] * exact[j];
            force = std::max(force, std::fabs(sum));
            for (std::size_t j = 0; j < held; ++j)
                load[i] -= K[held + i][j] * exact[j];
            for (std::size_t j = 0; j < free; ++j)
                inverse[j * free + i] = K[held + i][held + j];
        }
        MatrixInvert(inverse.data(), static_cast<int>(free));
        for (std::size_t i = 0; i < free; ++i) {
            double u = -exact[held + i];
            for (std::size_t j = 0; j < free; ++j)
                u += inverse[j * free + i] * load[j];
            error = std::max(error, std::fabs(u));
        }
        EXPECT_LT(force, 30 * static_cast<double>(all) * kEps * largestK * largestU); // inner nodes are free of force
        EXPECT_LT(error, 1e-11 * largestU); // and the solution is found: rounding times the condition of the patch
    }
}

} // namespace havuz
