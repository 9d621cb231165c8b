#include "consistent/plate_bending.h"

namespace havuz::consistent {

namespace {

// One column triple of rotations bx = -w,x and by = -w,y, taken to the curvature rows.
void AddColumn(BendingMatrix &b, Eigen::Index column, double factor, double bx, double by, double dx, double dy) {
    b(0, column) += factor * bx * dx;
    b(1, column) += factor * by * dy;
    b(2, column) += factor * (bx * dy + by * dx);
}

} // namespace

// The normals' rotations are linear between the corners, plus on each side a bubble along it that makes the shear
// strain vanish in its middle: there w,s of the side's cubic is 3/2 (wj - wi)/l less a quarter of its slopes at the
// ends.
BendingMatrix Curvatures(const FlatShape &shape, const ShapeDerivatives &d) {
    BendingMatrix b = BendingMatrix::Zero();
    const int n = shape.corners();
    for (int i = 0; i < n; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const int j = (i + 1) % n;
        AddColumn(b, 3 * i + 2, 1.0, 1.0, 0.0, d.cornerX[k], d.cornerY[k]);  // bx = rotation about y
        AddColumn(b, 3 * i + 1, -1.0, 0.0, 1.0, d.cornerX[k], d.cornerY[k]); // by = -rotation about x
        const Eigen::Vector2d side = shape.at(j) - shape.at(i);
        const double length = side.norm();
        const double c = side.x() / length;
        const double s = side.y() / length;
        const double deflection = 1.5 / length;
        AddColumn(b, 3 * i, deflection, c, s, d.sideX[k], d.sideY[k]);
        AddColumn(b, 3 * j, -deflection, c, s, d.sideX[k], d.sideY[k]);
        for (const int end : {i, j}) {
            AddColumn(b, 3 * end + 2, -0.75 * c, c, s, d.sideX[k], d.sideY[k]);
            AddColumn(b, 3 * end + 1, 0.75 * s, c, s, d.sideX[k], d.sideY[k]);
        }
    }
    return b;
}

Eigen::Matrix<double, 12, 12> BendingStiffness(const FlatShape &shape, const Eigen::Matrix3d &rigidity) {
    Eigen::Matrix<double, 12, 12> k = Eigen::Matrix<double, 12, 12>::Zero();
    for (int point = 0; point < shape.points(); ++point) {
        double weight = 0.0;
        const ShapeDerivatives d = shape.atPoint(point, weight);
        const BendingMatrix b = Curvatures(shape, d);
        const BendingMatrix db = (weight * d.jacobian) * (rigidity * b);
        k.noalias() += b.transpose() * db;
    }
    return k;
}

} // namespace havuz::consistent
