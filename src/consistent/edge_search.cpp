#include "consistent/edge_search.h"

#include "consistent/flat_shape.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace havuz::consistent {

namespace {

struct Edge {
    int first = 0, second = 0;
    std::size_t meshIndex = 0;
};

std::vector<Edge> EdgesOf(const Tank &tank, const std::vector<int> &one) {
    std::vector<Edge> edges;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            const int a = one[static_cast<std::size_t>(tank.meshes[i].node[k])];
            const int b = one[static_cast<std::size_t>(tank.meshes[i].node[(k + 1) % 4])];
            if (a != b)
                edges.push_back({std::min(a, b), std::max(a, b), i});
        }
    std::stable_sort(edges.begin(), edges.end(), [](const Edge &e, const Edge &f) {
        return std::pair(e.first, e.second) < std::pair(f.first, f.second);
    });
    edges.erase(std::unique(edges.begin(), edges.end(),
                            [](const Edge &e, const Edge &f) { return e.first == f.first && e.second == f.second; }),
                edges.end());
    return edges;
}

// Nodes by cubes of space.
class Cubes {
public:
    Cubes(const Tank &tank, const std::vector<int> &one, double side) : side_(side) {
        for (std::size_t n = 1; n < one.size(); ++n)
            if (one[n] == static_cast<int>(n))
                nodes_[key(cell(tank.nodes[n].at.x), cell(tank.nodes[n].at.y), cell(tank.nodes[n].at.z))].push_back(
                    static_cast<int>(n));
    }
    template <class Take>
    void near(const Vector3 &a, const Vector3 &b, Take take) const {
        const auto low = [&](double p, double q) { return cell(std::min(p, q) - kOnePlace); };
        const auto high = [&](double p, double q) { return cell(std::max(p, q) + kOnePlace); };
        for (std::int64_t x = low(a.x, b.x); x <= high(a.x, b.x); ++x)
            for (std::int64_t y = low(a.y, b.y); y <= high(a.y, b.y); ++y)
                for (std::int64_t z = low(a.z, b.z); z <= high(a.z, b.z); ++z)
                    if (const auto found = nodes_.find(key(x, y, z)); found != nodes_.end())
                        std::for_each(found->second.begin(), found->second.end(), take);
    }

private:
    std::int64_t cell(double v) const { return static_cast<std::int64_t>(std::floor(v / side_)); }
    static std::uint64_t key(std::int64_t x, std::int64_t y, std::int64_t z) {
        const auto u = [](std::int64_t v) { return static_cast<std::uint64_t>(v); };
        return (u(x) * 2097143U + u(y)) * 2097143U + u(z); // cubes that share a key are only searched together
    }
    double side_;
    std::unordered_map<std::uint64_t, std::vector<int>> nodes_;
};

// Long enough that no edge spans more than a handful of cubes each way.
double CubeSide(const Tank &tank, const std::vector<Edge> &edges) {
    double sum = 0.0;
    double longest = 0.0;
    for (const Edge &e : edges) {
        const double l = Length(tank.nodes[static_cast<std::size_t>(e.second)].at -
                                tank.nodes[static_cast<std::size_t>(e.first)].at);
        sum += l;
        longest = std::max(longest, l);
    }
    const double mean = edges.empty() ? 1.0 : sum / static_cast<double>(edges.size());
    return std::max({mean, longest / 20.0, 0.01});
}

bool IsCorner(const Tank &tank, const std::vector<int> &one, std::size_t mesh, int node) {
    const auto &corners = tank.meshes[mesh].node;
    return std::any_of(corners.begin(), corners.end(), [&](int n) { return one[static_cast<std::size_t>(n)] == node; });
}

} // namespace

std::vector<EdgePlace> NodesOnEdges(const Tank &tank, const std::vector<int> &one) {
    const std::vector<Edge> edges = EdgesOf(tank, one);
    const Cubes cubes(tank, one, CubeSide(tank, edges));
    std::vector<EdgePlace> places;
    for (const Edge &e : edges) {
        const Vector3 a = tank.nodes[static_cast<std::size_t>(e.first)].at;
        const Vector3 along = tank.nodes[static_cast<std::size_t>(e.second)].at - a;
        const double square = Dot(along, along);
        cubes.near(a, a + along, [&](int node) {
            const Vector3 to = tank.nodes[static_cast<std::size_t>(node)].at - a;
            const double s = Dot(to, along) / square;
            if (node == e.first || node == e.second || s <= 0.0 || s >= 1.0 || Length(to - s * along) > kOnePlace ||
                IsCorner(tank, one, e.meshIndex, node))
                return;
            places.push_back({node, e.first, e.second, s, std::sqrt(square), e.meshIndex});
        });
    }
    return places;
}

} // namespace havuz::consistent
