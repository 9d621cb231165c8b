// A mesh laid into its mean plane: local axes, corners in them, their distances from the plane, and the derivatives of
// its functions at a point. Two corners at one place leave a triangle of three. Lengths in m.
#pragma once

#include "consistent/quad.h"

#include <Eigen/Dense>
#include <array>
#include <string>

namespace havuz::consistent {

constexpr double kOnePlace = 0.001; // corners and nodes this near are one, m

// Values and local derivatives at a point: of the linear function of each corner, and of the function of each side,
// which is 1 in its middle and 0 on the other sides.
struct ShapeDerivatives {
    double jacobian = 0.0;
    Eigen::Matrix2d jacobianMatrix = Eigen::Matrix2d::Identity(); // rows xi, eta; of a quadrilateral
    double xi = 0.0, eta = 0.0;
    std::array<double, 4> cornerX{}, cornerY{}, sideX{}, sideY{};
};

class FlatShape {
public:
    // name stands in the words of a failure: a mesh without area or not convex.
    FlatShape(const Corners &p, const std::string &name);

    int corners() const { return corners_; }                               // 3 or 4
    int place(int k) const { return place_[static_cast<std::size_t>(k)]; } // its corner in the mesh, from 0
    const Eigen::Vector2d &at(int k) const { return at_[static_cast<std::size_t>(k)]; } // local x, y
    double offset(int k) const { return offset_[static_cast<std::size_t>(k)]; }         // above the mean plane
    const Eigen::Matrix3d &axes() const { return axes_; }                               // rows: local x, y, normal
    double area() const { return area_; }

    // Integration points: four of a quadrilateral, three of a triangle; weight times jacobian is an area.
    int points() const { return corners_ == 4 ? 4 : 3; }
    ShapeDerivatives atPoint(int point, double &weight) const;
    ShapeDerivatives atCentre() const;
    // At a corner of the shape; drawn inward where the corner is so blunt that nothing is defined there.
    ShapeDerivatives atCorner(int k) const;

private:
    ShapeDerivatives ofQuad(double xi, double eta) const;
    ShapeDerivatives ofTriangle(double l1, double l2) const;
    void layFlat(const Corners &p, const std::string &name);
    void dropTwin(const Corners &p, const std::string &name);

    int corners_ = 4;
    std::array<int, 4> place_ = {0, 1, 2, 3};
    std::array<Eigen::Vector2d, 4> at_;
    std::array<double, 4> offset_{};
    Eigen::Matrix3d axes_;
    double area_ = 0.0;
};

} // namespace havuz::consistent
