#include "model/temporary_files.h"

#include "model/platform.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <string_view>

namespace havuz {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMark = ".tmp";

// Read by a signal handler: plain memory, written before its mark is set. More files at once than any command has.
struct Known {
    std::atomic<long> used = 0; // the process that uses the place, 0 for none: a child of ours owns nothing of it
    std::array<char, 4096> path{};
};
std::array<Known, 32> known;
std::mutex knownWrites;
std::atomic<int> nextNumber = 1;
std::atomic<int> delays = 0;
std::atomic<int> waitingSignal = 0;

void EndBy(int signal) {
    RemoveTemporaries();
    platform::EndBySignal(signal);
}

void EndByWaiting() {
    if (const int signal = waitingSignal.exchange(0); signal != 0)
        EndBy(signal);
}

// On any thread: the last delay may end between the question and the note.
void OnSignal(int signal) {
    waitingSignal = signal;
    if (delays == 0)
        EndByWaiting();
}

// The process in "NAME.tmpPID-N" when the text is such a name of the file, else 0.
long ProcessOf(std::string_view text, std::string_view file) {
    if (text.substr(0, file.size()) != file || text.substr(file.size(), kMark.size()) != kMark)
        return 0;
    const char *at = text.data() + file.size() + kMark.size(), *const end = text.data() + text.size();
    long process = 0;
    int number = 0;
    const auto dash = std::from_chars(at, end, process);
    if (dash.ec != std::errc() || dash.ptr == end || *dash.ptr != '-')
        return 0;
    const auto last = std::from_chars(dash.ptr + 1, end, number);
    return last.ec == std::errc() && last.ptr == end ? process : 0;
}

// A file that another process still holds is not stale, whatever its number says here.
void RemoveUnlessHeld(const std::string &path) {
    const int channel = platform::OpenFile(path, platform::Opened::Present);
    if (channel < 0)
        return;
    if (platform::Lock(channel))
        platform::Remove(path.c_str());
    platform::CloseFile(channel);
}

} // namespace

void RememberTemporary(const std::string &path) {
    const std::lock_guard lock(knownWrites);
    for (Known &place : known)
        if (place.used == 0 && path.size() < place.path.size()) {
            std::memcpy(place.path.data(), path.c_str(), path.size() + 1);
            place.used = platform::ProcessNumber();
            return;
        }
}

void ForgetTemporary(const std::string &path) {
    const std::lock_guard lock(knownWrites);
    for (Known &place : known)
        if (place.used != 0 && path == place.path.data())
            place.used = 0;
}

void RemoveTemporaries() {
    for (const Known &place : known)
        if (place.used == platform::ProcessNumber())
            platform::Remove(place.path.data());
}

std::string TemporaryName(const std::string &target) {
    std::string name = target;
    name += std::string(kMark) + std::to_string(platform::ProcessNumber()) + "-" + std::to_string(nextNumber++);
    RememberTemporary(name);
    return name;
}

TemporaryFile MakeTemporary(const std::string &target) {
    for (;;) { // a dead process of the same number may have left the name
        TemporaryFile made{TemporaryName(target), -1};
        made.channel = platform::OpenFile(made.path, platform::Opened::New);
        if (made.channel >= 0) {
            platform::Lock(made.channel);
            return made;
        }
        const int reason = errno;
        ForgetTemporary(made.path);
        errno = reason;
        if (reason != EEXIST)
            return made;
    }
}

void SweepTemporaries(const std::string &target) {
    const fs::path wanted(target);
    const fs::path directory = wanted.has_parent_path() ? wanted.parent_path() : fs::path(".");
    const std::string file = wanted.filename().generic_string();
    std::error_code error;
    for (fs::directory_iterator it(directory, error), end; !error && it != end; it.increment(error)) {
        const long process = ProcessOf(it->path().filename().generic_string(), file);
        if (process > 0 && platform::IsGone(process))
            RemoveUnlessHeld(it->path().generic_string());
    }
}

void RemoveTemporariesAtSignals() { platform::AtEndingSignals(OnSignal); }

SignalDelay::SignalDelay() { ++delays; }

SignalDelay::~SignalDelay() {
    if (--delays == 0)
        EndByWaiting();
}

} // namespace havuz
