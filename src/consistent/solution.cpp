// Solutions of one sum of cases, on a bed that holds both ways or only presses.
#include "consistent/failure.h"
#include "consistent/system.h"

#include <algorithm>

namespace havuz::consistent {

namespace {

constexpr int kMostRounds = 50;

Vector MasterLoads(const System &system, const LoadFactors &factor) {
    Vector f = Vector::Zero(system.freedoms.all());
    const std::vector<Vector3> loads = system.nodalLoads(factor);
    for (std::size_t n = 1; n < loads.size(); ++n) {
        if (!system.tank.nodes[n].used)
            continue;
        Eigen::Matrix<double, 6, 1> force;
        force << loads[n].x, loads[n].y, loads[n].z, 0.0, 0.0, 0.0;
        system.freedoms.addForce(static_cast<int>(n), force, f);
    }
    return f;
}

// Puts the bed where it is pressed and takes it where it pulls; false when nothing changed.
bool ChangeBed(const System &system, Solution &s) {
    bool changed = false;
    s.liftedArea = 0.0;
    for (std::size_t n = 1; n < s.bed.size(); ++n) {
        const double area = system.bedAreas[n];
        if (area == 0.0)
            continue;
        const bool pulls = system.freedoms.at(static_cast<int>(n), s.u)(2) > 0.0;
        const double now = pulls ? 0.0 : area;
        changed = changed || now != s.bed[n];
        s.bed[n] = now;
        s.liftedArea += area - now;
    }
    return changed;
}

[[noreturn]] void RefuseFloating() {
    throw AnalysisFailure("without tension nothing of the bed is left pressed: the tank floats",
                          "çekmesiz zeminde basan nokta kalmıyor: havuz yüzüyor");
}

} // namespace

Solution Solve(const System &system, const LoadFactors &factor, const Factor &equations, std::vector<double> bed) {
    Solution s;
    s.factor = factor;
    s.bed = std::move(bed);
    const Vector f = system.freedoms.reduction().transpose() * MasterLoads(system, factor);
    s.u = system.freedoms.reduction() * equations.solve(f, s.residual);
    return s;
}

Solution SolveWithoutTension(const System &system, const LoadFactors &factor) {
    Solution s = Solve(system, factor, *system.factor, system.bedAreas);
    for (int round = 1; round <= kMostRounds; ++round) {
        if (!ChangeBed(system, s)) {
            s.rounds = round;
            return s;
        }
        const double lifted = s.liftedArea;
        const std::unique_ptr<Factor> equations = system.factorWith(s.bed);
        if (equations->lostEquation() >= 0)
            RefuseFloating();
        s = Solve(system, factor, *equations, std::move(s.bed));
        s.liftedArea = lifted;
    }
    throw AnalysisFailure("without tension the set of pressed springs does not stand after 50 rounds",
                          "çekmesiz zeminde basan yayların kümesi 50 turda oturmadı");
}

} // namespace havuz::consistent
