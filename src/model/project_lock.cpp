#include "model/project_lock.h"

#include "model/failure.h"
#include "model/temporary_files.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace havuz {

// The process that wrote itself into the file.
static long HolderOf(int channel) {
    std::array<char, 32> text{};
    return pread(channel, text.data(), text.size() - 1, 0) > 0 ? std::strtol(text.data(), nullptr, 10) : 0;
}

// Whether the open file is still the one of this name: its holder may have removed it meanwhile.
static bool StandsAt(int channel, const std::string &path) {
    struct stat open = {}, named = {};
    return fstat(channel, &open) == 0 && stat(path.c_str(), &named) == 0 && open.st_ino == named.st_ino &&
           open.st_dev == named.st_dev;
}

ProjectLock::ProjectLock(const std::string &project) : path_(project + ".LCK") {
    for (;;) {
        channel_ = open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
        if (channel_ < 0)
            FailFile(Fault::CannotCreate, path_, errno);
        if (flock(channel_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            const long holder = HolderOf(channel_);
            close(channel_);
            throw RuntimeFailure({.fault = Fault::AlreadyAnalysed, .number = holder, .text = project});
        }
        if (StandsAt(channel_, path_))
            break;
        close(channel_);
    }
    RememberTemporary(path_);
    const std::string own = std::to_string(getpid()) + "\n";
    if (ftruncate(channel_, 0) == 0)
        static_cast<void>(!pwrite(channel_, own.data(), own.size(), 0)); // for the words of others alone
}

ProjectLock::~ProjectLock() {
    unlink(path_.c_str());
    ForgetTemporary(path_);
    close(channel_);
}

} // namespace havuz
