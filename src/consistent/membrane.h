// Plane stress of a flat quadrilateral with incompatible modes that pass the patch test: Taylor, Beresford and Wilson,
// "A non-conforming element for stress analysis", Int. J. Num. Meth. Eng. 10 (1976) 1211-1219. A triangle has constant
// strain. Freedoms of a corner: u, v along local x and y.
#pragma once

#include "consistent/flat_shape.h"

namespace havuz::consistent {

using StrainMatrix = Eigen::Matrix<double, 3, 8>; // rows: strain xx, yy, twice xy; two columns a corner

// The modes of Taylor, Beresford and Wilson: those that stretch a mesh along its own lines (u by xi, v by eta) let it
// narrow across a bending stress; those that bow its sides (v by xi, u by eta) let it bend in its plane without shear.
enum class InnerModes { Stretch, All };

class Membrane {
public:
    // rigidity: forces per length from strains, t/m.
    Membrane(const FlatShape &shape, const Eigen::Matrix3d &rigidity, InnerModes modes = InnerModes::All);
    const Eigen::Matrix<double, 8, 8> &stiffness() const { return stiffness_; }
    StrainMatrix strains(const ShapeDerivatives &d) const;

private:
    using ModeMatrix = Eigen::Matrix<double, 3, 4>;
    ModeMatrix modesAt(const ShapeDerivatives &d) const;
    static StrainMatrix compatible(const FlatShape &shape, const ShapeDerivatives &d);

    const FlatShape &shape_;
    bool bows_;       // modes that bow the sides too
    bool innerModes_; // of a quadrilateral only
    ShapeDerivatives centre_;
    Eigen::Matrix<double, 8, 8> stiffness_;
    Eigen::Matrix<double, 4, 8> modeOfCorners_; // what the corners make of the inner modes
};

} // namespace havuz::consistent
