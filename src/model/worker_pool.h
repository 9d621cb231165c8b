// Jobs in processes of their own, so many at a time: each is a fork of this process (on Windows this program started
// anew) that hands back one text. What a job does to the model, to memory or to itself stays in its process. This
// process must have no other thread.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace havuz {

struct WorkerPool {
    int processes = 1;
    std::function<std::string(std::size_t job)> work; // in the forked process
    // In this process, one after the other, in the order in which the jobs end. words is empty, or why there is no
    // whole text: how the process ended.
    std::function<void(std::size_t job, const std::string &text, const std::string &words)> done;
    std::function<void()> tick; // now and then, and after each job
};

// Runs the jobs, started in their order. SIGINT, SIGTERM and SIGHUP kill the processes that run, start no more, and
// are returned; else 0. A process that cannot be started is std::system_error.
int RunWorkers(const WorkerPool &pool, const std::vector<std::size_t> &jobs);

// The job of this process where a process is not a fork but the program started anew: it writes the text of that job
// to its standard output and ends. Nothing elsewhere.
std::optional<std::size_t> WorkerJob();

} // namespace havuz
