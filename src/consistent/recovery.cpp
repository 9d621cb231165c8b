// From displacements to what an engineer reads: soil pressure, reactions, membrane forces, moments and shear forces.
#include "consistent/parallel.h"
#include "consistent/system.h"

#include <cmath>
#include <map>

namespace havuz::consistent {

namespace {

Eigen::Vector3d Of(const Vector3 &v) { return {v.x, v.y, v.z}; }

Vector24 CornerDisplacements(const System &system, const TankMesh &mesh, const Vector &u) {
    Vector24 at;
    for (std::size_t k = 0; k < 4; ++k)
        at.segment<6>(6 * static_cast<Eigen::Index>(k)) = system.freedoms.at(mesh.node[k], u);
    return at;
}

// Shear forces along local x, y at the centre (0) and the corners 1..4, from the forces that the element takes at its
// corners. Their moments of place are the integral of the shear force, so the mean needs nothing else. What passes
// through a side is what its two corners take beyond the element's own load: exact in the sum along every line of
// sides.
class ShearForces {
public:
    ShearForces(const FlatShape &shape, const Vector24 &force, const std::array<double, 4> &own) : shape_(shape) {
        for (int k = 0; k < shape.corners(); ++k) {
            const auto c = static_cast<std::size_t>(shape.place(k));
            const Eigen::Vector3d f = force.segment<3>(6 * static_cast<Eigen::Index>(c));
            taken_[static_cast<std::size_t>(k)] = shape.axes().row(2).dot(f);
            passed_[static_cast<std::size_t>(k)] = taken_[static_cast<std::size_t>(k)] - own[c];
        }
    }
    Eigen::Vector2d mean() const {
        Eigen::Vector2d sum = Eigen::Vector2d::Zero();
        for (int k = 0; k < shape_.corners(); ++k)
            sum += taken_[static_cast<std::size_t>(k)] * shape_.at(k);
        return sum / shape_.area();
    }
    // Both sides at a corner give their part of the vector.
    Eigen::Vector2d atCorner(int k) const {
        if (shape_.corners() == 3)
            return mean();
        Eigen::Matrix2d sides;
        sides.row(0) = section(k);
        sides.row(1) = section((k + 3) % 4);
        if (std::fabs(sides.determinant()) < 1e-6 * shape_.area())
            return mean();
        return sides.inverse() * Eigen::Vector2d(passed(k), passed((k + 3) % 4));
    }

private:
    // Side k as outward normal times length, half of it from the opposite side: a uniform vector sends that much
    // through.
    Eigen::Vector2d section(int k) const {
        const Eigen::Vector2d along =
            0.5 * ((shape_.at((k + 1) % 4) - shape_.at(k)) - (shape_.at((k + 3) % 4) - shape_.at((k + 2) % 4)));
        return {along.y(), -along.x()};
    }
    double passed(int k) const {
        return passed_[static_cast<std::size_t>(k)] + passed_[static_cast<std::size_t>((k + 1) % 4)];
    }
    const FlatShape &shape_;
    std::array<double, 4> taken_{}, passed_{};
};

// Load of the mesh itself at each corner along the element's normal, its bed among it.
std::array<double, 4> OwnLoads(const System &system, const Solution &s, std::size_t i, const Vector24 &u) {
    const Eigen::Vector3d normal = system.elements[i]->shape().axes().row(2);
    const TankMesh &mesh = system.tank.meshes[i];
    std::array<double, 4> own{};
    for (std::size_t k = 0; k < 4; ++k) {
        Eigen::Vector3d f = Eigen::Vector3d::Zero();
        for (std::size_t c = 0; c < kCases; ++c)
            if (s.factor[c] != 0.0)
                f += s.factor[c] * Of(system.meshLoads[c][i][k]);
        if (s.bed[static_cast<std::size_t>(mesh.node[k])] > 0.0)
            f -= system.tank.bedding * system.meshBed[i][k] * u.segment<3>(6 * static_cast<Eigen::Index>(k));
        own[k] = normal.dot(f);
    }
    return own;
}

// A corner that fell away shares its twin's place: its load goes there.
void MoveToTwin(const FlatShape &shape, std::array<double, 4> &own) {
    for (int c = 0; shape.corners() == 3 && c < 4; ++c)
        if (shape.place(0) != c && shape.place(1) != c && shape.place(2) != c) {
            own[static_cast<std::size_t>((c + 3) % 4)] += own[static_cast<std::size_t>(c)];
            own[static_cast<std::size_t>(c)] = 0.0;
        }
}

MeshResult ResultOf(const System &system, const Solution &s, std::size_t i) {
    const ShellElement &element = *system.elements[i];
    const FlatShape &shape = element.shape();
    const Vector24 u = CornerDisplacements(system, system.tank.meshes[i], s.u);
    const std::array<LocalStress, 5> stress = element.stresses(u);
    std::array<double, 4> own = OwnLoads(system, s, i, u);
    MoveToTwin(shape, own);
    const ShearForces shear(shape, element.stiffness() * u, own);
    std::array<Eigen::Vector2d, 5> q;
    q.fill(shear.mean());
    for (int k = 0; k < shape.corners(); ++k)
        q[static_cast<std::size_t>(shape.place(k) + 1)] = shear.atCorner(k);
    MeshResult result;
    for (std::size_t point = 0; point < 5; ++point)
        result[point] = InAxes(stress[point], q[point], shape.axes(), system.axes[i][point]);
    return result;
}

void Add(ShellResult &sum, const ShellResult &r) {
    sum.N11 += r.N11;
    sum.N22 += r.N22;
    sum.N12 += r.N12;
    sum.M11 += r.M11;
    sum.M22 += r.M22;
    sum.M12 += r.M12;
    sum.Q1 += r.Q1;
    sum.Q2 += r.Q2;
}

ShellResult Divided(ShellResult r, double n) {
    for (double *v : {&r.N11, &r.N22, &r.N12, &r.M11, &r.M22, &r.M12, &r.Q1, &r.Q2})
        *v /= n;
    return r;
}

// Nodes that are one share their mean.
std::vector<ShellResult> MeansOf(const System &system, const std::vector<MeshResult> &meshes) {
    const std::vector<int> &one = system.freedoms.joints().one;
    std::map<std::pair<int, int>, std::pair<ShellResult, int>> sums;
    for (std::size_t i = 0; i < meshes.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            const int node = one[static_cast<std::size_t>(system.tank.meshes[i].node[k])];
            auto &[sum, count] = sums[{node, system.planes[i]}];
            Add(sum, meshes[i][k + 1]);
            ++count;
        }
    std::vector<ShellResult> means;
    for (const PlaneNode &place : system.planeNodes) {
        const auto &[sum, count] = sums.at({one[static_cast<std::size_t>(place.node)], place.plane});
        means.push_back(Divided(sum, count));
    }
    return means;
}

std::vector<WallForce> WallsOf(const System &system, const LoadFactors &factor) {
    std::vector<WallForce> walls = system.wallForces[0];
    for (std::size_t i = 0; i < walls.size(); ++i) {
        walls[i].force = walls[i].moment = 0.0;
        for (std::size_t c = 0; c < kCases; ++c) {
            walls[i].force += factor[c] * system.wallForces[c][i].force;
            walls[i].moment += factor[c] * system.wallForces[c][i].moment;
        }
    }
    return walls;
}

std::vector<NodeResult> NodesOf(const System &system, const Solution &s) {
    std::vector<NodeResult> nodes(system.tank.nodes.size());
    for (std::size_t n = 1; n < nodes.size(); ++n) {
        if (!system.tank.nodes[n].used)
            continue;
        const Eigen::Matrix<double, 6, 1> u = system.freedoms.at(static_cast<int>(n), s.u);
        for (std::size_t d = 0; d < 6; ++d)
            nodes[n].u[d] = u(static_cast<Eigen::Index>(d));
        if (s.bed[n] > 0.0)
            nodes[n].soil = -system.tank.bedding * nodes[n].u[2];
    }
    return nodes;
}

} // namespace

CaseResult ResultsOf(const System &system, const std::string &key, const Solution &s) {
    CaseResult r;
    r.key = key;
    r.nodes = NodesOf(system, s);
    r.proof = ProofOf(system, s, r.nodes);
    r.meshes.resize(system.tank.meshes.size());
    ForEach(r.meshes.size(), system.options.threads, [&](std::size_t i) { r.meshes[i] = ResultOf(system, s, i); });
    r.means = MeansOf(system, r.meshes);
    r.walls = WallsOf(system, s.factor);
    r.liftedArea = s.liftedArea;
    r.rounds = s.rounds;
    return r;
}

} // namespace havuz::consistent
