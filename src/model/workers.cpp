#include "model/workers.h"

#include "model/platform.h"

#include <climits>
#include <cstdlib>
#include <system_error>

namespace havuz {

int AllowedThreads() {
    const char *text = std::getenv("HAVUZ_THREADS");
    char *end = nullptr;
    const long asked = text == nullptr ? 0 : std::strtol(text, &end, 10);
    if (asked >= 1 && asked <= 1024 && *end == '\0')
        return static_cast<int>(asked);
    const unsigned cores = std::thread::hardware_concurrency();
    return cores == 0 ? 1 : static_cast<int>(cores);
}

namespace {

constexpr int kLooks = 2000; // some ten microseconds: longer than a step of the solver that one thread does alone

void Pause() {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

// Waits while value is what it was; gives what it became.
int AwaitChange(const std::atomic<int> &value, int was) {
    for (int look = 0; look < kLooks; ++look) {
        const int now = value.load(std::memory_order_acquire);
        if (now != was)
            return now;
        Pause();
    }
    platform::SleepWhile(value, was);
    return value.load(std::memory_order_acquire);
}

} // namespace

WorkerTeam::WorkerTeam(int threads) {
    try {
        for (int worker = 1; worker < threads; ++worker)
            helpers_.emplace_back([this, worker] { help(worker); });
    } catch (const std::system_error &) { // the system has no more threads: the team is smaller
    }
}

WorkerTeam::~WorkerTeam() {
    turn_.store(INT_MIN, std::memory_order_release);
    platform::Wake(turn_);
    for (std::thread &helper : helpers_)
        helper.join();
}

void WorkerTeam::runAll() {
    if (helpers_.empty())
        return call_(context_, 0);
    working_.store(static_cast<int>(helpers_.size()), std::memory_order_relaxed);
    turn_.store(turn_.load(std::memory_order_relaxed) % INT_MAX + 1, std::memory_order_release);
    platform::Wake(turn_);
    call_(context_, 0);
    for (int left = working_.load(std::memory_order_acquire); left != 0;)
        left = AwaitChange(working_, left);
}

void WorkerTeam::help(int worker) {
    for (int turn = 0;;) {
        turn = AwaitChange(turn_, turn);
        if (turn < 0)
            return;
        call_(context_, worker);
        if (working_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            platform::Wake(working_);
    }
}

} // namespace havuz
