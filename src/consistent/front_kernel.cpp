#include "consistent/front_kernel.h"

#include <cstring>

namespace havuz::consistent {

namespace {

#if defined(__clang__)
#define HAVUZ_UNROLL _Pragma("clang loop unroll(full)")
#else
#define HAVUZ_UNROLL _Pragma("GCC unroll 8")
#endif
#define HAVUZ_INLINE inline __attribute__((always_inline))

typedef double Two __attribute__((vector_size(16)));
typedef double Four __attribute__((vector_size(32)));
typedef double Eight __attribute__((vector_size(64)));

// Rows of one tile: as many registers high as stay in registers with four columns.
template <class Wide, int High>
HAVUZ_INLINE void ReduceTile(const FrontStrip &job, std::size_t row) {
    constexpr std::size_t wide = sizeof(Wide) / sizeof(double);
    Wide cell[kFrontColumns][High];
    HAVUZ_UNROLL
    for (int c = 0; c < kFrontColumns; ++c)
        HAVUZ_UNROLL
    for (int v = 0; v < High; ++v)
        std::memcpy(&cell[c][v],
                    job.cells + static_cast<std::size_t>(c) * job.stride + row + static_cast<std::size_t>(v) * wide,
                    sizeof(Wide));
    const double *pivot = job.pivots + row;
    const double *factor = job.factor;
    for (int p = 0; p < job.pivotCount; ++p, pivot += job.stride, factor += kFrontColumns) {
        Wide entry[High];
        HAVUZ_UNROLL
        for (int v = 0; v < High; ++v)
            std::memcpy(&entry[v], pivot + static_cast<std::size_t>(v) * wide, sizeof(Wide));
        HAVUZ_UNROLL
        for (int c = 0; c < kFrontColumns; ++c)
            HAVUZ_UNROLL
        for (int v = 0; v < High; ++v)
            cell[c][v] -= entry[v] * factor[c];
    }
    HAVUZ_UNROLL
    for (int c = 0; c < kFrontColumns; ++c)
        HAVUZ_UNROLL
    for (int v = 0; v < High; ++v)
        std::memcpy(job.cells + static_cast<std::size_t>(c) * job.stride + row + static_cast<std::size_t>(v) * wide,
                    &cell[c][v], sizeof(Wide));
}

template <class Wide, int High>
HAVUZ_INLINE void Reduce(const FrontStrip &job) {
    constexpr std::size_t tile = High * sizeof(Wide) / sizeof(double);
    constexpr int low = static_cast<int>(kFrontRows * sizeof(double) / sizeof(Wide)); // kFrontRows rows
    std::size_t row = job.firstRow;
    for (; row + tile <= job.stride; row += tile)
        ReduceTile<Wide, High>(job, row);
    for (; row < job.stride; row += kFrontRows)
        if constexpr (low <= 2)
            ReduceTile<Wide, low>(job, row);
        else
            for (int half = 0; half < 2; ++half)
                ReduceTile<Wide, low / 2>(job, row + static_cast<std::size_t>(half) * kFrontRows / 2);
}

void Portable(const FrontStrip &job) { Reduce<Two, 2>(job); }

#if defined(__x86_64__)
__attribute__((target("avx2"))) void Avx2(const FrontStrip &job) { Reduce<Four, 2>(job); }
__attribute__((target("avx512f"))) void Avx512(const FrontStrip &job) { Reduce<Eight, 3>(job); }
#endif

FrontKernel Choose() {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx512f"))
        return Avx512;
    if (__builtin_cpu_supports("avx2"))
        return Avx2;
#endif
    return Portable;
}

} // namespace

FrontKernel PortableFrontKernel() { return Portable; }

FrontKernel BestFrontKernel() {
    static const FrontKernel best = Choose();
    return best;
}

} // namespace havuz::consistent
