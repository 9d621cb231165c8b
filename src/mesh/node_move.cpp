#include "mesh/node_move.h"

#include "model/mesh_facts.h"
#include "view/node_move.h"
#include "view/pick.h"
#include "view/view_state.h"

namespace havuz {

static void ReplaceInMeshes(int from, int to) {
    for (int i = 1; i <= NeighbourMeshCount; ++i)
        for (Int16 *n : CornerFields(MeshTable[NeighbourMeshList[i]]))
            if (*n == from)
                *n = to;
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

// A node that names no panel (PanelNo 0, on plates) is moved on the blank record 0, to height 0: wanted.
static void MoveOnPanel(NoktaRecord &node, double x, double y) {
    const PanelRecord &panel = PanelTable[node.PanelNo];
    const PlanPoint at = PlaceUnderPointer(panel, x, y);
    node.X = at.x;
    node.Y = at.y;
    node.Z = PanelHeight(panel, node.X, node.Y);
}

void FinishNodeMove(double x, double y) {
    const int m = SeciliNo;
    PickNode(x, y);
    const int found = SeciliNo;
    SeciliNo = m;
    if (found > 0)
        ReplaceInMeshes(m, found);
    else
        MoveOnPanel(NoktaTable[m], x, y);
}

} // namespace havuz
