// An axis of a picture: round numbers along a range, or words in their order, to places between 0 and 1.
#pragma once

#include <string>
#include <vector>

namespace havuz {

struct AxisMark {
    double place = 0.0; // 0 at the axis' beginning, 1 at its end
    std::string text;
};

class PlotAxis {
public:
    // A range widened to the marks at its ends: steps of 1, 2 or 5 times a power of ten, about as many as asked for.
    // Zero is taken in when it is near.
    static PlotAxis OfNumbers(const std::vector<double> &values, int about);
    static PlotAxis OfWords(const std::vector<std::string> &words);

    const std::vector<AxisMark> &marks() const { return marks_; }
    double place(double value) const { return (value - first_) / (last_ - first_); }

private:
    double first_ = 0.0, last_ = 1.0;
    std::vector<AxisMark> marks_;
};

} // namespace havuz
