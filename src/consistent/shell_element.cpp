#include "consistent/shell_element.h"

#include "consistent/plate_bending.h"

namespace havuz::consistent {

namespace {

// Drilling stiffness, of the shear stiffness of the mesh. A warped mesh passes a part of its bending moments on about
// its neighbours' normals: there it is real, from a warp of about half a percent of the mesh on.
constexpr double kDrilling = 1e-7;
constexpr double kWarpedDrilling = 0.1;
constexpr double kWarp = 0.005;

Eigen::Matrix3d PlaneStress(double factor, double poisson) {
    Eigen::Matrix3d d;
    d << 1.0, poisson, 0.0, poisson, 1.0, 0.0, 0.0, 0.0, (1.0 - poisson) / 2.0;
    return factor / (1.0 - poisson * poisson) * d;
}

// Column of the local freedom of a corner of the shape: 0 u, 1 v, 2 w, 3 and 4 the rotations about x and y, 5 z.
Eigen::Index Column(const FlatShape &shape, int corner, int freedom) { return 6 * shape.place(corner) + freedom; }

} // namespace

ShellElement::ShellElement(const Corners &p, const ShellSection &section, const std::string &name)
    : shape_(p, name), stiffness_(Matrix24::Zero()) {
    const double t = section.thickness;
    const Eigen::Matrix3d forces = PlaneStress(section.E * t, section.poisson);
    const Eigen::Matrix3d moments = PlaneStress(section.E * t * t * t / 12.0, section.poisson);
    const Membrane membrane(shape_, forces, section.innerModes);
    const Eigen::Matrix<double, 12, 12> bending = BendingStiffness(shape_, moments);
    Matrix24 local = Matrix24::Zero();
    for (int i = 0; i < shape_.corners(); ++i)
        for (int j = 0; j < shape_.corners(); ++j) {
            local.block<2, 2>(Column(shape_, i, 0), Column(shape_, j, 0)) =
                membrane.stiffness().block<2, 2>(2 * i, 2 * j);
            local.block<3, 3>(Column(shape_, i, 2), Column(shape_, j, 2)) = bending.block<3, 3>(3 * i, 3 * j);
        }
    addDrilling(section, local);
    applyLinks(local);
    const Eigen::Matrix3d &r = shape_.axes();
    for (Eigen::Index i = 0; i < 24; i += 3)
        for (Eigen::Index j = 0; j < 24; j += 3)
            stiffness_.block<3, 3>(i, j).noalias() = r.transpose() * local.block<3, 3>(i, j) * r;
    takeStresses(membrane, forces, moments);
}

// Each drilling rotation is held to the rotation of the plane at the centre: a rigid motion costs nothing.
void ShellElement::addDrilling(const ShellSection &section, Matrix24 &k) const {
    const double shear = section.E / (2.0 * (1.0 + section.poisson));
    const double warp = shape_.offset(0) * shape_.offset(0) / shape_.area() / (kWarp * kWarp);
    const double drilling = kDrilling * section.drillingFactor + kWarpedDrilling * warp / (1.0 + warp);
    const double spring = drilling * shear * section.thickness * shape_.area() / 4.0;
    const ShapeDerivatives centre = shape_.atCentre();
    Vector24 rotation = Vector24::Zero();
    for (int i = 0; i < shape_.corners(); ++i) {
        const auto c = static_cast<std::size_t>(i);
        rotation(Column(shape_, i, 0)) = -0.5 * centre.cornerY[c];
        rotation(Column(shape_, i, 1)) = 0.5 * centre.cornerX[c];
    }
    for (int i = 0; i < shape_.corners(); ++i) {
        Vector24 gap = -rotation;
        gap(Column(shape_, i, 5)) += 1.0;
        k.noalias() += spring * gap * gap.transpose();
    }
}

// A corner that lies d above the mean plane moves its foot there by u - d ry, v + d rx.
void ShellElement::applyLinks(Matrix24 &k) const {
    for (int i = 0; i < shape_.corners(); ++i) {
        const double d = shape_.offset(i);
        const Eigen::Index u = Column(shape_, i, 0);
        if (d == 0.0)
            continue;
        k.col(u + 4) -= d * k.col(u);
        k.col(u + 3) += d * k.col(u + 1);
        k.row(u + 4) -= d * k.row(u);
        k.row(u + 3) += d * k.row(u + 1);
    }
}

void ShellElement::takeStresses(const Membrane &membrane, const Eigen::Matrix3d &forces,
                                const Eigen::Matrix3d &moments) {
    for (int point = 0; point <= shape_.corners(); ++point) {
        const ShapeDerivatives d = point == 0 ? shape_.atCentre() : shape_.atCorner(point - 1);
        const StrainMatrix strain = forces * membrane.strains(d);
        const BendingMatrix bend = moments * Curvatures(shape_, d);
        Eigen::Matrix<double, 6, 24> s = Eigen::Matrix<double, 6, 24>::Zero();
        for (int i = 0; i < shape_.corners(); ++i) {
            s.block<3, 2>(0, Column(shape_, i, 0)) = strain.block<3, 2>(0, 2 * i);
            s.block<3, 3>(3, Column(shape_, i, 2)) = bend.block<3, 3>(0, 3 * i);
        }
        const int place = point == 0 ? 0 : shape_.place(point - 1) + 1;
        stressOfLocal_[static_cast<std::size_t>(place)] = s;
    }
    if (shape_.corners() == 4)
        return;
    for (int c = 0; c < 4; ++c) // the corner that fell away is one with its neighbour before it
        if (shape_.place(0) != c && shape_.place(1) != c && shape_.place(2) != c)
            stressOfLocal_[static_cast<std::size_t>(c + 1)] = stressOfLocal_[static_cast<std::size_t>((c + 3) % 4 + 1)];
}

Vector24 ShellElement::localOf(const Vector24 &u) const {
    Vector24 local;
    for (Eigen::Index i = 0; i < 24; i += 3)
        local.segment<3>(i) = shape_.axes() * u.segment<3>(i);
    for (int i = 0; i < shape_.corners(); ++i) {
        const double d = shape_.offset(i);
        const Eigen::Index at = Column(shape_, i, 0);
        local(at) -= d * local(at + 4);
        local(at + 1) += d * local(at + 3);
    }
    return local;
}

std::array<LocalStress, 5> ShellElement::stresses(const Vector24 &u) const {
    const Vector24 local = localOf(u);
    std::array<LocalStress, 5> s;
    for (std::size_t point = 0; point < 5; ++point)
        s[point].noalias() = stressOfLocal_[point] * local;
    return s;
}

} // namespace havuz::consistent
