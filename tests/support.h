// What the tests share: a fresh program, a folder of one's own, files as bytes, golden files, failures as values.
#pragma once

#include "model/failure.h"

#include <functional>
#include <string>

namespace havuz {

// The program as a fresh start leaves it, without a window. Every test begins with it (fresh_start.cpp); here for those
// that need it again.
void ResetAll();

// A folder that goes with the test.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    const std::string &path() const { return path_; }
    std::string file(const std::string &name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

// The home of the user is this folder while it lives; "": there is none.
class HomeAt {
public:
    explicit HomeAt(const std::string &folder);
    ~HomeAt();
    HomeAt(const HomeAt &) = delete;
    HomeAt &operator=(const HomeAt &) = delete;

private:
    std::string before_;
};

std::string ReadBytes(const std::string &path); // "" when there is no such file
void WriteBytes(const std::string &path, const std::string &bytes);

// Compares with tests/golden/name to the byte. With UPDATE_GOLDEN set in the environment the file is written first;
// read the difference before committing it.
bool MatchesGolden(const std::string &name, const std::string &got);

// The kind and words of the failure that the job ends with; words are "" when it does not fail.
struct Failed {
    bool failed = false;
    FailureKind kind = File;
    std::string words;
};
Failed FailureOf(const std::function<void()> &job);

} // namespace havuz
