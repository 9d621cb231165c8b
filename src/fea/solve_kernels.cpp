// The portable kernels, and the choice among all: the solver takes the last of the list, the fastest that the processor
// can carry out, the tests take every one. They leave the same bits, so a run does not tell on which machine it was.
#define HAVUZ_TARGET

#include <cstring>

namespace havuz {

namespace {

// Pairs: what every processor of 64 bits holds in a register. Converted as whole vectors: g++ 12 leaves the rounding
// out where it is written element by element.
struct Set {
    typedef double Wide __attribute__((vector_size(16)));
    typedef float Narrow __attribute__((vector_size(8)));
    static constexpr int kWidth = 2, kRows = 2, kStrips = 1;
    static inline Wide widen(const float *from) {
        Narrow cells;
        std::memcpy(&cells, from, sizeof cells);
        return __builtin_convertvector(cells, Wide);
    }
    static inline void narrow(float *to, Wide wide) {
        const Narrow cells = __builtin_convertvector(wide, Narrow);
        std::memcpy(to, &cells, sizeof cells);
    }
    typedef long long Mask __attribute__((vector_size(16)));
    static inline Mask counts(Wide entry) { return entry != 0.0; }
    static inline Wide product(Mask mask, double factor, Wide entry) { return (Wide)((Mask)(factor * entry) & mask); }
    static inline Wide round(Wide wide) { return __builtin_convertvector(__builtin_convertvector(wide, Narrow), Wide); }
};

} // namespace

} // namespace havuz

#include "fea/solve_kernels_body.h"

namespace havuz {

extern const SolveKernels kAvx2Kernels, kAvx512Kernels;

static const SolveKernels kPortableKernels = KernelsNamed("portable");

static std::vector<const SolveKernels *> FindUsable() {
    std::vector<const SolveKernels *> usable = {&kPortableKernels};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        usable.push_back(&kAvx2Kernels);
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq"))
        usable.push_back(&kAvx512Kernels);
#endif
    return usable;
}

const std::vector<const SolveKernels *> &UsableSolveKernels() {
    static const std::vector<const SolveKernels *> usable = FindUsable();
    return usable;
}

} // namespace havuz
