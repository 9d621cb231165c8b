// Springs, point loads and pressures of the assembled system. Units: m, t.
//
// Foundation: Winkler's bed (1867), a spring of ZeminKo times the area that falls to a node, t/m:
//   S(e, e) += Yay   for e of uz, ux and uy alike,
// the bed holding a tank sideways as firmly as upright: wanted.
// Point loads: Rhs(e, 1) += FX, FY, FZ as they stand; since Rhs is the negative of the load a positive FZ pushes down.
// Pressures (pressures.h) reach Rhs(e, c) for every column c whose code takes them.
// A held translation has equation 0. Its cell YukSayisi*(0-1) + c is cell 0, which nobody reads, for the last column,
// and lies before the array for any other; so a held node goes with two columns at most, and more are a failure that
// names the node.
#include "fea/loads.h"

#include "fea/pressures.h"
#include "fea/system.h"
#include "model/springs.h"
#include "model/store.h"
#include "model/supports.h"

#include <array>

namespace havuz {

namespace {

enum Slot { kUx = 1, kUy = 2, kUz = 3 };

// A held translation has equation 0 and lies at YukSayisi*(0-1)+c: the unused cell 0 for the last column, below the
// array for any other.
void AddToRhs(int node, Slot slot, int c, double value) {
    const int at = RhsIndex(NoktaTable[node].Denklem[slot], c);
    if (at < 0) // column 1 holds the point loads, the columns behind it the pressures
        throw RuntimeFailure({.fault = HoldsTranslation(NoktaTable[node].Mesnet) ? Fault::NodeHeld : Fault::NodeUnused,
                              .where = {{Thing::Node, node}},
                              .thing = Thing::Rhs,
                              .number = at,
                              .first = c == 1 ? 1 : 2,
                              .bound = YukSayisi});
    Rhs[at] = static_cast<float>(static_cast<double>(Rhs[at]) + value);
}

// The forces of one component at the corners (elements 1..4), in every column that takes the pressure.
void AddToColumns(const MeshPressure &p, Slot slot, const std::array<double, 5> &force) {
    for (std::size_t k = 1; k <= 4; ++k)
        for (int c = 2; c <= YukSayisi; ++c)
            if (TakesPressure(YukListesi[c], p.pressure))
                AddToRhs(p.nodes.n[k], slot, c, force[k]);
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

void AddPressures() {
    ForEachPressure([](const MeshPressure &p) {
        if (p.wall) {
            AddToColumns(p, kUx, p.fx);
            AddToColumns(p, kUy, p.fy);
        } else {
            AddToColumns(p, kUz, p.fz);
        }
    });
}

// Read while Rhs still holds loads: the solution takes its place.
void SumVerticalLoads() {
    VerticalLoad = {};
    for (int i = 1; i <= NoktaCount; ++i)
        if (const int e = NoktaTable[i].Denklem[kUz]; e > 0)
            for (int c = 1; c <= YukSayisi; ++c)
                VerticalLoad[c] += SolutionValue(e, c);
}

} // namespace havuz
