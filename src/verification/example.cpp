#include "verification/example.h"

#include "verification/literal_run.h"
#include "verification/sketch.h"

#include <cmath>
#include <stdexcept>

namespace havuz::verification {

void TakeModel(Example &example, const Model &model) {
    example.values = [model](std::size_t mesh) {
        const HandTank t = model.tank(mesh);
        return model.measure(t, Analysis(t.tank).solve(model.load));
    };
    example.sketch = SketchOf([model] { return model.tank(0).tank; }, model.load);
    if (!model.literal)
        return;
    example.literalMesh = example.meshes.size() / 2;
    example.literal = [model, mesh = example.literalMesh] {
        const HandTank t = model.tank(mesh);
        const std::vector<double> values = model.measure(t, RunLiteral(t.tank, NodalLoads(t.tank, model.load)));
        return std::vector<std::optional<double>>(values.begin(), values.end());
    };
}

std::function<std::string()> SketchOf(std::function<Tank()> make, Case load) {
    return [make = std::move(make), load] {
        const Tank tank = make();
        return Sketch(tank, NodalLoads(tank, load));
    };
}

void NoLiteralOf(Example &example, const std::vector<std::size_t> &quantities) {
    example.literal = [literal = example.literal, quantities] {
        auto values = literal();
        for (const std::size_t i : quantities)
            values[i] = std::nullopt;
        return values;
    };
}

double Moved(const HandTank &t, const CaseResult &r, Vector3 at, std::size_t freedom) {
    return r.nodes[static_cast<std::size_t>(t.nodeAt(at))].u[freedom];
}

double MeanAt(const HandTank &t, const CaseResult &r, Vector3 at, double ShellResult::*value) {
    double sum = 0.0;
    int count = 0;
    for (std::size_t i = 0; i < t.tank.meshes.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            const Vector3 d = t.tank.corner(t.tank.meshes[i], k) - at;
            if (Dot(d, d) < 1e-10) {
                sum += r.meshes[i][k + 1].*value;
                ++count;
            }
        }
    if (count == 0)
        throw std::logic_error("no mesh corner at the place of a quantity");
    return sum / count;
}

bool Near(double a, double b) { return std::fabs(a - b) < 1e-6; }

double PlateRigidity(double E, double poisson, double thickness) {
    return E * thickness * thickness * thickness / 12 / (1 - poisson * poisson);
}

} // namespace havuz::verification
