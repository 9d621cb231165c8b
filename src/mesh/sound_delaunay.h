// Sound mesh: a Delaunay triangulation with fixed edges. Its decisions are exact: places are rounded to a grid of whole
// numbers over the outline, about 1.5e-8 of its size, and the determinants are formed in 128 bits. Lengths in m.
//   Lawson 1977 (insertion and exchange of diagonals), Sloan 1993 (fixed edges by exchanges).
#pragma once

#include "mesh/plane_geometry.h"

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace havuz::sound {

// Corners counter-clockwise; edge k lies opposite to corner k.
struct Triangle {
    std::array<int, 3> corner{};
    std::array<int, 3> beside{-1, -1, -1};
    std::array<char, 3> fixed{};
    char inside = 0;
};

class Delaunay {
public:
    // Corners 0 to 2 are those of a triangle around everything between low and high.
    Delaunay(PlanPoint low, PlanPoint high);
    // The new corner; -1 when one stands there already or the place lies on a fixed edge or outside.
    int insert(PlanPoint at);
    // The triangle in which a place lies, -1 for none.
    int holding(PlanPoint at) const;
    // Exchanges diagonals until a-b is an edge, and fixes it. False when it meets another fixed edge or corner.
    bool fix(int a, int b);
    // Marks the triangles that fixed edges separate from the surroundings; later corners are taken inside only.
    void markInside();
    const std::vector<Triangle> &triangles() const { return triangle_; }
    PlanPoint place(int corner) const { return place_[static_cast<std::size_t>(corner)]; }
    int corners() const { return static_cast<int>(place_.size()); }

private:
    using Whole = std::int64_t;
    struct GridPoint {
        Whole x = 0, y = 0;
    };
    GridPoint onGrid(PlanPoint p) const;
    int turn(int a, int b, int c) const; // +1 counter-clockwise, -1 clockwise, 0 on one line
    bool inCircle(int a, int b, int c, int d) const;
    int locate(GridPoint at, int &edge) const;
    int turn(GridPoint p, GridPoint q, GridPoint r) const;
    void splitTriangle(int t, int corner);
    int halve(int t, int edge, int corner, int stays);
    void splitEdge(int t, int edge, int corner);
    void link(int t, int edge, int other, int corner);
    void relink(int outside, int from, int to);
    void exchange(int t, int edge);
    void legalize(std::vector<std::pair<int, int>> open);
    int edgeOf(int t, int beside) const;
    int cornerOf(int t, int corner) const;
    struct Leaving {
        int t = -1, edge = -1, other = -1;
    };
    Leaving leaving(int a, int b) const;
    std::vector<std::pair<int, int>> exchangeable(int a, int b, Leaving from) const;
    int put(const Triangle &t);
    Triangle &tri(int t) { return triangle_[static_cast<std::size_t>(t)]; }
    const Triangle &tri(int t) const { return triangle_[static_cast<std::size_t>(t)]; }

    PlanPoint middle_;
    double scale_ = 1.0;
    bool insideOnly_ = false;
    std::vector<PlanPoint> place_;
    std::vector<GridPoint> grid_;
    std::vector<Triangle> triangle_;
    std::vector<int> touching_; // a triangle at each corner
    mutable int last_ = 0;      // where the last search ended
};

} // namespace havuz::sound
