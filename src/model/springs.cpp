#include "model/springs.h"

#include "model/link_code.h"
#include "model/mesh_facts.h"
#include "model/store.h"

#include <cmath>
#include <vector>

namespace havuz {

double MeshPlanArea(int mesh) {
    const MeshRecord &m = MeshTable[mesh];
    const auto ring = MeshRing(m);
    double area = 0.0;
    for (std::size_t i = 0; i < 4; ++i) {
        const NoktaRecord &a = NoktaTable[ring[i]];
        const NoktaRecord &b = NoktaTable[ring[i + 1]];
        area = area + (b.Y * a.X - a.Y * b.X) / 2.0;
    }
    return std::fabs(area);
}

// A plate mesh lies on the foundation whatever its plate is: wanted.
static bool LiesOnFoundation(const MeshRecord &mesh) {
    return OwnerIsPlate(mesh.PanelNo) || !(PanelTable[mesh.PanelNo].Tip > 0);
}

// Element n of the spring of node n; a mesh may name any record of the table.
static std::vector<Float32> AllSprings() {
    std::vector<Float32> springs(kNoktaCapacity + 1);
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &mesh = MeshTable[i];
        if (!TakesSprings(mesh) || !LiesOnFoundation(mesh))
            continue;
        const double share = ZeminKo * MeshPlanArea(i) / 4.0;
        for (const int node : MeshCorners(mesh))
            springs[static_cast<std::size_t>(node)] += share;
    }
    return springs;
}

std::vector<Float32> FoundationSprings() {
    std::vector<Float32> springs = AllSprings();
    springs.resize(static_cast<std::size_t>(NoktaCount) + 1);
    return springs;
}

void SpringStiffness() {
    if (NoktaCount == 0 || MeshCount == 0)
        return;
    const std::vector<Float32> springs = FoundationSprings();
    for (int i = 1; i <= NoktaCount; ++i)
        NoktaTable[i].Yay = springs[static_cast<std::size_t>(i)];
}

} // namespace havuz
