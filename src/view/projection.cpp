#include "view/projection.h"

#include "model/arithmetic.h"
#include "model/store.h"
#include "view/displacements.h"
#include "view/view_state.h"

#include <cmath>

namespace havuz {

// The steps are in this order and to the letter: the views depend on every one of them. z2 uses the already rotated x2,
// so the second rotation is not a pure one: wanted.
void ProjectToView(double x, double y, double z, double &sx, double &sy, double &depth) {
    const double y1 = y * std::cos(ViewAngleA) - z * std::sin(ViewAngleA);
    const double z1 = y * std::sin(ViewAngleA) + z * std::cos(ViewAngleA);
    const double x2 = x * std::cos(ViewAngleB) + z1 * std::sin(ViewAngleB);
    const double z2 = z1 * std::cos(ViewAngleB) - x2 * std::sin(ViewAngleB);
    const double x3 = x2 * std::cos(ViewAngleC) - y1 * std::sin(ViewAngleC);
    const double y3 = x2 * std::sin(ViewAngleC) + y1 * std::cos(ViewAngleC);
    depth = z2 + ViewDistance;
    sx = Divide(x3 * ViewDistance, depth, Thing::Projection);
    sy = Divide(-y3 * ViewDistance, depth, Thing::Projection);
}

void ProjectToView(double x, double y, double z, double &sx, double &sy) {
    double depth = 0.0;
    ProjectToView(x, y, z, sx, sy, depth);
}

void NodeToScreen(int node, double &px, double &py, int &support) {
    const NoktaRecord &record = NoktaTable[node];
    double x = record.X;
    double y = record.Y;
    double z = record.Z;
    support = record.Mesnet;
    if (DeformScale > 0.0) {
        const Displacement moved = ReadDisplacement(node, ActiveLoadCase);
        x = x + DeformScale * moved.x;
        y = y + DeformScale * moved.y;
        z = z + DeformScale * moved.z;
    }
    double sx = 0.0;
    double sy = 0.0;
    ProjectToView(x, y, z, sx, sy);
    px = MeshOffsetX + MeshScale * sx;
    py = MeshOffsetY + MeshScale * sy;
}

bool RotatedView() { return IsoView > 0; }

ScreenPoint MeshScreen(double x, double y, double z) {
    if (RotatedView())
        ProjectToView(x, y, z, x, y);
    return {MeshOffsetX + MeshScale * x, MeshOffsetY + MeshScale * y};
}

ScreenPoint PlateScreen(double x, double y, double z) {
    if (RotatedView())
        ProjectToView(x, y, z, x, y);
    return {PlateOffsetX + PlateScale * x, PlateOffsetY + PlateScale * y};
}

ScreenPoint NodePixels(int node) {
    if (!RotatedView())
        return MeshScreen(NoktaTable[node].X, NoktaTable[node].Y, NoktaTable[node].Z);
    ScreenPoint p;
    int support = 0;
    NodeToScreen(node, p.x, p.y, support);
    return p;
}

} // namespace havuz
