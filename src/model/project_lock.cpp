#include "model/project_lock.h"

#include "model/failure.h"
#include "model/platform.h"
#include "model/temporary_files.h"

#include <array>
#include <cerrno>
#include <cstdlib>

namespace havuz {

// The process that wrote itself into the file.
static long HolderOf(int channel) {
    std::array<char, 32> text{};
    return platform::ReadAt(channel, text.data(), text.size() - 1, 0) > 0 ? std::strtol(text.data(), nullptr, 10) : 0;
}

ProjectLock::ProjectLock(const std::string &project) : path_(project + ".LCK") {
    const SignalDelay delay; // the file is ours to take away once the lock is held, and not before
    for (;;) {
        channel_ = platform::OpenFile(path_, platform::Opened::Shared);
        if (channel_ < 0)
            FailFile(Fault::CannotCreate, path_, errno);
        if (!platform::Lock(channel_) && errno == EWOULDBLOCK) {
            const long holder = HolderOf(channel_);
            platform::CloseFile(channel_);
            throw RuntimeFailure({.fault = Fault::AlreadyAnalysed, .number = holder, .text = project});
        }
        if (platform::StandsAt(channel_, path_)) // its holder may have removed it meanwhile
            break;
        platform::CloseFile(channel_);
    }
    RememberTemporary(path_);
    const std::string own = std::to_string(platform::ProcessNumber()) + "\n";
    if (platform::Empty(channel_))
        platform::WriteAt(channel_, own.data(), own.size(), 0); // for the words of others alone
}

ProjectLock::~ProjectLock() {
    const SignalDelay delay; // once it is gone, another run may have one of the name
    platform::Remove(path_.c_str());
    ForgetTemporary(path_);
    platform::CloseFile(channel_);
}

} // namespace havuz
