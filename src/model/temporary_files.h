// Temporary files: their names, what becomes of them when the program is ended by a signal, and those that a killed
// program left behind. A temporary file lies beside the file it is for: NAME.tmpPID-N.
#pragma once

#include <string>

namespace havuz {

// A temporary file for target, made new and open for writing. It is known from before it is made until Forget, and
// locked (flock) while it is open. On failure channel is -1 and errno says why.
struct TemporaryFile {
    std::string path;
    int channel = -1;
};
TemporaryFile MakeTemporary(const std::string &target);

// The name of one that is not made yet, known from now on.
std::string TemporaryName(const std::string &target);

// A known file that a signal must take away too; Forget before or after it is gone.
void RememberTemporary(const std::string &path);
void ForgetTemporary(const std::string &path);

// Removes the temporary files for target that processes left which are no more.
void SweepTemporaries(const std::string &target);

// Unlinks every known file. Safe in a signal handler.
void RemoveTemporaries();

// From now on SIGINT, SIGTERM and SIGHUP remove the known files before they end the program as they do.
void RemoveTemporariesAtSignals();

// While one lives such a signal waits: renames that belong together are done together.
class SignalDelay {
public:
    SignalDelay();
    ~SignalDelay();
    SignalDelay(const SignalDelay &) = delete;
    SignalDelay &operator=(const SignalDelay &) = delete;
};

} // namespace havuz
