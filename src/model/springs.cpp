#include "model/springs.h"

#include "model/link_code.h"
#include "model/store.h"

#include <cmath>
#include <vector>

namespace havuz {

double MeshPlanArea(int mesh) {
    const MeshRecord &m = MeshTable[mesh];
    const int ring[5] = {m.N1, m.N2, m.N3, m.N4, m.N1};
    double area = 0.0;
    for (int i = 0; i < 4; ++i) {
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
        if (mesh.Sil > 0 || !LiesOnFoundation(mesh))
            continue;
        const double share = ZeminKo * MeshPlanArea(i) / 4.0;
        for (const int node : {int(mesh.N1), int(mesh.N2), int(mesh.N3), int(mesh.N4)})
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
