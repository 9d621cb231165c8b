#include "consistent/membrane.h"

namespace havuz::consistent {

StrainMatrix Membrane::compatible(const FlatShape &shape, const ShapeDerivatives &d) {
    StrainMatrix b = StrainMatrix::Zero();
    for (int i = 0; i < shape.corners(); ++i) {
        const auto k = static_cast<std::size_t>(i);
        b(0, 2 * i) = d.cornerX[k];
        b(1, 2 * i + 1) = d.cornerY[k];
        b(2, 2 * i) = d.cornerY[k];
        b(2, 2 * i + 1) = d.cornerX[k];
    }
    return b;
}

// Modes 1 - xi^2 and 1 - eta^2 of u and of v, with the jacobian of the centre: so a constant strain wakes none.
Membrane::ModeMatrix Membrane::modesAt(const ShapeDerivatives &d) const {
    ModeMatrix g = ModeMatrix::Zero();
    const Eigen::Matrix2d inverse = centre_.jacobianMatrix.inverse() * (centre_.jacobian / d.jacobian);
    const Eigen::Vector2d first = inverse.col(0) * (-2 * d.xi);
    const Eigen::Vector2d second = inverse.col(1) * (-2 * d.eta);
    for (const Eigen::Index m : {0, 1}) {
        const Eigen::Vector2d &slope = m == 0 ? first : second;
        if (m == 0 || bows_) {
            g(0, 2 * m) = slope.x();
            g(2, 2 * m) = slope.y();
        }
        if (m == 1 || bows_) {
            g(1, 2 * m + 1) = slope.y();
            g(2, 2 * m + 1) = slope.x();
        }
    }
    return g;
}

Membrane::Membrane(const FlatShape &shape, const Eigen::Matrix3d &rigidity, InnerModes modes)
    : shape_(shape), bows_(modes == InnerModes::All), innerModes_(shape.corners() == 4), centre_(shape.atCentre()),
      stiffness_(Eigen::Matrix<double, 8, 8>::Zero()), modeOfCorners_(Eigen::Matrix<double, 4, 8>::Zero()) {
    Eigen::Matrix4d modeModes = Eigen::Matrix4d::Zero();
    Eigen::Matrix<double, 4, 8> modeCorners = Eigen::Matrix<double, 4, 8>::Zero();
    for (int point = 0; point < shape.points(); ++point) {
        double weight = 0.0;
        const ShapeDerivatives d = shape.atPoint(point, weight);
        const StrainMatrix b = compatible(shape, d);
        const StrainMatrix db = (weight * d.jacobian) * (rigidity * b);
        stiffness_.noalias() += b.transpose() * db;
        if (!innerModes_)
            continue;
        const ModeMatrix g = modesAt(d);
        modeCorners.noalias() += g.transpose() * db;
        modeModes.noalias() += g.transpose() * ((weight * d.jacobian) * rigidity) * g;
    }
    if (!innerModes_)
        return;
    if (!bows_)
        modeModes(1, 1) = modeModes(2, 2) = 1.0; // empty otherwise
    modeOfCorners_ = -modeModes.ldlt().solve(modeCorners);
    stiffness_.noalias() += modeCorners.transpose() * modeOfCorners_;
}

StrainMatrix Membrane::strains(const ShapeDerivatives &d) const {
    StrainMatrix b = compatible(shape_, d);
    if (innerModes_)
        b.noalias() += modesAt(d) * modeOfCorners_;
    return b;
}

} // namespace havuz::consistent
