// Sound mesh: plates and panels of the store as outlines over common corners, and the geometry of one part.
#include "mesh/sound_work.h"
#include "model/link_code.h"
#include "model/number_text.h"

#include <cmath>

namespace havuz::sound {

namespace {

constexpr double kLinkedFoot = 0.1;      // m in plan: a linked wall's foot stands on the plate's edge
constexpr double kSquare = 1e-4;         // sine of the angle by which a square corner may be off
constexpr double kPlane = 1e-4;          // m: corners nearer to a plane than this lie in it
constexpr double kFourSidedCosine = 0.6; // corners of a four-sided grid lie between 53 and 127 degrees
constexpr double kFourSidedRatio = 1.5;  // of its opposite sides

// Free records of the table are no parts.
bool InUse(const PanelRecord &panel) { return panel.No != 0; }

std::vector<int> WithoutRepeats(std::vector<int> corner) {
    std::vector<int> kept;
    for (const int c : corner)
        if (kept.empty() || kept.back() != c)
            kept.push_back(c);
    while (kept.size() > 1 && kept.front() == kept.back())
        kept.pop_back();
    return kept;
}

double TwiceArea(const std::vector<PlanPoint> &outline) {
    double twice = 0.0;
    const int n = Count(outline);
    for (int k = 0; k < n; ++k)
        twice += Twice(outline[0], At(outline, k), At(outline, (k + 1) % n));
    return twice;
}

bool SegmentsCross(PlanPoint a, PlanPoint b, PlanPoint c, PlanPoint d) {
    return Twice(a, b, c) * Twice(a, b, d) < 0.0 && Twice(c, d, a) * Twice(c, d, b) < 0.0;
}

void CheckSimple(const Model &model, const Part &part, const std::vector<PlanPoint> &outline) {
    const int n = Count(outline);
    for (int a = 0; a < n; ++a)
        for (int b = a + 2; b < n; ++b)
            if (SegmentsCross(At(outline, a), At(outline, a + 1), At(outline, b), At(outline, (b + 1) % n)))
                FailShape(part, Fault::OutlineCrosses, PlaceText(model.at(At(part.corner, a))));
    for (int a = 0; a < n; ++a)
        for (int b = a + 1; b < n; ++b)
            if (At(part.corner, a) == At(part.corner, b))
                FailShape(part, Fault::OutlineTouches, PlaceText(model.at(At(part.corner, a))));
}

// Corners at which the outline turns.
std::vector<int> TurningCorners(const std::vector<PlanPoint> &outline) {
    std::vector<int> turning;
    const int n = Count(outline);
    for (int k = 0; k < n; ++k) {
        const PlanPoint a = At(outline, (k + n - 1) % n), b = At(outline, k), c = At(outline, (k + 1) % n);
        if (std::fabs(Twice(a, b, c)) > kSquare * PlanDistance(a, b) * PlanDistance(b, c))
            turning.push_back(k);
    }
    return turning;
}

PlanPoint Direction(PlanPoint a, PlanPoint b) {
    const double length = PlanDistance(a, b);
    return {(b.x - a.x) / length, (b.y - a.y) / length};
}

// The direction of the longest edge, of equal ones the first.
PlanPoint LongestEdge(const std::vector<PlanPoint> &outline) {
    PlanPoint best{1.0, 0.0};
    double longest = 0.0;
    const int n = Count(outline);
    for (int k = 0; k < n; ++k) {
        const PlanPoint a = At(outline, k), b = At(outline, (k + 1) % n);
        if (PlanDistance(a, b) > longest * (1.0 + 1e-9)) {
            longest = PlanDistance(a, b);
            best = Direction(a, b);
        }
    }
    return best;
}

// Whether every edge runs along `along` or square to it.
bool RightAngled(const std::vector<PlanPoint> &outline, PlanPoint along) {
    const int n = Count(outline);
    for (int k = 0; k < n; ++k) {
        const PlanPoint d = Direction(At(outline, k), At(outline, (k + 1) % n));
        if (std::min(std::fabs(d.x * along.y - d.y * along.x), std::fabs(d.x * along.x + d.y * along.y)) > kSquare)
            return false;
    }
    return true;
}

// A convex outline of four corners that is near enough to a rectangle for a grid.
bool NearlyRectangle(const std::vector<PlanPoint> &outline, const std::vector<int> &turning) {
    if (turning.size() != 4)
        return false;
    std::array<double, 4> length{};
    for (int k = 0; k < 4; ++k) {
        const PlanPoint a = At(outline, At(turning, (k + 3) % 4)), b = At(outline, At(turning, k)),
                        c = At(outline, At(turning, (k + 1) % 4));
        const PlanPoint d = Direction(b, a), e = Direction(b, c);
        if (Twice(a, b, c) <= 0.0 || std::fabs(d.x * e.x + d.y * e.y) > kFourSidedCosine)
            return false;
        At(length, k) = PlanDistance(b, c);
    }
    const auto alike = [](double a, double b) { return std::max(a, b) <= kFourSidedRatio * std::min(a, b); };
    return alike(length[0], length[2]) && alike(length[1], length[3]);
}

void ChooseShapeOfPlate(const Model &model, Part &part) {
    const std::vector<PlanPoint> outline = OutlineInPlane(model, part);
    const PlanPoint along = LongestEdge(outline);
    if (RightAngled(outline, along)) {
        part.ex = std::fabs(along.y) < 1e-12 ? SpacePoint{1, 0, 0} : SpacePoint{along.x, along.y, 0};
        if (std::fabs(along.x) < 1e-12)
            part.ex = {0, 1, 0};
        part.ey = {-part.ex.y, part.ex.x, 0};
        part.shape = Shape::Grid;
        return;
    }
    const std::vector<int> turning = TurningCorners(outline);
    if (NearlyRectangle(outline, turning)) {
        for (int k = 0; k < 4; ++k)
            At(part.quad, k) = At(part.corner, At(turning, k));
        part.shape = Shape::Grid;
    }
}

void AddPlate(Model &model, int p) {
    const PlakRecord &plate = PlakTable[p];
    Part part;
    part.owner = PlateOwner(p);
    part.plate = true;
    for (int k = 1; k <= plate.NoktaSayisi; ++k)
        part.corner.push_back(model.corner.findOrAdd(PlakPoint(plate, k)));
    part.corner = WithoutRepeats(part.corner);
    part.origin = {0, 0, 0};
    part.ex = {1, 0, 0};
    part.ey = {0, 1, 0};
    part.normal = {0, 0, 1};
    const std::vector<PlanPoint> outline = OutlineInPlane(model, part);
    if (outline.size() < 3)
        FailShape(part, Fault::FewCorners);
    CheckSimple(model, part, outline);
    const double twice = TwiceArea(outline);
    if (std::fabs(twice) < kOnePlace)
        FailShape(part, Fault::NoPlanArea);
    if (twice < 0.0)
        std::reverse(part.corner.begin() + 1, part.corner.end());
    ChooseShapeOfPlate(model, part);
    model.part.push_back(part);
}

// The plate edge that wall w stands on by a link code, as its two points; false for none.
bool LinkedEdge(int w, SpacePoint &a, SpacePoint &b) {
    for (int p = 1; p <= PlakCount; ++p) {
        const PlakRecord &plate = PlakTable[p];
        for (int k = 1; k <= plate.NoktaSayisi; ++k)
            if (plate.KenarKodu[k] > 0 && LinkPanel(plate.KenarKodu[k]) == w) {
                a = PlakPoint(plate, k);
                b = PlakPoint(plate, k < plate.NoktaSayisi ? k + 1 : 1);
                return true;
            }
    }
    return false;
}

// A linked wall stands on its plate's edge, whatever height its own lower corners have.
std::array<SpacePoint, 4> CornersOfPanel(int w) {
    std::array<SpacePoint, 4> c{};
    for (int k = 0; k < 4; ++k)
        At(c, k) = PanelCorner(PanelTable[w], k + 1);
    SpacePoint a, b;
    if (!LinkedEdge(w, a, b))
        return c;
    const auto apart = [](SpacePoint p, SpacePoint q) { return Distance2(p.x - q.x, p.y - q.y); };
    if (apart(c[3], b) + apart(c[2], a) < apart(c[3], a) + apart(c[2], b))
        std::swap(a, b);
    if (apart(c[3], a) < kLinkedFoot && apart(c[2], b) < kLinkedFoot) {
        c[3] = a;
        c[2] = b;
    }
    return c;
}

void SetPlaneOfPanel(const Model &model, Part &part) {
    const int n = Count(part.corner);
    part.origin = model.at(part.corner[0]);
    for (int k = 0; k < n; ++k) {
        const SpacePoint a = Minus(model.at(At(part.corner, k)), part.origin),
                         b = Minus(model.at(At(part.corner, (k + 1) % n)), part.origin), c = Cross(a, b);
        part.normal = {part.normal.x + c.x, part.normal.y + c.y, part.normal.z + c.z};
    }
    part.normal = Unit(part.normal);
    part.ex = Unit(Minus(model.at(part.corner[1]), part.origin));
    part.ey = Cross(part.normal, part.ex);
}

// A panel whose corners all stand apart is a four-sided grid. One of three corners is meshed like any outline.
void AddPanel(Model &model, int w) {
    Part part;
    part.owner = w;
    part.wall = PanelTable[w].Tip == 1;
    for (const SpacePoint c : CornersOfPanel(w))
        part.corner.push_back(model.corner.findOrAdd(c));
    const std::vector<int> all = part.corner;
    part.corner = WithoutRepeats(part.corner);
    if (part.corner.size() < 3)
        return; // no area: the mesh report says that it got no mesh
    SetPlaneOfPanel(model, part);
    if (!(Length(part.normal) > 0.5))
        return;
    if (part.corner.size() == 4) {
        std::copy(all.begin(), all.end(), part.quad.begin());
        part.shape = Shape::Grid;
        const std::vector<PlanPoint> outline = OutlineInPlane(model, part);
        for (int k = 0; k < 4; ++k)
            if (Twice(At(outline, k), At(outline, (k + 1) % 4), At(outline, (k + 2) % 4)) <= 0.0)
                part.shape = Shape::Free;
        CheckSimple(model, part, outline);
    }
    model.part.push_back(part);
}

// Whether the corners of a plate lie in the plane through the first corner with slopes (a, b).
bool PlaneThrough(const Model &model, const Part &plate, double &a, double &b) {
    const SpacePoint o = model.at(plate.corner[0]);
    double xx = 0, xy = 0, yy = 0, xz = 0, yz = 0;
    for (const int c : plate.corner) {
        const SpacePoint d = Minus(model.at(c), o);
        xx += d.x * d.x;
        xy += d.x * d.y;
        yy += d.y * d.y;
        xz += d.x * d.z;
        yz += d.y * d.z;
    }
    const double det = xx * yy - xy * xy;
    a = det > 0.0 ? (xz * yy - yz * xy) / det : 0.0;
    b = det > 0.0 ? (yz * xx - xz * xy) / det : 0.0;
    return std::all_of(plate.corner.begin(), plate.corner.end(), [&](int c) {
        const SpacePoint d = Minus(model.at(c), o);
        return std::fabs(a * d.x + b * d.y - d.z) <= kPlane;
    });
}

// Mean value coordinates (Hormann and Floater 2006): on an edge the straight line between its ends, smooth inside.
double MeanValueHeight(const Model &model, const Part &plate, PlanPoint p) {
    const int n = Count(plate.corner);
    double sum = 0.0, weights = 0.0;
    for (int k = 0; k < n; ++k) {
        const SpacePoint a = model.at(At(plate.corner, k)), b = model.at(At(plate.corner, (k + 1) % n));
        const PlanPoint d{a.x - p.x, a.y - p.y}, e{b.x - p.x, b.y - p.y};
        const double r = Distance2(d.x, d.y), s = Distance2(e.x, e.y);
        const double cross = d.x * e.y - d.y * e.x, dot = d.x * e.x + d.y * e.y;
        if (r < kOnePlace)
            return a.z;
        if (std::fabs(cross) < 1e-9 * r * s && dot < 0.0)
            return (a.z * s + b.z * r) / (r + s);
        const double half = cross == 0.0 ? 0.0 : (r * s - dot) / cross; // tangent of half the angle
        sum += half * (a.z / r + b.z / s);
        weights += half * (1.0 / r + 1.0 / s);
    }
    return sum / weights;
}

} // namespace

bool FourSided(const Part &part) { return part.quad[0] >= 0; }

void FailShape(const Part &part, Fault fault, const std::string &place) {
    const Spot spot = part.plate ? Spot{Thing::Plate, OwnerPlate(part.owner)} : Spot{Thing::Panel, part.owner};
    throw RuntimeFailure({.fault = fault, .where = {spot}, .text = place});
}

std::string PlaceText(SpacePoint p) {
    const auto text = [](double v) { return PictureText(v, "#######0.###"); };
    return "(" + text(p.x) + ", " + text(p.y) + ", " + text(p.z) + ")";
}

PlanPoint InPlane(const Part &part, SpacePoint p) {
    const SpacePoint d = Minus(p, part.origin);
    return {Dot(d, part.ex), Dot(d, part.ey)};
}

double Height(const Model &model, const Part &plate, PlanPoint p) {
    double a = 0.0, b = 0.0;
    const SpacePoint o = model.at(plate.corner[0]);
    if (PlaneThrough(model, plate, a, b))
        return o.z + a * (p.x - o.x) + b * (p.y - o.y);
    return MeanValueHeight(model, plate, p);
}

SpacePoint InSpace(const Model &model, const Part &part, PlanPoint p) {
    const SpacePoint at{part.origin.x + p.x * part.ex.x + p.y * part.ey.x,
                        part.origin.y + p.x * part.ex.y + p.y * part.ey.y,
                        part.origin.z + p.x * part.ex.z + p.y * part.ey.z};
    return part.plate ? SpacePoint{at.x, at.y, Height(model, part, {at.x, at.y})} : at;
}

bool Inside(const std::vector<PlanPoint> &outline, PlanPoint p) {
    bool inside = false;
    const int n = Count(outline);
    for (int k = 0; k < n; ++k) {
        const PlanPoint a = At(outline, k), b = At(outline, (k + 1) % n);
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x))
            inside = !inside;
    }
    return inside;
}

std::vector<PlanPoint> OutlineInPlane(const Model &model, const Part &part) {
    std::vector<PlanPoint> outline;
    for (const int c : part.corner)
        outline.push_back(InPlane(part, model.at(c)));
    return outline;
}

Model ReadParts() {
    Model model;
    for (int p = 1; p <= PlakCount; ++p)
        AddPlate(model, p);
    for (int w = CircularPanels() + 1; w <= PanelCount; ++w)
        if (InUse(PanelTable[w]))
            AddPanel(model, w);
    return model;
}

Places::Cell Places::cellOf(SpacePoint at) const {
    const double side = 2.0 * reach_;
    return {std::llround(std::floor(at.x / side)), std::llround(std::floor(at.y / side)),
            std::llround(std::floor(at.z / side))};
}

int Places::find(SpacePoint at) const {
    const SpacePoint r{reach_, reach_, reach_};
    const Cell low = cellOf(Minus(at, r)), high = cellOf({at.x + reach_, at.y + reach_, at.z + reach_});
    int best = -1;
    double least = reach_;
    for (long long i = low[0]; i <= high[0]; ++i)
        for (long long j = low[1]; j <= high[1]; ++j)
            for (long long k = low[2]; k <= high[2]; ++k)
                if (const auto cell = cell_.find({i, j, k}); cell != cell_.end())
                    for (const int p : cell->second)
                        if (const double d = SpaceDistance(at, At(point_, p)); d <= least) {
                            least = d;
                            best = p;
                        }
    return best;
}

int Places::findOrAdd(SpacePoint at) {
    const int found = find(at);
    if (found >= 0)
        return found;
    cell_[cellOf(at)].push_back(count());
    point_.push_back(at);
    return count() - 1;
}

int Mesh::add(SpacePoint at) {
    const int found = node.findOrAdd(at);
    if (node.count() > kNoktaCapacity)
        throw TooFine();
    return found;
}

void Mesh::addQuad(std::array<int, 4> corners, int owner) {
    if (Count(quad) >= kMeshCapacity)
        throw TooFine();
    quad.push_back({corners, owner});
}

} // namespace havuz::sound
