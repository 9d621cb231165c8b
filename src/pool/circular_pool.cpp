// The circular pool: panels, nodes and meshes straight from the parameters. Lengths in m, thicknesses in cm.
#include "model/arithmetic.h"
#include "model/mesh_facts.h"
#include "model/options.h"
#include "pool/pool_panels.h"

#include <cmath>

namespace havuz {

namespace {

// All three panels carry No 1, which marks their records as used.
PanelRecord &PutPanel(int tip, double thickness, int nx, int ny) {
    PanelRecord &panel = PanelTable[++PanelCount];
    panel.No = 1;
    panel.Tip = tip;
    panel.D = thickness;
    panel.G = PanelDeadLoad(thickness);
    panel.P = 0.0;
    panel.Nx = nx;
    panel.Ny = ny;
    return panel;
}

// The corners only mark the square around the circle; all Z 0.
void PutSquare(PanelRecord &panel, double r) {
    panel.X[2] = panel.X[3] = 2.0 * r;
    panel.Y[3] = panel.Y[4] = 2.0 * r;
}

void PutNode(double x, double y, double z) {
    NoktaRecord &node = NoktaTable[NoktaCount + 1]; // counted once it is there
    ++NoktaCount;
    node = NoktaTable[0];
    node.X = x;
    node.Y = y;
    node.Z = z;
}

// n nodes around the centre (r, r) at the radius given.
void PutRing(int n, double r, double radius, double z) {
    for (int j = 0; j <= n - 1; ++j) {
        const double a = j * 2 * kPi / n;
        PutNode(r + radius * std::cos(a), r + radius * std::sin(a), z);
    }
}

void PutMesh(int panel, int n1, int n2, int n3, int n4) {
    MeshRecord &mesh = MeshTable[MeshCount + 1];
    ++MeshCount;
    mesh = MeshTable[0];
    PutCorners(mesh, n1, n2, n3, n4);
    mesh.PanelNo = panel;
}

// One round of n meshes between the ring whose first node is a0 and the next ring, first node b0.
void PutMeshRing(int panel, int n, int a0, int b0) {
    for (int j = 0; j <= n - 1; ++j) {
        const int close = j == n - 1 ? n : 0;
        PutMesh(panel, a0 + j, a0 + j + 1 - close, b0 + j + 1 - close, b0 + j);
    }
}

// Ring 1: four-node meshes that share the centre, each over two divisions.
void PutFan(int n) {
    for (int j = 1; j <= n - 1; j += 2)
        PutMesh(1, 1, j + 1, j + 2, j + 2 > n ? 2 : j + 3);
}

void PutBase(int n, int m, double r) {
    PutSquare(PutPanel(0, AltKalinlik, n, m), r);
    PutNode(r, r, 0.0);
    for (int i = 1; i <= m; ++i)
        PutRing(n, r, i * r / m, 0.0);
    PutFan(n);
    for (int i = 1; i <= m - 1; ++i)
        PutMeshRing(1, n, 1 + (i - 1) * n + 1, 1 + i * n + 1);
}

// The wall rises from Z 0, whatever AltKot says: wanted.
void PutWall(int n, int m, int mw, double h, double r) {
    PutSquare(PutPanel(1, KenarKalinlik, n, mw), r);
    for (int i = 1; i <= mw; ++i)
        PutRing(n, r, r, i * (h / mw));
    const int f = 1 + m * n - n + 1; // first node of the outermost base ring
    for (int i = 1; i <= mw; ++i)
        PutMeshRing(2, n, f + (i - 1) * n, f + i * n);
}

// The strip stands at UstKot and stops short of Bk where Bk is no multiple of the mesh width: wanted.
void PutStrip(int n, int mw, double r, double w) {
    PutPanel(2, KenarKalinlik, n, mw);
    const double c = StripDivisions(w);
    const int rings = FloorToWhole(c);
    const int f = NoktaCount - n + 1; // first node of the top ring
    for (int i = 1; i <= rings; ++i)
        PutRing(n, r, r + i * Bk / c, UstKot);
    for (int i = 1; i <= rings; ++i)
        PutMeshRing(3, n, f + (i - 1) * n, f + i * n);
}

} // namespace

void GenerateCircularPool(double w) {
    const double r = Lx / 2.0;
    const double h = UstKot - AltKot;
    const int n = 2 * (RoundToWhole(Divide(kPi * Lx, w, Thing::MeshGenisligi)) / 2); // even, rounded down
    const int m = RoundToWhole((Lx / w) / 2.0);
    const int mw = RoundToWhole(h / w);
    PanelCount = 0;
    PutBase(n, m, r);
    PutWall(n, m, mw, h, r);
    if (Bk != 0.0)
        PutStrip(n, mw, r, w);
}

} // namespace havuz
