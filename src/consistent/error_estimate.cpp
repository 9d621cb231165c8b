#include "consistent/error_estimate.h"

#include "consistent/system.h"

#include <algorithm>
#include <cmath>

namespace havuz::consistent {

namespace {

// Membrane forces and moments at a point, nxx nyy nxy mxx myy mxy.
using Forces = Eigen::Matrix<double, 6, 1>;

Forces Of(const ShellResult &r) {
    Forces f;
    f << r.N11, r.N22, r.N12, r.M11, r.M22, r.M12;
    return f;
}

// The same state told along other axes of the same plane; turn: rows the new axes in the old ones.
Forces Turned(const Forces &f, const Eigen::Matrix2d &turn) {
    Forces told;
    for (Eigen::Index at = 0; at < 6; at += 3) {
        Eigen::Matrix2d tensor;
        tensor << f(at), f(at + 2), f(at + 2), f(at + 1);
        const Eigen::Matrix2d t = turn * tensor * turn.transpose();
        told.segment<3>(at) << t(0, 0), t(1, 1), t(0, 1);
    }
    return told;
}

// Energy density twice over: forces times the strains that they make.
double Density(const Forces &f, double E, double poisson, double t) {
    const auto part = [&](Eigen::Index i) {
        return f(i) * f(i) + f(i + 1) * f(i + 1) - 2.0 * poisson * f(i) * f(i + 1) +
               2.0 * (1.0 + poisson) * f(i + 2) * f(i + 2);
    };
    return part(0) / (E * t) + 12.0 * part(3) / (E * t * t * t);
}

class Estimator {
public:
    Estimator(const System &system, const CaseResult &result) : system_(system), result_(result) {
        for (std::size_t i = 0; i < system.planeNodes.size(); ++i)
            place_[{system.planeNodes[i].node, system.planeNodes[i].plane}] = i;
    }

    ErrorShare of(std::size_t mesh) const {
        const TankMesh &m = system_.tank.meshes[mesh];
        const AxesOfMesh &axes = system_.axes[mesh];
        std::array<Forces, 4> smooth, gap;
        for (std::size_t k = 0; k < 4; ++k) {
            const Eigen::Matrix2d turn = axes[0].topRows<2>() * axes[k + 1].topRows<2>().transpose();
            smooth[k] = Turned(Of(result_.means[place_.at({m.node[k], system_.planes[mesh]})]), turn);
            gap[k] = smooth[k] - Turned(Of(result_.meshes[mesh][k + 1]), turn);
        }
        return integrated(mesh, smooth, gap);
    }

private:
    ErrorShare integrated(std::size_t mesh, const std::array<Forces, 4> &smooth,
                          const std::array<Forces, 4> &gap) const {
        const Corners p = CornersOf(system_.tank, system_.tank.meshes[mesh]);
        const double thickness = system_.tank.panelOf(system_.tank.meshes[mesh]).thickness;
        const double half = 1.0 / std::sqrt(3.0);
        ErrorShare share;
        share.meshes = 1;
        for (const double xi : {-half, half})
            for (const double eta : {-half, half}) {
                const Shares n = Bilinear(xi, eta);
                Forces s = Forces::Zero(), g = Forces::Zero();
                for (std::size_t k = 0; k < 4; ++k) {
                    s += n[k] * smooth[k];
                    g += n[k] * gap[k];
                }
                const double area = AreaAt(p, xi, eta);
                share.area += area;
                share.energy += area * Density(s, system_.tank.E, system_.tank.poisson, thickness);
                share.error += area * Density(g, system_.tank.E, system_.tank.poisson, thickness);
            }
        return share;
    }
    // Area that a point stands for.
    static double AreaAt(const Corners &p, double xi, double eta) {
        const Vector3 a = (1.0 - eta) * (p[1] - p[0]) + (1.0 + eta) * (p[2] - p[3]);
        const Vector3 b = (1.0 - xi) * (p[3] - p[0]) + (1.0 + xi) * (p[2] - p[1]);
        return Length(Cross(a, b)) / 16.0;
    }

    const System &system_;
    const CaseResult &result_;
    std::map<std::pair<int, int>, std::size_t> place_; // of the mean of a node in a plane
};

void Add(ErrorShare &sum, const ErrorShare &share) {
    sum.energy += share.energy;
    sum.error += share.error;
    sum.area += share.area;
    sum.meshes += share.meshes;
}

} // namespace

double ErrorShare::relative() const { return energy > 0.0 ? std::sqrt(error / energy) : 0.0; }

double ErrorShare::width() const { return meshes > 0 ? std::sqrt(area / meshes) : 0.0; }

double ErrorShare::widthFor(double wanted) const {
    return relative() > wanted ? width() * wanted / relative() : width();
}

ErrorEstimate EstimateError(const Analysis &analysis, const CaseResult &result) {
    const Estimator estimator(analysis.system(), result);
    ErrorEstimate estimate;
    for (std::size_t i = 0; i < analysis.tank().meshes.size(); ++i) {
        const ErrorShare share = estimator.of(i);
        Add(estimate.whole, share);
        Add(estimate.panels[analysis.tank().meshes[i].panel], share);
    }
    return estimate;
}

} // namespace havuz::consistent
