#include "model/write_file.h"

#include "model/failure.h"
#include "model/files.h"
#include "model/platform.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <iterator>

namespace havuz {

namespace fs = std::filesystem;

namespace {

using platform::Kind;

Kind KindOf(const std::string &path) { return platform::StateOf(path).kind; }

// Where a chain of symbolic links leads, whether anything is there or not. The names of open pipes lead nowhere.
std::string LinksFollowed(std::string path) {
    std::error_code error;
    if (const Kind kind = KindOf(path); kind == Kind::Pipe || kind == Kind::Device)
        return path;
    for (int steps = 0; fs::is_symlink(path, error); ++steps) {
        if (steps == 40)
            FailFile(Fault::CannotCreate, path, ELOOP);
        const fs::path to = fs::read_symlink(path, error);
        if (error)
            FailFile(Fault::CannotCreate, path, error.value());
        path = to.is_absolute() ? to.generic_string() : (fs::path(path).parent_path() / to).generic_string();
    }
    return path;
}

// The file itself stands already: a directory that cannot be synced takes nothing back.
void SyncDirectoryOf(const std::string &target) {
    platform::FlushDirectory(fs::path(target).parent_path().generic_string());
}

std::string BytesOf(const std::string &path) {
    return KindOf(path) == Kind::File ? ReadWholeFile(path) : std::string();
}

} // namespace

BesideFile::BesideFile(const std::string &target, Special special) : target_(LinksFollowed(target)) {
    const platform::FileState state = platform::StateOf(target_);
    if (state.kind == Kind::Directory)
        FailFile(Fault::IsDirectory, target_, 0);
    if (state.kind == Kind::File && (state.readOnly || !platform::IsWritable(target_)))
        FailFile(Fault::ReadOnly, target_, 0);
    if (state.kind != Kind::None && state.kind != Kind::File) {
        if (special == Special::Refused || (state.kind != Kind::Pipe && state.kind != Kind::Device))
            FailFile(Fault::NoPlainFile, target_, 0);
        straight_ = true;
        made_.channel = platform::OpenFile(target_, platform::Opened::Pipe);
        if (made_.channel < 0)
            FailFile(Fault::CannotOpen, target_, errno);
        return;
    }
    SweepTemporaries(target_);
    made_ = MakeTemporary(target_);
    if (made_.channel < 0)
        FailFile(Fault::CannotCreate, target_, errno);
}

BesideFile::~BesideFile() {
    if (made_.channel >= 0)
        platform::CloseFile(made_.channel);
    if (straight_ || placed_)
        return;
    platform::Remove(made_.path.c_str());
    ForgetTemporary(made_.path);
}

void BesideFile::fail() const { FailFile(Fault::CannotWrite, target_, errno); }

void BesideFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::ptrdiff_t n = platform::Write(made_.channel, bytes.data(), bytes.size());
        if (n < 0)
            fail();
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

void BesideFile::keepTail() {
    const std::intmax_t own = platform::SizeOf(made_.channel);
    if (own < 0)
        fail();
    const int old = platform::OpenFile(target_, platform::Opened::Read);
    if (old < 0)
        return; // there is none
    std::array<char, 65536> part{};
    auto at = static_cast<std::uintmax_t>(own);
    std::ptrdiff_t n = 0;
    while ((n = platform::ReadAt(old, part.data(), part.size(), at)) > 0 &&
           platform::WriteAt(made_.channel, part.data(), std::size_t(n), at) == n)
        at += std::uintmax_t(n);
    const int reason = errno;
    platform::CloseFile(old);
    errno = reason;
    if (n != 0)
        fail();
}

// The old file gets a second name, which replaces the backup before it; where the file system has no such names, a
// copy.
void BesideFile::keepBackup() {
    if (straight_ || KindOf(target_) != Kind::File || BytesOf(target_) == BytesOf(made_.path))
        return;
    const std::string backup = target_ + "~";
    if (KindOf(backup) == Kind::Directory)
        FailFile(Fault::IsDirectory, backup, 0);
    const std::string second = TemporaryName(backup);
    SweepTemporaries(backup);
    if (!platform::Link(target_, second)) {
        ForgetTemporary(second);
        WriteWholeFile(backup, BytesOf(target_));
        return;
    }
    const bool renamed = platform::Rename(second, backup);
    const int reason = errno;
    platform::Remove(second.c_str()); // it stays when the backup is the same file already
    ForgetTemporary(second);
    if (!renamed)
        FailFile(Fault::CannotWrite, backup, reason);
}

void BesideFile::seal() {
    if (made_.channel < 0)
        return;
    if (!straight_) {
        platform::TakePermissions(made_.channel, target_);
        if (!platform::Flush(made_.channel))
            fail();
    }
    const bool closed = platform::CloseFile(made_.channel);
    made_.channel = -1;
    if (!closed)
        fail();
}

void BesideFile::takePlace() {
    if (!platform::Rename(made_.path, target_))
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
    if (KindOf(target_) == Kind::None)
        return;
    const std::string spare = TemporaryName(target_);
    if (!platform::Rename(target_, spare)) {
        const int reason = errno;
        ForgetTemporary(spare);
        errno = reason;
        fail();
    }
    spare_ = spare;
}

void BesideFile::putBack() {
    if (placed_)
        platform::Remove(target_.c_str());
    if (!spare_.empty() && platform::Rename(spare_, target_)) {
        ForgetTemporary(spare_);
        spare_.clear();
    }
}

void BesideFile::dropSpare() {
    if (spare_.empty())
        return;
    platform::Remove(spare_.c_str());
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
