// The right-hand sides of a run once more, in doubles and without the profile: surface loads and point loads in column
// 1, pressures in the columns whose codes take them, then 0 at every freedom without an equation, whose load a support
// takes. Same procedures as the run's (SurfaceLoad, ForEachPressure), so that the two cannot part.
#include "fea/run_loads.h"

#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/pressures.h"
#include "model/mesh_facts.h"
#include "model/store.h"

namespace havuz {

std::vector<char> FreeFreedoms() {
    std::vector<char> free(FreedomAt(NoktaCount + 1, 1), 0);
    for (int i = 1; i <= MeshCount; ++i) {
        if (IsSwitchedOff(MeshTable[i]))
            continue;
        const MeshNodes m = MeshNodeData(i);
        for (std::size_t k = 1; k <= 4; ++k) {
            const std::array<int, 7> slots = FreeSlots(NoktaTable[m.n[k]].Mesnet);
            for (int d = 1; d <= 6; ++d)
                free[FreedomAt(m.n[k], d)] = static_cast<char>(slots[static_cast<std::size_t>(d)]);
        }
    }
    return free;
}

namespace {

void AddSurfaceLoads(std::vector<double> &load) {
    Matrix<24, 24> ElementT;
    for (int i = 1; i <= MeshCount; ++i) {
        if (IsSwitchedOff(MeshTable[i]))
            continue;
        const MeshNodes m = MeshNodeData(i);
        ElementAxes(ElementT, m);
        const std::array<double, 25> spread = SurfaceLoad(AnalysedMesh(m), m, ElementT);
        for (std::size_t p = 0; p < 24; ++p)
            load[FreedomAt(m.n[p / 6 + 1], static_cast<int>(p % 6) + 1)] += spread[p + 1];
    }
}

void AddPointLoads(std::vector<double> &load) {
    for (int i = 1; i <= NoktaCount; ++i) {
        load[FreedomAt(i, 1)] += NokYukTable[i].FX;
        load[FreedomAt(i, 2)] += NokYukTable[i].FY;
        load[FreedomAt(i, 3)] += NokYukTable[i].FZ;
    }
}

void AddPressures(std::vector<RunColumn> &columns) {
    ForEachPressure([&columns](const MeshPressure &p) {
        for (RunColumn &column : columns) {
            if (column.code == 0 || !TakesPressure(column.code, p.pressure))
                continue;
            for (std::size_t k = 1; k <= 4; ++k) {
                column.load[FreedomAt(p.nodes.n[k], 1)] += p.fx[k];
                column.load[FreedomAt(p.nodes.n[k], 2)] += p.fy[k];
                column.load[FreedomAt(p.nodes.n[k], 3)] += p.fz[k];
            }
        }
    });
}

} // namespace

std::vector<RunColumn> RunColumns() {
    const std::vector<char> free = FreeFreedoms();
    std::vector<RunColumn> columns;
    for (const int code : ColumnCodes())
        columns.push_back({code, std::vector<double>(free.size(), 0.0)});
    AddSurfaceLoads(columns.front().load);
    AddPointLoads(columns.front().load);
    AddPressures(columns);
    for (RunColumn &column : columns)
        for (std::size_t at = 0; at < free.size(); ++at)
            if (free[at] == 0)
                column.load[at] = 0.0;
    return columns;
}

} // namespace havuz
