#include "consistent/analysis.h"

#include <cstdlib>
#include <thread>

namespace havuz::consistent {

struct Analysis::System {
    Tank tank;
    Options options;
    SystemFacts facts;
    std::vector<ExtraJoint> joined;
    std::array<std::vector<Vector3>, kCases> loads;
    std::vector<double> bedAreas;
};

Analysis::Analysis(const Tank &tank, const Options &options) {
    static_cast<void>(tank);
    static_cast<void>(options);
    throw AnalysisFailure("the consistent analysis is not finished yet", "tutarlı analiz henüz bitmedi");
}

const Tank &Analysis::tank() const { return system_->tank; }
const Options &Analysis::options() const { return system_->options; }
const SystemFacts &Analysis::facts() const { return system_->facts; }
const std::vector<ExtraJoint> &Analysis::joined() const { return system_->joined; }
const std::vector<Vector3> &Analysis::loads(Case c) const { return system_->loads.at(static_cast<std::size_t>(c)); }
const std::vector<double> &Analysis::bedAreas() const { return system_->bedAreas; }
bool Analysis::active(Case c) const { return HasLoads(loads(c)); }
std::vector<PlaneNode> Analysis::planeNodes() const { return {}; }
std::vector<int> Analysis::meshPlanes() const { return {}; }
CaseResult Analysis::solve(Case) const { return {}; }
CaseResult Analysis::solve(const Combination &, bool) const { return {}; }

int AllowedThreads() {
    const char *text = std::getenv("HAVUZ_THREADS");
    char *end = nullptr;
    const long asked = text == nullptr ? 0 : std::strtol(text, &end, 10);
    if (asked >= 1 && asked <= 1024 && *end == '\0')
        return static_cast<int>(asked);
    const unsigned cores = std::thread::hardware_concurrency();
    return cores == 0 ? 1 : static_cast<int>(cores);
}

} // namespace havuz::consistent
