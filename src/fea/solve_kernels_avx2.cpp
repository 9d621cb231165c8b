// The kernels in registers of four doubles: Intel's second vector extension, without its fused products. Widening is
// exact; narrow and round go to the nearest 32-bit value, ties to even, as every store of the plain procedure does.
// What is not a number counts as not 0 (NEQ_UQ), so that an overflow goes on into the rows behind, where it is told of;
// and-ing a product with no bits makes +0 of it.
#if defined(__x86_64__)

#define HAVUZ_TARGET __attribute__((target("avx2")))

#include <immintrin.h>

namespace havuz {

namespace {

struct Set {
    using Wide = __m256d;
    static constexpr int kWidth = 4, kRows = 4, kStrips = 1;
    HAVUZ_TARGET static inline Wide widen(const float *from) { return _mm256_cvtps_pd(_mm_loadu_ps(from)); }
    HAVUZ_TARGET static inline void narrow(float *to, Wide wide) { _mm_storeu_ps(to, _mm256_cvtpd_ps(wide)); }
    using Mask = __m256d;
    HAVUZ_TARGET static inline Mask counts(Wide entry) {
        return _mm256_cmp_pd(entry, _mm256_setzero_pd(), _CMP_NEQ_UQ);
    }
    HAVUZ_TARGET static inline Wide product(Mask mask, double factor, Wide entry) {
        return _mm256_and_pd(_mm256_set1_pd(factor) * entry, mask);
    }
    HAVUZ_TARGET static inline Wide round(Wide wide) { return _mm256_cvtps_pd(_mm256_cvtpd_ps(wide)); }
};

} // namespace

} // namespace havuz

#include "fea/solve_kernels_body.h"

namespace havuz {

extern const SolveKernels kAvx2Kernels;
const SolveKernels kAvx2Kernels = KernelsNamed("AVX2");

} // namespace havuz

#endif
