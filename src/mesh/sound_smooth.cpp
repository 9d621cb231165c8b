// Sound mesh: smoothing. A node moves only to a place where the worst corner of the meshes around it gets better, so
// the worst corner of the whole mesh never gets worse, and it ends with the sweeps. After Freitag and Ollivier-Gooch
// 1997.
#include "mesh/sound_work.h"

#include <cmath>

namespace havuz::sound {

namespace {

constexpr int kSweeps = 12;
constexpr double kGood = 0.80;                        // shape: better stars only follow their neighbours' mean
constexpr double kEnough = 0.75;                      // sine of a corner that need not get better
constexpr double kGain = 1e-3;                        // a smaller gain is none
constexpr double kFirstStep = 0.25, kLastStep = 0.06; // of the mean side, of the search in eight directions

class Smoother {
public:
    explicit Smoother(FlatMesh &mesh)
        : mesh_(mesh), around_(mesh.node.size()), beside_(mesh.node.size()), quiet_(mesh.node.size(), 0) {
        for (int q = 0; q < Count(mesh.quad); ++q)
            for (int k = 0; k < 4; ++k) {
                const int node = At(At(mesh.quad, q), k);
                At(around_, node).push_back(q);
                for (const int l : {1, 3})
                    if (const int other = At(At(mesh.quad, q), (k + l) % 4);
                        std::find(At(beside_, node).begin(), At(beside_, node).end(), other) == At(beside_, node).end())
                        At(beside_, node).push_back(other);
            }
    }

    void run() {
        Worth start;
        for (int q = 0; q < Count(mesh_.quad); ++q)
            start.take(worthOf(q));
        enough_ = std::max(kEnough, start.sine);
        for (int sweep = 0; sweep < kSweeps; ++sweep) {
            bool any = false;
            for (int node = mesh_.fixed; node < Count(mesh_.node); ++node)
                if (At(quiet_, node) <= sweep && move(node)) {
                    any = true;
                    for (const int q : At(around_, node))
                        for (const int other : At(mesh_.quad, q))
                            At(quiet_, other) = 0;
                } else {
                    At(quiet_, node) = std::max(At(quiet_, node), sweep + 2);
                }
            if (!any)
                break;
        }
    }

private:
    // Of the corners of a mesh, or of meshes: the least sine, and the least of sine by the ratio of the two sides there
    // (Knupp's shape); below 0 for folded ones.
    struct Worth {
        double sine = 1.0, shape = 1.0;
        void take(Worth other) {
            sine = std::min(sine, other.sine);
            shape = std::min(shape, other.shape);
        }
    };
    Worth worthOf(int quad) const {
        std::array<PlanPoint, 4> p{}, side{};
        std::array<double, 4> length2{};
        for (int k = 0; k < 4; ++k)
            At(p, k) = At(mesh_.node, At(At(mesh_.quad, quad), k));
        for (int k = 0; k < 4; ++k) {
            At(side, k) = {At(p, (k + 1) % 4).x - At(p, k).x, At(p, (k + 1) % 4).y - At(p, k).y};
            At(length2, k) = At(side, k).x * At(side, k).x + At(side, k).y * At(side, k).y;
        }
        Worth worth;
        for (int k = 0; k < 4; ++k) {
            const PlanPoint a = At(side, (k + 3) % 4), b = At(side, k);
            const double cross = a.x * b.y - a.y * b.x, aa = At(length2, (k + 3) % 4), bb = At(length2, k);
            worth.take({cross / std::sqrt(aa * bb), 2.0 * cross / (aa + bb)});
        }
        return worth;
    }
    Worth worthAround(int node) const {
        Worth worth;
        for (const int q : At(around_, node))
            worth.take(worthOf(q));
        return worth;
    }
    // A better shape, and no worse angle, but that a good one may fall to the sine that is good enough.
    bool tryPlace(int node, PlanPoint to, Worth &best) {
        const PlanPoint from = At(mesh_.node, node);
        At(mesh_.node, node) = to;
        const Worth now = worthAround(node);
        if (now.shape > best.shape + kGain && now.sine >= std::min(best.sine, enough_)) {
            best = now;
            return true;
        }
        At(mesh_.node, node) = from;
        return false;
    }
    bool move(int node) {
        Worth best = worthAround(node);
        double side = 0.0;
        PlanPoint mean;
        const PlanPoint at = At(mesh_.node, node);
        const double n = static_cast<double>(At(beside_, node).size());
        for (const int other : At(beside_, node)) {
            const PlanPoint p = At(mesh_.node, other);
            mean.x += p.x / n;
            mean.y += p.y / n;
            side += PlanDistance(at, p) / n;
        }
        bool moved = tryPlace(node, mean, best);
        if (best.shape >= kGood)
            return moved;
        for (double step = kFirstStep; step >= kLastStep; step /= 2.0)
            for (int k = 0; k < 8; ++k) {
                const PlanPoint p = At(mesh_.node, node);
                const double angle = k * std::acos(-1.0) / 4.0;
                moved =
                    tryPlace(node, {p.x + step * side * std::cos(angle), p.y + step * side * std::sin(angle)}, best) ||
                    moved;
            }
        return moved;
    }

    FlatMesh &mesh_;
    double enough_ = kEnough;
    std::vector<std::vector<int>> around_, beside_; // meshes and neighbours of a node
    std::vector<int> quiet_;                        // the sweep from which a node is looked at again
};

} // namespace

void Smooth(FlatMesh &mesh) { Smoother(mesh).run(); }

} // namespace havuz::sound
