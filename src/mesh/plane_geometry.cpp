#include "mesh/plane_geometry.h"

#include "model/arithmetic.h"

#include <cmath>

namespace havuz {

double PlanDistance(PlanPoint a, PlanPoint b) { return Distance2(a.x - b.x, a.y - b.y); }

static bool SamePlace(PlanPoint a, PlanPoint b) { return std::fabs(a.x - b.x) < 0.001 && std::fabs(a.y - b.y) < 0.001; }

// The crossing of the two lines into k.xi, k.yi; false when both run along one axis.
static bool CrossLines(PlanPoint p1, PlanPoint p2, PlanPoint p3, PlanPoint p4, Kesisim &k) {
    const double dx1 = p2.x - p1.x, dy1 = p2.y - p1.y;
    const double dx2 = p4.x - p3.x, dy2 = p4.y - p3.y;
    if ((dx1 == 0.0 && dx2 == 0.0) || (dy1 == 0.0 && dy2 == 0.0))
        return false;
    if (dx1 == 0.0) {
        k.xi = p1.x;
        k.yi = (dy2 / dx2) * k.xi + p3.y - (dy2 / dx2) * p3.x;
    } else if (dx2 == 0.0) {
        k.xi = p3.x;
        k.yi = (dy1 / dx1) * k.xi + p1.y - (dy1 / dx1) * p1.x;
    } else if (dy1 == 0.0) {
        k.yi = p1.y;
        k.xi = (dx2 / dy2) * k.yi + p3.x - (dx2 / dy2) * p3.y;
    } else if (dy2 == 0.0) {
        k.yi = p3.y;
        k.xi = (dx1 / dy1) * k.yi + p1.x - (dx1 / dy1) * p1.y;
    } else {
        const double m1 = dy1 / dx1, b1 = p1.y - m1 * p1.x;
        const double m2 = dy2 / dx2, b2 = p3.y - m2 * p3.x;
        if (m1 - m2 != 0.0) {
            k.xi = (b2 - b1) / (m1 - m2);
            k.yi = (b2 * m1 - b1 * m2) / (m1 - m2);
        }
    }
    return true;
}

void DogruKesisimi(PlanPoint p1, PlanPoint p2, PlanPoint p3, PlanPoint p4, Kesisim &k) {
    if (SamePlace(p1, p3) || SamePlace(p1, p4)) {
        k.xi = p1.x;
        k.yi = p1.y;
    } else if (SamePlace(p2, p3) || SamePlace(p2, p4)) {
        k.xi = p2.x;
        k.yi = p2.y;
    } else if (!CrossLines(p1, p2, p3, p4, k)) {
        k.kod = 0;
        return;
    }
    k.kod = 0;
    const PlanPoint hit{k.xi, k.yi};
    const double to3 = PlanDistance(hit, p3), to4 = PlanDistance(hit, p4);
    if (to3 + to4 > PlanDistance(p3, p4) + 0.01)
        return;
    k.kod = 1;
    k.KesisimUcu = to3 > to4 ? 2 : 1;
    const double to1 = PlanDistance(hit, p1), to2 = PlanDistance(hit, p2);
    k.uc = to1 > to2 ? 2 : 1;
    k.mesafe = to1;
    if (to1 + to2 <= PlanDistance(p1, p2) + 0.01)
        k.kod = 2;
}

static PlanPoint Foot(PlanPoint p, PlanPoint a, PlanPoint b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    if (dx == 0.0)
        return {a.x, p.y};
    if (dy == 0.0)
        return {p.x, a.y};
    if (std::fabs(dx) > std::fabs(dy)) {
        const double m = dy / dx, c = a.y - m * a.x;
        const double m2 = -1.0 / m, c2 = p.y - m2 * p.x;
        const double fx = (c2 - c) / (m - m2);
        return {fx, m * fx + c};
    }
    const double m = dx / dy, c = a.x - m * a.y;
    const double m2 = -1.0 / m, c2 = p.x - m2 * p.y;
    const double fy = (c2 - c) / (m - m2);
    return {m * fy + c, fy};
}

void DikIzdusum(PlanPoint p, PlanPoint a, PlanPoint b, Izdusum &i) {
    const PlanPoint f = Foot(p, a, b);
    i.fx = f.x;
    i.fy = f.y;
    i.d = PlanDistance(p, f);
    if (PlanDistance(a, b) + 0.001 > PlanDistance(a, f) + PlanDistance(b, f))
        i.ustunde = 1;
}

void NoktaDogruUzaklik(PlanPoint p, PlanPoint a, PlanPoint b, double &d) { d = PlanDistance(p, Foot(p, a, b)); }

EgikDuzlem EgikDuzlemKur(EgikDuzlem line, PlanPoint c, double zc) {
    const double r = Divide(zc - line.za, line.zb - line.za, Thing::PlateSlope);
    const PlanPoint d{line.a.x + r * (line.b.x - line.a.x), line.a.y + r * (line.b.y - line.a.y)}; // as high as c
    const PlanPoint e = Foot(line.b, c, d);
    line.a = Foot(line.a, line.b, e);
    return line;
}

double EgikKot(const EgikDuzlem &plane, double x, double y) {
    const PlanPoint f = Foot({x, y}, plane.a, plane.b);
    return plane.za +
           Divide((plane.zb - plane.za) * PlanDistance(plane.a, f), PlanDistance(plane.a, plane.b), Thing::PlateSlope);
}

} // namespace havuz
