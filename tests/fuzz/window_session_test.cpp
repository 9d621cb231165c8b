// Seeded window sessions: some seconds of them with every run of the tests. HAVUZ_FUZZ_SESSIONS plays more.
#include "fuzz/window_session.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace havuz {

TEST(FuzzWindow, SessionsLoseNothingAndTakeEverythingBack) {
    const char *wanted = std::getenv("HAVUZ_FUZZ_SESSIONS"), *first = std::getenv("HAVUZ_FUZZ_SEED");
    const unsigned sessions = wanted == nullptr ? 10 : static_cast<unsigned>(std::atoi(wanted));
    const unsigned begin = first == nullptr ? 1 : static_cast<unsigned>(std::atoi(first));
    SessionReport all;
    for (unsigned seed = begin; seed < begin + sessions; ++seed) {
        std::mt19937 random(seed);
        std::vector<std::uint8_t> bytes(900);
        for (std::uint8_t &byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        const SessionReport report = PlaySession(bytes.data(), bytes.size());
        ASSERT_EQ(report.broken, "") << "seed " << seed;
        all.acts += report.acts;
        all.failures += report.failures;
        all.steps += report.steps;
    }
    std::printf("%d acts, %d that failed and changed nothing, %d steps taken back\n", all.acts, all.failures,
                all.steps);
    EXPECT_GT(all.steps, 0);
}

} // namespace havuz
