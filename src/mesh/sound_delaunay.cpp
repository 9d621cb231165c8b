#include "mesh/sound_delaunay.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace havuz::sound {

namespace {

__extension__ typedef __int128 Wide;

constexpr double kGridSize = 1 << 25; // grid steps from the middle to the border of the outline's box

template <class T>
auto &At(T &v, int k) {
    return v[static_cast<std::size_t>(k)];
}

int PlaceOf(const std::array<int, 3> &three, int one) {
    for (int k = 0; k < 3; ++k)
        if (At(three, k) == one)
            return k;
    return -1;
}

} // namespace

Delaunay::Delaunay(PlanPoint low, PlanPoint high) : middle_{0.5 * (low.x + high.x), 0.5 * (low.y + high.y)} {
    const double half = 0.5 * std::max({high.x - low.x, high.y - low.y, 1e-6});
    scale_ = kGridSize / half;
    const double far = 3.0 * half;
    for (const PlanPoint p :
         {PlanPoint{middle_.x - 2.0 * far, middle_.y - far}, PlanPoint{middle_.x + 2.0 * far, middle_.y - far},
          PlanPoint{middle_.x, middle_.y + 2.0 * far}}) {
        place_.push_back(p);
        grid_.push_back(onGrid(p));
    }
    touching_.assign(3, 0);
    Triangle all;
    all.corner = {0, 1, 2};
    triangle_.push_back(all);
}

Delaunay::GridPoint Delaunay::onGrid(PlanPoint p) const {
    return {std::llround((p.x - middle_.x) * scale_), std::llround((p.y - middle_.y) * scale_)};
}

int Delaunay::turn(int a, int b, int c) const { return turn(At(grid_, a), At(grid_, b), At(grid_, c)); }

int Delaunay::turn(GridPoint p, GridPoint q, GridPoint r) const {
    const Wide twice = static_cast<Wide>(q.x - p.x) * (r.y - p.y) - static_cast<Wide>(q.y - p.y) * (r.x - p.x);
    return twice > 0 ? 1 : twice < 0 ? -1 : 0;
}

// Whether d lies within the circle through a, b, c, which turn counter-clockwise.
bool Delaunay::inCircle(int a, int b, int c, int d) const {
    const GridPoint o = At(grid_, d);
    const auto row = [&](int corner) {
        const GridPoint p = At(grid_, corner);
        const Wide x = p.x - o.x, y = p.y - o.y;
        return std::array<Wide, 3>{x, y, x * x + y * y};
    };
    const auto p = row(a), q = row(b), r = row(c);
    return p[2] * (q[0] * r[1] - q[1] * r[0]) - q[2] * (p[0] * r[1] - p[1] * r[0]) +
               r[2] * (p[0] * q[1] - p[1] * q[0]) >
           0;
}

int Delaunay::edgeOf(int t, int beside) const { return PlaceOf(tri(t).beside, beside); }

int Delaunay::cornerOf(int t, int corner) const { return PlaceOf(tri(t).corner, corner); }

int Delaunay::put(const Triangle &t) {
    triangle_.push_back(t);
    const int no = static_cast<int>(triangle_.size()) - 1;
    for (const int c : t.corner)
        At(touching_, c) = no;
    return no;
}

// The triangle that holds the corner, and the edge on which it lies, -1 for none; -2 for a place that is taken. The
// walk goes on over the edge that has the place on its other side; it ends because a long one is given up for a search
// through all.
int Delaunay::locate(GridPoint at, int &edge) const {
    const auto standsIn = [&](int t) {
        edge = -1;
        int zeros = 0;
        for (int k = 0; k < 3; ++k) {
            const int side =
                turn(At(grid_, At(tri(t).corner, (k + 1) % 3)), At(grid_, At(tri(t).corner, (k + 2) % 3)), at);
            if (side < 0)
                return k;
            if (side == 0) {
                edge = k;
                ++zeros;
            }
        }
        if (zeros == 2)
            edge = -2;
        return -1;
    };
    int t = last_;
    for (int steps = 0; steps < 1000; ++steps) {
        const int out = standsIn(t);
        if (out < 0)
            return last_ = t;
        const int next = At(tri(t).beside, out);
        if (next < 0)
            break;
        t = next;
    }
    for (t = 0; t < static_cast<int>(triangle_.size()); ++t)
        if (standsIn(t) < 0)
            return last_ = t;
    edge = -2;
    return -1;
}

void Delaunay::link(int t, int edge, int other, int corner) {
    At(tri(t).beside, edge) = other;
    if (other >= 0)
        At(tri(other).beside, corner) = t;
}

void Delaunay::relink(int outside, int from, int to) {
    if (outside >= 0)
        At(tri(outside).beside, edgeOf(outside, from)) = to;
}

void Delaunay::splitTriangle(int t, int corner) {
    const Triangle old = tri(t);
    const int first = static_cast<int>(triangle_.size());
    const std::array<int, 3> part{t, first, first + 1};
    for (int k = 0; k < 3; ++k) { // part k keeps edge k
        Triangle piece = old;
        At(piece.corner, k) = corner;
        At(piece.beside, (k + 1) % 3) = At(part, (k + 1) % 3);
        At(piece.beside, (k + 2) % 3) = At(part, (k + 2) % 3);
        At(piece.fixed, (k + 1) % 3) = At(piece.fixed, (k + 2) % 3) = 0;
        if (k == 0)
            tri(t) = piece;
        else
            put(piece);
        relink(At(old.beside, k), t, At(part, k));
    }
    for (const int c : old.corner)
        At(touching_, c) = cornerOf(t, c) >= 0 ? t : cornerOf(first, c) >= 0 ? first : first + 1;
    At(touching_, corner) = t;
    legalize({{part[0], 0}, {part[1], 1}, {part[2], 2}});
}

// Cuts t from its corner opposite the edge to a new corner on the edge. t gives up the corner `stays` places on and
// keeps the other one; the new triangle the other way round.
int Delaunay::halve(int t, int edge, int corner, int stays) {
    const Triangle old = tri(t);
    const int given = (edge + stays) % 3, kept = (edge + 3 - stays) % 3;
    Triangle own = old, other = old;
    At(own.corner, given) = At(other.corner, kept) = corner;
    At(own.fixed, kept) = At(other.fixed, given) = 0;
    tri(t) = own;
    const int v = put(other);
    relink(At(old.beside, kept), t, v);
    link(t, kept, v, given);
    return v;
}

// The two triangles at an edge become four.
void Delaunay::splitEdge(int t, int edge, int corner) {
    const int u = At(tri(t).beside, edge);
    const Triangle a = tri(t), b = u >= 0 ? tri(u) : Triangle{};
    const int p = At(a.corner, edge), q = At(a.corner, (edge + 1) % 3), r = At(a.corner, (edge + 2) % 3);
    const int v = halve(t, edge, corner, 2);
    std::vector<std::pair<int, int>> open{{t, (edge + 2) % 3}, {v, (edge + 1) % 3}};
    if (u >= 0) {
        const int e = PlaceOf(b.beside, t);
        const int w = halve(u, e, corner, 1); // around b: its corner e, then r, then q
        link(t, edge, u, e);
        link(v, edge, w, e);
        open.emplace_back(u, (e + 1) % 3);
        open.emplace_back(w, (e + 2) % 3);
        At(touching_, At(b.corner, e)) = u;
    }
    At(touching_, p) = t;
    At(touching_, q) = t;
    At(touching_, r) = v;
    At(touching_, corner) = t;
    legalize(std::move(open));
}

// The diagonal opposite to corner `edge` of t becomes the other diagonal of the two triangles there.
void Delaunay::exchange(int t, int edge) {
    const int u = At(tri(t).beside, edge), e = edgeOf(u, t);
    const Triangle a = tri(t), b = tri(u);
    const int p = At(a.corner, edge), q = At(a.corner, (edge + 1) % 3), r = At(a.corner, (edge + 2) % 3),
              s = At(b.corner, e);
    Triangle one = a, two = b;
    one.corner = {p, q, s};
    two.corner = {s, r, p};
    one.beside = {At(b.beside, (e + 1) % 3), u, At(a.beside, (edge + 2) % 3)};
    one.fixed = {At(b.fixed, (e + 1) % 3), 0, At(a.fixed, (edge + 2) % 3)};
    two.beside = {At(a.beside, (edge + 1) % 3), t, At(b.beside, (e + 2) % 3)};
    two.fixed = {At(a.fixed, (edge + 1) % 3), 0, At(b.fixed, (e + 2) % 3)};
    tri(t) = one;
    tri(u) = two;
    relink(one.beside[0], u, t);
    relink(two.beside[0], t, u);
    At(touching_, p) = At(touching_, q) = At(touching_, s) = t;
    At(touching_, r) = u;
}

// Exchanges diagonals, from the edges given on, until each fits the circle rule. Each exchange lowers the surface of
// the paraboloid over the triangles (Lawson), so it ends; corners on one circle are left alone.
void Delaunay::legalize(std::vector<std::pair<int, int>> open) {
    while (!open.empty()) {
        const auto [t, edge] = open.back();
        open.pop_back();
        const int u = At(tri(t).beside, edge);
        if (u < 0 || At(tri(t).fixed, edge) != 0)
            continue;
        const int s = At(tri(u).corner, edgeOf(u, t));
        const int p = At(tri(t).corner, edge), q = At(tri(t).corner, (edge + 1) % 3),
                  r = At(tri(t).corner, (edge + 2) % 3);
        if (!inCircle(p, q, r, s) || turn(p, q, s) <= 0 || turn(s, r, p) <= 0)
            continue;
        exchange(t, edge);
        for (int k = 0; k < 3; ++k) {
            open.emplace_back(t, k);
            open.emplace_back(u, k);
        }
    }
}

int Delaunay::holding(PlanPoint at) const {
    int edge = -1;
    return locate(onGrid(at), edge);
}

int Delaunay::insert(PlanPoint at) {
    place_.push_back(at);
    grid_.push_back(onGrid(at));
    touching_.push_back(0);
    const int corner = corners() - 1;
    int edge = -1;
    const int t = locate(grid_.back(), edge);
    const bool refused =
        t < 0 || edge == -2 || (insideOnly_ && tri(t).inside == 0) || (edge >= 0 && (At(tri(t).fixed, edge) != 0));
    if (refused) {
        place_.pop_back();
        grid_.pop_back();
        touching_.pop_back();
        return -1;
    }
    if (edge >= 0)
        splitEdge(t, edge, corner);
    else
        splitTriangle(t, corner);
    return corner;
}

// The triangle at a through which the line to b leaves, and its edge opposite to a; edge -1 when the line is an edge
// already (then t has it opposite to `other`), t -1 when a corner lies on it.
Delaunay::Leaving Delaunay::leaving(int a, int b) const {
    int t = At(touching_, a);
    const int first = t;
    do {
        const int k = cornerOf(t, a), q = At(tri(t).corner, (k + 1) % 3), r = At(tri(t).corner, (k + 2) % 3);
        if (q == b || r == b)
            return {t, -1, q == b ? (k + 2) % 3 : (k + 1) % 3};
        if (turn(a, b, q) < 0 && turn(a, b, r) > 0 && turn(a, q, b) > 0)
            return {t, k, -1};
        t = At(tri(t).beside, (k + 1) % 3); // around a, counter-clockwise
    } while (t >= 0 && t != first);
    return {-1, -1, -1};
}

// Diagonals that the line from a to b crosses and that can be exchanged; those that leave the line come first.
std::vector<std::pair<int, int>> Delaunay::exchangeable(int a, int b, Leaving from) const {
    std::vector<std::pair<int, int>> clear, others;
    for (int t = from.t, edge = from.edge;;) {
        const int u = At(tri(t).beside, edge);
        if (u < 0 || At(tri(t).fixed, edge) != 0)
            return {};
        const int p = At(tri(t).corner, edge), q = At(tri(t).corner, (edge + 1) % 3),
                  r = At(tri(t).corner, (edge + 2) % 3), s = At(tri(u).corner, edgeOf(u, t));
        const int side = s == b ? 0 : turn(a, b, s);
        if (turn(p, q, s) > 0 && turn(s, r, p) > 0)
            (p == a || s == b || turn(a, b, p) == side ? clear : others).emplace_back(t, edge);
        if (s == b)
            break;
        if (side == 0)
            return {};
        edge = cornerOf(u, side > 0 ? r : q); // the line leaves u between s and the corner on its other side
        t = u;
    }
    clear.insert(clear.end(), others.begin(), others.end());
    return clear;
}

// Rounds are bounded: the lines of an outline are edges already or miss by a few exchanges.
bool Delaunay::fix(int a, int b) {
    for (std::size_t round = 0; round < 10000; ++round) {
        const Leaving from = leaving(a, b);
        if (from.t < 0)
            return false;
        if (from.edge < 0) {
            At(tri(from.t).fixed, from.other) = 1;
            const int u = At(tri(from.t).beside, from.other);
            At(tri(u).fixed, edgeOf(u, from.t)) = 1;
            return true;
        }
        const auto diagonals = exchangeable(a, b, from);
        if (diagonals.empty())
            return false;
        const auto [t, edge] = diagonals[round < 50 ? 0 : round % diagonals.size()];
        exchange(t, edge);
    }
    return false;
}

void Delaunay::markInside() {
    for (Triangle &t : triangle_)
        t.inside = 1;
    std::vector<int> open;
    for (int t = 0; t < static_cast<int>(triangle_.size()); ++t)
        if (tri(t).corner[0] < 3 || tri(t).corner[1] < 3 || tri(t).corner[2] < 3) {
            tri(t).inside = 0;
            open.push_back(t);
        }
    while (!open.empty()) {
        const int t = open.back();
        open.pop_back();
        for (int k = 0; k < 3; ++k) {
            const int u = At(tri(t).beside, k);
            if (u >= 0 && At(tri(t).fixed, k) == 0 && tri(u).inside != 0) {
                tri(u).inside = 0;
                open.push_back(u);
            }
        }
    }
    insideOnly_ = true;
    std::vector<std::pair<int, int>> edges;
    for (int t = 0; t < static_cast<int>(triangle_.size()); ++t)
        for (int k = 0; k < 3; ++k)
            edges.emplace_back(t, k);
    legalize(std::move(edges));
}

} // namespace havuz::sound
