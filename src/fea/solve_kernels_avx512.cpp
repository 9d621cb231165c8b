// The kernels in registers of eight doubles: a strip's row is one register. Masks are eight bits in registers of their
// own and cost none of the 32; a masked product is +0 where its bit is not set. Rounding as in solve_kernels_avx2.cpp.
#if defined(__x86_64__)

#define HAVUZ_TARGET __attribute__((target("avx512f,avx512dq,avx512vl")))

#include <immintrin.h>

namespace havuz {

namespace {

struct Set {
    using Wide = __m512d;
    static constexpr int kWidth = 8, kRows = 8, kStrips = 3;
    // All lanes by a mask: the plain forms of these begin with an undefined register, of which g++ 12 warns.
    static constexpr __mmask8 kAll = 0xFF;
    HAVUZ_TARGET static inline Wide widen(const float *from) {
        return _mm512_maskz_cvtps_pd(kAll, _mm256_loadu_ps(from));
    }
    HAVUZ_TARGET static inline void narrow(float *to, Wide wide) {
        _mm256_storeu_ps(to, _mm512_maskz_cvtpd_ps(kAll, wide));
    }
    using Mask = __mmask8;
    HAVUZ_TARGET static inline Mask counts(Wide entry) {
        return _mm512_cmp_pd_mask(entry, _mm512_setzero_pd(), _CMP_NEQ_UQ);
    }
    HAVUZ_TARGET static inline Wide product(Mask mask, double factor, Wide entry) {
        return _mm512_maskz_mul_pd(mask, _mm512_set1_pd(factor), entry);
    }
    HAVUZ_TARGET static inline Wide round(Wide wide) {
        return _mm512_maskz_cvtps_pd(kAll, _mm512_maskz_cvtpd_ps(kAll, wide));
    }
};

} // namespace

} // namespace havuz

#include "fea/solve_kernels_body.h"

namespace havuz {

extern const SolveKernels kAvx512Kernels;
const SolveKernels kAvx512Kernels = KernelsNamed("AVX-512");

} // namespace havuz

#endif
