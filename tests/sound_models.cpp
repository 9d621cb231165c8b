#include "sound_models.h"

#include "mesh/plak_edit.h"
#include "mesh/plak_mesh.h"
#include "mesh/polygon_pool.h"
#include "mesh/space_point.h"
#include "model/link_code.h"
#include "model/options.h"
#include "model/store.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace havuz {

namespace {

using Outline = std::vector<PlanPoint>;

PlanPoint At(const Outline &o, std::size_t k) { return o[k % o.size()]; }

double TwiceTriangle(PlanPoint a, PlanPoint b, PlanPoint c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double TwiceArea(const Outline &o) {
    double twice = 0.0;
    for (std::size_t k = 0; k < o.size(); ++k)
        twice += TwiceTriangle(o[0], At(o, k), At(o, k + 1));
    return twice;
}

// Inner angle at corner k of an outline that turns counter-clockwise, degrees.
double AngleAt(const Outline &o, std::size_t k) {
    const PlanPoint a = At(o, k + o.size() - 1), b = At(o, k), c = At(o, k + 1);
    const double angle = std::atan2(TwiceTriangle(b, c, a), (a.x - b.x) * (c.x - b.x) + (a.y - b.y) * (c.y - b.y));
    return (angle < 0.0 ? angle + 2.0 * kPi : angle) * 180.0 / kPi;
}

bool Cross(PlanPoint a, PlanPoint b, PlanPoint c, PlanPoint d) {
    return TwiceTriangle(a, b, c) * TwiceTriangle(a, b, d) <= 0.0 &&
           TwiceTriangle(c, d, a) * TwiceTriangle(c, d, b) <= 0.0;
}

// A simple outline with angles from 15 to 345 degrees and no edge under 0.2 m.
bool Fair(const Outline &o) {
    for (std::size_t k = 0; k < o.size(); ++k) {
        if (AngleAt(o, k) < 15.0 || AngleAt(o, k) > 345.0 || PlanDistance(o[k], At(o, k + 1)) < 0.2)
            return false;
        for (std::size_t l = k + 2; l < o.size(); ++l)
            if ((l + 1) % o.size() != k && Cross(o[k], At(o, k + 1), o[l], At(o, l + 1)))
                return false;
    }
    return TwiceArea(o) > 0.5;
}

Outline Turn(Outline o, double angle, double x, double y) {
    for (PlanPoint &p : o)
        p = {x + p.x * std::cos(angle) - p.y * std::sin(angle), y + p.x * std::sin(angle) + p.y * std::cos(angle)};
    return o;
}

// Corners on an ellipse, in order.
Outline Convex(Dice &dice) {
    const int n = dice.whole(3, 12);
    std::vector<double> angle;
    for (int k = 0; k < n; ++k)
        angle.push_back(dice.between(0.0, 2.0 * kPi));
    std::sort(angle.begin(), angle.end());
    const double rx = dice.between(2.0, 8.0), ry = dice.between(2.0, 8.0);
    Outline o;
    for (const double a : angle)
        o.push_back({rx * std::cos(a), ry * std::sin(a)});
    return o;
}

// Corners around a middle at random distances.
Outline Concave(Dice &dice) {
    const int n = dice.whole(5, 14);
    Outline o;
    for (int k = 0; k < n; ++k) {
        const double a = 2.0 * kPi * (k + dice.between(-0.3, 0.3)) / n, r = dice.between(2.0, 8.0);
        o.push_back({r * std::cos(a), r * std::sin(a)});
    }
    return o;
}

Outline LShape(Dice &dice) {
    const double x = dice.between(3, 12), y = dice.between(3, 12), a = dice.between(0.3, x - 0.5),
                 b = dice.between(0.3, y - 0.5);
    return {{0, 0}, {x, 0}, {x, b}, {a, b}, {a, y}, {0, y}};
}

Outline TShape(Dice &dice) {
    const double x = dice.between(4, 12), y = dice.between(3, 9), t = dice.between(0.5, y - 0.5),
                 a = dice.between(0.5, x / 2 - 0.4), b = dice.between(x / 2 + 0.4, x - 0.5);
    return {{a, 0}, {b, 0}, {b, y - t}, {x, y - t}, {x, y}, {0, y}, {0, y - t}, {a, y - t}};
}

Outline UShape(Dice &dice) {
    const double x = dice.between(4, 12), y = dice.between(3, 9), t = dice.between(0.5, y - 0.5),
                 a = dice.between(0.5, x / 2 - 0.3), b = dice.between(x / 2 + 0.3, x - 0.5);
    return {{0, 0}, {x, 0}, {x, y}, {b, y}, {b, t}, {a, t}, {a, y}, {0, y}};
}

Outline Star(Dice &dice) {
    const int spikes = dice.whole(3, 8);
    const double outer = dice.between(3.0, 8.0), inner = outer * dice.between(0.25, 0.7);
    Outline o;
    for (int k = 0; k < 2 * spikes; ++k) {
        const double a = kPi * k / spikes, r = k % 2 == 0 ? outer : inner;
        o.push_back({r * std::cos(a), r * std::sin(a)});
    }
    return o;
}

Outline Sliver(Dice &dice) {
    const double x = dice.between(4.0, 12.0), a = dice.between(0.2, 1.2), b = dice.between(0.2, 1.2);
    if (dice.whole(0, 1) == 0)
        return {{0, 0}, {x, 0}, {x + dice.between(-a, a), a}, {dice.between(-b, b), b}};
    const double angle = dice.between(15.5, 30.0) / 180.0 * kPi;
    return {{0, 0}, {x, 0}, {x * dice.between(0.4, 1.0), x * dice.between(0.35, 1.0) * std::tan(angle)}};
}

using Make = Outline (*)(Dice &);

Outline FairOutline(Dice &dice, Make make) {
    for (;;) {
        const Outline o = Turn(make(dice), dice.between(0.0, 2.0 * kPi), dice.between(-5, 5), dice.between(-5, 5));
        Outline stored = o; // as the tables hold it
        for (PlanPoint &p : stored)
            p = {static_cast<double>(static_cast<float>(p.x)), static_cast<double>(static_cast<float>(p.y))};
        if (Fair(stored))
            return stored;
    }
}

void PutPlate(const Outline &outline) {
    PlakRecord &plate = PlakTable[++PlakCount];
    plate = PlakRecord{};
    plate.Kalinlik = 30;
    for (const PlanPoint p : outline) {
        plate.NoktaSayisi = plate.NoktaSayisi + 1;
        plate.X[plate.NoktaSayisi] = p.x;
        plate.Y[plate.NoktaSayisi] = p.y;
    }
}

void PutPool(const Outline &outline) {
    PolygonPool pool;
    pool.points = outline;
    pool.dp = 20;
    pool.ds = 30;
    pool.UstKot = 3;
    BuildPolygonPool(pool);
}

// A floor in one slope; the feet of its walls go with it.
void Slope(Dice &dice) {
    const double a = dice.between(-0.08, 0.08), b = dice.between(-0.08, 0.08);
    PlakRecord &plate = PlakTable[1];
    for (int k = 1; k <= plate.NoktaSayisi; ++k)
        plate.Z[k] = a * plate.X[k] + b * plate.Y[k];
    for (int w = 1; w <= PanelCount; ++w)
        for (const int corner : {3, 4})
            PanelTable[w].Z[corner] = a * PanelTable[w].X[corner] + b * PanelTable[w].Y[corner];
}

// Plates side by side along a turned line, of different depths, and one across their ends.
void PutRow(Dice &dice) {
    const int n = dice.whole(2, 4);
    const double angle = dice.whole(0, 2) == 0 ? 0.0 : dice.between(0.0, 2.0 * kPi);
    double from = 0.0;
    for (int k = 0; k < n; ++k) {
        // In quarters of a metre: no two corners nearly in one place.
        const double to = from + 0.25 * dice.whole(6, 20), deep = 0.25 * dice.whole(8, 24),
                     lean = 0.25 * dice.whole(-3, 3);
        PutPlate(Turn({{from, 0}, {to, 0}, {to, deep}, {from, deep + lean}}, angle, 1, 2));
        from = to;
    }
    PutPlate(Turn({{0, -2}, {from, -2}, {from, 0}, {0, 0}}, angle, 1, 2));
}

Outline OutlineOfPlate(int p) {
    Outline o;
    for (int k = 1; k <= PlakTable[p].NoktaSayisi; ++k)
        o.push_back({PlakTable[p].X[k], PlakTable[p].Y[k]});
    if (TwiceArea(o) < 0.0)
        std::reverse(o.begin(), o.end());
    return o;
}

void CutThroughMiddle(Dice &dice) {
    MeshWindow none;
    int cut = 0;
    PlanPoint middle;
    const Outline o = OutlineOfPlate(1);
    for (const PlanPoint p : o) {
        middle.x += p.x / static_cast<double>(o.size());
        middle.y += p.y / static_cast<double>(o.size());
    }
    const double a = dice.between(0.0, kPi), dx = 30.0 * std::cos(a), dy = 30.0 * std::sin(a);
    PlakKes({{middle.x - dx, middle.y - dy}, {middle.x + dx, middle.y + dy}}, cut, none);
}

// A convex pool cut through the middle of its first plate once or twice, into pieces that are fair themselves.
void PutCutPool(Dice &dice) {
    for (bool fair = false; !fair;) {
        ClearModel();
        PutPool(FairOutline(dice, Convex));
        for (int k = dice.whole(1, 2); k > 0; --k)
            CutThroughMiddle(dice);
        fair = PlakCount > 1;
        for (int p = 1; p <= PlakCount; ++p)
            fair = fair && Fair(OutlineOfPlate(p));
    }
}

} // namespace

std::string OutlineKindInWords(int kind) {
    const char *const words[kOutlineKinds] = {"convex", "concave",         "L",        "T", "U", "star", "sliver",
                                              "sloped", "touching plates", "cut pools"};
    return words[kind];
}

void PutRandomModel(int kind, std::uint64_t seed) {
    ResetStore();
    ResetPlakMesh();
    SiviYogunluk = 1.0;
    ZeminYogunluk = 1.8;
    Dice dice(seed * kOutlineKinds + static_cast<std::uint64_t>(kind) + 1);
    for (int k = 0; k < 5; ++k)
        dice.between(0.0, 1.0);
    MeshGenisligi = dice.between(0.4, 1.2);
    constexpr Make outlines[] = {Convex, Concave, LShape, TShape, UShape, Star, Sliver};
    if (kind < 7) {
        PutPool(FairOutline(dice, outlines[kind]));
    } else if (kind == 7) {
        PutPool(dice.whole(0, 1) == 0 ? FairOutline(dice, Convex) : FairOutline(dice, Concave));
        Slope(dice);
    } else if (kind == 8) {
        PutRow(dice);
    } else {
        PutCutPool(dice);
    }
}

namespace {

// Whether a node stands at a corner of the plate that is sharper than 30 degrees.
bool AtSharpCorner(const Outline &o, PlanPoint p) {
    for (std::size_t k = 0; k < o.size(); ++k)
        if (AngleAt(o, k) < 30.0 && PlanDistance(p, o[k]) < 1e-3)
            return true;
    return false;
}

struct Corners {
    int n[4];
    SpacePoint p[4];
};

Corners CornersOfMesh(int i) {
    const MeshRecord &m = MeshTable[i];
    Corners c{{m.N1, m.N2, m.N3, m.N4}, {}};
    for (int k = 0; k < 4; ++k)
        c.p[k] = NodePlace(c.n[k]);
    return c;
}

void MeasureFloorMesh(const Corners &c, const Outline &outline, MeshMeasure &measure) {
    double least = 180.0, longest = 0.0, shortest = 1e30;
    bool excused = false, folded = false;
    for (int k = 0; k < 4; ++k) {
        const SpacePoint a = Minus(c.p[(k + 1) % 4], c.p[k]), b = Minus(c.p[(k + 3) % 4], c.p[k]);
        least = std::min(least, std::atan2(Length(havuz::Cross(a, b)), Dot(a, b)) * 180.0 / kPi);
        folded = folded || a.x * b.y - a.y * b.x <= 0.0;
        longest = std::max(longest, Length(a));
        shortest = std::min(shortest, Length(a));
        excused = excused || AtSharpCorner(outline, {c.p[k].x, c.p[k].y});
    }
    ++measure.meshes;
    measure.folded += folded ? 1 : 0;
    measure.aspect = std::max(measure.aspect, longest / shortest);
    measure.longestSide = std::max(measure.longestSide, longest / MeshGenisligi);
    measure.leastAngleAtAll = std::min(measure.leastAngleAtAll, least);
    if (excused)
        return;
    measure.leastAngle = std::min(measure.leastAngle, least);
    measure.sharp += least < 30.0 ? 1 : 0;
}

bool OnOutline(const Outline &o, PlanPoint p) {
    for (std::size_t k = 0; k < o.size(); ++k) {
        const PlanPoint a = o[k], b = At(o, k + 1);
        if (std::fabs(PlanDistance(a, p) + PlanDistance(p, b) - PlanDistance(a, b)) < 1e-5)
            return true;
    }
    return false;
}

// Sides that one mesh alone has, and that are neither on the outline of a plate nor on an edge of a panel.
void CountOpenSides(MeshMeasure &measure) {
    struct Side {
        int uses = 0, owner = 0;
    };
    std::map<std::pair<int, int>, Side> sides;
    for (int i = 1; i <= MeshCount; ++i) {
        const Corners c = CornersOfMesh(i);
        for (int k = 0; k < 4; ++k) {
            Side &side = sides[std::minmax(c.n[k], c.n[(k + 1) % 4])];
            ++side.uses;
            side.owner = MeshTable[i].PanelNo;
        }
    }
    for (const auto &[nodes, side] : sides) {
        if (side.uses > 1)
            continue;
        const SpacePoint middle = Along(NodePlace(nodes.first), NodePlace(nodes.second), 0.5);
        bool rim = false;
        if (OwnerIsPlate(side.owner)) {
            rim = OnOutline(OutlineOfPlate(OwnerPlate(side.owner)), {middle.x, middle.y});
            for (int k = 1; k <= PlakTable[OwnerPlate(side.owner)].NoktaSayisi && rim; ++k)
                rim = PlakTable[OwnerPlate(side.owner)].KenarKodu[k] <= 0 || PanelCount == 0;
        } else {
            const PanelRecord &panel = PanelTable[side.owner];
            const SpacePoint a = PanelCorner(panel, 1), b = PanelCorner(panel, 2);
            rim = std::fabs(SpaceDistance(a, middle) + SpaceDistance(middle, b) - SpaceDistance(a, b)) < 1e-4;
        }
        measure.openInside += rim ? 0 : 1;
    }
}

void CountCloseNodes(MeshMeasure &measure) {
    std::vector<int> order;
    for (int n = 1; n <= NoktaCount; ++n)
        order.push_back(n);
    std::sort(order.begin(), order.end(), [](int a, int b) { return NoktaTable[a].X < NoktaTable[b].X; });
    for (std::size_t i = 0; i < order.size(); ++i)
        for (std::size_t k = i + 1; k < order.size() && NoktaTable[order[k]].X - NoktaTable[order[i]].X < 0.001; ++k)
            measure.close += SpaceDistance(NodePlace(order[i]), NodePlace(order[k])) < 0.001 ? 1 : 0;
}

void CountLostCorners(const Outline &o, MeshMeasure &measure) {
    for (const PlanPoint corner : o) {
        bool met = false;
        for (int n = 1; n <= NoktaCount && !met; ++n)
            met = PlanDistance(corner, {NoktaTable[n].X, NoktaTable[n].Y}) < 1e-5;
        measure.lostCorners += met ? 0 : 1;
    }
}

} // namespace

MeshMeasure MeasureMesh() {
    MeshMeasure measure;
    for (int p = 1; p <= PlakCount; ++p) {
        const Outline outline = OutlineOfPlate(p);
        double twice = 0.0;
        for (int i = 1; i <= MeshCount; ++i) {
            if (MeshTable[i].PanelNo != PlateOwner(p))
                continue;
            const Corners c = CornersOfMesh(i);
            MeasureFloorMesh(c, outline, measure);
            twice += (c.p[2].x - c.p[0].x) * (c.p[3].y - c.p[1].y) - (c.p[2].y - c.p[0].y) * (c.p[3].x - c.p[1].x);
        }
        measure.areaError = std::max(measure.areaError, std::fabs(twice / TwiceArea(outline) - 1.0));
        CountLostCorners(outline, measure);
    }
    CountOpenSides(measure);
    CountCloseNodes(measure);
    return measure;
}

} // namespace havuz
