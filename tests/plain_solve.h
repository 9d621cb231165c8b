// The elimination and back substitution as the method is written down, without runs or shortcuts: the reference of the
// solver's bits in the tests and of its speed in the benchmarks.
#pragma once

#include "fea/system.h"

#include <cfloat>
#include <cmath>
#include <vector>

namespace havuz {

// Row by row with the chain of non-zero places, every store cut to 32 bits. Gives the equation at which a value leaves
// the 32-bit range, where it ends; 0 when none does.
inline int SolveLiteral(int N, int columns, std::vector<float> &s, std::vector<float> &rhs) {
    const auto index = [](int i, int j) { return static_cast<std::size_t>(ProfileDiag[i] + j - i); };
    const auto fits = [](double value) { return std::fabs(value) <= static_cast<double>(FLT_MAX); };
    const auto at = [columns](int e, int c) { return static_cast<std::size_t>(columns * (e - 1) + c); };
    std::vector<double> R(static_cast<std::size_t>(N) + 2);
    std::vector<int> NextLink(static_cast<std::size_t>(N) + 2);
    for (int i = 1; i <= N - 1; ++i) {
        for (int j = i; j <= N; ++j)
            R[static_cast<std::size_t>(j)] =
                index(i, j) < static_cast<std::size_t>(ProfileDiag[i + 1]) ? static_cast<double>(s[index(i, j)]) : 0.0;
        for (int j = i; j <= N; ++j)
            if (!fits(R[static_cast<std::size_t>(j)]))
                return i;
        int last = i;
        for (int j = i + 1; j <= N; ++j)
            if (R[static_cast<std::size_t>(j)] != 0) {
                NextLink[static_cast<std::size_t>(last)] = j;
                last = j;
            }
        NextLink[static_cast<std::size_t>(last)] = N + 1;
        if (R[static_cast<std::size_t>(i)] == 0)
            continue;
        for (int j = NextLink[static_cast<std::size_t>(i)]; j <= N; j = NextLink[static_cast<std::size_t>(j)]) {
            const double factor = R[static_cast<std::size_t>(j)] / R[static_cast<std::size_t>(i)];
            for (int k = j; k <= N; k = NextLink[static_cast<std::size_t>(k)])
                if (index(j, k) < static_cast<std::size_t>(ProfileDiag[j + 1]))
                    s[index(j, k)] = static_cast<float>(static_cast<double>(s[index(j, k)]) -
                                                        factor * R[static_cast<std::size_t>(k)]);
            for (int c = 1; c <= columns; ++c)
                rhs[at(j, c)] = static_cast<float>(static_cast<double>(rhs[at(j, c)]) -
                                                   factor * static_cast<double>(rhs[at(i, c)]));
        }
    }
    for (int c = 1; c <= columns; ++c) {
        const double p = static_cast<double>(s[index(N, N)]);
        const double x = p == 0 ? 0.0 : -static_cast<double>(rhs[at(N, c)]) / p;
        if (!fits(x))
            return N;
        rhs[at(N, c)] = static_cast<float>(x);
    }
    for (int i = N - 1; i >= 1; --i)
        for (int c = 1; c <= columns; ++c) {
            const double p = static_cast<double>(s[index(i, i)]);
            double sum = 0.0;
            for (int k = i + 1; k <= N; ++k) {
                const std::size_t cell = index(i, k);
                if (cell >= static_cast<std::size_t>(ProfileDiag[i + 1]))
                    k = N + 1;
                sum += static_cast<double>(s[cell]) * static_cast<double>(rhs[at(k, c)]);
            }
            const double x = p == 0 ? 0.0 : (-static_cast<double>(rhs[at(i, c)]) - sum) / p;
            if (!fits(x))
                return i;
            rhs[at(i, c)] = std::fabs(x) < 1e-30 ? 0.0F : static_cast<float>(x);
        }
    return 0;
}

} // namespace havuz
