#include "app/plan_points.h"

#include "app/cli.h"
#include "model/number_text.h"

#include <sstream>

namespace havuz {

static PlanPoint ParsePlanPoint(const std::string &text) {
    const std::size_t comma = text.find(',');
    if (comma != std::string::npos) {
        const auto x = ReadNumberField(text.substr(0, comma)), y = ReadNumberField(text.substr(comma + 1));
        if (x && y)
            return {*x, *y};
    }
    throw UsageError("\"" + text + "\" is no point x,y");
}

std::vector<PlanPoint> ParsePlanPoints(const std::string &text) {
    std::istringstream in(text);
    std::vector<PlanPoint> points;
    for (std::string point; in >> point;)
        points.push_back(ParsePlanPoint(point));
    return points;
}

} // namespace havuz
