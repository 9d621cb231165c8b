#include "verification/ritz.h"

#include <Eigen/Dense>
#include <cmath>

namespace havuz::verification {

namespace {

using Polynomial = std::vector<double>; // coefficients of 1, s, s2, ... on -1..1

Polynomial Times(const Polynomial &p, const Polynomial &q) {
    Polynomial r(p.size() + q.size() - 1, 0.0);
    for (std::size_t i = 0; i < p.size(); ++i)
        for (std::size_t j = 0; j < q.size(); ++j)
            r[i + j] += p[i] * q[j];
    return r;
}

Polynomial Derived(Polynomial p, int times) {
    for (; times > 0; --times) {
        for (std::size_t i = 1; i < p.size(); ++i)
            p[i - 1] = static_cast<double>(i) * p[i];
        p.back() = 0.0;
    }
    return p;
}

double At(const Polynomial &p, double s) {
    double value = 0.0;
    for (std::size_t i = p.size(); i-- > 0;)
        value = value * s + p[i];
    return value;
}

// Legendre polynomials times the factors that the two ends ask for.
std::vector<Polynomial> Functions(Edge low, Edge high, int terms) {
    Polynomial factor = {1.0};
    for (int k = 0; k < static_cast<int>(low); ++k)
        factor = Times(factor, {1.0, 1.0});
    for (int k = 0; k < static_cast<int>(high); ++k)
        factor = Times(factor, {1.0, -1.0});
    std::vector<Polynomial> legendre = {{1.0}, {0.0, 1.0}}, functions;
    for (int n = 1; n + 1 < terms; ++n) {
        Polynomial next = Times(legendre.back(), {0.0, (2.0 * n + 1) / (n + 1)});
        for (std::size_t i = 0; i < legendre[static_cast<std::size_t>(n - 1)].size(); ++i)
            next[i] -= legendre[static_cast<std::size_t>(n - 1)][i] * n / (n + 1);
        legendre.push_back(next);
    }
    for (const Polynomial &p : legendre)
        functions.push_back(Times(p, factor));
    return functions;
}

struct GaussPoint {
    double s, weight;
};

// Gauss and Legendre's points on -1..1, by Newton's method.
std::vector<GaussPoint> GaussPoints(int n) {
    std::vector<GaussPoint> points;
    for (int k = 1; k <= n; ++k) {
        double s = std::cos(std::acos(-1.0) * (k - 0.25) / (n + 0.5)), slope = 1.0;
        for (int round = 0; round < 30; ++round) {
            double before = 1.0, here = s;
            for (int i = 1; i < n; ++i) {
                const double next = ((2 * i + 1) * s * here - i * before) / (i + 1);
                before = here;
                here = next;
            }
            slope = n * (before - s * here) / (1 - s * s);
            s -= here / slope;
        }
        points.push_back({s, 2.0 / ((1 - s * s) * slope * slope)});
    }
    return points;
}

// Integrals over 0..length of derivative r of one function times derivative s of another.
Eigen::MatrixXd Integrals(const std::vector<Polynomial> &f, double length, int r, int s) {
    const auto n = static_cast<Eigen::Index>(f.size());
    Eigen::MatrixXd m = Eigen::MatrixXd::Zero(n, n);
    for (const GaussPoint &g : GaussPoints(32))
        for (Eigen::Index i = 0; i < n; ++i)
            for (Eigen::Index j = 0; j < n; ++j)
                m(i, j) += g.weight * At(Derived(f[static_cast<std::size_t>(i)], r), g.s) *
                           At(Derived(f[static_cast<std::size_t>(j)], s), g.s);
    return m * std::pow(2.0 / length, r + s - 1);
}

Eigen::MatrixXd Product(const Eigen::MatrixXd &x, const Eigen::MatrixXd &y) {
    Eigen::MatrixXd k(x.rows() * y.rows(), x.cols() * y.cols());
    for (Eigen::Index i = 0; i < x.rows(); ++i)
        for (Eigen::Index j = 0; j < x.cols(); ++j)
            k.block(i * y.rows(), j * y.cols(), y.rows(), y.cols()) = x(i, j) * y;
    return k;
}

} // namespace

RitzSolution::RitzSolution(const RitzPlate &plate)
    : plate_(plate), alongX_(Functions(plate.edge[0], plate.edge[1], plate.terms)),
      alongY_(Functions(plate.edge[2], plate.edge[3], plate.terms)) {
    const auto x = [&](int r, int s) { return Integrals(alongX_, plate.a, r, s); };
    const auto y = [&](int r, int s) { return Integrals(alongY_, plate.b, r, s); };
    const double v = plate.poisson;
    const Eigen::MatrixXd k =
        plate.rigidity * (Product(x(2, 2), y(0, 0)) + Product(x(0, 0), y(2, 2)) + v * Product(x(2, 0), y(0, 2)) +
                          v * Product(x(0, 2), y(2, 0)) + 2 * (1 - v) * Product(x(1, 1), y(1, 1)));
    Eigen::VectorXd f = Eigen::VectorXd::Zero(k.rows());
    for (const GaussPoint &gx : GaussPoints(32))
        for (const GaussPoint &gy : GaussPoints(32)) {
            const double q = plate.press(plate.a * (gx.s + 1) / 2, plate.b * (gy.s + 1) / 2) * gx.weight * gy.weight *
                             plate.a * plate.b / 4;
            Eigen::Index row = 0;
            for (const Polynomial &px : alongX_)
                for (const Polynomial &py : alongY_)
                    f(row++) += q * At(px, gx.s) * At(py, gy.s);
        }
    // scaled to a diagonal of 1: the functions are of many sizes
    const Eigen::VectorXd scale = k.diagonal().cwiseSqrt().cwiseInverse();
    const Eigen::MatrixXd scaled = scale.asDiagonal() * k * scale.asDiagonal();
    const Eigen::VectorXd u = scale.cwiseProduct(scaled.ldlt().solve(scale.cwiseProduct(f)));
    factor_.assign(u.data(), u.data() + u.size());
}

double RitzSolution::sum(double x, double y, int dx, int dy) const {
    double value = 0.0;
    std::size_t row = 0;
    for (const Polynomial &px : alongX_) {
        const double left = At(Derived(px, dx), 2 * x / plate_.a - 1);
        for (const Polynomial &py : alongY_)
            value += factor_[row++] * left * At(Derived(py, dy), 2 * y / plate_.b - 1);
    }
    return value * std::pow(2 / plate_.a, dx) * std::pow(2 / plate_.b, dy);
}

double RitzSolution::momentX(double x, double y) const {
    return -plate_.rigidity * (sum(x, y, 2, 0) + plate_.poisson * sum(x, y, 0, 2));
}

double RitzSolution::momentY(double x, double y) const {
    return -plate_.rigidity * (sum(x, y, 0, 2) + plate_.poisson * sum(x, y, 2, 0));
}

} // namespace havuz::verification
