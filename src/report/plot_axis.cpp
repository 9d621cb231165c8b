#include "report/plot_axis.h"

#include "report/csv_table.h"

#include <algorithm>
#include <cmath>

namespace havuz {

// The greatest of 1, 2, 5 times a power of ten that is not above the length.
static double RoundStep(double length) {
    const double power = std::pow(10.0, std::floor(std::log10(length)));
    const double first = length / power * (1 + 1e-12);
    return (first < 2.0 ? 1.0 : first < 5.0 ? 2.0 : 5.0) * power;
}

PlotAxis PlotAxis::OfNumbers(const std::vector<double> &values, int about) {
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    double a = *low, b = *high;
    if (b - a <= 1e-9 * std::max(std::fabs(a), std::fabs(b))) { // one value, but for rounding, stands in the middle
        const double half = a == 0.0 ? 1.0 : std::fabs(a) / 10.0;
        a -= half;
        b += half;
    }
    if (a > 0.0 && a < (b - a) / 3.0)
        a = 0.0;
    if (b < 0.0 && -b < (b - a) / 3.0)
        b = 0.0;
    const double step = RoundStep((b - a) / about);
    const double start = std::floor(a / step + 1e-9), end = std::ceil(b / step - 1e-9);
    PlotAxis axis;
    axis.first_ = start * step;
    axis.last_ = end * step;
    for (double k = start; k <= end; ++k)
        axis.marks_.push_back({axis.place(k * step), CsvNumber(k * step).text});
    return axis;
}

PlotAxis PlotAxis::OfWords(const std::vector<std::string> &words) {
    PlotAxis axis;
    axis.first_ = -0.5;
    axis.last_ = static_cast<double>(words.size()) - 0.5;
    for (std::size_t k = 0; k < words.size(); ++k)
        axis.marks_.push_back({axis.place(static_cast<double>(k)), words[k]});
    return axis;
}

} // namespace havuz
