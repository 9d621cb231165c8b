#include "consistent/joining.h"

#include "consistent/edge_search.h"
#include "consistent/flat_shape.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace havuz::consistent {

namespace {

Eigen::Vector3d Of(const Vector3 &v) { return {v.x, v.y, v.z}; }

// The node before each that stands for it; 0 in element 0 and for nodes that no mesh uses.
std::vector<int> OneForMany(const Tank &tank) {
    std::vector<int> one(tank.nodes.size(), 0);
    for (std::size_t n = 1; n < tank.nodes.size(); ++n)
        one[n] = tank.nodes[n].used ? static_cast<int>(n) : 0;
    const auto first = [&](int n) {
        while (one[static_cast<std::size_t>(n)] != n)
            n = one[static_cast<std::size_t>(n)];
        return n;
    };
    // A sweep along a direction that no grid keeps to: near nodes have near keys.
    std::vector<std::pair<double, int>> order;
    for (std::size_t n = 1; n < tank.nodes.size(); ++n)
        if (tank.nodes[n].used)
            order.emplace_back(Dot(tank.nodes[n].at, {0.5257311, 0.7320508, 0.4329876}), static_cast<int>(n));
    std::sort(order.begin(), order.end());
    for (std::size_t i = 0; i < order.size(); ++i)
        for (std::size_t j = i + 1; j < order.size() && order[j].first - order[i].first <= 1.01 * kOnePlace; ++j) {
            const auto a = static_cast<std::size_t>(order[i].second);
            const auto b = static_cast<std::size_t>(order[j].second);
            if (Length(tank.nodes[a].at - tank.nodes[b].at) > kOnePlace)
                continue;
            const int low = std::min(first(order[i].second), first(order[j].second));
            const int high = std::max(first(order[i].second), first(order[j].second));
            one[static_cast<std::size_t>(high)] = low;
        }
    for (std::size_t n = 1; n < one.size(); ++n)
        one[n] = one[n] == 0 ? 0 : first(one[n]);
    return one;
}

// Rigid arm: what moves at d from a node.
Matrix6 Arm(const Eigen::Vector3d &d) {
    Matrix6 m = Matrix6::Identity();
    m.block<3, 3>(0, 3) << 0.0, d.z(), -d.y(), -d.z(), 0.0, d.x(), d.y(), -d.x(), 0.0;
    return m;
}

// What the place s of an edge of length l takes from its first end, on axes along the edge, across it in the plane, and
// out of the plane. The second end is the first of the edge run the other way.
Matrix6 FromFirstEnd(double s, double l) {
    Matrix6 m = Matrix6::Zero();
    const double linear = 1.0 - s;
    for (const Eigen::Index i : {0, 1, 3, 5})
        m(i, i) = linear;
    m(2, 2) = 1.0 - 3.0 * s * s + 2.0 * s * s * s;
    m(2, 4) = -l * (s - 2.0 * s * s + s * s * s); // the slope along the edge is the rotation across it, reversed
    m(4, 2) = 6.0 * s * linear / l;
    m(4, 4) = 1.0 - 4.0 * s + 3.0 * s * s;
    return m;
}

Matrix6 InGlobalAxes(const Matrix6 &local, const Eigen::Matrix3d &rows) {
    Matrix6 r = Matrix6::Zero();
    r.block<3, 3>(0, 0) = rows;
    r.block<3, 3>(3, 3) = rows;
    return r.transpose() * local * r;
}

Eigen::Matrix3d EdgeAxes(const Eigen::Vector3d &along, const Eigen::Vector3d &normal) {
    Eigen::Matrix3d rows;
    rows.row(0) = along.normalized();
    rows.row(1) = normal.cross(along).normalized();
    rows.row(2) = rows.row(0).cross(rows.row(1));
    return rows;
}

// The two links of a node on an edge.
std::vector<NodeLink> HangOn(const Tank &tank, const EdgePlace &place) {
    const auto at = [&](int n) { return Of(tank.nodes[static_cast<std::size_t>(n)].at); };
    const Eigen::Vector3d a = at(place.first);
    const Eigen::Vector3d b = at(place.second);
    const Eigen::Vector3d normal = Of(AreaVector(CornersOf(tank, tank.meshes[place.meshIndex])));
    const double l = (b - a).norm();
    const Matrix6 arm = Arm(at(place.node) - (a + place.s * (b - a)));
    return {{place.first, arm * InGlobalAxes(FromFirstEnd(place.s, l), EdgeAxes(b - a, normal))},
            {place.second, arm * InGlobalAxes(FromFirstEnd(1.0 - place.s, l), EdgeAxes(a - b, normal))}};
}

using Follow = std::vector<std::vector<NodeLink>>;

// Whether a node's freedoms come from those of another through any chain.
bool DependsOn(const Follow &follow, int node, int on) {
    std::vector<bool> seen(follow.size(), false);
    std::vector<int> open = {node};
    while (!open.empty()) {
        const int n = open.back();
        open.pop_back();
        if (n == on)
            return true;
        if (seen[static_cast<std::size_t>(n)])
            continue;
        seen[static_cast<std::size_t>(n)] = true;
        for (const NodeLink &link : follow[static_cast<std::size_t>(n)])
            open.push_back(link.master);
    }
    return false;
}

// Longest edges first: where the divisions of two sides differ, the finer side follows the coarser. An edge whose end
// follows the node already is left: the other side holds this one.
void HangNodes(const Tank &tank, Joints &joints) {
    std::vector<EdgePlace> places = NodesOnEdges(tank, joints.one);
    const auto rank = [](const EdgePlace &p) { return std::pair(-std::llround(p.length * 1e4), p.node); };
    std::stable_sort(places.begin(), places.end(),
                     [&](const EdgePlace &p, const EdgePlace &q) { return rank(p) < rank(q); });
    for (const EdgePlace &p : places) {
        auto &links = joints.follow[static_cast<std::size_t>(p.node)];
        if (!links.empty() || DependsOn(joints.follow, p.first, p.node) || DependsOn(joints.follow, p.second, p.node))
            continue;
        links = HangOn(tank, p);
        joints.hangs[static_cast<std::size_t>(p.node)] = true;
        joints.list.push_back({p.node, p.first, p.second, tank.meshes[p.meshIndex].mesh});
    }
}

void AddLink(std::vector<NodeLink> &links, const NodeLink &link) {
    for (NodeLink &l : links)
        if (l.master == link.master) {
            l.from += link.from;
            return;
        }
    links.push_back(link);
}

// Links that name masters only, through every chain; each node once.
class ChainResolver {
public:
    explicit ChainResolver(const Follow &follow) : follow_(follow), resolved_(follow.size()) {}
    const std::vector<NodeLink> &of(int node) {
        std::vector<NodeLink> &links = resolved_[static_cast<std::size_t>(node)];
        if (!links.empty())
            return links;
        for (const NodeLink &link : follow_[static_cast<std::size_t>(node)]) {
            if (follow_[static_cast<std::size_t>(link.master)].empty()) {
                AddLink(links, link);
                continue;
            }
            for (const NodeLink &further : of(link.master))
                AddLink(links, {further.master, link.from * further.from});
        }
        return links;
    }
    Follow all() && {
        for (std::size_t n = 1; n < follow_.size(); ++n)
            of(static_cast<int>(n));
        return std::move(resolved_);
    }

private:
    const Follow &follow_;
    Follow resolved_;
};

void FollowTheOne(const Tank &tank, Joints &joints) {
    for (std::size_t n = 1; n < joints.one.size(); ++n) {
        const int one = joints.one[n];
        if (one == 0 || one == static_cast<int>(n))
            continue;
        const Vector3 d = tank.nodes[n].at - tank.nodes[static_cast<std::size_t>(one)].at;
        joints.follow[n] = {{one, Arm(Of(d))}};
        joints.list.push_back({static_cast<int>(n), one, 0, 0});
    }
}

} // namespace

std::vector<int> Joints::mastersOf(int n) const {
    std::vector<int> masters;
    for (const NodeLink &link : follow[static_cast<std::size_t>(n)])
        masters.push_back(link.master);
    if (masters.empty())
        masters.push_back(n);
    return masters;
}

Joints NoJoints(const Tank &tank) {
    Joints joints;
    joints.one.assign(tank.nodes.size(), 0);
    for (std::size_t n = 1; n < tank.nodes.size(); ++n)
        joints.one[n] = tank.nodes[n].used ? static_cast<int>(n) : 0;
    joints.hangs.assign(tank.nodes.size(), false);
    joints.follow.resize(tank.nodes.size());
    return joints;
}

Joints JoinNodes(const Tank &tank) {
    Joints joints;
    joints.one = OneForMany(tank);
    joints.hangs.assign(tank.nodes.size(), false);
    joints.follow.resize(tank.nodes.size());
    FollowTheOne(tank, joints);
    HangNodes(tank, joints);
    joints.follow = ChainResolver(joints.follow).all();
    return joints;
}

} // namespace havuz::consistent
