// libFuzzer's way in: HAVUZ_FUZZ_TARGET names one of the entry points of fuzz.h.
#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    havuz::fuzz::HAVUZ_FUZZ_TARGET(data, size);
    return 0;
}
