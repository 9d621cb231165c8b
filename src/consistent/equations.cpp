#include "consistent/equations.h"

#include "model/supports.h"

#include <Eigen/OrderingMethods>
#include <algorithm>
#include <cmath>

namespace havuz::consistent {

std::array<bool, 6> HeldSlots(int bits) {
    const bool rx = HoldsRotationX(bits), ry = HoldsRotationY(bits), moves = HoldsTranslation(bits);
    return {moves || (bits & 8) != 0,    moves || (bits & 16) != 0, moves || (bits & 32) != 0, rx, ry,
            rx || ry || (bits & 64) != 0};
}

namespace {

// The masters that each mesh ties together, each once.
std::vector<int> MastersOf(const Joints &joints, const TankMesh &mesh) {
    std::vector<int> masters;
    for (const int n : mesh.node)
        for (const int m : joints.mastersOf(n))
            if (std::find(masters.begin(), masters.end(), m) == masters.end())
                masters.push_back(m);
    return masters;
}

Sparse NodeGraph(const Tank &tank, const Joints &joints, const std::vector<int> &place, int count) {
    std::vector<Eigen::Triplet<double>> ties;
    for (const TankMesh &mesh : tank.meshes) {
        const std::vector<int> masters = MastersOf(joints, mesh);
        for (const int a : masters)
            for (const int b : masters)
                ties.emplace_back(place[static_cast<std::size_t>(a)], place[static_cast<std::size_t>(b)], 1.0);
    }
    Sparse graph(count, count);
    graph.setFromTriplets(ties.begin(), ties.end());
    return graph;
}

} // namespace

Freedoms::Freedoms(const Tank &tank, Joints joints) : joints_(std::move(joints)) {
    orderMasters(tank);
    findHeld(tank);
    reduce();
}

// Approximate minimum degree on the nodes: six freedoms of a node stay together.
void Freedoms::orderMasters(const Tank &tank) {
    place_.assign(tank.nodes.size(), -1);
    std::vector<int> found;
    for (const TankMesh &mesh : tank.meshes)
        for (const int m : MastersOf(joints_, mesh))
            if (int &place = place_[static_cast<std::size_t>(m)]; place < 0) {
                place = static_cast<int>(found.size());
                found.push_back(m);
            }
    const Sparse graph = NodeGraph(tank, joints_, place_, static_cast<int>(found.size()));
    Eigen::PermutationMatrix<Eigen::Dynamic, Eigen::Dynamic, int> permutation;
    Eigen::AMDOrdering<int>()(graph, permutation);
    for (int k = 0; k < static_cast<int>(found.size()); ++k) {
        const int master = found[static_cast<std::size_t>(permutation.indices()(k))];
        order_.push_back(master);
        place_[static_cast<std::size_t>(master)] = k;
    }
}

// A support on a node that is one with another holds that one.
void Freedoms::findHeld(const Tank &tank) {
    held_.assign(order_.size(), 0);
    for (std::size_t n = 1; n < tank.nodes.size(); ++n) {
        const int one = joints_.one[n];
        if (one == 0 || tank.nodes[n].held == 0)
            continue;
        const int place = place_[static_cast<std::size_t>(one)];
        if (place >= 0) {
            held_[static_cast<std::size_t>(place)] |= tank.nodes[n].held;
            continue;
        }
        const std::array<bool, 6> slots = HeldSlots(tank.nodes[n].held);
        for (int d = 0; d < 6; ++d) {
            if (!slots[static_cast<std::size_t>(d)])
                continue;
            HeldRow row{static_cast<int>(n), d, {}};
            eachLink(static_cast<int>(n), [&](int p, const Matrix6 &from) {
                for (int c = 0; c < 6; ++c)
                    if (std::fabs(from(d, c)) > 1e-12)
                        row.terms.emplace_back(6 * p + c, from(d, c));
            });
            heldRows_.push_back(row);
        }
    }
}

namespace {

// Freedoms of the masters while supports of hanging nodes are eliminated: each such support makes the freedom with the
// greatest weight follow the others.
class Eliminator {
public:
    explicit Eliminator(std::vector<bool> held) : held_(std::move(held)), combination_(held_.size()) {}

    using Terms = std::vector<std::pair<int, double>>;

    bool follows(int freedom) const { return !combination_[static_cast<std::size_t>(freedom)].empty(); }
    bool held(int freedom) const { return held_[static_cast<std::size_t>(freedom)]; }

    // In terms of freedoms that neither follow nor are held.
    Terms expand(const Terms &terms) const {
        Terms free;
        for (const auto &[freedom, weight] : terms) {
            if (held(freedom))
                continue;
            const Terms &own = combination_[static_cast<std::size_t>(freedom)];
            for (const auto &[f, w] : own.empty() ? Terms{{freedom, 1.0}} : expand(own))
                add(free, f, weight * w);
        }
        return free;
    }
    // terms = 0 from now on; false when that holds already.
    bool hold(const Terms &terms) {
        Terms free = expand(terms);
        const auto pivot = std::max_element(free.begin(), free.end(), [](const auto &a, const auto &b) {
            return std::fabs(a.second) < std::fabs(b.second);
        });
        if (pivot == free.end() || std::fabs(pivot->second) < 1e-9)
            return false;
        const auto [freedom, weight] = *pivot;
        free.erase(pivot);
        if (free.empty()) {
            held_[static_cast<std::size_t>(freedom)] = true;
            return true;
        }
        for (auto &[f, w] : free)
            w /= -weight;
        combination_[static_cast<std::size_t>(freedom)] = free;
        return true;
    }

private:
    static void add(Terms &terms, int freedom, double weight) {
        for (auto &[f, w] : terms)
            if (f == freedom) {
                w += weight;
                return;
            }
        terms.emplace_back(freedom, weight);
    }
    std::vector<bool> held_;
    std::vector<Terms> combination_;
};

} // namespace

void Freedoms::reduce() {
    std::vector<bool> heldFreedom;
    for (const int bits : held_)
        for (const bool held : HeldSlots(bits))
            heldFreedom.push_back(held);
    Eliminator eliminator(heldFreedom);
    std::vector<HeldRow> effective;
    for (const HeldRow &row : heldRows_)
        if (eliminator.hold(row.terms))
            effective.push_back(row);
    heldRows_ = effective;
    plain_ = heldRows_.empty();
    equation_.assign(heldFreedom.size(), -1);
    int equations = 0;
    for (int f = 0; f < static_cast<int>(equation_.size()); ++f)
        if (!eliminator.held(f) && !eliminator.follows(f))
            equation_[static_cast<std::size_t>(f)] = equations++;
    std::vector<Eigen::Triplet<double>> entries;
    for (int f = 0; f < static_cast<int>(equation_.size()); ++f)
        for (const auto &[free, weight] : eliminator.expand({{f, 1.0}}))
            entries.emplace_back(f, equation_[static_cast<std::size_t>(free)], weight);
    reduction_.resize(all(), equations);
    reduction_.setFromTriplets(entries.begin(), entries.end());
}

Eigen::Matrix<double, 6, 1> Freedoms::at(int node, const Vector &u) const {
    Eigen::Matrix<double, 6, 1> result = Eigen::Matrix<double, 6, 1>::Zero();
    eachLink(node, [&](int place, const Matrix6 &from) { result.noalias() += from * u.segment<6>(6 * place); });
    return result;
}

void Freedoms::addForce(int node, const Eigen::Matrix<double, 6, 1> &force, Vector &f) const {
    eachLink(node,
             [&](int place, const Matrix6 &from) { f.segment<6>(6 * place).noalias() += from.transpose() * force; });
}

} // namespace havuz::consistent
