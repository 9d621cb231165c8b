#include "plak_support.h"

#include "mesh/oto_mesh.h"
#include "mesh/polygon_pool.h"

#include <algorithm>

namespace havuz {

int PutPlak(const std::vector<PlanPoint> &outline, double z) {
    PlakRecord &plate = PlakTable[++PlakCount];
    plate.NoktaSayisi = static_cast<int>(outline.size());
    for (int k = 1; k <= plate.NoktaSayisi; ++k) {
        plate.X[k] = outline[static_cast<std::size_t>(k - 1)].x;
        plate.Y[k] = outline[static_cast<std::size_t>(k - 1)].y;
        plate.Z[k] = z;
    }
    return PlakCount;
}

void PutPool(const std::vector<PlanPoint> &outline) { BuildPolygonPool({outline, 20.0, 30.0, 3.0, 0.0}); }

void MeshPool(const std::vector<PlanPoint> &outline, double width) {
    PutPool(outline);
    MeshGenisligi = width;
    MeshWindow none;
    OtoMesh(MeshGenisligi, none);
}

std::vector<PlanPoint> Rectangle(double x, double y, double lx, double ly) {
    return {{x, y}, {x + lx, y}, {x + lx, y + ly}, {x, y + ly}};
}

std::vector<PlanPoint> Turned(std::vector<PlanPoint> outline, double angle) {
    for (PlanPoint &p : outline)
        p = {p.x * std::cos(angle) - p.y * std::sin(angle), p.x * std::sin(angle) + p.y * std::cos(angle)};
    return outline;
}

std::vector<PlanPoint> Reversed(std::vector<PlanPoint> outline) {
    std::reverse(outline.begin(), outline.end());
    return outline;
}

std::array<int, 4> Corners(int mesh) {
    const MeshRecord &m = MeshTable[mesh];
    return {m.N1, m.N2, m.N3, m.N4};
}

double TwicePlanArea(int mesh) {
    const std::array<int, 4> ring = Corners(mesh);
    double twice = 0.0;
    for (std::size_t k = 0; k < 4; ++k) {
        const SpacePoint a = NodePlace(ring[k]), b = NodePlace(ring[(k + 1) % 4]);
        twice += a.x * b.y - b.x * a.y;
    }
    return twice;
}

std::map<std::pair<int, int>, int> MeshesBySide() {
    std::map<std::pair<int, int>, int> meshes;
    for (int i = 1; i <= MeshCount; ++i) {
        const std::array<int, 4> ring = Corners(i);
        for (std::size_t k = 0; k < 4; ++k)
            ++meshes[std::minmax(ring[k], ring[(k + 1) % 4])];
    }
    return meshes;
}

} // namespace havuz
