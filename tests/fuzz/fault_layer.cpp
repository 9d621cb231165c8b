// A layer between a program and the system, preloaded (LD_PRELOAD): one call on a file below a folder fails, or kills
// the program, once. Counts write, pwrite, fsync, rename, link and close of channels that were opened for writing
// there.
//   HAVUZ_FAULT_IN   the folder (its full path)
//   HAVUZ_FAULT      "fail N", "kill N": the N-th such call; nothing else: all go through
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

// Whether this call is the one that fails; the one that kills does not return.
bool Fails() {
    const long no = ++calls;
    const char *fault = std::getenv("HAVUZ_FAULT");
    if (fault == nullptr || no != std::atol(fault + 5))
        return false;
    if (std::strncmp(fault, "kill ", 5) == 0)
        kill(getpid(), SIGKILL);
    errno = ENOSPC;
    return true;
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
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    static const auto real = Real<int (*)(const char *, int, mode_t)>("open");
    const int channel = real(path, flags, mode);
    Watch(channel, path, flags);
    return channel;
}

ssize_t write(int channel, const void *bytes, size_t size) {
    static const auto real = Real<ssize_t (*)(int, const void *, size_t)>("write");
    return IsWatched(channel) && Fails() ? -1 : real(channel, bytes, size);
}

ssize_t pwrite(int channel, const void *bytes, size_t size, off_t at) {
    static const auto real = Real<ssize_t (*)(int, const void *, size_t, off_t)>("pwrite");
    return IsWatched(channel) && Fails() ? -1 : real(channel, bytes, size, at);
}

int fsync(int channel) {
    static const auto real = Real<int (*)(int)>("fsync");
    return IsWatched(channel) && Fails() ? -1 : real(channel);
}

int rename(const char *from, const char *to) noexcept {
    static const auto real = Real<int (*)(const char *, const char *)>("rename");
    return Below(to) && Fails() ? -1 : real(from, to);
}

int link(const char *from, const char *to) noexcept {
    static const auto real = Real<int (*)(const char *, const char *)>("link");
    return Below(to) && Fails() ? -1 : real(from, to);
}

// The channel is gone all the same, as it is on Linux.
int close(int channel) {
    static const auto real = Real<int (*)(int)>("close");
    const bool fails = IsWatched(channel) && Fails();
    if (channel >= 0 && channel < static_cast<int>(watched.size()))
        watched[static_cast<std::size_t>(channel)] = false;
    const int closed = real(channel);
    if (fails)
        errno = ENOSPC;
    return fails ? -1 : closed;
}
}
