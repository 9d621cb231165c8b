#include "verification/outcome.h"

#include "consistent/run_model.h"
#include "fea/equations.h"
#include "model/store.h"
#include "verification/halved.h"
#include "verification/literal_run.h"

#include <cmath>

namespace havuz::verification {

namespace {

constexpr double kLeastOfPlate = 0.5; // m: the program's own mesher has room for 1000 points in a plate

std::string WidthInWords(double width) {
    const std::string text = std::to_string(width);
    return text.substr(0, text.find_last_not_of("0.") + 1) + " m";
}

std::vector<double> FinerTargets(const Outcome &o) {
    const std::vector<double> values = o.consistent(Halved(o.tank(o.widths.back())));
    std::vector<double> targets(o.quantities.size(), std::nan(""));
    for (const std::size_t i : o.finer)
        targets[i] = values[i];
    return targets;
}

Parameters With(Parameters parameters, double width) {
    for (int k = 0; k <= 3; ++k)
        parameters.emplace_back(&YukDurum[k], 1.0);
    parameters.emplace_back(&MeshGenisligi, width);
    return parameters;
}

MakeTank OfLibrary(int page, const Parameters &parameters) {
    return [=](double width) { return LibraryPool(page, With(parameters, width)); };
}

} // namespace

Example AsExample(const Outcome &o) {
    Example e;
    e.key = o.key;
    e.title = o.title;
    e.words = o.words;
    e.quantities = o.quantities;
    for (const double width : o.widths)
        e.meshes.push_back(WidthInWords(width));
    e.values = [o](std::size_t mesh) { return o.consistent(o.tank(o.widths[mesh])); };
    e.literalMesh = o.literalMesh;
    e.literal = [o] {
        const MakeTank &make = o.ofRun ? o.ofRun : o.tank;
        const std::vector<double> values = o.literal(make(o.widths[o.literalMesh]));
        return std::vector<std::optional<double>>(values.begin(), values.end());
    };
    e.sketch = SketchOf([o] { return o.tank(1.0); }, o.drawn);
    if (!o.finer.empty())
        e.finer = [o] { return FinerTargets(o); };
    return e;
}

MakeTank Rectangular(const Parameters &parameters) { return OfLibrary(1, parameters); }

MakeTank Circular(const Parameters &parameters) { return OfLibrary(2, parameters); }

MakeTank Polygon(const PolygonShape &shape, const Parameters &parameters, Mesher mesher) {
    return [=](double width) {
        const bool sound = mesher == Mesher::Sound, fits = sound || width >= kLeastOfPlate;
        PolygonShape meshed = shape;
        meshed.width = fits ? width : 2 * width;
        const Tank tank = PolygonTank(meshed, With(parameters, meshed.width), sound);
        return fits ? tank : Halved(tank);
    };
}

Parameters TwelveBySix(const Parameters &levels) {
    Parameters all = {{&Lx, 12}, {&Ly, 6}, {&UstKot, 4}, {&Bk, 0}, {&KenarKalinlik, 30}, {&AltKalinlik, 40}};
    all.insert(all.end(), levels.begin(), levels.end());
    return all;
}

PolygonShape Shape(const std::vector<std::pair<double, double>> &points) { return {points, 3, 0, 30, 40, 0}; }

PolygonShape LShape() { return Shape({{0, 0}, {8, 0}, {8, 4}, {4, 4}, {4, 8}, {0, 8}}); }

CaseResult ColumnOfRun(const Tank &tank, int code) { return RunStore(tank)[PlaceOfColumn(ColumnCodes(), code)]; }

std::vector<Vector3> ForcesOfRun(const Tank &tank, int code) {
    return RunLoads(tank, LoadStep::AsTheyAre)[PlaceOfColumn(ColumnCodes(), code)];
}

double SumOfZ(const std::vector<Vector3> &forces) {
    double sum = 0;
    for (const Vector3 &f : forces)
        sum += f.z;
    return sum;
}

} // namespace havuz::verification
