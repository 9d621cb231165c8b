#include "export/shell_model.h"

#include "consistent/equations.h"
#include "consistent/load_case.h"
#include "consistent/loads.h"

#include <algorithm>
#include <charconv>

namespace havuz {

namespace {

using namespace consistent;

// one: by project number, the node that stands for it.
std::vector<ShellMesh> MeshesOf(const Tank &tank, const std::vector<int> &one) {
    std::vector<ShellMesh> meshes;
    for (const TankMesh &m : tank.meshes) {
        ShellMesh mesh{m.mesh, {}, m.panel, tank.panelOf(m).thickness};
        for (const int n : m.node) {
            const int corner = one[static_cast<std::size_t>(n)];
            if (std::find(mesh.corners.begin(), mesh.corners.end(), corner) == mesh.corners.end())
                mesh.corners.push_back(corner);
        }
        meshes.push_back(mesh);
    }
    return meshes;
}

ShellModel ModelOf(const Tank &tank, const std::string &name, const std::vector<int> &one) {
    ShellModel model;
    model.name = name;
    model.E = tank.E;
    model.poisson = tank.poisson;
    model.lastNode = static_cast<int>(tank.nodes.size()) - 1;
    for (const TankMesh &m : tank.meshes)
        model.lastMesh = std::max(model.lastMesh, m.mesh);
    model.meshes = MeshesOf(tank, one);
    std::vector<int> place(tank.nodes.size(), -1);
    for (std::size_t n = 1; n < tank.nodes.size(); ++n) {
        if (!tank.nodes[n].used)
            continue;
        const auto stands = static_cast<std::size_t>(one[n]);
        if (stands == n) {
            place[n] = static_cast<int>(model.nodes.size());
            model.nodes.push_back({static_cast<int>(n), tank.nodes[n].at, {}, 0.0});
        }
        ShellNode &node = model.nodes[static_cast<std::size_t>(place[stands])]; // the lower number came before
        const std::array<bool, 6> held = HeldSlots(tank.nodes[n].held);
        for (std::size_t i = 0; i < 6; ++i)
            node.held[i] = node.held[i] || held[i];
    }
    return model;
}

void AddSprings(ShellModel &model, const Tank &tank, const std::vector<int> &one) {
    const std::vector<double> bed = BedAreas(tank);
    std::vector<double> spring(tank.nodes.size(), 0.0);
    for (std::size_t n = 1; n < bed.size(); ++n)
        spring[static_cast<std::size_t>(one[n])] += tank.bedding * bed[n];
    for (ShellNode &node : model.nodes)
        node.spring = spring[static_cast<std::size_t>(node.number)];
}

void AddCases(ShellModel &model, const Tank &tank, const std::vector<int> &one) {
    for (const Case c : kAllCases) {
        const std::vector<Vector3> loads = NodalLoads(tank, c);
        if (!HasLoads(loads))
            continue;
        ShellCase shellCase{std::string(NameOf(c).key), std::string(NameOf(c).english), {}};
        shellCase.force.resize(tank.nodes.size(), NodalForce{});
        for (std::size_t n = 1; n < loads.size(); ++n) {
            NodalForce &force = shellCase.force[static_cast<std::size_t>(one[n])];
            force[0] += loads[n].x;
            force[1] += loads[n].y;
            force[2] += loads[n].z;
        }
        model.cases.push_back(std::move(shellCase));
    }
}

} // namespace

ShellModel ConsistentModel(const Tank &tank, const std::string &name) {
    const Joints joints = JoinNodes(tank);
    ShellModel model = ModelOf(tank, name, joints.one);
    AddSprings(model, tank, joints.one);
    AddCases(model, tank, joints.one);
    for (std::size_t n = 1; n < joints.hangs.size(); ++n)
        if (joints.hangs[n])
            model.hanging.push_back({static_cast<int>(n), joints.follow[n]});
    return model;
}

ShellModel PlainModel(const Tank &tank, const std::string &name) {
    std::vector<int> one(tank.nodes.size());
    for (std::size_t n = 0; n < one.size(); ++n)
        one[n] = static_cast<int>(n);
    return ModelOf(tank, name, one);
}

std::string ShellNumber(double value) {
    std::array<char, 40> text{};
    const double shown = value == 0.0 ? 0.0 : value; // no -0
    const auto end = std::to_chars(text.data(), text.data() + text.size(), shown, std::chars_format::general, 12).ptr;
    return {text.data(), end};
}

} // namespace havuz
