// The system as POSIX has it, and Linux where POSIX has nothing.
#ifndef _WIN32
#include "model/platform.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace havuz::platform {

static Kind KindOf(mode_t mode) {
    switch (mode & S_IFMT) {
    case S_IFREG:
        return Kind::File;
    case S_IFDIR:
        return Kind::Directory;
    case S_IFIFO:
        return Kind::Pipe;
    case S_IFCHR:
        return Kind::Device;
    default:
        return Kind::Other;
    }
}

FileState StateOf(const std::string &path) {
    struct stat state = {};
    if (stat(path.c_str(), &state) != 0)
        return {};
    return {KindOf(state.st_mode), static_cast<std::uintmax_t>(state.st_size), (state.st_mode & 0222) == 0};
}

int OpenFile(const std::string &path, Opened how) {
    const char *name = path.c_str();
    switch (how) {
    case Opened::Read:
        return open(name, O_RDONLY | O_CLOEXEC);
    case Opened::Kept:
        return open(name, O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    case Opened::New:
        return open(name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    case Opened::Append:
        return open(name, O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    case Opened::Shared:
        return open(name, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
    case Opened::Present:
        return open(name, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    case Opened::Pipe:
        break;
    }
    const int channel = open(name, O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (channel >= 0)
        fcntl(channel, F_SETFL, fcntl(channel, F_GETFL) & ~O_NONBLOCK);
    return channel;
}

int OpenNameless(const std::string &parent) {
    if (const int channel = open(parent.c_str(), O_TMPFILE | O_EXCL | O_RDWR | O_CLOEXEC, 0600); channel >= 0)
        return channel; // it never has a name; not every file system has such
    const std::string own = MakePrivateDirectory(parent), path = own + "/STIF001";
    if (own.empty())
        return -1;
    const int channel = OpenFile(path, Opened::New);
    const int reason = errno;
    unlink(path.c_str());
    rmdir(own.c_str());
    errno = reason;
    return channel;
}

bool CloseFile(int channel) { return close(channel) == 0; }

template <class Move>
static std::ptrdiff_t Uninterrupted(Move move) {
    for (;;)
        if (const std::ptrdiff_t n = move(); n >= 0 || errno != EINTR)
            return n;
}

std::ptrdiff_t Read(int channel, void *bytes, std::size_t size) {
    return Uninterrupted([&] { return read(channel, bytes, size); });
}

std::ptrdiff_t Write(int channel, const void *bytes, std::size_t size) {
    return Uninterrupted([&] { return write(channel, bytes, size); });
}

std::ptrdiff_t ReadAt(int channel, void *bytes, std::size_t size, std::uintmax_t at) {
    return Uninterrupted([&] { return pread(channel, bytes, size, static_cast<off_t>(at)); });
}

std::ptrdiff_t WriteAt(int channel, const void *bytes, std::size_t size, std::uintmax_t at) {
    return Uninterrupted([&] { return pwrite(channel, bytes, size, static_cast<off_t>(at)); });
}

std::intmax_t SizeOf(int channel) {
    struct stat state = {};
    return fstat(channel, &state) == 0 ? state.st_size : -1;
}

bool Empty(int channel) { return ftruncate(channel, 0) == 0; }

bool Flush(int channel) { return fsync(channel) == 0; }

bool FlushData(int channel) { return fdatasync(channel) == 0; }

bool IsWritable(const std::string &path) { return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0; }

void TakePermissions(int channel, const std::string &target) {
    struct stat old = {};
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(channel, stat(target.c_str(), &old) == 0 ? old.st_mode & 07777 : 0666 & ~mask);
}

bool Lock(int channel) { return flock(channel, LOCK_EX | LOCK_NB) == 0; }

bool LockShared(int channel) { return flock(channel, LOCK_SH | LOCK_NB) == 0; }

bool StandsAt(int channel, const std::string &path) {
    struct stat open = {}, named = {};
    return fstat(channel, &open) == 0 && stat(path.c_str(), &named) == 0 && open.st_ino == named.st_ino &&
           open.st_dev == named.st_dev;
}

bool Remove(const char *path) { return unlink(path) == 0; }

bool Rename(const std::string &from, const std::string &to) { return rename(from.c_str(), to.c_str()) == 0; }

bool RenameToNew(const std::string &from, const std::string &to) {
    return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
}

bool Link(const std::string &file, const std::string &second) { return link(file.c_str(), second.c_str()) == 0; }

void FlushDirectory(const std::string &path) {
    const int channel = open(path.empty() ? "." : path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (channel < 0)
        return;
    fsync(channel);
    close(channel);
}

std::string Environment(const char *name) {
    const char *value = std::getenv(name);
    return value == nullptr ? "" : value;
}

void SetEnvironment(const char *name, const std::string &value) { setenv(name, value.c_str(), 1); }

std::string HomeDirectory() { return Environment(kHome); }

std::string StateDirectory() {
    if (const std::string state = Environment("XDG_STATE_HOME"); !state.empty() && state.front() == '/')
        return state;
    const std::string home = HomeDirectory();
    return home.empty() ? "" : home + "/.local/state";
}

std::string TemporaryDirectory() {
    const std::string wanted = Environment("TMPDIR");
    return wanted.empty() ? "/tmp" : wanted;
}

std::string MakePrivateDirectory(const std::string &parent) {
    std::string own = parent + "/havuz-XXXXXX";
    return mkdtemp(own.data()) == nullptr ? "" : own;
}

std::string LocalPath(std::string path) {
    if (path.size() >= 2 && path[1] == ':' && ((path[0] | 0x20) >= 'a' && (path[0] | 0x20) <= 'z'))
        path.erase(0, 2); // a drive
    for (char &c : path)
        if (c == '\\')
            c = '/';
    return path;
}

std::tm LocalTime(std::time_t time) {
    std::tm parts{};
    localtime_r(&time, &parts);
    return parts;
}

char **Arguments(int &, char **arguments) { return arguments; }

long ProcessNumber() { return getpid(); }

// A process that is over and that nobody has asked about (in a container without an init) still has its number.
static bool IsOver(long process) {
    std::array<char, 512> text{};
    const int channel = open(("/proc/" + std::to_string(process) + "/stat").c_str(), O_RDONLY | O_CLOEXEC);
    if (channel < 0)
        return false;
    Read(channel, text.data(), text.size() - 1);
    close(channel);
    const char *name = std::strrchr(text.data(), ')'); // "NUMBER (NAME) STATE ..."
    return name != nullptr && name[1] == ' ' && (name[2] == 'Z' || name[2] == 'X');
}

bool IsGone(long process) { return kill(static_cast<pid_t>(process), 0) != 0 ? errno == ESRCH : IsOver(process); }

std::string OwnProgram() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

int StartCommand(const std::string &command, const std::string &argument) {
    std::string script = command + " \"$1\"", path = argument;
    char shell[] = "sh";
    char option[] = "-c";
    char *arguments[] = {shell, option, script.data(), shell, path.data(), nullptr};
    pid_t child = 0;
    return posix_spawn(&child, "/bin/sh", nullptr, nullptr, arguments, environ);
}

void *SymbolOf(const std::string &library, const char *name) {
    void *loaded = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    void *const found = loaded == nullptr ? nullptr : dlsym(loaded, name);
    if (found == nullptr)
        errno = access(library.c_str(), F_OK) == 0 ? ELIBACC : ENOENT;
    return found;
}

void AskForLargePages(void *from, std::size_t size) { madvise(from, size, MADV_HUGEPAGE); }
void SleepWhile(const std::atomic<int> &value, int was) { value.wait(was, std::memory_order_acquire); }

void Wake(std::atomic<int> &value) { value.notify_all(); }

double WaitingThreads() {
    double load = 0.0;
    return getloadavg(&load, 1) == 1 ? load : 0.0;
}

std::uintmax_t LargestChild() {
    rusage largest = {};
    getrusage(RUSAGE_CHILDREN, &largest);
    return static_cast<std::uintmax_t>(largest.ru_maxrss) * 1024U;
}

bool ErrorsOnTerminal() { return isatty(STDERR_FILENO) != 0; }

constexpr std::array kEndings = {SIGINT, SIGTERM, SIGHUP};

void AtEndingSignals(void (*handler)(int signal)) {
    for (const int signal : kEndings) {
        struct sigaction action = {}, before = {};
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) // nohup stays
            sigaction(signal, &action, nullptr);
    }
}

std::string SignalName(int signal) {
    switch (signal) {
    case SIGINT:
        return "SIGINT";
    case SIGTERM:
        return "SIGTERM";
    case SIGHUP:
        return "SIGHUP";
    default:
        return "";
    }
}

static std::array<int, 2> signalPipe = {-1, -1}; // a handler may do little more than write
static std::atomic<std::time_t> firstSignal = 0; // when it came, s
constexpr std::time_t kOneWish = 3;              // s

// The end of a session sends several within moments, a closed terminal the same one twice: one wish. One that comes
// later finds a program that does not hear.
extern "C" void HavuzWriteSignal(int signal) {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::time_t first = 0;
    if (firstSignal.compare_exchange_strong(first, now.tv_sec + 1)) {
        const auto byte = static_cast<unsigned char>(signal);
        if (write(signalPipe[1], &byte, 1) != 1)
            _exit(128 + signal);
    } else if (now.tv_sec + 1 - first >= kOneWish) {
        EndBySignal(signal);
    }
}

int OpenSignals() {
    if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return -1;
    AtEndingSignals(HavuzWriteSignal);
    return signalPipe[0];
}

void CloseSignals() {
    for (const int signal : kEndings) // one that comes while the program leaves for another is the same wish
        std::signal(signal, firstSignal != 0 ? SIG_IGN : SIG_DFL);
    firstSignal = 0;
    for (int &end : signalPipe)
        if (const int channel = std::exchange(end, -1); channel >= 0)
            close(channel);
}

void EndBySignal(int signal) {
    std::signal(signal, SIG_DFL);
    raise(signal);
}

} // namespace havuz::platform
#endif
