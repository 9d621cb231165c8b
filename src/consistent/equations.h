// The equations of a joined tank: an order of the master nodes that keeps the factor small, the freedoms that are held,
// the stiffness over all freedoms of the masters and over the free ones alone. Freedoms of a node: displacement and
// rotation vector in global axes.
#pragma once

#include "consistent/joining.h"
#include "consistent/shell_element.h"

#include <Eigen/SparseCore>
#include <array>
#include <vector>

namespace havuz::consistent {

using Sparse = Eigen::SparseMatrix<double>; // lower triangle, by columns
using Vector = Eigen::VectorXd;

// Links of every project node to the masters: of a master itself the identity, as no entry.
class Freedoms {
public:
    Freedoms(const Tank &tank, Joints joints);

    const Joints &joints() const { return joints_; }
    int masters() const { return static_cast<int>(order_.size()); }
    int masterAt(int place) const { return order_[static_cast<std::size_t>(place)]; } // project number
    int placeOf(int master) const { return place_[static_cast<std::size_t>(master)]; }
    Eigen::Index all() const { return 6 * static_cast<Eigen::Index>(order_.size()); }
    int heldOf(int place) const { return held_[static_cast<std::size_t>(place)]; }

    // Calls take(place of a master, matrix that makes the node's freedoms of the master's).
    template <class Take>
    void eachLink(int node, Take take) const {
        const auto &links = joints_.follow[static_cast<std::size_t>(node)];
        if (links.empty())
            take(placeOf(node), identity_);
        for (const NodeLink &link : links)
            take(placeOf(link.master), link.from);
    }
    // Displacements of a project node from those of all masters, and what a force on it is worth to them.
    Eigen::Matrix<double, 6, 1> at(int node, const Vector &u) const;
    void addForce(int node, const Eigen::Matrix<double, 6, 1> &force, Vector &f) const;

    // Free freedoms in terms of equations: u = reduction * x. Rows of held freedoms are empty.
    const Eigen::SparseMatrix<double> &reduction() const { return reduction_; }
    bool plain() const { return plain_; } // every freedom is one equation or held
    Eigen::Index equations() const { return reduction_.cols(); }
    int equationOf(Eigen::Index freedom) const { return equation_[static_cast<std::size_t>(freedom)]; } // -1 held
    // Places held though they hang: what their reaction is made of (rows over all freedoms of masters).
    struct HeldRow {
        int node = 0;
        int freedom = 0; // 0..5
        std::vector<std::pair<int, double>> terms;
    };
    const std::vector<HeldRow> &heldRows() const { return heldRows_; }

private:
    void orderMasters(const Tank &tank);
    void findHeld(const Tank &tank);
    void reduce();

    Joints joints_;
    std::vector<int> order_, place_, held_, equation_;
    std::vector<HeldRow> heldRows_;
    Eigen::SparseMatrix<double> reduction_;
    bool plain_ = true;
    Matrix6 identity_ = Matrix6::Identity();
};

// The six slots that support bits hold: rotation about z goes with either of the others, translations together.
std::array<bool, 6> HeldSlots(int bits);

} // namespace havuz::consistent
