// Threads: how many are allowed, and that a team does each job once.
#include "model/workers.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace havuz {

TEST(Workers, TheEnvironmentBoundsTheThreads) {
    const char *before = std::getenv("HAVUZ_THREADS");
    const std::string kept = before != nullptr ? before : "";
    unsetenv("HAVUZ_THREADS");
    const int cores = AllowedThreads();
    EXPECT_GE(cores, 1);
    for (const auto &[text, threads] : {std::pair<const char *, int>{"1", 1},
                                        {"3", 3},
                                        {"1024", 1024},
                                        {"0", cores},
                                        {"-2", cores},
                                        {"", cores},
                                        {"3x", cores},
                                        {"99999999999999999999", cores}}) {
        setenv("HAVUZ_THREADS", text, 1);
        EXPECT_EQ(AllowedThreads(), threads) << text;
    }
    before != nullptr ? setenv("HAVUZ_THREADS", kept.c_str(), 1) : unsetenv("HAVUZ_THREADS");
}

TEST(Workers, EveryMemberDoesEveryJobOnce) {
    for (int threads = 1; threads <= 8; ++threads) {
        WorkerTeam team(threads);
        EXPECT_EQ(team.size(), threads);
        std::vector<int> done(static_cast<std::size_t>(threads));
        for (int job = 1; job <= 200; ++job) {
            team.run([&done](int worker) { ++done[static_cast<std::size_t>(worker)]; });
            if (job % 50 == 0)
                std::this_thread::sleep_for(std::chrono::milliseconds(2)); // until the helpers sleep
            ASSERT_EQ(done, std::vector<int>(static_cast<std::size_t>(threads), job));
        }
    }
}

} // namespace havuz
