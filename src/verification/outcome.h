// A practical tank of the model store beside a target: what the literal run makes of it at one mesh width and the
// consistent analysis at three. t, m, t.m/m.
#pragma once

#include "verification/example.h"
#include "verification/pools.h"

namespace havuz::verification {

using MakeTank = std::function<Tank(double width)>; // and leaves the model in the store

struct Outcome {
    std::string key, title, words;
    MakeTank tank;
    MakeTank ofRun;              // where the run has another mesh
    std::vector<double> widths;  // m, coarse to fine
    std::size_t literalMesh = 0; // which of them the run has
    std::vector<Quantity> quantities;
    Case drawn = kLiquid;
    std::function<std::vector<double>(const Tank &)> consistent, literal;
    std::vector<std::size_t> finer; // quantities whose target is the consistent value at half the finest width
};
Example AsExample(const Outcome &o);

// Every load situation of the run and the width beside the parameters.
MakeTank Rectangular(const Parameters &parameters);
MakeTank Circular(const Parameters &parameters);
// Below 0.5 m the program's own mesher has no room for a plate: its meshes of twice the width as four each then.
enum class Mesher { Own, Sound };
MakeTank Polygon(const PolygonShape &shape, const Parameters &parameters, Mesher mesher = Mesher::Own);

// 12 x 6 x 4 m without strip, walls 30, base 40 cm.
Parameters TwelveBySix(const Parameters &levels);
// Walls 30, base 40 cm, 3 m high; the L is 8 x 8 m less a quarter of it.
PolygonShape Shape(const std::vector<std::pair<double, double>> &points);
PolygonShape LShape();

constexpr int kColumnDead = 0, kColumnBoth = 1, kColumnLiquid = 2, kColumnSoil = 3, kColumnWater = 4;
// The load column of that code in a run of the model in the store, and its forces on the nodes. std::runtime_error
// where the run has no such column.
CaseResult ColumnOfRun(const Tank &tank, int code);
std::vector<Vector3> ForcesOfRun(const Tank &tank, int code);

double SumOfZ(const std::vector<Vector3> &forces);

} // namespace havuz::verification
