// The rectangular pool: base, four walls and, with Bk not 0, four strips outside the top of the walls. Lengths in m,
// thicknesses in cm.
#include "model/arithmetic.h"
#include "model/points.h"
#include "pool/pool_panels.h"

#include <array>

namespace havuz {

namespace {

struct PanelRow {
    int tip;
    double thickness;
    double nx, ny;
    std::array<SpacePoint, 4> corners;
    std::array<int, 4> komsu;
};

void PutPanel(const PanelRow &row) {
    PanelRecord &panel = PanelTable[++PanelCount];
    panel.No = PanelCount;
    panel.Tip = row.tip;
    panel.D = row.thickness;
    panel.G = PanelDeadLoad(row.thickness);
    panel.P = 0.0;
    panel.Nx = row.nx;
    panel.Ny = row.ny;
    for (int k = 1; k <= 4; ++k) {
        const SpacePoint &corner = row.corners[static_cast<std::size_t>(k - 1)];
        panel.X[k] = corner.x;
        panel.Y[k] = corner.y;
        panel.Z[k] = corner.z;
        panel.KenarMesnet[k] = 0;
        panel.KenarKomsu[k] = row.komsu[static_cast<std::size_t>(k - 1)];
    }
}

} // namespace

// The link codes stand as a table of their own and do not all follow one pattern (104 twice on panel 2, the strips'
// codes in the places shown): wanted, the panel table shows them.
void GenerateRectangularPool(double w) {
    const double sx = Divide(Lx, w, Thing::MeshGenisligi);
    const double sy = Ly / w;
    const double sz = (UstKot - AltKot) / w;
    const double sc = StripDivisions(w);
    const double st = 2.0 * sc + Ly / w;
    const double ds = AltKalinlik;
    const double dp = KenarKalinlik;
    const double alt = AltKot;
    const double ust = UstKot;
    const double b = Bk;
    const auto s = [](int code) { return Bk != 0.0 ? code : 0; };
    PanelCount = 0;
    // clang-format off
    PutPanel({0, ds, sx, sy, {{{0, 0, alt}, {Lx, 0, alt}, {Lx, Ly, alt}, {0, Ly, alt}}}, {303, 403, 503, 203}});
    PutPanel({1, dp, sy, sz, {{{0, Ly, ust}, {0, 0, ust}, {0, 0, alt}, {0, Ly, alt}}}, {s(802), 502, 104, 104}});
    PutPanel({1, dp, sx, sz, {{{0, 0, ust}, {Lx, 0, ust}, {Lx, 0, alt}, {0, 0, alt}}}, {s(603), 404, 101, 204}});
    PutPanel({1, dp, sy, sz, {{{Lx, 0, ust}, {Lx, Ly, ust}, {Lx, Ly, alt}, {Lx, 0, alt}}}, {s(904), 504, 102, 302}});
    PutPanel({1, dp, sx, sz, {{{Lx, Ly, ust}, {0, Ly, ust}, {0, Ly, alt}, {Lx, Ly, alt}}}, {s(701), 201, 103, 402}});
    if (b == 0.0)
        return;
    PutPanel({2, dp, sx, sc, {{{0, -b, ust}, {Lx, -b, ust}, {Lx, 0, ust}, {0, 0, ust}}}, {0, 904, 301, 802}});
    PutPanel({2, dp, sx, sc, {{{0, Ly, ust}, {Lx, Ly, ust}, {Lx, Ly + b, ust}, {0, Ly + b, ust}}}, {501, 904, 0, 802}});
    PutPanel({2, dp, sc, st, {{{-b, -b, ust}, {0, -b, ust}, {0, Ly + b, ust}, {-b, Ly + b, ust}}}, {0, 201, 0, 0}});
    PutPanel({2, dp, sc, st, {{{Lx, -b, ust}, {Lx + b, -b, ust}, {Lx + b, Ly + b, ust}, {Lx, Ly + b, ust}}},
              {0, 0, 0, 401}});
    // clang-format on
}

} // namespace havuz
