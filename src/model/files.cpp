#include "model/files.h"

#include "model/failure.h"
#include "model/platform.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <filesystem>

namespace havuz {

namespace fs = std::filesystem;

// A project of full tables is under 1 MB, the program itself, which marks its tables of variants, over 64 MB when it is
// built with sanitizers; this only keeps a wrong file from filling the memory.
static constexpr std::uintmax_t kLargestFile = 256U << 20;

std::string LocalPath(std::string_view path) {
    std::string local = platform::LocalPath(std::string(path));
    if (!local.empty() && local[0] == '~' && (local.size() == 1 || local[1] == '/'))
        if (const std::string home = platform::HomeDirectory(); !home.empty())
            local.replace(0, 1, home);
    return local;
}

static bool SameButForCase(const std::string &a, const std::string &b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
               return std::tolower(x) == std::tolower(y);
           });
}

std::string FindFile(const std::string &path) {
    std::error_code error;
    if (platform::kNamesTellCase && fs::exists(path, error))
        return path;
    const fs::path wanted(path);
    const fs::path directory = wanted.has_parent_path() ? wanted.parent_path() : fs::path(".");
    std::string found;
    for (fs::directory_iterator it(directory, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().generic_string();
        // of several spellings the first in byte order, whatever order the directory lists them in
        if (SameButForCase(name, wanted.filename().generic_string()) && (found.empty() || name < found))
            found = name;
    }
    return found.empty() ? path
                         : (wanted.has_parent_path() ? wanted.parent_path() / found : fs::path(found)).generic_string();
}

bool FileExists(const std::string &path) {
    std::error_code error;
    return fs::is_regular_file(FindFile(path), error);
}

bool DirectoryExists(const std::string &path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

std::string UpToFirstDot(const std::string &path) { return path.substr(0, path.find('.')); }

// Everything up to the end; the errno of a read that failed, else 0.
static int ReadAll(int channel, std::string &bytes) {
    std::array<char, 65536> part{};
    for (;;) {
        const std::ptrdiff_t n = platform::Read(channel, part.data(), part.size());
        if (n <= 0)
            return n == 0 ? 0 : errno;
        bytes.append(part.data(), static_cast<std::size_t>(n));
    }
}

std::string ReadWholeFile(const std::string &path) {
    const platform::FileState state = platform::StateOf(path);
    if (state.kind == platform::Kind::None)
        FailFile(Fault::CannotOpen, path, errno);
    if (state.kind == platform::Kind::Directory)
        FailFile(Fault::IsDirectory, path, 0);
    if (state.kind != platform::Kind::File || state.size > kLargestFile)
        FailFile(Fault::NotOurs, path, 0);
    const int channel = platform::OpenFile(path, platform::Opened::Read);
    if (channel < 0)
        FailFile(Fault::CannotOpen, path, errno);
    std::string bytes;
    const int reason = ReadAll(channel, bytes);
    platform::CloseFile(channel);
    if (reason != 0)
        FailFile(Fault::CannotRead, path, reason);
    return bytes;
}

} // namespace havuz
