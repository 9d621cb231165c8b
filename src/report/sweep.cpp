#include "report/sweep.h"

#include "model/number_text.h"

#include <cmath>

namespace havuz {

namespace {

[[noreturn]] void Refuse(const std::string &what) { throw TableFailure("--sweep: " + what); }

double NumberOf(const std::string &text) {
    const auto value = ReadNumberField(text);
    if (!value)
        Refuse("\"" + text + "\" is not a number");
    return *value;
}

// Cuts at the mark wherever it stands outside single quotes and brackets; the quotes fall out of the parts.
std::vector<std::string> Cut(const std::string &text, char mark) {
    std::vector<std::string> parts(1);
    bool quoted = false;
    int depth = 0;
    for (const char c : text) {
        if (c == '\'')
            quoted = !quoted;
        depth += quoted ? 0 : c == '(' ? 1 : c == ')' ? -1 : 0;
        if (c == mark && !quoted && depth == 0)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    if (quoted)
        Refuse("a quote that does not close");
    return parts;
}

std::string WithoutQuotes(std::string text) {
    if (text.size() > 1 && text.front() == '\'' && text.back() == '\'')
        return text.substr(1, text.size() - 2);
    return text;
}

std::vector<std::string> RangeValues(const std::string &text, const std::vector<std::string> &ends) {
    if (ends.size() != 3)
        Refuse("\"" + text + "\" is no range first:last:step");
    const double first = NumberOf(ends[0]), last = NumberOf(ends[1]), step = NumberOf(ends[2]);
    const double steps = step == 0.0 ? -1.0 : (last - first) / step;
    if (!(steps >= 0.0))
        Refuse("\"" + text + "\": the step does not lead from the first to the last value");
    if (steps >= static_cast<double>(kSweepRows))
        Refuse("\"" + text + "\" has more than " + std::to_string(kSweepRows) + " values");
    std::vector<std::string> values;
    const auto count = static_cast<int>(std::floor(steps + 1e-9));
    for (int k = 0; k <= count; ++k)
        values.push_back(CsvNumber(first + k * step).text); // 12 digits: 0.3, not 0.30000000000000004
    return values;
}

std::vector<std::string> ValuesOf(const std::string &text) {
    std::vector<std::string> values;
    for (const std::string &part : Cut(text, ',')) {
        const std::vector<std::string> ends = Cut(part, ':');
        if (part.empty())
            Refuse("\"" + text + "\" lacks a value");
        if (ends.size() == 1) {
            values.push_back(WithoutQuotes(part));
            continue;
        }
        for (std::string &value : RangeValues(part, ends))
            values.push_back(std::move(value));
    }
    return values;
}

struct Axis {
    std::string name;
    std::vector<std::string> values;
};

std::vector<Axis> Axes(const std::string &text) {
    std::vector<Axis> axes;
    for (const std::string &part : Cut(text, ' ')) {
        if (part.empty())
            continue;
        const std::size_t equals = part.find('=');
        if (equals == std::string::npos || equals == 0)
            Refuse("\"" + part + "\" is not NAME=VALUES");
        axes.push_back({part.substr(0, equals), ValuesOf(part.substr(equals + 1))});
    }
    if (axes.empty())
        Refuse("no name to vary");
    return axes;
}

} // namespace

CsvTable SweepTable(const std::string &text) {
    const std::vector<Axis> axes = Axes(text);
    CsvTable table;
    std::size_t rows = 1;
    for (const Axis &axis : axes) {
        if (table.column(axis.name) < table.head.size())
            Refuse(axis.name + " stands twice");
        table.head.push_back(CsvValue(axis.name));
        rows *= axis.values.size();
        if (rows > kSweepRows)
            Refuse("more than " + std::to_string(kSweepRows) + " rows");
    }
    for (std::size_t row = 0; row < rows; ++row) {
        std::vector<CsvField> fields(axes.size());
        std::size_t rest = row;
        for (std::size_t a = axes.size(); a-- > 0; rest /= axes[a].values.size())
            fields[a] = CsvValue(axes[a].values[rest % axes[a].values.size()]);
        table.rows.push_back(std::move(fields));
    }
    return table;
}

} // namespace havuz
