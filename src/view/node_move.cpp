#include "view/node_move.h"

#include "model/arithmetic.h"
#include "model/store.h"
#include "view/mesh_drawing.h"
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

static void ReplaceInMeshes(int from, int to) {
    for (int i = 1; i <= NeighbourMeshCount; ++i) {
        MeshRecord &mesh = MeshTable[NeighbourMeshList[i]];
        for (Int16 *n : {&mesh.N1, &mesh.N2, &mesh.N3, &mesh.N4})
            if (*n == from)
                *n = to;
    }
}

// The value at t on the line from (a, valueA) to (b, valueB); with a equal to b the first value stands.
static double Between(double a, double valueA, double b, double valueB, double t) {
    return a == b ? valueA : valueA + (valueB - valueA) * (t - a) / (b - a);
}

// Height of a panel at (x, y), from its corners: along sides 1-2 and 4-3 at x, then between these two at y.
static double PanelHeight(const PanelRecord &panel, double x, double y) {
    const double y12 = Between(panel.X[1], panel.Y[1], panel.X[2], panel.Y[2], x);
    const double z12 = Between(panel.X[1], panel.Z[1], panel.X[2], panel.Z[2], x);
    const double y43 = Between(panel.X[4], panel.Y[4], panel.X[3], panel.Y[3], x);
    const double z43 = Between(panel.X[4], panel.Z[4], panel.X[3], panel.Z[3], x);
    return Between(y12, z12, y43, z43, y);
}

static void MoveInPlan(NoktaRecord &node, double x, double y) {
    node.X = Divide(x - MeshOffsetX, MeshScale, Thing::MeshView);
    node.Y = Divide(y - MeshOffsetY, MeshScale, Thing::MeshView);
}

// In the rotated view the pointer says only how far along the diagonal from corner 1 to corner 3 the node lies.
static void MoveAlongDiagonal(NoktaRecord &node, const PanelRecord &panel, double x, double y) {
    const ScreenPoint first = MeshScreen(panel.X[1], panel.Y[1], panel.Z[1]);
    const ScreenPoint third = MeshScreen(panel.X[3], panel.Y[3], panel.Z[3]);
    const double u = Distance2(x - first.x, y - first.y);
    const double v = Distance2(x - third.x, y - third.y);
    node.X = panel.X[1] + Divide((panel.X[3] - panel.X[1]) * u, u + v, Thing::NodeMove);
    node.Y = panel.Y[1] + Divide((panel.Y[3] - panel.Y[1]) * u, u + v, Thing::NodeMove);
}

// A node that names no panel (PanelNo 0, on plates) is moved on the blank record 0, to height 0: wanted.
static void MoveOnPanel(int m, double x, double y) {
    NoktaRecord &node = NoktaTable[m];
    const PanelRecord &panel = PanelTable[node.PanelNo];
    if (RotatedView())
        MoveAlongDiagonal(node, panel, x, y);
    else
        MoveInPlan(node, x, y);
    node.Z = PanelHeight(panel, node.X, node.Y);
}

void FinishNodeMove(double x, double y, Surface &scr, ViewWindow &window) {
    const int m = SeciliNo;
    PickNode(x, y);
    const int found = SeciliNo;
    SeciliNo = m;
    if (found > 0)
        ReplaceInMeshes(m, found);
    else
        MoveOnPanel(m, x, y);
    DrawMeshView(scr, window);
}

} // namespace havuz
