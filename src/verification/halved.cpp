#include "verification/halved.h"

#include <algorithm>
#include <cmath>

namespace havuz::verification {

using consistent::Tank;
using consistent::TankMesh;
using consistent::TankNode;

namespace {

// Half way around the centre and half way out.
Vector3 MiddleOfArc(const Vector3 &centre, const Vector3 &a, const Vector3 &b) {
    const Vector3 straight = 0.5 * (a + b), out = straight - centre;
    const double length = std::hypot(out.x, out.y);
    const double radius = (std::hypot(a.x - centre.x, a.y - centre.y) + std::hypot(b.x - centre.x, b.y - centre.y)) / 2;
    if (length < 1e-9)
        return straight;
    return {centre.x + out.x * radius / length, centre.y + out.y * radius / length, straight.z};
}

class Halving {
public:
    explicit Halving(const Tank &coarse) : coarse_(coarse), fine_(coarse) { fine_.meshes.clear(); }

    Tank tank() {
        for (const TankMesh &m : coarse_.meshes)
            quarter(m);
        return std::move(fine_);
    }

private:
    Vector3 middle(const Vector3 &a, const Vector3 &b) const {
        return coarse_.circular ? MiddleOfArc(coarse_.centre, a, b) : 0.5 * (a + b);
    }

    int add(const Vector3 &at, int held) {
        TankNode node;
        node.at = at;
        node.held = held;
        node.used = true;
        fine_.nodes.push_back(node);
        return static_cast<int>(fine_.nodes.size()) - 1;
    }

    int onSide(int a, int b) {
        if (a == b) // of a triangle
            return a;
        int &node = sides_[std::minmax(a, b)];
        if (node == 0) {
            const TankNode &one = coarse_.nodes[static_cast<std::size_t>(a)];
            const TankNode &other = coarse_.nodes[static_cast<std::size_t>(b)];
            node = add(middle(one.at, other.at), one.held & other.held);
        }
        return node;
    }

    void quarter(const TankMesh &m) {
        std::array<int, 4> side{};
        Vector3 sum;
        int corners = 0;
        for (std::size_t k = 0; k < 4; ++k) {
            const int next = m.node[(k + 1) % 4];
            side[k] = onSide(m.node[k], next);
            if (m.node[k] != next) {
                sum = sum + coarse_.corner(m, k);
                ++corners;
            }
        }
        const Vector3 inside = corners == 4 ? middle(fine_.nodes[static_cast<std::size_t>(side[0])].at,
                                                     fine_.nodes[static_cast<std::size_t>(side[2])].at)
                                            : (1.0 / corners) * sum;
        const int centre = add(inside, 0);
        for (std::size_t k = 0; k < 4; ++k) {
            TankMesh part = m;
            part.mesh = static_cast<int>(fine_.meshes.size()) + 1;
            // the same corner of the part as of the whole, so that its axes run the same way
            part.node[k] = m.node[k];
            part.node[(k + 1) % 4] = side[k];
            part.node[(k + 2) % 4] = centre;
            part.node[(k + 3) % 4] = side[(k + 3) % 4];
            fine_.meshes.push_back(part);
        }
    }

    const Tank &coarse_;
    Tank fine_;
    std::map<std::pair<int, int>, int> sides_;
};

} // namespace

Tank Halved(const Tank &coarse) { return Halving(coarse).tank(); }

} // namespace havuz::verification
