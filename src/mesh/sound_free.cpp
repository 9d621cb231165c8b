// Sound mesh: quadrilaterals over any outline. Ends of pairs are triangulated (sound_delaunay.h); inner corners come on
// a square lattice along the longest edge, then where triangles are too large or too sharp; triangles are paired to
// quadrilaterals; one halving of all sides makes four meshes of a quadrilateral and three of a triangle, so that what
// triangles are left over do no harm and everything fits. Lengths in m, pairs are twice a mesh long.
//   Chew 1989, Ruppert 1995, Uengoer 2009 (where corners are put); Catmull and Clark's halving.
// It ends: a corner is only put where no other one is nearer than a part of the local length, and the area is finite.
#include "mesh/sound_delaunay.h"
#include "mesh/sound_work.h"

#include <cmath>
#include <numeric>

namespace havuz::sound {

namespace {

constexpr double kGrowth = 0.55;     // of the length of pairs by the distance from the rim
constexpr double kLatticeRim = 0.6;  // of the local length: how near to the rim lattice corners may stand
constexpr double kStraight = 0.05;   // sine of a turn that is none
constexpr double kApart = 0.8;       // of the local length: lattice and first layer
constexpr double kNearest = 0.62;    // of the local length: how near to each other corners may be put
constexpr double kNearestRim = 0.45; // of the local length: how near to fixed edges
constexpr double kLarge = 0.80;      // of the local length: a greater circle is too large
constexpr double kSharpRatio = 0.92; // circle to shortest side: above, the least angle is below 33 degrees
constexpr double kLeastPair = 0.5;   // sine of the sharpest corner of a pair of triangles
constexpr double kPi = 3.14159265358979323846;

struct Circle {
    PlanPoint middle;
    double radius = 0.0;
};

Circle CircleThrough(PlanPoint a, PlanPoint b, PlanPoint c) {
    const double bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y, d = 2.0 * (bx * cy - by * cx);
    if (d == 0.0)
        return {a, 1e30};
    const double b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
    const double x = (cy * b2 - by * c2) / d, y = (bx * c2 - cx * b2) / d;
    return {{a.x + x, a.y + y}, std::sqrt(x * x + y * y)};
}

double SegmentDistance(PlanPoint p, PlanPoint a, PlanPoint b) { return PlanDistance(p, NearestOn(a, b, p)); }

class FreeMesher {
public:
    explicit FreeMesher(const FlatTask &task) : task_(task), triangles_(boxLow(task), boxHigh(task)) {}

    FlatMesh make() {
        if (!triangulate())
            return {};
        putRimLayer();
        putLattice();
        refine();
        pairTriangles();
        return halve();
    }

private:
    struct RimPair {
        PlanPoint a, b;
        double length = 0.0;
    };

    static PlanPoint boxLow(const FlatTask &task) {
        PlanPoint low{1e30, 1e30};
        for (const PlanPoint p : task.node)
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        return low;
    }
    static PlanPoint boxHigh(const FlatTask &task) {
        PlanPoint high{-1e30, -1e30};
        for (const PlanPoint p : task.node)
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        return high;
    }

    // Ends of pairs as corners, pairs as fixed edges; false when one of them cannot be.
    bool triangulate() {
        std::map<int, int> corner; // of a node
        nodeOf_.assign(3, -1);
        const auto take = [&](int node) {
            const auto [found, fresh] = corner.emplace(node, -1);
            if (fresh) {
                found->second = triangles_.insert(At(task_.node, node));
                nodeOf_.push_back(node);
            }
            return found->second;
        };
        std::vector<std::array<int, 2>> edges;
        for (const auto &[a, middle, b] : task_.pair) {
            edges.push_back({take(a), take(b)});
            rim_.push_back({At(task_.node, a), At(task_.node, b), PlanDistance(At(task_.node, a), At(task_.node, b))});
            middle_[KeyOf(edges.back()[0], edges.back()[1])] = middle;
        }
        for (const auto &[a, b] : edges)
            if (a < 0 || b < 0 || !triangles_.fix(a, b))
                return false;
        triangles_.markInside();
        return true;
    }

    // Length of pairs at a place: twice the width, less beside short pairs of the rim. Looked up again and again for
    // nearby places, so the pairs that can matter are kept sorted by length.
    double lengthAt(PlanPoint p) const {
        double least = 2.0 * task_.width;
        for (const RimPair &pair : rim_)
            if (pair.length < least)
                least = std::min(least, pair.length + kGrowth * SegmentDistance(p, pair.a, pair.b));
        return least;
    }
    double rimDistance(PlanPoint p, double enough) const {
        double least = enough;
        for (const RimPair &pair : rim_)
            if (std::fabs(0.5 * (pair.a.x + pair.b.x) - p.x) < least + 0.5 * pair.length &&
                std::fabs(0.5 * (pair.a.y + pair.b.y) - p.y) < least + 0.5 * pair.length)
                least = std::min(least, SegmentDistance(p, pair.a, pair.b));
        return least;
    }

    void put(PlanPoint p) {
        if (triangles_.insert(p) < 0)
            return;
        nodeOf_.push_back(-1);
        if (triangles_.corners() > kNoktaCapacity)
            throw TooFine();
    }

    // Along straight stretches of the rim one pair of even rows: the ends of two pairs moved in by their length. The
    // foot of a wall then stands on regular meshes, and its moments are even.
    void putRimLayer() {
        for (int k = 0; k < task_.rimPairs; ++k) {
            const RimPair &one = At(rim_, k), &next = At(rim_, (k + 1) % task_.rimPairs);
            const double sine = Twice(one.a, one.b, next.b) / (one.length * next.length);
            if (std::fabs(sine) > kStraight || PlanDistance(one.b, next.a) > kOnePlace)
                continue;
            const double length = 0.5 * (one.length + next.length), chord = PlanDistance(one.a, next.b);
            const PlanPoint p{one.b.x - length * (next.b.y - one.a.y) / chord,
                              one.b.y + length * (next.b.x - one.a.x) / chord};
            const bool crowded = rimDistance(p, length) < 0.95 * length || lengthAt(p) < 0.8 * length ||
                                 layerDistance(p) < kApart * length;
            if (!crowded && triangles_.holding(p) >= 0) {
                put(p);
                layer_.push_back(p);
            }
        }
    }
    double layerDistance(PlanPoint p) const {
        double least = 1e30;
        for (const PlanPoint q : layer_)
            least = std::min(least, PlanDistance(p, q));
        return least;
    }

    // A square lattice where full length is allowed, in whole steps from the outline's box along its longest edge.
    void putLattice() {
        const PlanPoint ex = task_.along, ey{-ex.y, ex.x};
        const double step = 2.0 * task_.width;
        double low[2] = {1e30, 1e30}, high[2] = {-1e30, -1e30};
        for (const RimPair &pair : rim_) {
            const double along[2] = {pair.a.x * ex.x + pair.a.y * ex.y, pair.a.x * ey.x + pair.a.y * ey.y};
            for (int k = 0; k < 2; ++k) {
                low[k] = std::min(low[k], along[k]);
                high[k] = std::max(high[k], along[k]);
            }
        }
        const double fit[2] = {fitted(high[0] - low[0], step), fitted(high[1] - low[1], step)};
        const double n[2] = {(high[0] - low[0]) / fit[0], (high[1] - low[1]) / fit[1]};
        if (n[0] * n[1] > 50.0 * kNoktaCapacity)
            throw TooFine();
        for (int i = 1; i < n[0]; ++i)
            for (int j = 1; j < n[1]; ++j) {
                const double u = low[0] + i * fit[0], v = low[1] + j * fit[1];
                const PlanPoint p{u * ex.x + v * ey.x, u * ex.y + v * ey.y};
                if (lengthAt(p) > 0.85 * step && rimDistance(p, step) > kLatticeRim * step &&
                    layerDistance(p) > kApart * step)
                    put(p);
            }
    }
    static double fitted(double length, double step) { return length / std::max(1.0, std::ceil(length / step - 0.3)); }

    PlanPoint corner(const Triangle &t, int k) const { return triangles_.place(At(t.corner, k)); }

    // Where a corner would better the triangle; false when it is good, or nothing may be put there.
    bool wanted(const Triangle &t, PlanPoint &at) const {
        const Circle circle = CircleThrough(corner(t, 0), corner(t, 1), corner(t, 2));
        int shortest = 0;
        const auto side = [&](int k) { return PlanDistance(corner(t, (k + 1) % 3), corner(t, (k + 2) % 3)); };
        for (int k = 1; k < 3; ++k)
            if (side(k) < side(shortest))
                shortest = k;
        const PlanPoint q = corner(t, (shortest + 1) % 3), r = corner(t, (shortest + 2) % 3), middle = Along(q, r, 0.5);
        const PlanPoint heart{(corner(t, 0).x + corner(t, 1).x + corner(t, 2).x) / 3.0,
                              (corner(t, 0).y + corner(t, 1).y + corner(t, 2).y) / 3.0};
        const double length = lengthAt(heart);
        const bool large = circle.radius > kLarge * length, sharp = circle.radius > kSharpRatio * side(shortest);
        if (!large && !sharp)
            return false;
        // No farther along the perpendicular of the shortest side than makes a triangle of 40 degrees there.
        const double out = PlanDistance(middle, circle.middle),
                     most = std::max(0.5 * side(shortest) / std::tan(20.0 * kPi / 180.0), 0.0);
        at = sharp && out > most ? Along(middle, circle.middle, most / out) : circle.middle;
        return true;
    }

    bool free(PlanPoint p, const Triangle &t) const {
        const double length = lengthAt(p);
        for (int k = 0; k < 3; ++k)
            if (PlanDistance(p, corner(t, k)) < kNearest * length)
                return false;
        return rimDistance(p, length) > kNearestRim * length;
    }

    // A place that lies in no inside triangle, or too near to the corners of the one it lies in, is given up.
    bool tryPut(PlanPoint p) {
        const auto &all = triangles_.triangles();
        const int at = triangles_.holding(p);
        if (at < 0 || all[static_cast<std::size_t>(at)].inside == 0 || !free(p, all[static_cast<std::size_t>(at)]))
            return false;
        for (const int beside : all[static_cast<std::size_t>(at)].beside)
            if (beside >= 0 && all[static_cast<std::size_t>(beside)].inside != 0 &&
                !free(p, all[static_cast<std::size_t>(beside)]))
                return false;
        put(p);
        return true;
    }

    void refine() {
        bool any = true;
        while (any) {
            any = false;
            for (std::size_t t = 0; t < triangles_.triangles().size(); ++t) {
                const Triangle triangle = triangles_.triangles()[t];
                PlanPoint at;
                if (triangle.inside != 0 && wanted(triangle, at))
                    any = tryPut(at) || any;
            }
        }
    }

    // The least sine of the corners of two triangles put together, below 0 for a re-entrant corner.
    double pairWorth(const Triangle &t, int k, const Triangle &u) const {
        const int other = [&] {
            for (int l = 0; l < 3; ++l)
                if (At(u.corner, l) != At(t.corner, (k + 1) % 3) && At(u.corner, l) != At(t.corner, (k + 2) % 3))
                    return l;
            return 0;
        }();
        const std::array<PlanPoint, 4> q{corner(t, k), corner(t, (k + 1) % 3), corner(u, other),
                                         corner(t, (k + 2) % 3)};
        double least = 1.0;
        for (int c = 0; c < 4; ++c) {
            const PlanPoint a = At(q, (c + 3) % 4), b = At(q, c), d = At(q, (c + 1) % 4);
            least = std::min(least, Twice(b, d, a) / (PlanDistance(a, b) * PlanDistance(b, d)));
        }
        return least;
    }

    // The best pairs first; then chains of three triangles in which a lone one finds its mate.
    void pairTriangles() {
        const auto &all = triangles_.triangles();
        struct Pair {
            double worth;
            int t, k;
        };
        std::vector<Pair> pairs;
        for (int t = 0; t < Count(all); ++t)
            for (int k = 0; k < 3; ++k)
                if (const int u = At(At(all, t).beside, k);
                    u > t && At(all, t).inside != 0 && At(all, u).inside != 0 && At(At(all, t).fixed, k) == 0)
                    if (const double worth = pairWorth(At(all, t), k, At(all, u)); worth > kLeastPair)
                        pairs.push_back({worth, t, k});
        std::stable_sort(pairs.begin(), pairs.end(), [](const Pair &a, const Pair &b) { return a.worth > b.worth; });
        mate_.assign(all.size(), -1);
        for (const Pair &pair : pairs) {
            const int u = At(At(all, pair.t).beside, pair.k);
            if (At(mate_, pair.t) < 0 && At(mate_, u) < 0) {
                At(mate_, pair.t) = u;
                At(mate_, u) = pair.t;
            }
        }
    }

    int middleOf(FlatMesh &mesh, int a, int b) {
        const auto [found, fresh] = middle_.emplace(KeyOf(a, b), Count(mesh.node));
        if (fresh)
            mesh.node.push_back(Along(triangles_.place(a), triangles_.place(b), 0.5));
        return found->second;
    }
    int cornerNode(FlatMesh &mesh, int corner) {
        int &node = At(nodeOf_, corner);
        if (node < 0) {
            node = Count(mesh.node);
            mesh.node.push_back(triangles_.place(corner));
        }
        return node;
    }
    void halvePolygon(FlatMesh &mesh, const std::vector<int> &corners) {
        const int n = Count(corners);
        PlanPoint heart;
        std::vector<int> side, node;
        for (int k = 0; k < n; ++k) {
            node.push_back(cornerNode(mesh, At(corners, k)));
            side.push_back(middleOf(mesh, At(corners, k), At(corners, (k + 1) % n)));
            heart.x += triangles_.place(At(corners, k)).x / n;
            heart.y += triangles_.place(At(corners, k)).y / n;
        }
        const int middle = Count(mesh.node);
        mesh.node.push_back(heart);
        for (int k = 0; k < n; ++k)
            mesh.quad.push_back({At(node, k), At(side, k), middle, At(side, (k + n - 1) % n)});
    }

    FlatMesh halve() {
        FlatMesh mesh;
        mesh.node = task_.node;
        mesh.fixed = Count(task_.node);
        const auto &all = triangles_.triangles();
        for (int t = 0; t < Count(all); ++t) {
            const Triangle &one = At(all, t);
            if (one.inside == 0 || (At(mate_, t) >= 0 && At(mate_, t) < t))
                continue;
            std::vector<int> corners(one.corner.begin(), one.corner.end());
            if (const int u = At(mate_, t); u >= 0) {
                int k = 0;
                while (At(one.beside, k) != u)
                    ++k;
                for (const int c : At(all, u).corner)
                    if (c != At(one.corner, (k + 1) % 3) && c != At(one.corner, (k + 2) % 3))
                        corners.insert(corners.begin() + (k + 1) % 3 + 1, c); // between the two that they share
            }
            halvePolygon(mesh, corners);
        }
        return mesh;
    }

    const FlatTask &task_;
    Delaunay triangles_;
    std::vector<RimPair> rim_;
    std::vector<PlanPoint> layer_;  // beside the rim
    std::vector<int> nodeOf_;       // of a corner, -1 for a new one
    std::map<LineKey, int> middle_; // of an edge between two corners
    std::vector<int> mate_;
};

} // namespace

FlatMesh MeshFlat(const FlatTask &task) {
    FlatMesh mesh = FreeMesher(task).make();
    Smooth(mesh);
    return mesh;
}

} // namespace havuz::sound
