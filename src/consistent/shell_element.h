// The shell of the consistent analysis: discrete Kirchhoff bending, membrane with incompatible modes and a small
// drilling stiffness in orthonormal axes; corners off the mean plane hang on it by rigid links. Freedoms of a corner:
// the displacement and the rotation vector (right hand), 24 in the order of the corners. Units: m, t.
#pragma once

#include "consistent/membrane.h"

namespace havuz::consistent {

using Matrix24 = Eigen::Matrix<double, 24, 24>;
using Vector24 = Eigen::Matrix<double, 24, 1>;

struct ShellSection {
    double E = 0.0, poisson = 0.25, thickness = 0.0; // t/m2, -, m
    double drillingFactor = 1.0;
    InnerModes innerModes = InnerModes::All; // of the membrane
};

// Membrane forces and moments in the local axes: nxx nyy nxy mxx myy mxy.
using LocalStress = Eigen::Matrix<double, 6, 1>;

class ShellElement {
public:
    ShellElement(const Corners &p, const ShellSection &section, const std::string &name);
    const FlatShape &shape() const { return shape_; }
    const Matrix24 &stiffness() const { return stiffness_; } // global axes

    // At the centre (0) and at the mesh's corners 1..4 from displacements in global axes.
    std::array<LocalStress, 5> stresses(const Vector24 &u) const;

private:
    void takeStresses(const Membrane &membrane, const Eigen::Matrix3d &forces, const Eigen::Matrix3d &moments);
    void addDrilling(const ShellSection &section, Matrix24 &k) const;
    void applyLinks(Matrix24 &k) const;
    Vector24 localOf(const Vector24 &u) const;

    FlatShape shape_;
    Matrix24 stiffness_;
    std::array<Eigen::Matrix<double, 6, 24>, 5> stressOfLocal_; // of the displacements of the flat corners
};

} // namespace havuz::consistent
