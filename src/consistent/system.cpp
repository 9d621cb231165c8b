#include "consistent/system.h"

#include "consistent/mechanism.h"
#include "consistent/parallel.h"

#include <algorithm>
#include <set>

namespace havuz::consistent {

namespace {

constexpr int kStrip = 2; // kind of a panel

ShellSection SectionOf(const Tank &tank, const TankMesh &mesh, const Options &options) {
    const TankPanel &panel = tank.panelOf(mesh);
    return {tank.E, tank.poisson, panel.thickness, options.drillingFactor,
            panel.kind == kStrip ? options.stripModes : InnerModes::All};
}

std::vector<std::optional<ShellElement>> MakeElements(const Tank &tank, const Options &options) {
    std::vector<std::optional<ShellElement>> elements(tank.meshes.size());
    ForEach(elements.size(), options.threads, [&](std::size_t i) {
        const TankMesh &mesh = tank.meshes[i];
        elements[i].emplace(CornersOf(tank, mesh), SectionOf(tank, mesh, options), "mesh " + std::to_string(mesh.mesh));
    });
    return elements;
}

std::vector<PlaneNode> NodesOfPlanes(const Tank &tank, const std::vector<int> &planes) {
    std::set<std::pair<int, int>> places;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (const int n : tank.meshes[i].node)
            places.emplace(n, planes[i]);
    std::vector<PlaneNode> nodes;
    for (const auto &[node, plane] : places)
        nodes.push_back({node, plane});
    return nodes;
}

} // namespace

System::System(const Tank &theTank, const Options &theOptions)
    : tank(theTank), options(theOptions), freedoms(tank, options.joins ? JoinNodes(tank) : NoJoints(tank)),
      elements(MakeElements(tank, options)), stiffness(tank, freedoms) {
    walls = FindWallSides(tank);
    for (const Case c : kAllCases) {
        const auto k = static_cast<std::size_t>(c);
        meshLoads[k] = MeshLoads(tank, walls, c, options.loads);
        loads[k] = NodalLoads(tank, meshLoads[k], c);
        wallForces[k] = WallForces(tank, walls, c, options.loads);
    }
    meshBed = MeshBedAreas(tank);
    bedAreas = BedAreas(tank);
    for (std::size_t i = 0; i < elements.size(); ++i)
        stiffness.addMesh(tank.meshes[i], elements[i]->stiffness());
    RequireFooting(tank, freedoms, springs(bedAreas));
    factor = factorWith(bedAreas);
    RequireStanding(tank, freedoms, *factor);
    axes = StressAxes(tank, walls);
    planes = PlanesOf(tank, axes);
    planeNodes = NodesOfPlanes(tank, planes);
    facts = {static_cast<int>(freedoms.equations()), factor->smallestPivot(), factor->greatestPivot(), factor->cells()};
}

std::vector<double> System::springs(const std::vector<double> &bed) const {
    std::vector<double> k = bed;
    for (double &v : k)
        v *= tank.bedding;
    return k;
}

std::unique_ptr<Factor> System::factorWith(const std::vector<double> &bed) const {
    BlockStiffness k = stiffness;
    const std::vector<double> spring = springs(bed);
    for (std::size_t n = 1; n < spring.size(); ++n)
        if (spring[n] != 0.0)
            k.addSpring(static_cast<int>(n), spring[n]);
    return std::make_unique<Factor>(k.reduced(), options.threads);
}

std::vector<Vector3> System::nodalLoads(const LoadFactors &f) const {
    std::vector<Vector3> sum(tank.nodes.size());
    for (std::size_t c = 0; c < kCases; ++c)
        for (std::size_t n = 0; f[c] != 0.0 && n < sum.size(); ++n)
            sum[n] = sum[n] + f[c] * loads[c][n];
    return sum;
}

} // namespace havuz::consistent
