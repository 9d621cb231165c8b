#include "model/write_file.h"

#include "model/failure.h"
#include "model/files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace havuz {

namespace fs = std::filesystem;

namespace {

// 0 where it is new.
mode_t KindOfTarget(const std::string &target, struct stat &state) {
    state = {};
    return stat(target.c_str(), &state) == 0 ? state.st_mode & S_IFMT : 0;
}

// Where a chain of symbolic links leads, whether anything is there or not. The names of open pipes lead nowhere.
std::string LinksFollowed(std::string path) {
    std::error_code error;
    struct stat state = {};
    if (const mode_t kind = KindOfTarget(path, state); kind == S_IFIFO || kind == S_IFCHR)
        return path;
    for (int steps = 0; fs::is_symlink(path, error); ++steps) {
        if (steps == 40)
            FailFile(Fault::CannotCreate, path, ELOOP);
        const fs::path to = fs::read_symlink(path, error);
        if (error)
            FailFile(Fault::CannotCreate, path, error.value());
        path = to.is_absolute() ? to.string() : (fs::path(path).parent_path() / to).string();
    }
    return path;
}

bool IsReadOnly(const std::string &target, const struct stat &state) {
    return (state.st_mode & 0222) == 0 || faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0;
}

// The file itself stands already: a directory that cannot be synced takes nothing back.
void SyncDirectoryOf(const std::string &target) {
    const fs::path parent = fs::path(target).parent_path();
    const int channel = open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (channel < 0)
        return;
    fsync(channel);
    close(channel);
}

std::string BytesOf(const std::string &path) {
    struct stat state = {};
    return KindOfTarget(path, state) == S_IFREG ? ReadWholeFile(path) : std::string();
}

} // namespace

BesideFile::BesideFile(const std::string &target, Special special) : target_(LinksFollowed(target)) {
    struct stat state = {};
    const mode_t kind = KindOfTarget(target_, state);
    if (kind == S_IFDIR)
        FailFile(Fault::IsDirectory, target_, 0);
    if (kind == S_IFREG && IsReadOnly(target_, state))
        FailFile(Fault::ReadOnly, target_, 0);
    if (kind != 0 && kind != S_IFREG) {
        if (special == Special::Refused || (kind != S_IFIFO && kind != S_IFCHR))
            FailFile(Fault::NoPlainFile, target_, 0);
        straight_ = true;
        made_.channel = open(target_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC); // fails where no one reads the pipe
        if (made_.channel < 0)
            FailFile(Fault::CannotOpen, target_, errno);
        fcntl(made_.channel, F_SETFL, fcntl(made_.channel, F_GETFL) & ~O_NONBLOCK);
        return;
    }
    SweepTemporaries(target_);
    made_ = MakeTemporary(target_);
    if (made_.channel < 0)
        FailFile(Fault::CannotCreate, target_, errno);
}

BesideFile::~BesideFile() {
    if (made_.channel >= 0)
        close(made_.channel);
    if (straight_ || placed_)
        return;
    unlink(made_.path.c_str());
    ForgetTemporary(made_.path);
}

void BesideFile::fail() const { FailFile(Fault::CannotWrite, target_, errno); }

void BesideFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(made_.channel, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            fail();
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

void BesideFile::keepTail() {
    struct stat own = {};
    if (fstat(made_.channel, &own) != 0)
        fail();
    const int old = open(target_.c_str(), O_RDONLY | O_CLOEXEC);
    if (old < 0)
        return; // there is none
    std::array<char, 65536> part{};
    off_t at = own.st_size;
    ssize_t n = 0;
    while ((n = pread(old, part.data(), part.size(), at)) > 0 &&
           pwrite(made_.channel, part.data(), std::size_t(n), at) == n)
        at += n;
    const int reason = errno;
    close(old);
    errno = reason;
    if (n != 0)
        fail();
}

// The old file gets a second name, which replaces the backup before it; where the file system has no such names, a
// copy.
void BesideFile::keepBackup() {
    struct stat state = {};
    if (straight_ || KindOfTarget(target_, state) != S_IFREG || BytesOf(target_) == BytesOf(made_.path))
        return;
    const std::string backup = target_ + "~";
    if (KindOfTarget(backup, state) == S_IFDIR)
        FailFile(Fault::IsDirectory, backup, 0);
    const std::string second = TemporaryName(backup);
    SweepTemporaries(backup);
    if (link(target_.c_str(), second.c_str()) != 0) {
        ForgetTemporary(second);
        WriteWholeFile(backup, BytesOf(target_));
        return;
    }
    const bool renamed = rename(second.c_str(), backup.c_str()) == 0;
    const int reason = errno;
    unlink(second.c_str()); // it stays when the backup is the same file already
    ForgetTemporary(second);
    if (!renamed)
        FailFile(Fault::CannotWrite, backup, reason);
}

void BesideFile::seal() {
    if (made_.channel < 0)
        return;
    if (!straight_) {
        struct stat old = {};
        const mode_t mask = umask(0);
        umask(mask);
        fchmod(made_.channel, KindOfTarget(target_, old) != 0 ? old.st_mode & 07777 : 0666 & ~mask);
        if (fsync(made_.channel) != 0)
            fail();
    }
    const int closed = close(made_.channel);
    made_.channel = -1;
    if (closed != 0)
        fail();
}

void BesideFile::takePlace() {
    if (rename(made_.path.c_str(), target_.c_str()) != 0)
        fail();
    placed_ = true;
    ForgetTemporary(made_.path);
}

void BesideFile::replaceTarget() {
    seal();
    if (straight_)
        return;
    takePlace();
    SyncDirectoryOf(target_);
}

void BesideFile::setAside() {
    struct stat state = {};
    if (KindOfTarget(target_, state) == 0)
        return;
    const std::string spare = TemporaryName(target_);
    if (rename(target_.c_str(), spare.c_str()) != 0) {
        const int reason = errno;
        ForgetTemporary(spare);
        errno = reason;
        fail();
    }
    spare_ = spare;
}

void BesideFile::putBack() {
    if (placed_)
        unlink(target_.c_str());
    if (!spare_.empty() && rename(spare_.c_str(), target_.c_str()) == 0) {
        ForgetTemporary(spare_);
        spare_.clear();
    }
}

void BesideFile::dropSpare() {
    if (spare_.empty())
        return;
    unlink(spare_.c_str());
    ForgetTemporary(spare_);
    spare_.clear();
}

void ReplaceTogether(std::initializer_list<BesideFile *> files) {
    for (BesideFile *file : files)
        file->seal();
    const SignalDelay delay;
    try {
        for (auto file = std::rbegin(files); file != std::rend(files); ++file)
            (*file)->setAside();
        for (BesideFile *file : files)
            file->takePlace();
    } catch (const RuntimeFailure &) {
        for (BesideFile *file : files)
            file->putBack();
        throw;
    }
    for (BesideFile *file : files)
        file->dropSpare();
    SyncDirectoryOf((*files.begin())->target());
}

void WriteWholeFile(const std::string &path, std::string_view bytes, Backup backup) {
    BesideFile beside(path);
    beside.write(bytes);
    if (backup == Backup::Kept)
        beside.keepBackup();
    beside.replaceTarget();
}

} // namespace havuz
