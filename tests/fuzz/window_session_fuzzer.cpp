// libFuzzer: window sessions, for hours. Built by cmake --preset fuzz (clang).
#include "fuzz/window_session.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    const havuz::SessionReport report = havuz::PlaySession(bytes, size);
    if (!report.broken.empty()) {
        std::fprintf(stderr, "%s\n", report.broken.c_str());
        std::abort();
    }
    return 0;
}
