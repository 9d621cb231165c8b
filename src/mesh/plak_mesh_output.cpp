// Plate meshing, last steps: the points that meshes use, their heights, and the nodes and meshes that are appended.
//
// Points are numbered 1, 2, ... in the order of their making, those of no quadrilateral left out; nodes follow those of
// the plates before. A corner of the plate that no mesh reaches hands its place and code to the nearest other point.
// Heights: a level plate has that of its lowest point. A sloped one is the plane of its lowest point A, its highest B
// and the point C with the greatest sum of distances from both,
//   z = plane(A, B, C) at (x, y)     (plane_geometry.h, EgikDuzlemKur),
// so that outline points off this plane do not count. With r = (zC - zA)/(zB - zA) the point D = A + r*(B - A) is as
// high as C, C D is a level line, and the slope runs square to it, from B to the foot of A on it;
//   z = zA + (zB - zA) * |A F| / |A B|     F the foot of the point on the line of slope, |A F| without sign: wanted.
// Codes: +(1000*plate + edge), -(1000*plate + corner), and
// -1000*plate inside (link_code.h); from plate 33 on they no longer fit 16 bits, which is a failure: 33*1000 is more
// than 32767.
#include "mesh/plak_mesh_work.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/mesh_facts.h"

namespace havuz {

void NumberUsedPoints(PlakMeshWork &w) {
    w.Kullanim.assign(w.GX.size(), 0);
    for (int q = 1; q <= w.quads; ++q)
        for (int k = 1; k <= 4; ++k)
            w.Kullanim[static_cast<std::size_t>(DortluTable[q].Kose[k])] = 1;
    w.Kullanim[0] = 0; // a corner without a point counts as number 0
    int used = 0;
    for (int &number : w.Kullanim)
        if (number > 0)
            number = ++used;
}

// The nearest other point, used or not; 0 when none is nearer than 1000.
static int NearestPoint(PlakMeshWork &w, int p) {
    double nearest = 1000.0;
    int best = 0;
    for (int q = 1; q <= w.points(); ++q) {
        if (q == p)
            continue;
        const double d = PlanDistance(w.point(q), w.point(p));
        if (d < nearest) {
            nearest = d;
            best = q;
        }
    }
    return best;
}

// A corner of the plate that no mesh reaches hands its place over to the nearest other point.
void HandOverCorners(PlakMeshWork &w) {
    for (int p = 1; p <= w.points(); ++p)
        if (w.Kullanim[static_cast<std::size_t>(p)] == 0 && w.gk(p) < 0)
            w.put(NearestPoint(w, p), w.point(p), w.gk(p));
}

// The outline point whose distances from the lowest and the highest point have the greatest sum.
static int FarthestFromSlope(const PlakMeshWork &w) {
    double greatest = 0.0;
    int c = 0;
    for (int k = 1; k <= w.n; ++k) {
        const double d =
            PlanDistance(w.outline(k), w.outline(w.ZminNo)) + PlanDistance(w.outline(k), w.outline(w.ZmaxNo));
        if (d > greatest) {
            greatest = d;
            c = k;
        }
    }
    return c;
}

static EgikDuzlem PrepareSlope(const PlakMeshWork &w) {
    const PlakRecord &plate = PlakTable[w.plak];
    const int c = FarthestFromSlope(w);
    return EgikDuzlemKur({w.outline(w.ZminNo), w.outline(w.ZmaxNo), plate.Z[w.ZminNo], plate.Z[w.ZmaxNo]}, w.outline(c),
                         plate.Z[c]);
}

static double Height(const PlakMeshWork &w, const EgikDuzlem &plane, PlanPoint at) {
    if (w.ZminNo == w.ZmaxNo)
        return PlakTable[w.plak].Z[w.ZminNo];
    if (PlanDistance(plane.a, plane.b) == 0.0)
        throw RuntimeFailure({.fault = Fault::NoLengthOfSlope, .where = {{Thing::Plate, w.plak}}});
    return EgikKot(plane, at.x, at.y);
}

// 32-bit coordinates and a 16-bit code, m.
static void AppendNode(const PlakMeshWork &w, PlanPoint at, double z, int code) {
    if (NoktaCount + 1 > kNoktaCapacity)
        FailSubscript({{Thing::Plate, w.plak}}, Thing::NoktaTable, NoktaCount + 1, kNoktaCapacity);
    const int plakKodu = NodePlakKodu(w.plak, code);
    if (plakKodu < -32768 || plakKodu > 32767)
        throw RuntimeFailure({.fault = Fault::CodePast16Bits,
                              .where = {{Thing::Plate, w.plak}},
                              .thing = Thing::PlakKodu,
                              .number = plakKodu,
                              .bound = 32});
    NoktaRecord &node = NoktaTable[++NoktaCount];
    node.X = at.x;
    node.Y = at.y;
    node.Z = z;
    node.PlakKodu = plakKodu;
}

static void AppendMesh(const PlakMeshWork &w, const DortluRecord &quad, int nodesBefore) {
    if (MeshCount + 1 > kMeshCapacity)
        FailSubscript({{Thing::Plate, w.plak}}, Thing::MeshTable, MeshCount + 1, kMeshCapacity);
    const auto node = [&](int k) { return w.Kullanim[static_cast<std::size_t>(quad.Kose[k])] + nodesBefore; };
    MeshRecord &mesh = MeshTable[++MeshCount];
    PutCorners(mesh, node(1), node(2), node(3), node(4));
    mesh.PanelNo = PlateOwner(w.plak);
}

void AppendNodesAndMeshes(PlakMeshWork &w) {
    const int nodesBefore = NoktaCount;
    const EgikDuzlem plane = w.ZminNo == w.ZmaxNo ? EgikDuzlem{} : PrepareSlope(w);
    for (int p = 1; p <= w.points(); ++p)
        if (w.Kullanim[static_cast<std::size_t>(p)] > 0)
            AppendNode(w, w.point(p), Height(w, plane, w.point(p)), w.gk(p));
    for (int q = 1; q <= w.quads; ++q)
        AppendMesh(w, DortluTable[q], nodesBefore);
}

} // namespace havuz
