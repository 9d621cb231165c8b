// Pressures of liquid, soil and groundwater on the meshes, in hydrostatic distribution. Units: m, t.
//
// A floor (base panel or plate) of plan area A, mean level z and thickness t, at each of its four corners:
//   liquid   + density * (SiviKotu - z - t) * A / 4     down, above its own thickness
//   water    - 1.0 * (YeraltiSuKotu - z - t) * A / 4    up; the buoyancy of the slab itself is left out: wanted
// and nothing where the level lies lower. Soil does not press on floors.
// A wall of length L in plan and height h, d1 and d2 the depths of its edges 1-2 and 3-4 below the level, w the unit
// weight (soil: ZeminKa times density, Rankine's active or any other coefficient): with p1 = w*d1*L/2, p2 = w*d2*L/2,
// half the line load of the edge, a corner of an edge takes
//   d1, d2 > 0    share12 = (2*p1 + p2) * h / 6,  share34 = (p1 + 2*p2) * h / 6     the trapezoid, as on a beam
//   d1 < 0 < d2   share12 = p2 * d2^2 / 6,  share34 = p2 * d2 / 2 - share12         without h: wanted
//   else          the shares of the pressure before: wanted.
// The force acts along the normal in plan, nx = dy/L, ny = -dx/L of edge 1-2, times the sense of plate 1's outline:
// liquid outward, soil and water inward.
// Where the shares come from: the mesh as a beam of span h between its two edges, under a line load that runs from
// 2*p1 at edge 1-2 to 2*p2 at edge 3-4 (both corners of an edge together). Its reactions are
//   h/6 * (2*2*p1 + 2*p2)  and  h/6 * (2*p1 + 2*2*p2),  half of it for each corner.
// Cut by the level it carries the triangle of height d2 over edge 3-4, p2*d2/2 for each corner, whose centre lies d2/3
// above that edge: the lever gives edge 1-2 the part d2/(3*h) of it; the rule takes d2/3, without h.
//        --------- level        d1 < 0: edge 1-2 lies above the level
//      1 +-------+ 2            d2 > 0: edge 3-4 below it
//        |  ~ ~  |
//      4 +-------+ 3
#include "fea/pressures.h"

#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/load_codes.h"
#include "model/mesh_facts.h"
#include "model/springs.h"
#include "model/store.h"

#include <cmath>

namespace havuz {

// Fillings of cells and the situations "liquid and soil" (1), "liquid" (2), "soil" (3), "groundwater" (4) of the run.
bool TakesPressure(int code, Pressure pressure) {
    switch (pressure) {
    case Pressure::Liquid:
        return IsFillingCode(code) || code == SituationCode(0) || code == SituationCode(1);
    case Pressure::Soil:
        return code == SituationCode(0) || code == SituationCode(2);
    case Pressure::Water:
        break;
    }
    return code == SituationCode(3);
}

namespace {

using TakePressure = std::function<void(const MeshPressure &)>;

std::array<double, 5> AtAllCorners(double v) { return {0.0, v, v, v, v}; }

// t: the full thickness stands on the mean level of the nodes, m.
void FloorPressures(const MeshNodes &m, double t, const TakePressure &take) {
    MeshPressure p;
    p.nodes = m;
    p.area = MeshPlanArea(m.mesh);
    p.z = (m.z[1] + m.z[2] + m.z[3] + m.z[4]) / 4.0;
    p.thickness = t;
    const double top = p.z + t;
    const double liquid = SiviKotu - top;
    p.level = SiviKotu;
    p.density = SiviYogunluk;
    p.fz = AtAllCorners(liquid > 0.0 ? SiviYogunluk * liquid * p.area / 4.0 : 0.0);
    take(p);
    const double water = YeraltiSuKotu - top; // density 1; uplift
    p.pressure = Pressure::Water;
    p.level = YeraltiSuKotu;
    p.density = 1.0;
    p.fz = AtAllCorners(water > 0.0 ? -(water * p.area / 4.0) : 0.0);
    take(p);
}

// The pressures on one wall mesh. Its edges 1-2 and 3-4 count as horizontal; each takes a share, t.
class WallMesh {
public:
    WallMesh(const MeshNodes &m, double outlineSign) {
        p_.nodes = m;
        p_.wall = true;
        const double dx = m.x[1] - m.x[2];
        const double dy = m.y[1] - m.y[2];
        p_.length = Distance2(dx, dy);
        if (p_.length == 0.0)
            throw RuntimeFailure({.fault = Fault::NoPlanLength, .where = {{Thing::MeshTable, m.mesh}}});
        nx_ = outlineSign * dy / p_.length;
        ny_ = -outlineSign * dx / p_.length;
        p_.height = (std::fabs(m.z[1] - m.z[4]) + std::fabs(m.z[2] - m.z[3])) / 2.0;
        z12_ = (m.z[1] + m.z[2]) / 2.0;
        z34_ = (m.z[3] + m.z[4]) / 2.0;
    }

    // inward: -1 for a pressure from outside.
    const MeshPressure &with(Pressure pressure, double level, double w, double inward) {
        p_.pressure = pressure;
        p_.level = level;
        p_.density = w;
        p_.d12 = level - z12_;
        p_.d34 = level - z34_;
        setShares(w);
        p_.fx = component(inward * nx_);
        p_.fy = component(inward * ny_);
        return p_;
    }

private:
    // In any other case the shares stay those of the pressure before, whose unit weight they carry: wanted.
    void setShares(double w) {
        const double d1 = p_.d12, d2 = p_.d34;
        p_.rule = ShareRule::Kept;
        if (d1 > 0.0 && d2 > 0.0) {
            const double p1 = w * d1 * p_.length / 2.0;
            const double p2 = w * d2 * p_.length / 2.0;
            p_.share12 = (2.0 * p1 + p2) * p_.height / 6.0;
            p_.share34 = (p1 + 2.0 * p2) * p_.height / 6.0;
            p_.rule = ShareRule::Wet;
        } else if (d1 < 0.0 && d2 > 0.0) { // without the height, so that the dimension is off by one length: wanted
            const double p2 = w * d2 * p_.length / 2.0;
            p_.share12 = p2 * d2 * d2 / 6.0;
            p_.share34 = p2 * d2 / 2.0 - p_.share12;
            p_.rule = ShareRule::Cut;
        }
        if (p_.rule != ShareRule::Kept)
            p_.keptFrom = p_.pressure;
    }
    std::array<double, 5> component(double n) const {
        return {0.0, n * p_.share12, n * p_.share12, n * p_.share34, n * p_.share34};
    }

    MeshPressure p_;
    double nx_ = 0.0, ny_ = 0.0, z12_ = 0.0, z34_ = 0.0;
};

void WallPressures(const MeshNodes &m, double outlineSign, const TakePressure &take) {
    WallMesh wall(m, outlineSign);
    take(wall.with(Pressure::Liquid, SiviKotu, SiviYogunluk, 1.0));
    take(wall.with(Pressure::Soil, ToprakKotu, ZeminKa * ZeminYogunluk, -1.0));
    take(wall.with(Pressure::Water, YeraltiSuKotu, 1.0, -1.0));
}

} // namespace

// The signed area of the outline, half the sum of x(i)*y(i+1) - x(i+1)*y(i) (the surveyor's formula).
double OutlineSign() {
    if (PlakCount <= 0)
        return 1.0;
    const PlakRecord &plak = PlakTable[1];
    double area = 0.0;
    for (int i = 1; i <= plak.NoktaSayisi; ++i) {
        const int next = i == plak.NoktaSayisi ? 1 : i + 1;
        area = area + (plak.Y[next] * plak.X[i] - plak.Y[i] * plak.X[next]) / 2.0;
    }
    return area > 0.0 ? 1.0 : -1.0;
}

// Panels of Tip 0 are floors, of Tip 1 walls; strips (2) take no pressure. A mesh with Sil above 0 takes none.
void ForEachPressure(const TakePressure &take) {
    const double outlineSign = OutlineSign();
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &mesh = MeshTable[i];
        if (!IsFullyOn(mesh))
            continue;
        const MeshNodes m = MeshNodeData(i);
        if (OwnerIsPlate(mesh.PanelNo)) {
            FloorPressures(m, PlakTable[OwnerPlate(mesh.PanelNo)].Kalinlik / 100.0, take);
            continue;
        }
        const PanelRecord &panel = PanelTable[mesh.PanelNo];
        if (panel.Tip == 0)
            FloorPressures(m, panel.D / 100.0, take);
        else if (panel.Tip == 1)
            WallPressures(m, outlineSign, take);
    }
}

} // namespace havuz
