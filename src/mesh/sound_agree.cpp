// Sound mesh: the lines that parts share. Corners of one part on an edge of another become corners of both; the lines
// of a grid run through from edge to edge and meet further parts there, until nothing is added. It ends because two
// corners on one edge lie more than kJoin apart. Lengths in m.
#include "mesh/sound_work.h"

#include <cmath>
#include <optional>

namespace havuz::sound {

namespace {

constexpr double kThin = 0.2;         // of a width: a narrower patch of a plate's grid makes its plate free
constexpr int kCornerCapacity = 8000; // more corners than that never fit into the tables

struct Box {
    SpacePoint low{1e30, 1e30, 1e30}, high{-1e30, -1e30, -1e30};
    void take(SpacePoint p) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    bool holds(SpacePoint p) const {
        return p.x >= low.x - kJoin && p.x <= high.x + kJoin && p.y >= low.y - kJoin && p.y <= high.y + kJoin &&
               p.z >= low.z - kJoin && p.z <= high.z + kJoin;
    }
    bool meets(const Box &b) const {
        return low.x <= b.high.x + kJoin && high.x >= b.low.x - kJoin && low.y <= b.high.y + kJoin &&
               high.y >= b.low.y - kJoin && low.z <= b.high.z + kJoin && high.z >= b.low.z - kJoin;
    }
};

Box BoxOf(SpacePoint a, SpacePoint b) {
    Box box;
    box.take(a);
    box.take(b);
    return box;
}

Box BoxOf(const Model &model, const Part &part) {
    Box box;
    for (const int c : part.corner)
        box.take(model.at(c));
    return box;
}

struct Edge {
    int part = 0;
    SpacePoint a, b;
    Box box;
};

std::vector<Edge> AllEdges(const Model &model) {
    std::vector<Edge> edges;
    for (int p = 0; p < Count(model.part); ++p) {
        const std::vector<int> &corner = At(model.part, p).corner;
        for (int k = 0; k < Count(corner); ++k) {
            const SpacePoint a = model.at(At(corner, k)), b = model.at(At(corner, (k + 1) % Count(corner)));
            edges.push_back({p, a, b, BoxOf(a, b)});
        }
    }
    return edges;
}

// Where two edges cross between their ends, within kJoin.
std::optional<SpacePoint> Crossing(const Edge &e, const Edge &f) {
    const SpacePoint d = Minus(e.b, e.a), g = Minus(f.b, f.a), r = Minus(f.a, e.a), normal = Cross(d, g);
    const double size = Dot(normal, normal);
    if (size < 1e-6 * Dot(d, d) * Dot(g, g))
        return std::nullopt;
    const double t = Dot(Cross(r, g), normal) / size, s = Dot(Cross(r, d), normal) / size;
    const double et = kJoin / Length(d), es = kJoin / Length(g);
    if (t < et || t > 1.0 - et || s < es || s > 1.0 - es)
        return std::nullopt;
    const SpacePoint p = Along(e.a, e.b, t), q = Along(f.a, f.b, s);
    return SpaceDistance(p, q) < kJoin ? std::optional(p) : std::nullopt;
}

void AddCrossings(Model &model) {
    const std::vector<Edge> edges = AllEdges(model);
    for (std::size_t i = 0; i < edges.size(); ++i)
        for (std::size_t k = i + 1; k < edges.size(); ++k)
            if (edges[i].part != edges[k].part && edges[i].box.meets(edges[k].box))
                if (const auto at = Crossing(edges[i], edges[k]))
                    model.corner.findOrAdd(*at);
}

// Corners on the edge from a to b, in order, without its ends.
std::vector<int> CornersOnEdge(const Model &model, int a, int b) {
    const SpacePoint pa = model.at(a), d = Minus(model.at(b), pa);
    const Box box = BoxOf(pa, model.at(b));
    std::vector<std::pair<double, int>> on;
    for (int c = 0; c < model.corner.count(); ++c) {
        const SpacePoint p = model.at(c);
        if (c == a || c == b || !box.holds(p))
            continue;
        const double t = Dot(Minus(p, pa), d) / Dot(d, d);
        if (t > 0.0 && t < 1.0 && SpaceDistance(p, Along(pa, model.at(b), t)) <= kJoin)
            on.emplace_back(t, c);
    }
    std::sort(on.begin(), on.end());
    std::vector<int> corners;
    for (const auto &[t, c] : on)
        corners.push_back(c);
    return corners;
}

void MakeLoop(const Model &model, Part &part) {
    part.loop.clear();
    const int n = Count(part.corner);
    for (int k = 0; k < n; ++k) {
        const int a = At(part.corner, k), b = At(part.corner, (k + 1) % n);
        part.loop.push_back(a);
        for (const int c : CornersOnEdge(model, a, b))
            if (std::find(part.corner.begin(), part.corner.end(), c) == part.corner.end())
                part.loop.push_back(c);
    }
}

bool OnOutline(const std::vector<PlanPoint> &outline, PlanPoint p) {
    const int n = Count(outline);
    for (int k = 0; k < n; ++k) {
        const PlanPoint a = At(outline, k), b = At(outline, (k + 1) % n);
        if (PlanDistance(p, NearestOn(a, b, p)) <= kJoin)
            return true;
    }
    return false;
}

bool OnPart(const Model &model, const Part &part, const std::vector<PlanPoint> &outline, SpacePoint p) {
    const PlanPoint at = InPlane(part, p);
    if (!Inside(outline, at) && !OnOutline(outline, at))
        return false;
    const double off = part.plate ? p.z - Height(model, part, {p.x, p.y}) : Dot(Minus(p, part.origin), part.normal);
    return std::fabs(off) <= kJoin;
}

// Lines of other parts that run inside this one.
std::vector<LineKey> InnerLines(const Model &model, const Part &part, const std::vector<Box> &boxes) {
    std::vector<LineKey> lines;
    const Box own = BoxOf(model, part);
    const std::vector<PlanPoint> outline = OutlineInPlane(model, part);
    for (int q = 0; q < Count(model.part); ++q) {
        const Part &other = At(model.part, q);
        if (&other == &part || !At(boxes, q).meets(own))
            continue;
        const int n = Count(other.loop);
        for (int k = 0; k < n; ++k) {
            const int a = At(other.loop, k), b = At(other.loop, (k + 1) % n);
            const SpacePoint pa = model.at(a), pb = model.at(b), middle = Along(pa, pb, 0.5);
            if (own.holds(pa) && own.holds(pb) && OnPart(model, part, outline, pa) &&
                OnPart(model, part, outline, pb) && OnPart(model, part, outline, middle) &&
                !OnOutline(outline, InPlane(part, middle)))
                lines.push_back(KeyOf(a, b));
        }
    }
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}

// Place of a corner in a grid, by its lines.
struct GridPlace {
    int corner = 0;
    double u = 0.0, v = 0.0;
};

SpacePoint Bilinear(const Model &model, const Part &part, double u, double v) {
    const SpacePoint low = Along(model.at(part.quad[0]), model.at(part.quad[1]), u),
                     high = Along(model.at(part.quad[3]), model.at(part.quad[2]), u);
    return Along(low, high, v);
}

// Newton's method in the plane of the part; a convex quadrilateral has one such place.
GridPlace FourSidedPlace(const Model &model, const Part &part, int corner) {
    const PlanPoint p = InPlane(part, model.at(corner));
    GridPlace at{corner, 0.5, 0.5};
    for (int round = 0; round < 30; ++round) {
        const double h = 1e-6;
        const auto place = [&](double u, double v) { return InPlane(part, Bilinear(model, part, u, v)); };
        const PlanPoint q = place(at.u, at.v), qu = place(at.u + h, at.v), qv = place(at.u, at.v + h);
        const double a = (qu.x - q.x) / h, b = (qv.x - q.x) / h, c = (qu.y - q.y) / h, d = (qv.y - q.y) / h;
        const double det = a * d - b * c, rx = p.x - q.x, ry = p.y - q.y;
        if (det == 0.0)
            break;
        at.u = std::clamp(at.u + (d * rx - b * ry) / det, -0.5, 1.5);
        at.v = std::clamp(at.v + (a * ry - c * rx) / det, -0.5, 1.5);
    }
    return at;
}

// On the nearest of the four sides, by the part of its length.
GridPlace PlaceOnSide(const Model &model, const Part &part, int corner) {
    const SpacePoint p = model.at(corner);
    GridPlace best{corner, 0.0, 0.0};
    double least = 1e30;
    for (int k = 0; k < 4; ++k) {
        const SpacePoint a = model.at(At(part.quad, k)), d = Minus(model.at(At(part.quad, (k + 1) % 4)), a);
        const double t = std::clamp(Dot(Minus(p, a), d) / Dot(d, d), 0.0, 1.0);
        const double off = SpaceDistance(p, {a.x + t * d.x, a.y + t * d.y, a.z + t * d.z});
        if (!(off < least))
            continue;
        least = off;
        const std::array<double, 4> us{t, 1.0, 1.0 - t, 0.0}, vs{0.0, t, 1.0, 1.0 - t};
        best = {corner, At(us, k), At(vs, k)};
    }
    return best;
}

GridPlace PlaceOnRim(const Model &model, const Part &part, int corner) {
    if (FourSided(part))
        return PlaceOnSide(model, part, corner);
    const PlanPoint at = InPlane(part, model.at(corner));
    return {corner, at.x, at.y};
}

GridPlace PlaceInside(const Model &model, const Part &part, int corner) {
    if (FourSided(part))
        return FourSidedPlace(model, part, corner);
    const PlanPoint at = InPlane(part, model.at(corner));
    return {corner, at.x, at.y};
}

// Values nearer than `same` are one line: the first of them.
std::vector<double> OneOfEach(std::vector<double> values, double same) {
    std::sort(values.begin(), values.end());
    std::vector<double> lines;
    for (const double v : values)
        if (lines.empty() || v - lines.back() > same)
            lines.push_back(v);
    return lines;
}

int LineOf(const std::vector<double> &lines, double value) {
    int best = 0;
    for (int k = 1; k < Count(lines); ++k)
        if (std::fabs(At(lines, k) - value) < std::fabs(At(lines, best) - value))
            best = k;
    return best;
}

class GridMaker {
public:
    GridMaker(Model &model, Part &part) : model_(model), part_(part), outline_(OutlineInPlane(model, part)) {
        for (int k = 0; k < 2 && FourSided(part); ++k) {
            const auto side = [&](int a) {
                return SpaceDistance(model.at(At(part.quad, a)), model.at(At(part.quad, (a + 1) % 4)));
            };
            At(same_, k) = kJoin / std::max(side(k), side(k + 2));
        }
    }

    // False when a line inside runs along no line of the grid.
    bool take(const std::vector<LineKey> &inner) {
        for (const int c : part_.loop)
            place_.push_back(PlaceOnRim(model_, part_, c));
        bool fits = true;
        for (const auto &[a, b] : inner) {
            const GridPlace pa = PlaceInside(model_, part_, a), pb = PlaceInside(model_, part_, b);
            const bool alongV = std::fabs(pa.u - pb.u) <= same_[0], alongU = std::fabs(pa.v - pb.v) <= same_[1];
            fits = fits && (alongU || alongV);
            if (alongU || alongV) {
                place_.push_back(pa);
                place_.push_back(pb);
            }
        }
        return fits;
    }

    void make() {
        std::vector<double> us, vs;
        for (const GridPlace &p : place_) {
            us.push_back(p.u);
            vs.push_back(p.v);
        }
        part_.U = OneOfEach(us, same_[0]);
        part_.V = OneOfEach(vs, same_[1]);
        const std::size_t n = part_.U.size(), m = part_.V.size();
        part_.in.assign(n - 1, std::vector<char>(m - 1, 1));
        part_.grid.assign(n, std::vector<int>(m, -1));
        if (!FourSided(part_))
            leaveOutOuterPatches();
        for (const GridPlace &p : place_)
            at(LineOf(part_.U, p.u), LineOf(part_.V, p.v)) = p.corner;
        for (int i = 0; i < Count(part_.U); ++i)
            for (int j = 0; j < Count(part_.V); ++j)
                if (at(i, j) < 0 && used(i, j))
                    at(i, j) = model_.corner.findOrAdd(position(i, j));
    }

private:
    int &at(int i, int j) { return At(At(part_.grid, i), j); }
    bool inside(int i, int j) const {
        return i >= 0 && j >= 0 && i < Count(part_.in) && j < Count(part_.in[0]) && At(At(part_.in, i), j) != 0;
    }
    bool used(int i, int j) const {
        return inside(i, j) || inside(i - 1, j) || inside(i, j - 1) || inside(i - 1, j - 1);
    }
    void leaveOutOuterPatches() {
        for (int i = 0; i < Count(part_.in); ++i)
            for (int j = 0; j < Count(part_.in[0]); ++j)
                At(At(part_.in, i), j) = Inside(outline_, {0.5 * (At(part_.U, i) + At(part_.U, i + 1)),
                                                           0.5 * (At(part_.V, j) + At(part_.V, j + 1))});
    }
    // A place on an edge by the grid's lines, exactly on it: edges are parallel as far as the tables' digits go only.
    PlanPoint ontoRim(PlanPoint p) const {
        for (int k = 0; k < Count(outline_); ++k) {
            const PlanPoint a = At(outline_, k), b = At(outline_, (k + 1) % Count(outline_)), q = NearestOn(a, b, p);
            if (PlanDistance(p, q) <= kJoin && PlanDistance(a, q) > kJoin && PlanDistance(b, q) > kJoin)
                return q;
        }
        return p;
    }
    SpacePoint position(int i, int j) const {
        const double u = At(part_.U, i), v = At(part_.V, j);
        return FourSided(part_) ? Bilinear(model_, part_, u, v) : InSpace(model_, part_, ontoRim({u, v}));
    }

    Model &model_;
    Part &part_;
    std::vector<PlanPoint> outline_;
    std::array<double, 2> same_{kJoin, kJoin}; // distance of lines that are one, in their own measure
    std::vector<GridPlace> place_;
};

// One round; the number of the first plate whose grid cannot hold an inner line, -1 for none.
int MakeRound(Model &model) {
    std::vector<Box> boxes;
    for (Part &part : model.part) {
        MakeLoop(model, part);
        boxes.push_back(BoxOf(model, part));
    }
    for (int p = 0; p < Count(model.part); ++p) {
        Part &part = At(model.part, p);
        const std::vector<LineKey> inner = InnerLines(model, part, boxes);
        if (part.shape == Shape::Free) {
            part.inner = inner;
            continue;
        }
        GridMaker maker(model, part);
        if (!maker.take(inner) && part.plate)
            return p;
        maker.make();
    }
    return -1;
}

// The first plate whose grid has patches too thin for it, -1 for none. A plain rectangle stays what it is.
int ThinPlate(const Model &model, double width) {
    const auto thin = [width](const std::vector<double> &lines, double length) {
        for (int k = 0; k + 1 < Count(lines); ++k)
            if (lines.size() > 2 && (At(lines, k + 1) - At(lines, k)) * length < kThin * width)
                return true;
        return false;
    };
    for (int p = 0; p < Count(model.part); ++p) {
        const Part &part = At(model.part, p);
        if (!part.plate || part.shape != Shape::Grid)
            continue;
        const auto side = [&](int a, int b) {
            return FourSided(part) ? SpaceDistance(model.at(At(part.quad, a)), model.at(At(part.quad, b))) : 1.0;
        };
        if (thin(part.U, side(0, 1)) || thin(part.V, side(1, 2)))
            return p;
    }
    return -1;
}

void MakeFree(Part &part) {
    part.shape = Shape::Free;
    part.quad.fill(-1);
    part.ex = {1, 0, 0};
    part.ey = {0, 1, 0};
}

} // namespace

void AgreeLines(Model &model, const Wish &wish) {
    AddCrossings(model);
    Model start = model;
    for (;;) {
        model = start;
        int refused = -1, before = 0;
        do {
            before = model.corner.count();
            refused = MakeRound(model);
            if (model.corner.count() > kCornerCapacity)
                throw TooFine();
        } while (refused < 0 && model.corner.count() != before);
        if (refused < 0)
            refused = ThinPlate(model, wish.width);
        if (refused < 0)
            return;
        MakeFree(At(start.part, refused));
    }
}

} // namespace havuz::sound
