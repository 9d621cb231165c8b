// Stress matrix of the rectangular shell element: exact derivatives of its shape functions at the corners. Units: m, t.
//
// Shape functions are those of rect_stiffness.cpp, written per node in X and Y: X runs from 0 at the far side to 1 at
// the node, so that X = 1 - x/a or x/a, and dX/dx = sx/a with sx -1 or +1.
//   membrane  N = X*Y                                           sx = C*u,x + Cv*v,y and so on, C without thickness
//   bending   w:     X*Y*(3X + 3Y - 2X^2 - 2Y^2 - 1)            Mx  = -(D*w,xx + Dv*w,yy)
//             dw/dx: a*sx*X^2*(X-1)*Y                           My  = -(Dv*w,xx + D*w,yy)
//             dw/dy: b*sy*Y^2*(Y-1)*X                           Mxy = +2*Dk*w,xy
// Along a side, Y = 1, this is the beam with fixed ends: a unit of w gives w,xx = -6/a^2 at its own end and +6/a^2 at
// the other, a unit of the slope 4/a and 2/a by magnitude. The sign of Mxy is the opposite of the curvature rule of the
// other two: the convention of the result files.
#include "fea/rect_shell.h"
#include "model/arithmetic.h"

#include <array>

namespace havuz {

namespace {

// Which end of the local x and y axis each node lies at.
struct End {
    bool farX, farY;
};
constexpr std::array<End, 4> kNodes = {{{false, false}, {true, false}, {true, true}, {false, true}}};

struct Section {
    double a, b;
    double C, Cv, G;  // membrane, without the thickness
    double D, Dv, Dk; // bending
};

Section MakeSection(double a, double b, double E, double v, double t) {
    Section s{};
    s.a = a;
    s.b = b;
    s.C = E / (1.0 - v * v);
    s.Cv = v * s.C;
    s.G = E / (2.0 * (1.0 + v));
    s.D = E * (t * t * t) / (12.0 * (1.0 - v * v));
    s.Dv = v * s.D;
    s.Dk = (1.0 - v) * s.D / 2.0;
    return s;
}

// Shape functions of one node at the corner (x, y) are products in X and Y, which run from 0 at the far side to 1 at
// the node itself; sx, sy are the signs of dX/dx and dY/dy.
struct Local {
    double X, Y, sx, sy;
};

Local LocalAt(const End &node, const End &corner) {
    return {node.farX == corner.farX ? 1.0 : 0.0, node.farY == corner.farY ? 1.0 : 0.0, node.farX ? 1.0 : -1.0,
            node.farY ? 1.0 : -1.0};
}

// u and v by N = X*Y.
void PutMembraneRows(Matrix<24, 24> &S, int row, int column, const Section &s, const Local &l) {
    const double dx = l.sx * l.Y / s.a;
    const double dy = l.sy * l.X / s.b;
    S(row + 1, column + 1) = s.C * dx;
    S(row + 1, column + 2) = s.Cv * dy;
    S(row + 2, column + 1) = s.Cv * dx;
    S(row + 2, column + 2) = s.C * dy;
    S(row + 3, column + 1) = s.G * dy;
    S(row + 3, column + 2) = s.G * dx;
}

// Second derivatives of w for one nodal freedom, and the three moment rows of its column.
void PutMoments(Matrix<24, 24> &S, int row, int column, const Section &s, double xx, double yy, double xy) {
    S(row + 4, column) = -(s.D * xx + s.Dv * yy);
    S(row + 5, column) = -(s.Dv * xx + s.D * yy);
    S(row + 6, column) = 2.0 * s.Dk * xy;
}

// w of the nodal deflection: X*Y*(3X + 3Y - 2X^2 - 2Y^2 - 1); of the nodal slope dw/dx: a*sx*X^2*(X - 1)*Y; of dw/dy:
// b*sy*Y^2*(Y - 1)*X. The twelve-term polynomial through the twelve nodal values.
void PutBendingRows(Matrix<24, 24> &S, int row, int column, const Section &s, const Local &l) {
    const double X = l.X;
    const double Y = l.Y;
    PutMoments(S, row, column + 3, s, Y * (6.0 - 12.0 * X) / (s.a * s.a), X * (6.0 - 12.0 * Y) / (s.b * s.b),
               l.sx * l.sy * (6.0 * X + 6.0 * Y - 6.0 * X * X - 6.0 * Y * Y - 1.0) / (s.a * s.b));
    PutMoments(S, row, column + 4, s, 0.0, -(l.sy * X * (6.0 * Y - 2.0) / s.b),
               -(l.sx * (3.0 * Y * Y - 2.0 * Y) / s.a));
    PutMoments(S, row, column + 5, s, l.sx * Y * (6.0 * X - 2.0) / s.a, 0.0, l.sy * (3.0 * X * X - 2.0 * X) / s.b);
}

} // namespace

void RectShellStress(Matrix<24, 24> &S, double a, double b, double E, double v, double t) {
    if (a == 0.0 || b == 0.0)
        throw RuntimeFailure({.fault = Fault::NoSide, .thing = Thing::RectStress});
    S.clear();
    const Section section = MakeSection(a, b, E, v, t);
    for (std::size_t corner = 0; corner < 4; ++corner)
        for (std::size_t node = 0; node < 4; ++node) {
            const Local local = LocalAt(kNodes[node], kNodes[corner]);
            const int row = 6 * static_cast<int>(corner);
            const int column = 6 * static_cast<int>(node);
            PutMembraneRows(S, row, column, section, local);
            PutBendingRows(S, row, column, section, local);
        }
}

} // namespace havuz
