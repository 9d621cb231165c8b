#include "mesh/polygon_pool.h"

#include "model/link_code.h"
#include "model/store.h"

namespace havuz {

static void AppendPlate(const PolygonPool &pool) {
    PlakRecord &plate = PlakTable[PlakCount + 1];
    ++PlakCount;
    const int n = static_cast<int>(pool.points.size());
    plate.NoktaSayisi = n;
    plate.Kalinlik = pool.ds;
    for (int k = 1; k <= n; ++k) {
        const PlanPoint at = pool.points[static_cast<std::size_t>(k - 1)];
        plate.X[k] = at.x;
        plate.Y[k] = at.y;
        plate.Z[k] = AltKot;
        plate.KenarKodu[k] = PanelLink(k, 3);
    }
}

// G and P stay as the record held them.
static void AppendWall(const PolygonPool &pool, int k) {
    PanelRecord &wall = PanelTable[PanelCount + 1];
    ++PanelCount;
    const int n = static_cast<int>(pool.points.size());
    const PlanPoint from = pool.points[static_cast<std::size_t>(k - 1)],
                    to = pool.points[static_cast<std::size_t>(k % n)];
    for (const int corner : {1, 2, 3, 4}) {
        const PlanPoint at = corner == 1 || corner == 4 ? from : to;
        wall.X[corner] = at.x;
        wall.Y[corner] = at.y;
        wall.Z[corner] = corner <= 2 ? UstKot : AltKot;
    }
    wall.Tip = 1;
    wall.D = pool.dp;
    wall.No = PanelCount;
    wall.KenarKomsu[1] = 0;
    wall.KenarKomsu[2] = PanelLink(k + 1, 4);
    wall.KenarKomsu[3] = PlateLink(PlakCount, k);
    wall.KenarKomsu[4] = PanelLink(k > 1 ? k - 1 : n, 1);
    wall.Nx = PlanDistance(from, to);
    if (wall.Nx < 1)
        wall.Nx = 1;
    wall.Ny = 3;
}

void BuildPolygonPool(const PolygonPool &pool) {
    if (pool.points.size() > kPlakPoints)
        FailSubscript(Thing::OutlinePoint, static_cast<int>(pool.points.size()), kPlakPoints);
    UstKot = pool.UstKot;
    AltKot = pool.AltKot;
    AppendPlate(pool);
    for (int k = 1; k <= static_cast<int>(pool.points.size()); ++k)
        AppendWall(pool, k);
}

} // namespace havuz
