// What the sound_ files share: the parts of a model as outlines over common corners, the lines between corners with
// their divisions, and the mesh in the making. Lengths in m, doubles throughout. Only the sound_ files use it.
#pragma once

#include "mesh/plane_geometry.h"
#include "mesh/sound_mesh.h"
#include "mesh/space_point.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace havuz::sound {

constexpr double kJoin = 0.01;       // corners nearer than this are one, as the mesh report has it
constexpr double kOnePlace = 0.001;  // nodes nearer than this are one
constexpr double kLongestSide = 3.0; // of a floor mesh, in widths

struct Wish {
    double width = 1.0;
    bool ownDivisions = true;              // panels keep Nx, Ny
    std::map<int, std::array<int, 2>> own; // these, by panel
    double foot = 0.0;                     // height of the first row at wall feet and corners, 0 for none
};

// More nodes or meshes than the tables hold.
struct TooFine : std::runtime_error {
    TooFine() : std::runtime_error("too fine") {}
};

template <class T>
int Count(const std::vector<T> &v) {
    return static_cast<int>(v.size());
}
template <class T>
T &At(std::vector<T> &v, int k) {
    return v[static_cast<std::size_t>(k)];
}
template <class T>
const T &At(const std::vector<T> &v, int k) {
    return v[static_cast<std::size_t>(k)];
}
template <class T, std::size_t n>
T &At(std::array<T, n> &v, int k) {
    return v[static_cast<std::size_t>(k)];
}
template <class T, std::size_t n>
const T &At(const std::array<T, n> &v, int k) {
    return v[static_cast<std::size_t>(k)];
}

inline PlanPoint Along(PlanPoint a, PlanPoint b, double t) { return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; }
// Twice the signed area of a triangle in its plane, positive counter-clockwise.
inline double Twice(PlanPoint a, PlanPoint b, PlanPoint c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}
// The place of the segment from a to b that is nearest to p.
inline PlanPoint NearestOn(PlanPoint a, PlanPoint b, PlanPoint p) {
    const double dx = b.x - a.x, dy = b.y - a.y, length2 = dx * dx + dy * dy;
    return Along(a, b, length2 > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length2, 0.0, 1.0) : 0.0);
}
inline SpacePoint Unit(SpacePoint a) {
    const double length = Length(a);
    return length > 0.0 ? SpacePoint{a.x / length, a.y / length, a.z / length} : a;
}

// Points in space, found again within a distance.
class Places {
public:
    explicit Places(double reach) : reach_(reach) {}
    int find(SpacePoint at) const; // the nearest within reach, -1 for none
    int findOrAdd(SpacePoint at);
    SpacePoint at(int k) const { return At(point_, k); }
    int count() const { return Count(point_); }

private:
    using Cell = std::array<long long, 3>;
    Cell cellOf(SpacePoint at) const;
    double reach_;
    std::vector<SpacePoint> point_;
    std::map<Cell, std::vector<int>> cell_;
};

// Nodes by number from 0, no two within kOnePlace; quadrilaterals with their owner as in MeshRecord.PanelNo.
struct Quad {
    std::array<int, 4> node{};
    int owner = 0;
};
struct Mesh {
    Places node{kOnePlace};
    std::vector<Quad> quad;
    int circleColumns = 0, circleRows = 0;            // of a circular pool's wall
    int add(SpacePoint at);                           // TooFine past the tables
    void addQuad(std::array<int, 4> node, int owner); // TooFine past the tables
};

// A line between two neighbouring corners, by the lower and the higher number.
using LineKey = std::pair<int, int>;
inline LineKey KeyOf(int a, int b) { return {std::min(a, b), std::max(a, b)}; }

// A rectangle as the plate mesher of plak_mesh.h has it: nodes in plan, meshes, and where its outer nodes stand along
// its edges, as parts 0..1 along ex and ey.
struct LiteralGrid {
    std::vector<PlanPoint> node;
    std::vector<std::array<int, 4>> quad;
    std::array<std::vector<double>, 2> at;
};

enum class Shape { Grid, Free }; // a grid of four-sided patches, or any outline

// A plate or a panel.
struct Part {
    int owner = 0;
    bool plate = false, wall = false;
    Shape shape = Shape::Free;
    std::vector<int> corner;           // corners of the outline in order, without repeats; of plates counter-clockwise
    std::vector<int> loop;             // the same with every other corner on its edges
    std::vector<LineKey> inner;        // lines of others inside a free part
    SpacePoint origin, ex, ey, normal; // its plane; of plates ex and ey lie level and heights are left out
    std::array<int, 4> quad{-1, -1, -1, -1}; // of a four-sided grid: corners 1 to 4
    std::vector<double> U, V; // grid lines: m along ex and ey, or, of a four-sided grid, parts 0..1 of its edges
    std::vector<std::vector<int>> grid; // corner at (U[i], V[j]), -1 outside
    std::vector<std::vector<char>> in;  // whether the patch from (i, j) on lies inside
    std::optional<LiteralGrid> literal; // of a rectangle along the axes that the plate mesher serves well
};

struct Model {
    Places corner{kJoin};
    std::vector<Part> part;
    SpacePoint at(int k) const { return corner.at(k); }
};

// sound_parts.cpp
Model ReadParts();                                               // plates and panels of the store
PlanPoint InPlane(const Part &part, SpacePoint p);               // coordinates along ex and ey
double Height(const Model &model, const Part &plate, PlanPoint); // of a plate, by its corners
SpacePoint InSpace(const Model &model, const Part &part, PlanPoint p);
bool Inside(const std::vector<PlanPoint> &outline, PlanPoint p); // by crossings of a ray
std::vector<PlanPoint> OutlineInPlane(const Model &model, const Part &part);
bool FourSided(const Part &part); // its grid is that of a four-sided patch
// BadShape, naming the part.
[[noreturn]] void FailShape(const Part &part, Fault fault, const std::string &place = {});
std::string PlaceText(SpacePoint p); // "(1.5, 2, 0)"

// sound_agree.cpp: every corner on an edge of another part becomes a corner of both, lines of grids run through, until
// nothing is added. Grids of plates that would get too thin patches become free.
void AgreeLines(Model &model, const Wish &wish);

// sound_literal.cpp: fills `literal` of the plates it can. The tables are used and left as they were.
void TakeLiteralGrids(Model &model, const Wish &wish);

// Divisions of each line as parts 0..1 of it from its lower to its higher corner (sound_divisions.cpp).
using Divisions = std::map<LineKey, std::vector<double>>;
Divisions AgreeDivisions(const Model &model, const Wish &wish);
// Divisions of a panel's grid along its edges 1 and 2.
std::array<int, 2> PanelDivisions(const Part &panel, const Divisions &divisions);

// The length of pairs of meshes along a line of a free part, m, at equal steps from its lower corner to its higher one,
// both included (sound_sizes.cpp). Lines that floors share are divided already, if not for the last time: their pairs
// are an upper bound for what lies beside them.
struct SizeLine {
    LineKey line;
    std::vector<double> size;
};
std::vector<SizeLine> BoundarySizes(const Model &model, const Part &part, const Wish &wish, const Divisions &shared);

// Nodes and meshes of the parts (sound_patches.cpp).
void MeshParts(const Model &model, const Divisions &divisions, const Wish &wish, Mesh &mesh);

// An outline in its plane: nodes that are given, on its rim and on lines inside, in pairs of sides from an end over the
// middle to the other end. The rim's pairs come first, counter-clockwise around.
struct FlatTask {
    std::vector<PlanPoint> node;
    std::vector<std::array<int, 3>> pair;
    int rimPairs = 0;
    double width = 1.0;
    PlanPoint along{1.0, 0.0}; // direction of the longest edge, a unit
};
struct FlatMesh {
    std::vector<PlanPoint> node; // the given ones, then others
    std::vector<std::array<int, 4>> quad;
    int fixed = 0; // given nodes: they stay where they are
};
FlatMesh MeshFlat(const FlatTask &task); // sound_free.cpp; without meshes when the outline meets itself
// Moves free nodes, each only where the worst corner of its meshes gets better (sound_smooth.cpp).
void Smooth(FlatMesh &mesh);

// sound_circle.cpp
int CircularPanels(); // panels 1 to this are those of a circular pool of the library; 0 for none
void MeshCircularPool(const Wish &wish, Mesh &mesh);

// sound_number.cpp: order[k] is the node that gets number k + 1.
std::vector<int> ShortProfile(const Mesh &mesh);

} // namespace havuz::sound
