// The progress of a table of variants on standard error: on a terminal one line that moves, elsewhere a line now and
// then and one at the end.
#pragma once

#include <chrono>
#include <cstddef>

namespace havuz {

class VariantsProgress {
public:
    VariantsProgress(std::size_t rows, std::size_t kept);
    void count() { ++done_; }
    void show();
    void finish(std::size_t failed);

private:
    double seconds() const;

    using Clock = std::chrono::steady_clock;
    std::size_t rows_, kept_, done_ = 0;
    bool terminal_;
    Clock::time_point start_ = Clock::now(), shown_ = Clock::now();
};

} // namespace havuz
