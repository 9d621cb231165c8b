#include "consistent/parallel.h"

#include <algorithm>
#include <exception>
#include <thread>
#include <vector>

namespace havuz::consistent {

void ForEach(std::size_t count, int threads, const std::function<void(std::size_t)> &work) {
    const std::size_t workers =
        std::clamp<std::size_t>(static_cast<std::size_t>(std::max(threads, 1)), 1, std::max<std::size_t>(count, 1));
    std::vector<std::exception_ptr> failures(workers);
    const auto part = [&](std::size_t worker) {
        try {
            for (std::size_t i = count * worker / workers; i < count * (worker + 1) / workers; ++i)
                work(i);
        } catch (...) {
            failures[worker] = std::current_exception();
        }
    };
    std::vector<std::thread> others;
    for (std::size_t worker = 1; worker < workers; ++worker)
        others.emplace_back(part, worker);
    part(0);
    for (std::thread &t : others)
        t.join();
    for (const std::exception_ptr &failure : failures)
        if (failure)
            std::rethrow_exception(failure);
}

} // namespace havuz::consistent
