// Closed-form stiffness of the rectangular shell element. Units: m, t.
//
// Membrane: the bilinear plane stress rectangle (Taig 1961), u and v each a + b*x + c*y + d*x*y, its energy integrated
// exactly over the area. With C = E*t/(1-v^2), Cv = v*C, G = E*t/(2*(1+v)) every entry is a sum of C, Cv and G times
// b/a, a/b or 1; entries that are equal by the two symmetries of the rectangle stand in one line.
// Bending: the twelve-term rectangle of Melosh (1963) and of Zienkiewicz and Cheung (1964), w the polynomial 1, x, y,
// x^2, xy, y^2, x^3, x^2y, xy^2, y^3, x^3y, xy^3. Slopes are not continuous across the sides; the element passes the
// patch test. With D = E*t^3/(12*(1-v^2)), Dv = v*D, Dk = (1-v)*D/2 the energy is half the integral of
//   D*(w,xx^2 + w,yy^2) + 2*Dv*w,xx*w,yy + 4*Dk*w,xy^2.
// Two terms worked out, with X = 1 - x/a and Y = 1 - y/b at node 1:
//   K(u1,u1) = integral of C*(X*Y),x^2 + G*(X*Y),y^2 = C*(1/a^2)*a*(b/3) + G*(1/b^2)*(a/3)*b = (C*b^2 + G*a^2)/(3*a*b)
//   K(rx1,ry1) = -Dv: rx bends along y and ry along x, and Poisson's ratio alone joins the two.
// The blocks of the other corners are those of corner 1 with signs: a mirror in x turns u and ry, one in y v and rx.
// docs/rectangular-element.md derives the terms. The order of the operations in each of them is part of the results.
#include "fea/rect_shell.h"
#include "model/arithmetic.h"

#include <initializer_list>

namespace havuz {

namespace {

// Rows and columns are the freedoms 6*(n-1) + 1..6 of node n: u, v, w, rx, ry, drilling.
struct Entry {
    int row, column; // a row below 0 takes the negative of the term
};

// Writes one term into its entries of the upper triangle.
class TermWriter {
public:
    explicit TermWriter(Matrix<24, 24> &k) : k_(k) {}
    void operator()(double term, std::initializer_list<Entry> entries) const {
        for (const Entry &e : entries)
            k_(e.row < 0 ? -e.row : e.row, e.column) = e.row < 0 ? -term : term;
    }

private:
    Matrix<24, 24> &k_;
};

// Freedoms u, v. First the diagonal of u and what mirrors it, then u with v, then u with u of the other nodes; the
// last four are those of v, with a and b exchanged.
void PutMembrane(const TermWriter &put, double a, double b, double E, double v, double t) {
    const double C = E * t / (1.0 - v * v);
    const double Cv = v * C;
    const double G = E * t / (2.0 * (1.0 + v));
    const double a2 = a * a;
    const double b2 = b * b;
    // clang-format off
    put((C * b2 + G * a2) / (3.0 * a * b), {{1, 1}, {7, 7}, {13, 13}, {19, 19}});
    put((Cv + G) / 4.0, {{1, 2}, {13, 14}, {7, 20}, {8, 19}, {-1, 14}, {-2, 13}, {-7, 8}, {-19, 20}});
    put(-(2.0 * C * b2 - G * a2) / (6.0 * a * b), {{1, 7}, {13, 19}});
    put(-(Cv - G) / 4.0, {{1, 20}, {2, 7}, {8, 13}, {14, 19}, {-1, 8}, {-2, 19}, {-7, 14}, {-13, 20}});
    put(-(C * b2 + G * a2) / (6.0 * a * b), {{1, 13}, {7, 19}});
    put((C * b2 - 2.0 * G * a2) / (6.0 * a * b), {{1, 19}, {7, 13}});
    put((C * a2 + G * b2) / (3.0 * a * b), {{2, 2}, {8, 8}, {14, 14}, {20, 20}});
    put((C * a2 - 2.0 * G * b2) / (6.0 * a * b), {{2, 8}, {14, 20}});
    put(-(C * a2 + G * b2) / (6.0 * a * b), {{2, 14}, {8, 20}});
    put(-(2.0 * C * a2 - G * b2) / (6.0 * a * b), {{2, 20}, {8, 14}});
    // clang-format on
}

// Freedoms w, rx = -dw/dy and ry = +dw/dx of each node: the rows of w with everything, then rx with rx and ry, then ry
// with ry. An exchange of the axes turns the terms of rx into those of ry with the other sign.
void PutBending(const TermWriter &put, double a, double b, double E, double v, double t) {
    const double D = E * (t * t * t) / (12.0 * (1.0 - v * v));
    const double Dv = v * D;
    const double Dk = (1.0 - v) * D / 2.0;
    const double a2 = a * a;
    const double b2 = b * b;
    const double a3 = a2 * a;
    const double b3 = b2 * b;
    const double a4 = a2 * a2;
    const double b4 = b2 * b2;
    // clang-format off
    put(2.0 * (10.0 * D * b4 + 10.0 * D * a4 + 5.0 * a2 * b2 * Dv + 14.0 * a2 * b2 * Dk) / (5.0 * a3 * b3), {{3, 3}, {9, 9}, {15, 15}, {21, 21}});
    put(-(10.0 * D * a2 + 5.0 * b2 * Dv + 2.0 * b2 * Dk) / (5.0 * a * b2), {{3, 4}, {9, 10}, {-15, 16}, {-21, 22}});
    put((10.0 * D * b2 + 5.0 * a2 * Dv + 2.0 * a2 * Dk) / (5.0 * a2 * b), {{3, 5}, {21, 23}, {-9, 11}, {-15, 17}});
    put(-2.0 * (10.0 * D * b4 - 5.0 * D * a4 + 5.0 * a2 * b2 * Dv + 14.0 * a2 * b2 * Dk) / (5.0 * a3 * b3), {{3, 9}, {15, 21}});
    put(-(5.0 * D * a2 - 5.0 * b2 * Dv - 2.0 * b2 * Dk) / (5.0 * a * b2), {{3, 10}, {4, 9}, {-15, 22}, {-16, 21}});
    put(2.0 * (5.0 * D * b2 + a2 * Dk) / (5.0 * a2 * b), {{3, 11}, {17, 21}, {-5, 9}, {-15, 23}});
    put(-2.0 * (5.0 * D * b4 + 5.0 * D * a4 - 5.0 * a2 * b2 * Dv - 14.0 * a2 * b2 * Dk) / (5.0 * a3 * b3), {{3, 15}, {9, 21}});
    put(-(5.0 * D * a2 - 2.0 * b2 * Dk) / (5.0 * a * b2), {{3, 16}, {9, 22}, {-4, 15}, {-10, 21}});
    put((5.0 * D * b2 - 2.0 * a2 * Dk) / (5.0 * a2 * b), {{3, 17}, {11, 21}, {-5, 15}, {-9, 23}});
    put(2.0 * (5.0 * D * b4 - 10.0 * D * a4 - 5.0 * a2 * b2 * Dv - 14.0 * a2 * b2 * Dk) / (5.0 * a3 * b3), {{3, 21}, {9, 15}});
    put(-2.0 * (5.0 * D * a2 + b2 * Dk) / (5.0 * a * b2), {{3, 22}, {9, 16}, {-4, 21}, {-10, 15}});
    put((5.0 * D * b2 - 5.0 * a2 * Dv - 2.0 * a2 * Dk) / (5.0 * a2 * b), {{3, 23}, {5, 21}, {-9, 17}, {-11, 15}});
    put(4.0 * (5.0 * D * a2 + 2.0 * b2 * Dk) / (15.0 * a * b), {{4, 4}, {10, 10}, {16, 16}, {22, 22}});
    put(-Dv, {{4, 5}, {16, 17}, {-10, 11}, {-22, 23}});
    put(2.0 * (5.0 * D * a2 - 4.0 * b2 * Dk) / (15.0 * a * b), {{4, 10}, {16, 22}});
    put((5.0 * D * a2 + 2.0 * b2 * Dk) / (15.0 * a * b), {{4, 16}, {10, 22}});
    put(2.0 * (5.0 * D * a2 - b2 * Dk) / (15.0 * a * b), {{4, 22}, {10, 16}});
    put(4.0 * (5.0 * D * b2 + 2.0 * a2 * Dk) / (15.0 * a * b), {{5, 5}, {11, 11}, {17, 17}, {23, 23}});
    put(2.0 * (5.0 * D * b2 - a2 * Dk) / (15.0 * a * b), {{5, 11}, {17, 23}});
    put((5.0 * D * b2 + 2.0 * a2 * Dk) / (15.0 * a * b), {{5, 17}, {11, 23}});
    put(2.0 * (5.0 * D * b2 - 4.0 * a2 * Dk) / (15.0 * a * b), {{5, 23}, {11, 17}});
    // clang-format on
}

} // namespace

void RectShellStiffness(Matrix<24, 24> &K, double a, double b, double E, double v, double t) {
    if (a == 0.0 || b == 0.0)
        throw RuntimeFailure({.fault = Fault::NoSide, .thing = Thing::RectStiffness});
    K.clear();
    const TermWriter put(K);
    PutMembrane(put, a, b, E, v, t);
    PutBending(put, a, b, E, v, t);
    for (int n = 6; n <= 24; n += 6)
        K(n, n) = 0.000001; // token stiffness of the drilling freedom
    for (int i = 1; i <= 24; ++i)
        for (int j = i + 1; j <= 24; ++j)
            K(j, i) = K(i, j);
}

} // namespace havuz
