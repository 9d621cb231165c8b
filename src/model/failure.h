// Failures of the core: the one exception it throws, and the end of the program asked for by its platform.
// The core never catches them half way: the programs and the start-up do.
#pragma once

#include <stdexcept>
#include <string>

namespace havuz {

enum FailureKind { Subscript, Overflow, DivisionByZero, BadNumber, File };

// Carries what failed and where in words: "NoktaTable(5001) lies outside 0..5000", or path, line and field of a file.
class RuntimeFailure : public std::runtime_error {
public:
    RuntimeFailure(FailureKind kind, const std::string &what) : std::runtime_error(what), kind_(kind) {}
    FailureKind kind() const { return kind_; }

private:
    FailureKind kind_;
};

// Thrown by the operation of a platform that ends the program, so that a test can see the end.
struct ProgramEnd {
    int status = 0;
};

[[noreturn]] void FailSubscript(const std::string &table, long long no, long long last);
[[noreturn]] void FailOverflow(const std::string &what);

} // namespace havuz
