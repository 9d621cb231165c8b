#include "fea/record_file.h"

#include "model/failure.h"

#include <cassert>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace havuz {

RecordFile::RecordFile(const std::string &path, std::size_t length, Access access, const std::string &shown)
    : path_(shown.empty() ? path : shown), length_(length),
      channel_(open(path.c_str(), access == ReadOnly ? O_RDONLY : O_RDWR | O_CREAT, 0666)) {
    if (channel_ < 0)
        FailFile(Fault::CannotOpen, path_, errno);
}

RecordFile::~RecordFile() { close(channel_); }

int RecordFile::records() const {
    struct stat state = {};
    return fstat(channel_, &state) == 0 ? static_cast<int>(static_cast<std::size_t>(state.st_size) / length_) : 0;
}

void RecordFile::put(const void *bytes, std::size_t size, int record) {
    assert(size % length_ == 0 && record >= 1);
    const auto at = static_cast<off_t>(static_cast<std::size_t>(record - 1) * length_);
    errno = 0;
    if (pwrite(channel_, bytes, size, at) != static_cast<ssize_t>(size))
        FailFile(Fault::CannotWrite, path_, errno);
}

void RecordFile::get(void *bytes, std::size_t size, int record) const {
    assert(size % length_ == 0 && record >= 1);
    const auto at = static_cast<off_t>(static_cast<std::size_t>(record - 1) * length_);
    errno = 0;
    if (pread(channel_, bytes, size, at) != static_cast<ssize_t>(size))
        throw RuntimeFailure({.fault = Fault::CannotReadRecord, .number = record, .text = path_, .reason = errno});
}

} // namespace havuz
