// Windows has no fork: a job is this program started anew with the same arguments, told its job by the environment
// (HAVUZ_JOB), which hands its text back through its standard output.
#ifdef _WIN32
#include "model/platform.h"
#include "model/platform_win32.h"
#include "model/worker_pool.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <windows.h>
// behind windows.h
#include <psapi.h>

namespace havuz {

namespace {

constexpr const char *kJob = "HAVUZ_JOB";

std::atomic<int> caught = 0;

// While it stands an ending signal is only noted.
BOOL WINAPI Catch(DWORD event) {
    caught = event == CTRL_C_EVENT ? 2 : 15; // SIGINT, SIGTERM
    return TRUE;
}

struct SignalGate {
    SignalGate() {
        caught = 0;
        SetConsoleCtrlHandler(Catch, TRUE);
    }
    ~SignalGate() { SetConsoleCtrlHandler(Catch, FALSE); }
    SignalGate(const SignalGate &) = delete;
    SignalGate &operator=(const SignalGate &) = delete;
};

struct Handle {
    explicit Handle(HANDLE h = nullptr) : handle(h) {}
    ~Handle() { close(); }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;
    void close() {
        if (handle != nullptr)
            CloseHandle(handle);
        handle = nullptr;
    }
    HANDLE handle;
};

[[noreturn]] void Refuse() {
    platform::TakeLastError();
    throw std::system_error(errno, std::generic_category(), "a process cannot be started");
}

// Its processes go with it, and with this process.
class Group {
public:
    Group() : job_(CreateJobObjectW(nullptr, nullptr)) {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(job_.handle, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    }
    void take(HANDLE process) { AssignProcessToJobObject(job_.handle, process); }
    void kill() { TerminateJobObject(job_.handle, 1); }

private:
    Handle job_;
};

// This program again, deaf to the keyboard, its standard output into the pipe.
HANDLE Start(std::size_t job, HANDLE output) {
    Handle nowhere(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    SetHandleInformation(nowhere.handle, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = start.hStdError = nowhere.handle;
    start.hStdOutput = output;
    std::wstring line = GetCommandLineW();
    PROCESS_INFORMATION made = {};
    platform::SetEnvironment(kJob, std::to_string(job));
    const BOOL started = CreateProcessW(platform::Wide(platform::OwnProgram()).c_str(), line.data(), nullptr, nullptr,
                                        TRUE, CREATE_NEW_PROCESS_GROUP, nullptr, nullptr, &start, &made);
    platform::SetEnvironment(kJob, "");
    if (started == FALSE)
        Refuse();
    const Handle thread(made.hThread);
    return made.hProcess;
}

struct Ended {
    std::size_t job = 0;
    std::string text, words;
};

class Pool {
public:
    Pool(const WorkerPool &pool, const std::vector<std::size_t> &jobs) : pool_(pool), jobs_(jobs) {}
    ~Pool() {
        group_.kill();
        for (std::thread &listener : listeners_)
            listener.join();
    }
    Pool(const Pool &) = delete;
    Pool &operator=(const Pool &) = delete;

    int run() {
        while (caught == 0) {
            while (next_ < jobs_.size() && running_ < pool_.processes)
                start(jobs_[next_++]);
            if (running_ == 0)
                return 0;
            hear();
            pool_.tick();
        }
        return caught;
    }

private:
    void start(std::size_t job) {
        HANDLE from = nullptr, to = nullptr;
        if (CreatePipe(&from, &to, nullptr, 0) == FALSE)
            Refuse();
        const Handle end(to);
        SetHandleInformation(to, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
        const HANDLE process = Start(job, to);
        group_.take(process);
        ++running_;
        listeners_.emplace_back([this, job, from, process] { listen(job, from, process); });
    }

    // In a thread of its own: all that the process says, and how it ends.
    void listen(std::size_t job, HANDLE from, HANDLE process) {
        const Handle pipe(from), held(process);
        Ended ended{job, "", ""};
        std::array<char, 65536> part{};
        for (DWORD n = 0; ReadFile(from, part.data(), DWORD(part.size()), &n, nullptr) != FALSE && n > 0;)
            ended.text.append(part.data(), n);
        WaitForSingleObject(process, INFINITE);
        DWORD status = 0;
        GetExitCodeProcess(process, &status);
        PROCESS_MEMORY_COUNTERS memory = {};
        GetProcessMemoryInfo(process, &memory, sizeof memory);
        if (status != 0)
            ended.words = "its process ended with status " + std::to_string(status);
        const std::lock_guard lock(mutex_);
        platform::largestChild = std::max<std::uintmax_t>(platform::largestChild, memory.PeakWorkingSetSize);
        ended_.push_back(std::move(ended));
        changed_.notify_one();
    }

    void hear() {
        std::vector<Ended> ended;
        {
            std::unique_lock lock(mutex_);
            changed_.wait_for(lock, std::chrono::milliseconds(200), [this] { return !ended_.empty(); });
            ended.swap(ended_);
        }
        for (const Ended &one : ended) {
            --running_;
            pool_.done(one.job, one.words.empty() ? one.text : "", one.words);
        }
    }

    const WorkerPool &pool_;
    const std::vector<std::size_t> &jobs_;
    SignalGate gate_;
    Group group_;
    std::size_t next_ = 0;
    int running_ = 0;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Ended> ended_;
    std::vector<std::thread> listeners_;
};

} // namespace

int RunWorkers(const WorkerPool &pool, const std::vector<std::size_t> &jobs) { return Pool(pool, jobs).run(); }

std::optional<std::size_t> WorkerJob() {
    const std::string job = platform::Environment(kJob);
    if (job.empty())
        return {};
    platform::SetEnvironment(kJob, "");
    return static_cast<std::size_t>(std::stoull(job));
}

} // namespace havuz
#endif
