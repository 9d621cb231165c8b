// The consistent analysis of a tank: joined, assembled and factored once, then solved for any case or combination.
// Values in, values out; no state beside the object, which is only read once it stands.
#pragma once

#include "consistent/failure.h"
#include "consistent/membrane.h"
#include "consistent/results.h"
#include "model/workers.h"

#include <memory>

namespace havuz::consistent {

struct Options {
    LoadOptions loads;
    double drillingFactor = 1.0;                 // times the small drilling stiffness: results do not show it
    InnerModes stripModes = InnerModes::Stretch; // membrane of strips; other meshes have all modes
    bool joins = true;                           // false: only what the project's own numbering makes one
    int threads = 1;
};

using havuz::AllowedThreads;

struct SystemFacts {
    int equations = 0;
    double smallestPivot = 0.0, greatestPivot = 0.0;
    long long factorCells = 0; // of the triangular factor
};

struct System; // what stands inside

class Analysis {
public:
    // Joins, assembles, factors. A model that cannot be solved is an AnalysisFailure: a mechanism by node and
    // direction.
    explicit Analysis(const Tank &tank, const Options &options = {});

    const Tank &tank() const;
    const Options &options() const;
    const SystemFacts &facts() const;
    const std::vector<ExtraJoint> &joined() const;
    const std::vector<Vector3> &loads(Case c) const;  // nodal forces by project number
    const std::vector<double> &bedAreas() const;      // by project number, m2
    bool active(Case c) const;                        // the case loads something
    const std::vector<PlaneNode> &planeNodes() const; // places of CaseResult::means
    const std::vector<int> &meshPlanes() const;       // plane of each mesh, in the order of Tank::meshes

    // All zeros for a case that loads nothing.
    CaseResult solve(Case c) const;
    // With tension the sum of the cases; without, springs that pull are let go and the solution repeated until the set
    // stands; a set that does not stand in 50 rounds, or nothing left to stand on, is an AnalysisFailure.
    CaseResult solve(const Combination &combination, bool tension = true) const;

    const System &system() const { return *system_; } // for the parts of this folder

private:
    std::shared_ptr<const System> system_;
};

} // namespace havuz::consistent
