// All that the program asks of the system that it runs on: files, locks, processes, signals, folders, the terminal.
// platform_posix.cpp answers where POSIX holds, platform_win32.cpp on Windows; no other source includes a header of a
// system. Names and texts are UTF-8. A call that fails gives -1, false or "" and leaves the reason in errno.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>

namespace havuz::platform {

#ifdef _WIN32
constexpr bool kNamesTellCase = false; // "a" and "A" are one file
constexpr const char *kHome = "USERPROFILE", *kNothing = "NUL", *kLibraryEnd = ".dll";
#else
constexpr bool kNamesTellCase = true;
constexpr const char *kHome = "HOME", *kNothing = "/dev/null", *kLibraryEnd = ".so";
#endif

// ---- files ----------------------------------------------------------------------------------------------------------

enum class Kind { None, File, Directory, Pipe, Device, Other };

struct FileState {
    Kind kind = Kind::None; // None: there is nothing, or the system does not say
    std::uintmax_t size = 0;
    bool readOnly = false; // for every user
};
FileState StateOf(const std::string &path); // links followed

enum class Opened {
    Read,
    Kept,    // read and written; made when it is missing, else its bytes stay
    New,     // read and written by this user alone; there must be none of this name
    Append,  // read and written at the end; made when it is missing
    Shared,  // as Kept, but never a link and never waiting: for locks and for files of unknown kind
    Present, // as Shared; there must be one of this name
    Pipe,    // a pipe or device, written; fails where no one reads it
};
int OpenFile(const std::string &path, Opened how); // the channel
// A private file below the folder, read and written; no name of it is left, however the program ends.
int OpenNameless(const std::string &parent);
bool CloseFile(int channel);

// The bytes moved, fewer at the end of the file; -1 for a failure. Interruptions by signals are not seen.
std::ptrdiff_t Read(int channel, void *bytes, std::size_t size);
std::ptrdiff_t Write(int channel, const void *bytes, std::size_t size);
std::ptrdiff_t ReadAt(int channel, void *bytes, std::size_t size, std::uintmax_t at);
std::ptrdiff_t WriteAt(int channel, const void *bytes, std::size_t size, std::uintmax_t at);

std::intmax_t SizeOf(int channel);
bool Empty(int channel);
bool Flush(int channel);     // its bytes and its state are on the disk
bool FlushData(int channel); // its bytes are
bool IsWritable(const std::string &path);
void TakePermissions(int channel, const std::string &target); // those of target, else those of a new file

// Held until the channel is closed. False: another channel holds it.
bool Lock(int channel);
bool LockShared(int channel);                        // beside others that hold it shared
bool StandsAt(int channel, const std::string &path); // whether the open file is still the one of this name

bool Remove(const char *path);                                    // also in a signal handler
bool Rename(const std::string &from, const std::string &to);      // what to names is replaced, at once
bool RenameToNew(const std::string &from, const std::string &to); // fails where there is one of the name
bool Link(const std::string &file, const std::string &second);
void FlushDirectory(const std::string &path);

// ---- folders, environment -------------------------------------------------------------------------------------------

std::string Environment(const char *name); // "" without it
void SetEnvironment(const char *name, const std::string &value);
std::string HomeDirectory();
std::string StateDirectory();                                // of all programs of the user; "" without a home
std::string TemporaryDirectory();                            // of all programs
std::string MakePrivateDirectory(const std::string &parent); // its path
std::string LocalPath(std::string path);                     // of a path as Windows writes it
std::tm LocalTime(std::time_t time);

// ---- processes, signals, terminal -----------------------------------------------------------------------------------

char **Arguments(int &count, char **arguments); // those of main, as UTF-8
long ProcessNumber();
bool IsGone(long process);
std::string OwnProgram();                                                  // its path
int StartCommand(const std::string &command, const std::string &argument); // by the shell; 0, or the reason
void *SymbolOf(const std::string &library, const char *name); // the library stays loaded; null where one is missing
void AskForLargePages(void *from, std::size_t size);          // of 2 MB, where the system has them
// Until the value is no more what it was; Wake says that it may have changed. Both for threads of this process.
void SleepWhile(const std::atomic<int> &value, int was);
void Wake(std::atomic<int> &value);
double WaitingThreads();       // that run or wait for a core, the mean of a minute; 0 where the system does not say
std::uintmax_t LargestChild(); // bytes of memory that a child had at most
bool ErrorsOnTerminal();

// The handler is called for the signals that end a program from outside, but for those that are ignored.
void AtEndingSignals(void (*handler)(int signal));
std::string SignalName(int signal); // "SIGTERM"; "" for those that do not end a program from outside
// A channel that gives a byte for the first such signal, its number, and that Qt can wait for; -1 where there is none.
// One that comes seconds later ends the process as if nobody watched.
int OpenSignals();
void CloseSignals();
void EndBySignal(int signal); // as if nobody had caught it: at once, or when the handler returns

} // namespace havuz::platform
