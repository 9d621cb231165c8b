#include "view/node_move.h"

#include "model/arithmetic.h"
#include "model/store.h"
#include "view/pick.h"
#include "view/projection.h"
#include "view/view_state.h"

#include <vector>

namespace havuz {

static bool IsNeighbour(int node) {
    for (int i = 1; i <= NeighbourNodeCount; ++i)
        if (NeighbourNodeList[i] == node)
            return true;
    return false;
}

// The nodes before and after the given one in each mesh around it, mesh by mesh. A mesh that holds the node at two
// places is listed for each.
static std::vector<int> ListMeshesAround(int node) {
    std::vector<int> beside;
    NeighbourMeshCount = 0;
    for (int i = 1; i <= MeshCount; ++i) {
        const std::array<int, 4> n = MeshNodes(i);
        for (std::size_t k = 0; k < 4; ++k) {
            if (n[k] != node)
                continue;
            NeighbourMeshList[++NeighbourMeshCount] = i;
            beside.push_back(n[(k + 3) % 4]);
            beside.push_back(n[(k + 1) % 4]);
        }
    }
    return beside;
}

void BeginNodeMove(ViewWindow &window) {
    const std::vector<int> beside = ListMeshesAround(SeciliNo);
    NeighbourNodeCount = 0;
    for (const int node : beside)
        if (!IsNeighbour(node) && NeighbourNodeCount < kNeighbourNodes)
            NeighbourNodeList[++NeighbourNodeCount] = node;
    for (int i = 1; i <= NeighbourNodeCount; ++i) {
        const ScreenPoint end = NodePixels(NeighbourNodeList[i]);
        window.ShowPol(i, AnchorX, AnchorY, end.x, end.y);
    }
}

// In the rotated view the pointer says only how far along the diagonal from corner 1 to corner 3 the node lies.
static PlanPoint AlongDiagonal(const PanelRecord &panel, double x, double y) {
    const ScreenPoint first = MeshScreen(panel.X[1], panel.Y[1], panel.Z[1]);
    const ScreenPoint third = MeshScreen(panel.X[3], panel.Y[3], panel.Z[3]);
    const double u = Distance2(x - first.x, y - first.y);
    const double v = Distance2(x - third.x, y - third.y);
    return {panel.X[1] + Divide((panel.X[3] - panel.X[1]) * u, u + v, Thing::NodeMove),
            panel.Y[1] + Divide((panel.Y[3] - panel.Y[1]) * u, u + v, Thing::NodeMove)};
}

PlanPoint PlaceUnderPointer(const PanelRecord &panel, double x, double y) {
    if (RotatedView())
        return AlongDiagonal(panel, x, y);
    return {Divide(x - MeshOffsetX, MeshScale, Thing::MeshView), Divide(y - MeshOffsetY, MeshScale, Thing::MeshView)};
}

} // namespace havuz
