#include "consistent/flat_shape.h"

#include "consistent/failure.h"

#include <cmath>

namespace havuz::consistent {

namespace {

constexpr double kGaussPoint = 0.57735026918962576451; // 1 / sqrt(3)
constexpr double kBlunt = 0.05;                        // least jacobian at a corner, of the mean

constexpr std::array<std::array<double, 2>, 4> kCornerAt = {{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};

Eigen::Vector3d Of(const Vector3 &v) { return {v.x, v.y, v.z}; }

[[noreturn]] void Refuse(const std::string &name, const std::string &english, const std::string &turkish) {
    throw AnalysisFailure(name + " " + english, name + " " + turkish);
}

} // namespace

void FlatShape::dropTwin(const Corners &p, const std::string &name) {
    for (std::size_t k = 0; k < 4; ++k) {
        if (Length(p[(k + 1) % 4] - p[k]) > kOnePlace)
            continue;
        if (corners_ == 3)
            Refuse(name, "has fewer than three corners", "üçten az köşeli");
        corners_ = 3;
        int next = 0;
        for (int c = 0; c < 4; ++c)
            if (c != static_cast<int>((k + 1) % 4))
                place_[static_cast<std::size_t>(next++)] = c;
    }
}

void FlatShape::layFlat(const Corners &p, const std::string &name) {
    const Vector3 areaVector = AreaVector(p);
    area_ = Length(areaVector);
    const Vector3 along = (p[1] - p[0]) + (p[2] - p[3]);
    const Vector3 diagonal = p[2] - p[0];
    if (!(area_ > 1e-9 * Dot(diagonal, diagonal)))
        Refuse(name, "has no area", "alansız");
    const Eigen::Vector3d normal = Of(areaVector) / area_;
    Eigen::Vector3d x = Of(along);
    x -= x.dot(normal) * normal;
    if (x.norm() < 1e-6 * Length(diagonal))
        x = Of(diagonal) - Of(diagonal).dot(normal) * normal;
    x.normalize();
    axes_.row(0) = x;
    axes_.row(1) = normal.cross(x);
    axes_.row(2) = normal;
    const Eigen::Vector3d middle = 0.25 * (Of(p[0]) + Of(p[1]) + Of(p[2]) + Of(p[3]));
    for (std::size_t k = 0; k < static_cast<std::size_t>(corners_); ++k) {
        const Eigen::Vector3d local = axes_ * (Of(p[static_cast<std::size_t>(place_[k])]) - middle);
        at_[k] = local.head<2>();
        offset_[k] = local.z();
    }
}

FlatShape::FlatShape(const Corners &p, const std::string &name) {
    dropTwin(p, name);
    layFlat(p, name);
    for (int point = 0; point < points(); ++point) {
        double weight = 0.0;
        if (!(atPoint(point, weight).jacobian > 0.0))
            Refuse(name, "is not convex", "dışbükey değil");
    }
}

ShapeDerivatives FlatShape::ofQuad(double xi, double eta) const {
    ShapeDerivatives d;
    d.xi = xi;
    d.eta = eta;
    std::array<double, 4> nXi{}, nEta{};
    for (std::size_t k = 0; k < 4; ++k) {
        nXi[k] = kCornerAt[k][0] * (1 + eta * kCornerAt[k][1]) / 4;
        nEta[k] = kCornerAt[k][1] * (1 + xi * kCornerAt[k][0]) / 4;
    }
    Eigen::Matrix2d &j = d.jacobianMatrix;
    j.setZero();
    for (std::size_t k = 0; k < 4; ++k) {
        j.row(0) += nXi[k] * at_[k];
        j.row(1) += nEta[k] * at_[k];
    }
    d.jacobian = j.determinant();
    const Eigen::Matrix2d inverse = j.inverse();
    // Sides 1-2, 2-3, 3-4, 4-1.
    const std::array<double, 4> sXi = {-xi * (1 - eta), (1 - eta * eta) / 2, -xi * (1 + eta), -(1 - eta * eta) / 2};
    const std::array<double, 4> sEta = {-(1 - xi * xi) / 2, -eta * (1 + xi), (1 - xi * xi) / 2, -eta * (1 - xi)};
    for (std::size_t k = 0; k < 4; ++k) {
        d.cornerX[k] = inverse(0, 0) * nXi[k] + inverse(0, 1) * nEta[k];
        d.cornerY[k] = inverse(1, 0) * nXi[k] + inverse(1, 1) * nEta[k];
        d.sideX[k] = inverse(0, 0) * sXi[k] + inverse(0, 1) * sEta[k];
        d.sideY[k] = inverse(1, 0) * sXi[k] + inverse(1, 1) * sEta[k];
    }
    return d;
}

ShapeDerivatives FlatShape::ofTriangle(double l1, double l2) const {
    ShapeDerivatives d;
    d.jacobian =
        (at_[1].x() - at_[0].x()) * (at_[2].y() - at_[0].y()) - (at_[2].x() - at_[0].x()) * (at_[1].y() - at_[0].y());
    const std::array<double, 3> l = {l1, l2, 1 - l1 - l2};
    for (std::size_t k = 0; k < 3; ++k) {
        const Eigen::Vector2d &next = at_[(k + 1) % 3];
        const Eigen::Vector2d &other = at_[(k + 2) % 3];
        d.cornerX[k] = (next.y() - other.y()) / d.jacobian;
        d.cornerY[k] = (other.x() - next.x()) / d.jacobian;
    }
    for (std::size_t k = 0; k < 3; ++k) {
        const std::size_t m = (k + 1) % 3;
        d.sideX[k] = 4 * (l[k] * d.cornerX[m] + l[m] * d.cornerX[k]);
        d.sideY[k] = 4 * (l[k] * d.cornerY[m] + l[m] * d.cornerY[k]);
    }
    return d;
}

ShapeDerivatives FlatShape::atPoint(int point, double &weight) const {
    const auto p = static_cast<std::size_t>(point);
    if (corners_ == 4) {
        weight = 1.0;
        return ofQuad(kGaussPoint * kCornerAt[p][0], kGaussPoint * kCornerAt[p][1]);
    }
    weight = 1.0 / 6.0; // the middles of the sides
    return ofTriangle(point == 1 ? 0.0 : 0.5, point == 2 ? 0.0 : 0.5);
}

ShapeDerivatives FlatShape::atCentre() const { return corners_ == 4 ? ofQuad(0, 0) : ofTriangle(1.0 / 3, 1.0 / 3); }

ShapeDerivatives FlatShape::atCorner(int k) const {
    if (corners_ == 3)
        return ofTriangle(k == 0 ? 1.0 : 0.0, k == 1 ? 1.0 : 0.0);
    const std::array<double, 2> &corner = kCornerAt[static_cast<std::size_t>(k)];
    const double least = kBlunt * area_ / 4;
    ShapeDerivatives d = ofQuad(corner[0], corner[1]);
    for (double inward = 0.9; d.jacobian < least && inward > 0.5; inward -= 0.1)
        d = ofQuad(inward * corner[0], inward * corner[1]);
    return d;
}

} // namespace havuz::consistent
