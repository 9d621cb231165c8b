// Plane geometry of the plate work: crossing of two segments, foot of a perpendicular, distance to a line, height on a
// sloped plane. Plan coordinates and heights in metres, all double. The order of operations is part of the results.
#pragma once

#include "model/points.h"

namespace havuz {

// Plan distance of two points.
double PlanDistance(PlanPoint a, PlanPoint b);

// The result of DogruKesisimi. The caller keeps it from call to call: what a call does not reach stays as it was.
struct Kesisim {
    double xi = 0.0, yi = 0.0; // the crossing
    int kod = 0;               // 0 no crossing, 1 on the second segment only, 2 on both
    int uc = 0;                // end of the first segment that is nearer to the crossing: 1 or 2
    double mesafe = 0.0;       // distance of the crossing from point 1
    int KesisimUcu = 0;        // end of the second segment that is nearer: 1 or 2
};

// Crosses segment 1 (p1, p2) with segment 2 (p3, p4). Ends within 0.001 of each other in both axes count as the
// crossing; a crossing lies on a segment when its distances from the ends exceed the length by 0.01 at most. Of two
// slanted parallel lines the crossing of the call before is taken: wanted.
void DogruKesisimi(PlanPoint p1, PlanPoint p2, PlanPoint p3, PlanPoint p4, Kesisim &k);

struct Izdusum {
    double fx = 0.0, fy = 0.0; // the foot
    double d = 0.0;            // distance of the point from it
    int ustunde = 0;           // set to 1 when the foot lies between A and B (0.001 of slack), never set back
};

// Foot of the perpendicular from p to the line through a and b. Two equal points count as a line along Y.
void DikIzdusum(PlanPoint p, PlanPoint a, PlanPoint b, Izdusum &i);

// Distance d of p from the line through a and b.
void NoktaDogruUzaklik(PlanPoint p, PlanPoint a, PlanPoint b, double &d);

// A sloped plane as its line of steepest slope, from the lowest point A to the highest point B.
struct EgikDuzlem {
    PlanPoint a, b;
    double za = 0.0, zb = 0.0;
};

// Turns the line from the lowest to the highest outline point into the line of steepest slope, with c a third point of
// the plane and its height. zb differs from za.
EgikDuzlem EgikDuzlemKur(EgikDuzlem line, PlanPoint c, double zc);

// Height over (x, y). The distance from A has no sign, so that points beyond A rise again: wanted. A slope of zero
// length in plan is DivisionByZero.
double EgikKot(const EgikDuzlem &plane, double x, double y);

} // namespace havuz
