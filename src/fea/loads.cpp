#include "fea/loads.h"

#include "fea/element_geometry.h"
#include "fea/system.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/springs.h"
#include "model/store.h"

#include <cmath>
#include <string>

namespace havuz {

namespace {

enum Slot { kUx = 1, kUy = 2, kUz = 3 };

// A held translation has equation 0 and lies at YukSayisi*(0-1)+c: the unused cell 0 for the last column, below the
// array for any other.
void AddToRhs(int node, Slot slot, int c, double value) {
    const int at = RhsIndex(NoktaTable[node].Denklem[slot], c);
    if (at < 0)
        throw RuntimeFailure(Subscript, "Rhs(" + std::to_string(at) + "): node " + std::to_string(node) +
                                            " is held against translation and " + std::to_string(YukSayisi) +
                                            " load columns are asked for; at most 2 go with it");
    Rhs[at] = static_cast<float>(static_cast<double>(Rhs[at]) + value);
}

bool CarriesLiquid(int code) { return code > 10 || code == 1 || code == 2; }
bool CarriesSoil(int code) { return code == 1 || code == 3; }
bool CarriesWater(int code) { return code == 4; }

// Adds the value of each corner (elements 1..4) in the slot's row, in every column whose code is carried.
template <class Carries>
void AddToColumns(const MeshNodes &m, Slot slot, Carries carries, const std::array<double, 5> &value) {
    for (std::size_t k = 1; k <= 4; ++k)
        for (int c = 2; c <= YukSayisi; ++c)
            if (carries(YukListesi[c]))
                AddToRhs(m.n[k], slot, c, value[k]);
}

std::array<double, 5> AtAllCorners(double v) { return {0.0, v, v, v, v}; }

// t: the full thickness stands on the mean level of the nodes, m.
void AddFloorPressures(const MeshNodes &m, double t) {
    const double area = MeshPlanArea(m.mesh);
    const double z = (m.z[1] + m.z[2] + m.z[3] + m.z[4]) / 4.0 + t;
    const double liquid = SiviKotu - z;
    AddToColumns(m, kUz, CarriesLiquid, AtAllCorners(liquid > 0.0 ? SiviYogunluk * liquid * area / 4.0 : 0.0));
    const double water = YeraltiSuKotu - z; // density 1; uplift
    AddToColumns(m, kUz, CarriesWater, AtAllCorners(water > 0.0 ? -(water * area / 4.0) : 0.0));
}

// The pressures on one wall mesh. Its edges 1-2 and 3-4 count as horizontal; each takes a share, t.
class WallMesh {
public:
    WallMesh(const MeshNodes &m, double outlineSign) : m_(m) {
        const double dx = m.x[1] - m.x[2];
        const double dy = m.y[1] - m.y[2];
        length_ = Distance2(dx, dy);
        if (length_ == 0.0)
            throw RuntimeFailure(DivisionByZero, "MeshTable(" + std::to_string(m.mesh) +
                                                     "): a wall without length in plan: division by zero");
        nx_ = outlineSign * dy / length_;
        ny_ = -outlineSign * dx / length_;
        height_ = (std::fabs(m.z[1] - m.z[4]) + std::fabs(m.z[2] - m.z[3])) / 2.0;
        z12_ = (m.z[1] + m.z[2]) / 2.0;
        z34_ = (m.z[3] + m.z[4]) / 2.0;
    }

    // inward: -1 for a pressure from outside.
    template <class Carries>
    void add(double level, double w, Carries carries, double inward) {
        setShares(level - z12_, level - z34_, w);
        addComponent(kUx, carries, inward * nx_);
        addComponent(kUy, carries, inward * ny_);
    }

private:
    // In any other case the shares stay those of the pressure before, whose unit weight they carry: wanted.
    void setShares(double d1, double d2, double w) {
        if (d1 > 0.0 && d2 > 0.0) {
            const double p1 = w * d1 * length_ / 2.0;
            const double p2 = w * d2 * length_ / 2.0;
            s12_ = (2.0 * p1 + p2) * height_ / 6.0;
            s34_ = (p1 + 2.0 * p2) * height_ / 6.0;
        } else if (d1 < 0.0 && d2 > 0.0) { // without the height, so that the dimension is off by one length: wanted
            const double p2 = w * d2 * length_ / 2.0;
            s12_ = p2 * d2 * d2 / 6.0;
            s34_ = p2 * d2 / 2.0 - s12_;
        }
    }
    template <class Carries>
    void addComponent(Slot slot, Carries carries, double n) {
        AddToColumns(m_, slot, carries, {0.0, n * s12_, n * s12_, n * s34_, n * s34_});
    }

    const MeshNodes &m_;
    double length_ = 0.0, nx_ = 0.0, ny_ = 0.0, height_ = 0.0, z12_ = 0.0, z34_ = 0.0;
    double s12_ = 0.0, s34_ = 0.0;
};

void AddWallPressures(const MeshNodes &m, double outlineSign) {
    WallMesh wall(m, outlineSign);
    wall.add(SiviKotu, SiviYogunluk, CarriesLiquid, 1.0);
    wall.add(ToprakKotu, ZeminKa * ZeminYogunluk, CarriesSoil, -1.0);
    wall.add(YeraltiSuKotu, 1.0, CarriesWater, -1.0);
}

} // namespace

void AddSprings() {
    SpringStiffness();
    for (int i = 1; i <= NoktaCount; ++i) {
        const NoktaRecord &node = NoktaTable[i];
        for (const int slot : {kUz, kUx, kUy})
            ProfileAdd(node.Yay, node.Denklem[slot], node.Denklem[slot]); // a held slot: ProfileDiag(0), cell 0
    }
}

void AddPointLoads() {
    for (int i = 1; i <= NoktaCount; ++i) {
        const NokYukRecord &load = NokYukTable[i];
        if (load.FX == 0.0 && load.FY == 0.0 && load.FZ == 0.0)
            continue;
        AddToRhs(i, kUx, 1, load.FX);
        AddToRhs(i, kUy, 1, load.FY);
        AddToRhs(i, kUz, 1, load.FZ);
    }
}

double OutlineSign() {
    if (PlakCount <= 0)
        return 1.0;
    const PlakRecord &plak = PlakTable[1];
    double area = 0.0;
    for (int i = 1; i <= plak.NoktaSayisi; ++i) {
        const int next = i == plak.NoktaSayisi ? 1 : i + 1;
        area = area + (plak.Y[next] * plak.X[i] - plak.Y[i] * plak.X[next]) / 2.0;
    }
    return area > 0.0 ? 1.0 : -1.0;
}

void AddPressures() {
    const double outlineSign = OutlineSign();
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &mesh = MeshTable[i];
        if (mesh.Sil != 0)
            continue;
        const MeshNodes m = MeshNodeData(i);
        if (OwnerIsPlate(mesh.PanelNo)) {
            AddFloorPressures(m, PlakTable[OwnerPlate(mesh.PanelNo)].Kalinlik / 100.0);
            continue;
        }
        const PanelRecord &panel = PanelTable[mesh.PanelNo];
        if (panel.Tip == 0)
            AddFloorPressures(m, panel.D / 100.0);
        else if (panel.Tip == 1)
            AddWallPressures(m, outlineSign);
    }
}

void SumVerticalLoads() {
    VerticalLoad = {};
    for (int i = 1; i <= NoktaCount; ++i)
        if (const int e = NoktaTable[i].Denklem[kUz]; e > 0)
            for (int c = 1; c <= YukSayisi; ++c)
                VerticalLoad[c] += SolutionValue(e, c);
}

} // namespace havuz
