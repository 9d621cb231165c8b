// Records by their place in the file, byte (n-1)*length, in one system call each; what the system says goes into the
// failure. A hole that was never written reads as zeros.
#include "fea/record_file.h"

#include "model/failure.h"
#include "model/platform.h"

#include <cassert>
#include <cerrno>

namespace havuz {

RecordFile::RecordFile(const std::string &path, std::size_t length, Access access, const std::string &shown)
    : path_(shown.empty() ? path : shown), length_(length),
      channel_(platform::OpenFile(path, access == ReadOnly ? platform::Opened::Read : platform::Opened::Kept)) {
    if (channel_ < 0)
        FailFile(Fault::CannotOpen, path_, errno);
}

RecordFile::RecordFile(int channel, std::size_t length, const std::string &shown)
    : path_(shown), length_(length), channel_(channel) {}

RecordFile::~RecordFile() { platform::CloseFile(channel_); }

int RecordFile::records() const {
    const std::intmax_t size = platform::SizeOf(channel_);
    return size > 0 ? static_cast<int>(static_cast<std::size_t>(size) / length_) : 0;
}

void RecordFile::put(const void *bytes, std::size_t size, int record) {
    assert(size % length_ == 0 && record >= 1);
    const std::size_t at = static_cast<std::size_t>(record - 1) * length_;
    errno = 0;
    if (platform::WriteAt(channel_, bytes, size, at) != static_cast<std::ptrdiff_t>(size))
        FailFile(Fault::CannotWrite, path_, errno);
}

void RecordFile::get(void *bytes, std::size_t size, int record) const {
    assert(size % length_ == 0 && record >= 1);
    const std::size_t at = static_cast<std::size_t>(record - 1) * length_;
    errno = 0;
    if (platform::ReadAt(channel_, bytes, size, at) != static_cast<std::ptrdiff_t>(size))
        throw RuntimeFailure({.fault = Fault::CannotReadRecord, .number = record, .text = path_, .reason = errno});
}

} // namespace havuz
