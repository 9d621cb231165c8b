// The system as Windows has it. Channels are descriptors of the C runtime over handles that others may read, write,
// rename and remove meanwhile, as on POSIX systems.
#ifdef _WIN32
#include "model/platform_win32.h"

#include "model/platform.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <vector>
#include <windows.h>
// behind windows.h
#include <shellapi.h>

namespace havuz::platform {

std::uintmax_t largestChild = 0;

static std::string WithSlashes(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

static int ReasonOf(DWORD error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_INVALID_DRIVE:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return EACCES;
    case ERROR_SHARING_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return EBUSY;
    case ERROR_LOCK_VIOLATION:
        return EWOULDBLOCK;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_DIRECTORY:
        return ENOTDIR;
    case ERROR_DIR_NOT_EMPTY:
        return ENOTEMPTY;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    case ERROR_TOO_MANY_OPEN_FILES:
        return EMFILE;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return ENOMEM;
    default:
        return EIO;
    }
}

void TakeLastError() { errno = ReasonOf(GetLastError()); }

// A name below a file is told as a missing folder.
static bool IsBelowFile(const std::string &path) {
    const std::size_t slash = path.find_last_of("/\\");
    if (slash == std::string::npos || slash == 0)
        return false;
    const std::string folder = path.substr(0, slash);
    const DWORD facts = GetFileAttributesW(Wide(folder).c_str());
    return facts == INVALID_FILE_ATTRIBUTES ? IsBelowFile(folder) : (facts & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

static bool Done(BOOL done) {
    if (done == FALSE)
        TakeLastError();
    return done != FALSE;
}

// ---- files ----------------------------------------------------------------------------------------------------------

static HANDLE OpenHandle(const std::string &path, DWORD access, DWORD creation, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
    const HANDLE handle =
        CreateFileW(Wide(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    creation, flags, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        errno = error == ERROR_PATH_NOT_FOUND && IsBelowFile(path) ? ENOTDIR : ReasonOf(error);
    }
    return handle;
}

static int ChannelOf(HANDLE handle) {
    if (handle == INVALID_HANDLE_VALUE)
        return -1;
    const int channel = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_BINARY | _O_RDWR);
    if (channel < 0)
        CloseHandle(handle);
    return channel;
}

static HANDLE HandleOf(int channel) { return reinterpret_cast<HANDLE>(_get_osfhandle(channel)); }

FileState StateOf(const std::string &path) {
    const HANDLE handle = OpenHandle(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (handle == INVALID_HANDLE_VALUE)
        return {};
    FileState state;
    BY_HANDLE_FILE_INFORMATION facts = {};
    if (GetFileInformationByHandle(handle, &facts) != FALSE) {
        state.kind = (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Kind::Directory : Kind::File;
        state.size = std::uintmax_t{facts.nFileSizeHigh} << 32U | facts.nFileSizeLow;
        state.readOnly = (facts.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    } else {
        const DWORD type = GetFileType(handle);
        state.kind = type == FILE_TYPE_CHAR ? Kind::Device : type == FILE_TYPE_PIPE ? Kind::Pipe : Kind::Other;
    }
    CloseHandle(handle);
    return state;
}

int OpenFile(const std::string &path, Opened how) {
    switch (how) {
    case Opened::Read:
        return ChannelOf(OpenHandle(path, GENERIC_READ, OPEN_EXISTING));
    case Opened::Kept:
    case Opened::Shared:
        return ChannelOf(OpenHandle(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS));
    case Opened::New:
        return ChannelOf(OpenHandle(path, GENERIC_READ | GENERIC_WRITE, CREATE_NEW));
    case Opened::Append:
        return ChannelOf(OpenHandle(path, GENERIC_READ | FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS));
    case Opened::Present:
        return ChannelOf(OpenHandle(path, GENERIC_READ, OPEN_EXISTING));
    case Opened::Pipe:
        break;
    }
    return ChannelOf(OpenHandle(path, GENERIC_WRITE, OPEN_EXISTING));
}

static std::string OwnName(const std::string &parent) {
    static std::atomic<unsigned> next = 0;
    return parent + "/havuz-" + std::to_string(ProcessNumber()) + "-" + std::to_string(GetTickCount64()) + "-" +
           std::to_string(++next);
}

int OpenNameless(const std::string &parent) {
    return ChannelOf(OpenHandle(OwnName(parent), GENERIC_READ | GENERIC_WRITE, CREATE_NEW,
                                FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE));
}

bool CloseFile(int channel) { return _close(channel) == 0; }

static DWORD Part(std::size_t size) { return static_cast<DWORD>(std::min<std::size_t>(size, 1U << 30U)); }

// What ReadFile and WriteFile of a handle moved; the end of a file and of a pipe is 0.
static std::ptrdiff_t Moved(BOOL done, DWORD moved) {
    if (done != FALSE)
        return static_cast<std::ptrdiff_t>(moved);
    if (const DWORD error = GetLastError(); error == ERROR_HANDLE_EOF || error == ERROR_BROKEN_PIPE)
        return 0;
    TakeLastError();
    return -1;
}

static OVERLAPPED Place(std::uintmax_t at) {
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(at & 0xFFFFFFFFU);
    place.OffsetHigh = static_cast<DWORD>(at >> 32U);
    return place;
}

std::ptrdiff_t Read(int channel, void *bytes, std::size_t size) {
    DWORD moved = 0;
    const BOOL done = ReadFile(HandleOf(channel), bytes, Part(size), &moved, nullptr);
    return Moved(done, moved);
}

std::ptrdiff_t Write(int channel, const void *bytes, std::size_t size) {
    DWORD moved = 0;
    const BOOL done = WriteFile(HandleOf(channel), bytes, Part(size), &moved, nullptr);
    return Moved(done, moved);
}

std::ptrdiff_t ReadAt(int channel, void *bytes, std::size_t size, std::uintmax_t at) {
    DWORD moved = 0;
    OVERLAPPED place = Place(at);
    const BOOL done = ReadFile(HandleOf(channel), bytes, Part(size), &moved, &place);
    return Moved(done, moved);
}

std::ptrdiff_t WriteAt(int channel, const void *bytes, std::size_t size, std::uintmax_t at) {
    DWORD moved = 0;
    OVERLAPPED place = Place(at);
    const BOOL done = WriteFile(HandleOf(channel), bytes, Part(size), &moved, &place);
    return Moved(done, moved);
}

std::intmax_t SizeOf(int channel) {
    LARGE_INTEGER size = {};
    return Done(GetFileSizeEx(HandleOf(channel), &size)) ? size.QuadPart : -1;
}

bool Empty(int channel) { return _chsize_s(channel, 0) == 0; }

bool Flush(int channel) { return Done(FlushFileBuffers(HandleOf(channel))); }

bool FlushData(int channel) { return Flush(channel); }

bool IsWritable(const std::string &path) { return _waccess(Wide(path).c_str(), 2) == 0; }

void TakePermissions(int, const std::string &) {} // those of the folder hold for all its files

// A byte far behind every file: the bytes that are there stay readable for others.
bool Lock(int channel) {
    OVERLAPPED place = Place(std::uintmax_t{1} << 62U);
    return Done(LockFileEx(HandleOf(channel), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place));
}

bool LockShared(int channel) {
    OVERLAPPED place = Place(std::uintmax_t{1} << 62U);
    return Done(LockFileEx(HandleOf(channel), LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place));
}

bool StandsAt(int channel, const std::string &path) {
    BY_HANDLE_FILE_INFORMATION open = {}, named = {};
    const HANDLE handle = OpenHandle(path, 0, OPEN_EXISTING);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    const bool both = GetFileInformationByHandle(HandleOf(channel), &open) != FALSE &&
                      GetFileInformationByHandle(handle, &named) != FALSE;
    CloseHandle(handle);
    return both && open.dwVolumeSerialNumber == named.dwVolumeSerialNumber &&
           open.nFileIndexHigh == named.nFileIndexHigh && open.nFileIndexLow == named.nFileIndexLow;
}

bool Remove(const char *path) { return Done(DeleteFileW(Wide(path).c_str())); }

bool RenameToNew(const std::string &from, const std::string &to) {
    return Done(MoveFileExW(Wide(from).c_str(), Wide(to).c_str(), MOVEFILE_WRITE_THROUGH));
}

// FILE_RENAME_INFO and its class in SetFileInformationByHandle since Windows 10; older headers lack them.
struct RenameInfo {
    DWORD flags; // 1: what to names is replaced; 2: as POSIX has it
    HANDLE folder;
    DWORD size;
    WCHAR name[1];
};
constexpr auto kRenameInfo = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

// Over a file that is open, as POSIX has it: who reads the old one goes on. Windows 10 does it on NTFS.
static bool RenameOverOpen(const std::wstring &from, const std::wstring &to) {
    std::wstring whole(32768, L'\0');
    whole.resize(GetFullPathNameW(to.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr));
    std::vector<std::uint64_t> room((sizeof(RenameInfo) + whole.size() * sizeof(wchar_t)) / 8 + 1); // aligned
    auto *const info = reinterpret_cast<RenameInfo *>(room.data());
    info->flags = 3;
    info->size = static_cast<DWORD>(whole.size() * sizeof(wchar_t));
    std::copy(whole.begin(), whole.end(), info->name);
    const HANDLE file =
        CreateFileW(from.c_str(), DELETE | SYNCHRONIZE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_WRITE_THROUGH, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const BOOL done =
        SetFileInformationByHandle(file, kRenameInfo, info, static_cast<DWORD>(room.size() * sizeof room[0]));
    CloseHandle(file);
    return done != FALSE;
}

// A scanner of viruses holds a new file for a moment.
bool Rename(const std::string &from, const std::string &to) {
    const std::wstring old = Wide(from), name = Wide(to);
    for (int tries = 0;; ++tries) {
        if (MoveFileExW(old.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE)
            return true;
        const DWORD error = GetLastError();
        if ((error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION) && RenameOverOpen(old, name))
            return true;
        if (error != ERROR_SHARING_VIOLATION || tries == 50) {
            errno = ReasonOf(error);
            return false;
        }
        Sleep(20);
    }
}

bool Link(const std::string &file, const std::string &second) {
    return Done(CreateHardLinkW(Wide(second).c_str(), Wide(file).c_str(), nullptr));
}

void FlushDirectory(const std::string &) {} // the rename was written through

// ---- folders, environment -------------------------------------------------------------------------------------------

std::string Environment(const char *name) {
    const std::wstring wide = Wide(name);
    std::wstring value(GetEnvironmentVariableW(wide.c_str(), nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(wide.c_str(), value.data(), static_cast<DWORD>(value.size())));
    return Narrow(value);
}

void SetEnvironment(const char *name, const std::string &value) {
    _wputenv_s(Wide(name).c_str(), Wide(value).c_str()); // of the C runtime, and of the system
}

std::string HomeDirectory() { return WithSlashes(Environment(kHome)); }

std::string StateDirectory() { return WithSlashes(Environment("LOCALAPPDATA")); }

std::string TemporaryDirectory() {
    std::string folder = WithSlashes(Environment("TMPDIR"));
    if (folder.empty()) {
        std::wstring path(MAX_PATH + 1, L'\0');
        path.resize(GetTempPathW(static_cast<DWORD>(path.size()), path.data()));
        folder = WithSlashes(Narrow(path));
    }
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    return folder;
}

std::string MakePrivateDirectory(const std::string &parent) {
    const std::string own = OwnName(parent); // the folder for temporary files is the user's own here
    return Done(CreateDirectoryW(Wide(own).c_str(), nullptr)) ? own : "";
}

std::string LocalPath(std::string path) { return WithSlashes(std::move(path)); }

std::tm LocalTime(std::time_t time) {
    std::tm parts{};
    localtime_s(&parts, &time);
    return parts;
}

// ---- processes, signals, terminal -----------------------------------------------------------------------------------

// What the program says is the same to the byte as elsewhere, and UTF-8.
static const bool plainStreams = [] {
    for (std::FILE *stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
    return true;
}();

char **Arguments(int &count, char **) {
    static std::vector<std::string> texts;
    static std::vector<char *> arguments;
    wchar_t **wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 0; i < count; ++i)
        texts.push_back(Narrow(wide[i]));
    LocalFree(wide);
    for (std::string &text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    return arguments.data();
}

long ProcessNumber() { return static_cast<long>(GetCurrentProcessId()); }

bool IsGone(long process) {
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
    if (handle == nullptr)
        return GetLastError() == ERROR_INVALID_PARAMETER;
    const bool gone = WaitForSingleObject(handle, 0) == WAIT_OBJECT_0;
    CloseHandle(handle);
    return gone;
}

std::string OwnProgram() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return WithSlashes(Narrow(path));
}

int StartCommand(const std::string &command, const std::string &argument) {
    std::wstring line = Wide("cmd.exe /s /c \"" + command + " \"" + argument + "\"\"");
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION made = {};
    if (!Done(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made)))
        return errno;
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
    return 0;
}

void *SymbolOf(const std::string &library, const char *name) {
    const HMODULE loaded = LoadLibraryW(Wide(library).c_str());
    void *const found = loaded == nullptr ? nullptr : reinterpret_cast<void *>(GetProcAddress(loaded, name));
    if (found == nullptr)
        errno = GetFileAttributesW(Wide(library).c_str()) != INVALID_FILE_ATTRIBUTES ? ENOEXEC : ENOENT;
    return found;
}

void AskForLargePages(void *, std::size_t) {}
// The atomics of the C++ library have no wait of their own there and were seen to sleep for ever.
static_assert(sizeof(std::atomic<int>) == sizeof(int) && std::atomic<int>::is_always_lock_free);

void SleepWhile(const std::atomic<int> &value, int was) {
    while (value.load(std::memory_order_acquire) == was)
        WaitOnAddress(const_cast<std::atomic<int> *>(&value), &was, sizeof was, INFINITE);
}

void Wake(std::atomic<int> &value) { WakeByAddressAll(&value); }

double WaitingThreads() { return 0.0; }

std::uintmax_t LargestChild() { return largestChild; }

bool ErrorsOnTerminal() { return _isatty(_fileno(stderr)) != 0; }

static void (*endingHandler)(int signal) = nullptr;

// The window of the console is closed, or the user leaves.
static BOOL WINAPI OnConsole(DWORD event) {
    if (event == CTRL_C_EVENT)
        endingHandler(SIGINT);
    else
        endingHandler(SIGTERM);
    return TRUE;
}

void AtEndingSignals(void (*handler)(int signal)) {
    endingHandler = handler;
    SetConsoleCtrlHandler(OnConsole, TRUE);
}

std::string SignalName(int signal) { return signal == SIGINT ? "SIGINT" : signal == SIGTERM ? "SIGTERM" : ""; }

int OpenSignals() { return -1; } // Qt tells of the end of the session itself

void CloseSignals() {}

void EndBySignal(int signal) { std::_Exit(128 + signal); }

} // namespace havuz::platform
#endif
