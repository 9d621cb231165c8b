// The one failure of the consistent analysis: the model cannot be analysed, said in words. Nothing was written.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace havuz::consistent {

class AnalysisFailure : public std::runtime_error {
public:
    AnalysisFailure(const std::string &english, std::string turkish)
        : std::runtime_error(english), turkish_(std::move(turkish)) {}
    const std::string &turkish() const { return turkish_; }

private:
    std::string turkish_;
};

} // namespace havuz::consistent
