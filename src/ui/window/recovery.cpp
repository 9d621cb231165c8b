#include "ui/window/recovery.h"

#include "model/failure.h"
#include "model/files.h"
#include "model/platform.h"
#include "model/project_file.h"
#include "model/store.h"
#include "model/write_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <set>
#include <utility>

namespace havuz {

namespace fs = std::filesystem;

namespace {

constexpr const char *kMark = "\r\nKURTARMA\r\n"; // stands before the lines behind the last record
constexpr const char *kCopy = ".POL", *kLock = ".lock";

std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text + "\r\n";
}

// A comma or a quote in the title would break the reading: the copy has its title behind the last record.
std::string CopyText(const std::string &reason) {
    const std::string title = std::exchange(ProjeIsmi, {});
    std::string text = ProjectText();
    ProjeIsmi = title;
    text.resize(text.size() - 2); // the mark begins with the end of the last line
    return text + kMark + OneLine(std::to_string(std::time(nullptr))) + OneLine(reason) +
           OneLine(ProjeYolu.empty()      ? ""
                   : ProjeDosyasi.empty() ? ProjeYolu + ".POL"
                                          : ProjeDosyasi) +
           OneLine(title);
}

// The four lines behind the mark; none where the file has no mark.
std::optional<std::array<std::string, 4>> LinesBehind(const std::string &text) {
    std::size_t at = text.rfind(kMark);
    if (at == std::string::npos)
        return {};
    at += std::strlen(kMark);
    std::array<std::string, 4> lines;
    for (std::string &line : lines) {
        const std::size_t end = std::min(text.find("\r\n", at), text.size());
        line = text.substr(at, end - at);
        at = std::min(end + 2, text.size());
    }
    return lines;
}

// Whether the session is over: nobody holds its lock. Shared, so that looking keeps no other from looking.
bool IsOver(const std::string &lock) {
    const int channel = platform::OpenFile(lock, platform::Opened::Present);
    if (channel < 0)
        return errno == ENOENT;
    const bool over = platform::LockShared(channel);
    platform::CloseFile(channel);
    return over;
}

void Remove(const std::string &file) {
    std::error_code none;
    fs::remove(file, none);
}

// A lock that is new and held, -1 with errno otherwise. It comes to its name held already: a start that looks for
// sessions that are over never finds it free.
int TakeLock(const std::string &lock) {
    const std::string fresh =
        (fs::path(lock).parent_path() / (".lock" + std::to_string(platform::ProcessNumber()))).generic_string();
    const int channel = platform::OpenFile(fresh, platform::Opened::Kept);
    if (channel < 0)
        return -1;
    if (platform::Lock(channel) && platform::RenameToNew(fresh, lock))
        return channel;
    const int why = errno;
    Remove(fresh);
    platform::CloseFile(channel);
    errno = why;
    return -1;
}

} // namespace

std::string Recovery::UsualDirectory() {
    const std::string all = platform::StateDirectory();
    return all.empty() ? "" : all + "/havuz";
}

Recovery::Recovery(std::string directory) : directory_(std::move(directory)) {}

Recovery::~Recovery() {
    finishWriting();
    if (lock_ < 0)
        return;
    platform::CloseFile(lock_);
    Remove(stem() + kLock);
}

// Takes a name that no other session has.
void Recovery::begin() {
    if (lock_ >= 0)
        return;
    if (directory_.empty()) // not the root of the disk
        FailFile(Fault::CannotWrite, "$HOME/.local/state/havuz", ENOENT);
    std::error_code none;
    fs::create_directories(directory_, none);
    const std::tm parts = platform::LocalTime(std::time(nullptr));
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &parts);
    const std::string name = text.data() + ("-" + std::to_string(platform::ProcessNumber()));
    for (int i = 1; lock_ < 0 && i < 1000; ++i) {
        session_ = i == 1 ? name : name + "-" + std::to_string(i);
        if (fs::exists(stem() + kCopy, none))
            continue;
        lock_ = TakeLock(stem() + kLock);
        if (lock_ < 0 && errno != EEXIST)
            break;
    }
    if (lock_ < 0)
        FailFile(Fault::CannotWrite, directory_, errno);
}

void Recovery::finishWriting() {
    if (writing_.valid())
        error_ = writing_.get();
}

std::string Recovery::takeError() {
    if (writing_.valid() && writing_.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
        finishWriting();
    return std::exchange(error_, {});
}

void Recovery::keep(const std::string &reason) {
    finishWriting();
    begin();
    WriteWholeFile(stem() + kCopy, CopyText(reason));
}

void Recovery::keepLater() {
    finishWriting();
    try {
        begin();
    } catch (const RuntimeFailure &failure) {
        error_ = FailureInTurkish(failure);
        return;
    }
    writing_ = std::async(std::launch::async, [path = stem() + kCopy, text = CopyText("")]() -> std::string {
        try {
            WriteWholeFile(path, text);
            return "";
        } catch (const RuntimeFailure &failure) {
            return FailureInTurkish(failure);
        }
    });
}

void Recovery::drop() {
    finishWriting();
    if (lock_ >= 0)
        Remove(stem() + kCopy);
}

std::optional<RecoveryCopy> ReadRecoveryCopy(const std::string &file) {
    try {
        const auto lines = LinesBehind(ReadWholeFile(file));
        if (!lines)
            return {};
        return RecoveryCopy{file, (*lines)[2], (*lines)[1], (*lines)[3],
                            static_cast<std::time_t>(std::atoll((*lines)[0].c_str()))};
    } catch (const RuntimeFailure &) {
        return {};
    }
}

std::vector<RecoveryCopy> Recovery::left() const {
    std::set<std::string> stems;
    std::vector<std::string> files;
    std::error_code error;
    for (fs::directory_iterator it(directory_, error), end; !error && it != end; it.increment(error)) {
        files.push_back(it->path().generic_string());
        const std::string name = it->path().filename().generic_string();
        stems.insert(name.substr(0, name.find('.')));
    }
    std::vector<RecoveryCopy> copies;
    for (const std::string &session : stems) {
        const std::string own = directory_ + "/" + session;
        if (session == session_ || session.empty() || !IsOver(own + kLock))
            continue;
        auto copy = ReadRecoveryCopy(own + kCopy);
        for (const std::string &file : files) // what it was writing when it was cut off, and its lock
            if (file.rfind(own + kCopy + ".tmp", 0) == 0 || file == own + kLock)
                Remove(file);
        if (copy)
            copies.push_back(std::move(*copy));
    }
    std::sort(copies.begin(), copies.end(),
              [](const RecoveryCopy &a, const RecoveryCopy &b) { return a.time > b.time; });
    return copies;
}

void Recovery::remove(const RecoveryCopy &copy) { Remove(copy.file); }

} // namespace havuz
