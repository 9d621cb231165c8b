// A layer between a program and the system, preloaded (LD_PRELOAD): one call on a file below a folder fails, kills the
// program, or is followed by a SIGTERM, once. Counts the opening of new files, and write, pwrite, fsync, rename, link
// and close of channels that were opened for writing there.
//   HAVUZ_FAULT_IN   the folder (its full path)
//   HAVUZ_FAULT      "fail N", "kill N", "term N": the N-th such call; nothing else: all go through
//   HAVUZ_FAULT_LOG  a file that takes the number of calls at the end
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/types.h>
#include <unistd.h>

namespace {

std::array<std::atomic<bool>, 1024> watched;
std::atomic<long> calls = 0;

bool Below(const char *path) {
    const char *folder = std::getenv("HAVUZ_FAULT_IN");
    return folder != nullptr && path != nullptr && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool IsWatched(int channel) {
    return channel >= 0 && channel < static_cast<int>(watched.size()) && watched[static_cast<std::size_t>(channel)];
}

void Watch(int channel, const char *path, int flags) {
    if (channel >= 0 && channel < static_cast<int>(watched.size()))
        watched[static_cast<std::size_t>(channel)] = (flags & O_ACCMODE) != O_RDONLY && Below(path);
}

// A counted call as the fault wants it.
template <class Call>
auto Disturbed(Call call) -> decltype(call()) {
    const char *fault = std::getenv("HAVUZ_FAULT");
    const bool chosen = ++calls == (fault == nullptr ? 0 : std::atol(fault + 5));
    if (chosen && std::strncmp(fault, "kill ", 5) == 0)
        kill(getpid(), SIGKILL);
    if (chosen && std::strncmp(fault, "fail ", 5) == 0) {
        errno = ENOSPC;
        return -1;
    }
    const auto result = call();
    if (chosen)
        raise(SIGTERM);
    return result;
}

template <class Function>
Function Real(const char *name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

struct Log {
    ~Log() {
        if (const char *path = std::getenv("HAVUZ_FAULT_LOG"))
            if (std::FILE *file = std::fopen(path, "w")) {
                std::fprintf(file, "%ld\n", calls.load());
                std::fclose(file);
            }
    }
} log;

} // namespace

extern "C" {

int open(const char *path, int flags, ...) {
    const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = makes ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    static const auto real = Real<int (*)(const char *, int, mode_t)>("open");
    const auto call = [&] { return real(path, flags, mode); };
    const int channel = makes && Below(path) ? Disturbed(call) : call();
    Watch(channel, path, flags);
    return channel;
}

ssize_t write(int channel, const void *bytes, size_t size) {
    static const auto real = Real<ssize_t (*)(int, const void *, size_t)>("write");
    const auto call = [&] { return real(channel, bytes, size); };
    return IsWatched(channel) ? Disturbed(call) : call();
}

ssize_t pwrite(int channel, const void *bytes, size_t size, off_t at) {
    static const auto real = Real<ssize_t (*)(int, const void *, size_t, off_t)>("pwrite");
    const auto call = [&] { return real(channel, bytes, size, at); };
    return IsWatched(channel) ? Disturbed(call) : call();
}

int fsync(int channel) {
    static const auto real = Real<int (*)(int)>("fsync");
    const auto call = [&] { return real(channel); };
    return IsWatched(channel) ? Disturbed(call) : call();
}

int rename(const char *from, const char *to) noexcept {
    static const auto real = Real<int (*)(const char *, const char *)>("rename");
    const auto call = [&] { return real(from, to); };
    return Below(to) ? Disturbed(call) : call();
}

int link(const char *from, const char *to) noexcept {
    static const auto real = Real<int (*)(const char *, const char *)>("link");
    const auto call = [&] { return real(from, to); };
    return Below(to) ? Disturbed(call) : call();
}

// The channel is gone also where its closing fails, as it is on Linux.
int close(int channel) {
    static const auto real = Real<int (*)(int)>("close");
    const bool counts = IsWatched(channel);
    if (channel >= 0 && channel < static_cast<int>(watched.size()))
        watched[static_cast<std::size_t>(channel)] = false;
    const int closed = real(channel);
    const auto call = [&] { return closed; };
    return counts ? Disturbed(call) : closed;
}
}
