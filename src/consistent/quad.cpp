#include "consistent/quad.h"

#include "consistent/failure.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace havuz::consistent {

double Length(const Vector3 &v) { return std::sqrt(Dot(v, v)); }

Vector3 UnitOf(const Vector3 &v) {
    const double length = Length(v);
    if (length == 0.0)
        throw AnalysisFailure("a mesh has no area", "alansız bir mesh var");
    return (1.0 / length) * v;
}

Vector3 AreaVector(const Corners &p) { return 0.5 * Cross(p[2] - p[0], p[3] - p[1]); }

Shares Bilinear(double xi, double eta) {
    return {(1 - xi) * (1 - eta) / 4, (1 + xi) * (1 - eta) / 4, (1 + xi) * (1 + eta) / 4, (1 - xi) * (1 + eta) / 4};
}

namespace {

double Sum(const Shares &n, const Shares &value) {
    return n[0] * value[0] + n[1] * value[1] + n[2] * value[2] + n[3] * value[3];
}

// Surface element at (xi, eta) along m.
double Jacobian(const Corners &p, const Vector3 &m, double xi, double eta) {
    const Vector3 along = 0.25 * ((1 - eta) * (p[1] - p[0]) + (1 + eta) * (p[2] - p[3]));
    const Vector3 across = 0.25 * ((1 - xi) * (p[3] - p[0]) + (1 + xi) * (p[2] - p[1]));
    return Dot(m, Cross(along, across));
}

// Two points each way integrate a product of three bilinear functions exactly.
template <class Density>
Shares OverWhole(const Corners &p, const Vector3 &m, Density density) {
    const double g = 1.0 / std::sqrt(3.0);
    Shares sum{};
    for (const double xi : {-g, g})
        for (const double eta : {-g, g}) {
            const Shares n = Bilinear(xi, eta);
            const double weight = Jacobian(p, m, xi, eta) * density(n);
            for (std::size_t k = 0; k < 4; ++k)
                sum[k] += weight * n[k];
        }
    return sum;
}

// The quadrilateral in its mean plane.
class FlatQuad {
public:
    explicit FlatQuad(const Corners &p) {
        const Vector3 area = AreaVector(p);
        const Vector3 normal = UnitOf(area);
        const Vector3 diagonal = p[2] - p[0];
        const Vector3 x = UnitOf(diagonal - Dot(diagonal, normal) * normal);
        const Vector3 y = Cross(normal, x);
        for (std::size_t k = 0; k < 4; ++k)
            corner[k] = {Dot(p[k] - p[0], x), Dot(p[k] - p[0], y)};
    }
    // The functions at a point: Newton's steps from the middle.
    Shares functionsAt(const PlanPoint &at) const {
        double xi = 0.0;
        double eta = 0.0;
        for (int step = 0; step < 50; ++step) {
            const Shares n = Bilinear(xi, eta);
            double dx = at.x;
            double dy = at.y;
            double xXi = 0.0, yXi = 0.0, xEta = 0.0, yEta = 0.0;
            const std::array<double, 4> nXi = {-(1 - eta) / 4, (1 - eta) / 4, (1 + eta) / 4, -(1 + eta) / 4};
            const std::array<double, 4> nEta = {-(1 - xi) / 4, -(1 + xi) / 4, (1 + xi) / 4, (1 - xi) / 4};
            for (std::size_t k = 0; k < 4; ++k) {
                dx -= n[k] * corner[k].x;
                dy -= n[k] * corner[k].y;
                xXi += nXi[k] * corner[k].x;
                yXi += nXi[k] * corner[k].y;
                xEta += nEta[k] * corner[k].x;
                yEta += nEta[k] * corner[k].y;
            }
            const double det = xXi * yEta - xEta * yXi;
            if (det == 0.0)
                break;
            const double stepXi = (yEta * dx - xEta * dy) / det;
            const double stepEta = (xXi * dy - yXi * dx) / det;
            xi += stepXi;
            eta += stepEta;
            if (std::fabs(stepXi) + std::fabs(stepEta) < 1e-14)
                break;
        }
        return Bilinear(xi, eta);
    }
    std::array<PlanPoint, 4> corner;
};

// The corners where value is above 0 and the points of the sides where it is 0.
std::vector<PlanPoint> WettedPart(const FlatQuad &quad, const Shares &value) {
    std::vector<PlanPoint> part;
    for (std::size_t k = 0; k < 4; ++k) {
        const std::size_t l = (k + 1) % 4;
        const PlanPoint &a = quad.corner[k];
        const PlanPoint &b = quad.corner[l];
        if (value[k] > 0.0)
            part.push_back(a);
        if ((value[k] > 0.0) != (value[l] > 0.0)) {
            const double t = value[k] / (value[k] - value[l]);
            part.push_back({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)});
        }
    }
    return part;
}

// Points and weights of Gauss and Legendre on 0..1.
constexpr std::array<std::array<double, 2>, 4> kGauss = {{{0.069431844202973713, 0.173927422568726929},
                                                          {0.330009478207571868, 0.326072577431273071},
                                                          {0.669990521792428132, 0.326072577431273071},
                                                          {0.930568155797026287, 0.173927422568726929}}};

template <class Density>
void AddTriangle(const FlatQuad &quad, const PlanPoint &a, const PlanPoint &b, const PlanPoint &c, Density density,
                 Shares &sum) {
    const double twice = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
    for (const auto &[u, weightU] : kGauss)
        for (const auto &[v, weightV] : kGauss) {
            const PlanPoint at{a.x + u * (b.x - a.x) + u * v * (c.x - b.x),
                               a.y + u * (b.y - a.y) + u * v * (c.y - b.y)};
            const Shares n = quad.functionsAt(at);
            const double weight = twice * u * weightU * weightV * density(n);
            for (std::size_t k = 0; k < 4; ++k)
                sum[k] += weight * n[k];
        }
}

template <class Density>
Shares OverWetted(const Corners &p, const Vector3 &m, const Shares &value, Density density) {
    const auto wet = std::count_if(value.begin(), value.end(), [](double v) { return v > 0.0; });
    if (wet == 0)
        return {};
    if (*std::min_element(value.begin(), value.end()) >= 0.0)
        return OverWhole(p, m, density);
    const FlatQuad quad(p);
    const std::vector<PlanPoint> part = WettedPart(quad, value);
    Shares sum{};
    for (std::size_t k = 1; k + 1 < part.size(); ++k)
        AddTriangle(quad, part[0], part[k], part[k + 1], density, sum);
    const Vector3 area = AreaVector(p);
    const double seen = Dot(m, area) / Length(area);
    for (double &s : sum)
        s *= seen;
    return sum;
}

} // namespace

Shares AreaShares(const Corners &p, const Vector3 &m) {
    return OverWhole(p, m, [](const Shares &) { return 1.0; });
}

Shares PressureShares(const Corners &p, const Vector3 &m, const Shares &value) {
    return OverWetted(p, m, value, [&](const Shares &n) { return Sum(n, value); });
}

Shares WettedShares(const Corners &p, const Vector3 &m, const Shares &value) {
    return OverWetted(p, m, value, [](const Shares &) { return 1.0; });
}

} // namespace havuz::consistent
