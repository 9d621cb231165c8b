// The same work on each of many items, in threads. Each item writes its own place only: the result is the same for
// every number of threads.
#pragma once

#include <cstddef>
#include <functional>

namespace havuz::consistent {

// work(i) for i in 0..count-1. The failure of the lowest item that fails is thrown on.
void ForEach(std::size_t count, int threads, const std::function<void(std::size_t)> &work);

} // namespace havuz::consistent
