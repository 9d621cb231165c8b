// Threads of one job: how many the user allows, and a team that stands for the length of the job.
#pragma once

#include <atomic>
#include <thread>
#include <vector>

namespace havuz {

// Threads that HAVUZ_THREADS allows: a whole number from 1; unset or anything else: all cores.
int AllowedThreads();

// The caller and threads-1 helpers. run() has every one of them call the same job once and returns when all are done;
// the jobs share the work out among themselves. A job must not throw. Between two runs the helpers watch for a moment
// and then sleep, so that a team costs nothing while the caller is busy alone.
class WorkerTeam {
public:
    explicit WorkerTeam(int threads);
    ~WorkerTeam();
    WorkerTeam(const WorkerTeam &) = delete;
    WorkerTeam &operator=(const WorkerTeam &) = delete;

    int size() const { return static_cast<int>(helpers_.size()) + 1; }

    template <class Job>
    void run(Job &&job) { // job(worker), worker 0 is the caller
        call_ = [](void *context, int worker) { (*static_cast<Job *>(context))(worker); };
        context_ = const_cast<void *>(static_cast<const void *>(&job));
        runAll();
    }

private:
    void runAll();
    void help(int worker);

    void (*call_)(void *, int) = nullptr;
    void *context_ = nullptr;
    std::atomic<int> turn_ = 0;    // counts the runs; negative: the team goes home
    std::atomic<int> working_ = 0; // helpers that are not done with this run
    std::vector<std::thread> helpers_;
};

} // namespace havuz
