#include "app/variants_progress.h"

#include "model/platform.h"

#include <cstdio>

namespace havuz {

VariantsProgress::VariantsProgress(std::size_t rows, std::size_t kept)
    : rows_(rows), kept_(kept), terminal_(platform::ErrorsOnTerminal()) {}

double VariantsProgress::seconds() const { return std::chrono::duration<double>(Clock::now() - start_).count(); }

void VariantsProgress::show() {
    const Clock::time_point now = Clock::now();
    if (now - shown_ < std::chrono::milliseconds(terminal_ ? 200 : 30'000))
        return;
    shown_ = now;
    const double rate = static_cast<double>(done_) / seconds();
    const auto left = rate > 0.0 ? static_cast<long>(static_cast<double>(rows_ - kept_ - done_) / rate) : 0L;
    std::fprintf(stderr, "%s%zu of %zu rows, %.1f rows/s, %ld:%02ld:%02ld left%s", terminal_ ? "\r" : "", kept_ + done_,
                 rows_, rate, left / 3600, left / 60 % 60, left % 60, terminal_ ? "\033[K" : "\n");
}

void VariantsProgress::finish(std::size_t failed) {
    std::fprintf(stderr, "%s%zu of %zu rows", terminal_ ? "\r\033[K" : "", kept_ + done_, rows_);
    if (kept_ > 0)
        std::fprintf(stderr, ", %zu from before", kept_);
    if (done_ > 0)
        std::fprintf(stderr, ", %.1f rows/s, largest process %llu MB", static_cast<double>(done_) / seconds(),
                     static_cast<unsigned long long>(platform::LargestChild() >> 20));
    std::fprintf(stderr, "\n");
    if (failed > 0)
        std::fprintf(stderr, "%zu rows failed; their words say why\n", failed);
}

} // namespace havuz
