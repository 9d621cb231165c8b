// Forks, with pipes and signals of POSIX; prctl is of Linux.
#ifndef _WIN32
#include "model/worker_pool.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace havuz {

namespace {

volatile std::sig_atomic_t caught = 0;

void Catch(int signal) { caught = signal; }

constexpr std::array kEndings = {SIGINT, SIGTERM, SIGHUP};

// While it stands the ending signals wait until ppoll lets them in, so that none falls between a look and a wait.
class SignalGate {
public:
    SignalGate() {
        caught = 0;
        sigset_t ours;
        sigemptyset(&ours);
        struct sigaction action = {};
        action.sa_handler = Catch;
        for (std::size_t i = 0; i < kEndings.size(); ++i) {
            sigaction(kEndings[i], nullptr, &before_[i]);
            if (before_[i].sa_handler == SIG_IGN && kEndings[i] != SIGINT)
                continue; // under nohup; a shell that ignores SIGINT for its background jobs can still send it
            sigaction(kEndings[i], &action, nullptr);
            sigaddset(&ours, kEndings[i]);
        }
        sigprocmask(SIG_BLOCK, &ours, &open_);
    }
    ~SignalGate() {
        for (std::size_t i = 0; i < kEndings.size(); ++i)
            sigaction(kEndings[i], &before_[i], nullptr);
        sigprocmask(SIG_SETMASK, &open_, nullptr);
    }
    SignalGate(const SignalGate &) = delete;
    SignalGate &operator=(const SignalGate &) = delete;
    const sigset_t *open() const { return &open_; }

private:
    std::array<struct sigaction, kEndings.size()> before_{};
    sigset_t open_{};
};

struct Worker {
    std::size_t job = 0;
    pid_t process = 0;
    int pipe = -1;
    std::string text;
};

void WriteAll(int file, const std::string &text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const ssize_t n = write(file, text.data() + at, text.size() - at);
        if (n < 0 && errno != EINTR)
            _exit(1);
        at += n > 0 ? static_cast<std::size_t>(n) : 0;
    }
}

// The forked process: silent, deaf to the keyboard (its parent ends it), and gone with its parent.
[[noreturn]] void Work(const WorkerPool &pool, std::size_t job, int pipe, const sigset_t *open, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(1);
    signal(SIGINT, SIG_IGN);
    signal(SIGTERM, SIG_DFL);
    sigprocmask(SIG_SETMASK, open, nullptr);
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (nowhere >= 0)
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            dup2(nowhere, stream);
    try {
        WriteAll(pipe, pool.work(job));
    } catch (...) {
        _exit(1);
    }
    _exit(0);
}

std::string EndingWords(int status) {
    if (WIFSIGNALED(status)) {
        const char *name = strsignal(WTERMSIG(status));
        return std::string("its process was ended by a signal: ") + (name != nullptr ? name : "unknown");
    }
    return WEXITSTATUS(status) == 0 ? "" : "its process ended with status " + std::to_string(WEXITSTATUS(status));
}

int Reap(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {}
    return status;
}

class Pool {
public:
    Pool(const WorkerPool &pool, const std::vector<std::size_t> &jobs) : pool_(pool), jobs_(jobs) {}
    ~Pool() {
        for (const Worker &w : running_) {
            kill(w.process, SIGKILL);
            Reap(w.process);
            close(w.pipe);
        }
    }
    Pool(const Pool &) = delete;
    Pool &operator=(const Pool &) = delete;

    int run() {
        while (caught == 0) {
            while (next_ < jobs_.size() && running_.size() < static_cast<std::size_t>(pool_.processes))
                start(jobs_[next_++]);
            if (running_.empty())
                return 0;
            listen();
            pool_.tick();
        }
        return caught;
    }

private:
    void start(std::size_t job) {
        std::array<int, 2> ends{};
        const pid_t parent = getpid();
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "a process cannot be started");
        const pid_t process = fork();
        if (process == 0)
            Work(pool_, job, ends[1], gate_.open(), parent);
        const int error = errno;
        close(ends[1]);
        if (process < 0) {
            close(ends[0]);
            throw std::system_error(error, std::generic_category(), "a process cannot be started");
        }
        running_.push_back({job, process, ends[0], ""});
    }

    void listen() {
        std::vector<pollfd> pipes;
        for (const Worker &w : running_)
            pipes.push_back({w.pipe, POLLIN, 0});
        const timespec wait{0, 200'000'000};
        if (ppoll(pipes.data(), pipes.size(), &wait, gate_.open()) <= 0)
            return;
        for (std::size_t i = pipes.size(); i-- > 0;)
            if (pipes[i].revents != 0)
                hear(i);
    }

    // Takes what the pipe holds; at its end the process is done.
    void hear(std::size_t i) {
        std::array<char, 65536> part{};
        const ssize_t n = read(running_[i].pipe, part.data(), part.size());
        if (n > 0)
            running_[i].text.append(part.data(), static_cast<std::size_t>(n));
        if (n > 0 || (n < 0 && errno == EINTR))
            return;
        const Worker w = std::move(running_[i]);
        running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(i));
        close(w.pipe);
        const std::string words = EndingWords(Reap(w.process));
        pool_.done(w.job, words.empty() ? w.text : "", words);
    }

    const WorkerPool &pool_;
    const std::vector<std::size_t> &jobs_;
    SignalGate gate_;
    std::size_t next_ = 0;
    std::vector<Worker> running_;
};

} // namespace

std::optional<std::size_t> WorkerJob() { return {}; }

int RunWorkers(const WorkerPool &pool, const std::vector<std::size_t> &jobs) { return Pool(pool, jobs).run(); }

} // namespace havuz
#endif
