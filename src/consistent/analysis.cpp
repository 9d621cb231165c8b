#include "consistent/analysis.h"

#include "consistent/system.h"

namespace havuz::consistent {

Analysis::Analysis(const Tank &tank, const Options &options) : system_(std::make_shared<const System>(tank, options)) {}

const Tank &Analysis::tank() const { return system_->tank; }
const Options &Analysis::options() const { return system_->options; }
const SystemFacts &Analysis::facts() const { return system_->facts; }
const std::vector<ExtraJoint> &Analysis::joined() const { return system_->freedoms.joints().list; }
const std::vector<Vector3> &Analysis::loads(Case c) const { return system_->loads.at(static_cast<std::size_t>(c)); }
const std::vector<double> &Analysis::bedAreas() const { return system_->bedAreas; }
bool Analysis::active(Case c) const { return HasLoads(loads(c)); }
const std::vector<PlaneNode> &Analysis::planeNodes() const { return system_->planeNodes; }
const std::vector<int> &Analysis::meshPlanes() const { return system_->planes; }

CaseResult Analysis::solve(Case c) const {
    LoadFactors factor{};
    factor.at(static_cast<std::size_t>(c)) = 1.0;
    const Solution s = Solve(*system_, factor, *system_->factor, system_->bedAreas);
    return ResultsOf(*system_, std::string(NameOf(c).key), s);
}

CaseResult Analysis::solve(const Combination &combination, bool tension) const {
    if (tension)
        return ResultsOf(*system_, combination.key,
                         Solve(*system_, combination.factor, *system_->factor, system_->bedAreas));
    CaseResult result = ResultsOf(*system_, combination.key, SolveWithoutTension(*system_, combination.factor));
    result.tensionFree = true;
    return result;
}

} // namespace havuz::consistent
