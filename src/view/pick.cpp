#include "view/pick.h"

#include "model/mesh_facts.h"
#include "model/store.h"
#include "view/view_state.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace havuz {

static constexpr double kPickDistance = 7.0;

std::array<int, 4> MeshNodes(int mesh) { return MeshCorners(MeshTable[mesh]); }

void PickNode(double x, double y) {
    SeciliNo = 0;
    for (int i = 1; i <= NoktaCount; ++i) {
        const ScreenPoint p = NodePixels(i);
        if (std::fabs(x - p.x) < kPickDistance && std::fabs(y - p.y) < kPickDistance) {
            SeciliNo = i;
            AnchorX = p.x;
            AnchorY = p.y;
            return;
        }
    }
}

// Heights at which the vertical line through x crosses the sides of a ring. A side that is vertical on the screen has
// no crossing.
static std::vector<double> Crossings(double x, std::span<const ScreenPoint> ring) {
    std::vector<double> heights;
    for (std::size_t k = 0; k + 1 < ring.size(); ++k) {
        ScreenPoint left = ring[k];
        ScreenPoint right = ring[k + 1];
        if (left.x > right.x)
            std::swap(left, right);
        if (left.x <= x && x <= right.x && left.x != right.x)
            heights.push_back(left.y + (x - left.x) * (right.y - left.y) / (right.x - left.x));
    }
    return heights;
}

bool RingEncloses(std::span<const ScreenPoint> ring, double x, double y, double slack) {
    const std::vector<double> height = Crossings(x, ring);
    if (height.size() < 2)
        return false;
    const double d1 = std::fabs(y - height[0]);
    const double d2 = std::fabs(y - height[1]);
    const double d = std::fabs(height[0] - height[1]);
    return d1 + d2 < d + slack;
}

bool Drawable(int mesh) {
    const std::array<int, 4> n = MeshNodes(mesh);
    return MeshTable[mesh].PanelNo >= 0 &&
           std::all_of(n.begin(), n.end(), [](int node) { return node >= 1 && node <= NoktaCount; });
}

static bool MeshEncloses(int mesh, double x, double y) {
    const std::array<int, 4> n = MeshNodes(mesh);
    const std::array<ScreenPoint, 5> ring = {NodePixels(n[0]), NodePixels(n[1]), NodePixels(n[2]), NodePixels(n[3]),
                                             NodePixels(n[0])};
    return RingEncloses(ring, x, y, 1.0);
}

void PickMesh(double x, double y, std::string &text) {
    SeciliNo = 0;
    text.clear();
    for (int i = 1; i <= MeshCount; ++i) {
        if (!Drawable(i) || !MeshEncloses(i, x, y))
            continue;
        const std::array<int, 4> n = MeshNodes(i);
        text = "Mesh:" + std::to_string(n[0]) + "-" + std::to_string(n[1]) + "-" + std::to_string(n[2]) + "-" +
               std::to_string(n[3]);
        SeciliNo = i;
        return;
    }
}

} // namespace havuz
