// The proof of a solution: loads, springs and reactions as six components about the origin.
#include "consistent/system.h"

#include <Eigen/Dense>

namespace havuz::consistent {

namespace {

using Six = Eigen::Matrix<double, 6, 1>;

void AddAt(Resultant &sum, const Vector3 &at, const Vector3 &force, const Vector3 &moment) {
    const Vector3 m = Cross(at, force) + moment;
    const std::array<double, 6> parts = {force.x, force.y, force.z, m.x, m.y, m.z};
    for (std::size_t i = 0; i < 6; ++i)
        sum[i] += parts[i];
}

// What holds the freedoms of the masters in place: K u - f, nothing but where something is held.
Vector HoldingForces(const System &system, const Solution &s) {
    const Freedoms &freedoms = system.freedoms;
    Vector g = system.stiffness.matrix().selfadjointView<Eigen::Lower>() * s.u;
    const std::vector<Vector3> loads = system.nodalLoads(s.factor);
    for (std::size_t n = 1; n < loads.size(); ++n) {
        if (!system.tank.nodes[n].used)
            continue;
        const int node = static_cast<int>(n);
        const double spring = s.bed[n] * system.tank.bedding;
        Six force = spring * freedoms.at(node, s.u);
        force.tail<3>().setZero();
        force.head<3>() -= Eigen::Vector3d(loads[n].x, loads[n].y, loads[n].z);
        freedoms.addForce(node, force, g);
    }
    return g;
}

// The shares of g that supports of hanging nodes give, least squares over the freedoms that are free otherwise; they
// are taken out of g.
Vector HangingReactions(const Freedoms &freedoms, Vector &g) {
    const auto &rows = freedoms.heldRows();
    Eigen::SparseMatrix<double> c(freedoms.all(), static_cast<Eigen::Index>(rows.size()));
    std::vector<Eigen::Triplet<double>> entries;
    std::vector<Eigen::Triplet<double>> whole;
    for (std::size_t r = 0; r < rows.size(); ++r)
        for (const auto &[freedom, weight] : rows[r].terms) {
            whole.emplace_back(freedom, static_cast<int>(r), weight);
            const bool held = HeldSlots(freedoms.heldOf(freedom / 6))[static_cast<std::size_t>(freedom % 6)];
            if (!held)
                entries.emplace_back(freedom, static_cast<int>(r), weight);
        }
    c.setFromTriplets(entries.begin(), entries.end());
    const Eigen::MatrixXd normal = Eigen::MatrixXd(c.transpose() * c);
    const Vector reaction = normal.ldlt().solve(Vector(c.transpose() * g));
    c.setFromTriplets(whole.begin(), whole.end());
    g -= c * reaction;
    return reaction;
}

void AddHeldNodes(const System &system, const Vector &g, Resultant &sum, std::vector<NodeResult> &nodes) {
    const Freedoms &freedoms = system.freedoms;
    for (int place = 0; place < freedoms.masters(); ++place) {
        const std::array<bool, 6> held = HeldSlots(freedoms.heldOf(place));
        Six r = g.segment<6>(6 * place);
        for (int d = 0; d < 6; ++d)
            if (!held[static_cast<std::size_t>(d)])
                r(d) = 0.0;
        const auto node = static_cast<std::size_t>(freedoms.masterAt(place));
        nodes[node].reaction += r(2);
        AddAt(sum, system.tank.nodes[node].at, {r(0), r(1), r(2)}, {r(3), r(4), r(5)});
    }
}

void AddHeldRows(const System &system, Vector &g, Resultant &sum, std::vector<NodeResult> &nodes) {
    const auto &rows = system.freedoms.heldRows();
    if (rows.empty())
        return;
    const Vector reaction = HangingReactions(system.freedoms, g);
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const auto node = static_cast<std::size_t>(rows[r].node);
        Six force = Six::Zero();
        force(rows[r].freedom) = reaction(static_cast<Eigen::Index>(r));
        nodes[node].reaction += force(2);
        AddAt(sum, system.tank.nodes[node].at, {force(0), force(1), force(2)}, {force(3), force(4), force(5)});
    }
}

} // namespace

Proof ProofOf(const System &system, const Solution &s, std::vector<NodeResult> &nodes) {
    Proof proof;
    const std::vector<Vector3> loads = system.nodalLoads(s.factor);
    for (std::size_t n = 1; n < loads.size(); ++n) {
        if (!system.tank.nodes[n].used)
            continue;
        const Vector3 &at = system.tank.nodes[n].at;
        const Six u = system.freedoms.at(static_cast<int>(n), s.u);
        AddAt(proof.load, at, loads[n], {});
        AddAt(proof.spring, at, -s.bed[n] * system.tank.bedding * Vector3{u(0), u(1), u(2)}, {});
    }
    Vector g = HoldingForces(system, s);
    AddHeldRows(system, g, proof.reaction, nodes);
    AddHeldNodes(system, g, proof.reaction, nodes);
    for (std::size_t i = 0; i < 6; ++i)
        proof.sum[i] = proof.load[i] + proof.spring[i] + proof.reaction[i];
    proof.residual = s.residual;
    return proof;
}

} // namespace havuz::consistent
