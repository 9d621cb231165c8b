// The one failure of the checks: what was asked cannot be worked out, said in words. Nothing was written.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace havuz::design {

class DesignFailure : public std::runtime_error {
public:
    DesignFailure(const std::string &english, std::string turkish)
        : std::runtime_error(english), turkish_(std::move(turkish)) {}
    const std::string &turkish() const { return turkish_; }

private:
    std::string turkish_;
};

} // namespace havuz::design
