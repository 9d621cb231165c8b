// The pools of the benchmarks: a small one, a usual one of about 600 nodes, and one near the limits of the analysis.
#pragma once

#include "mesh/numbering.h"
#include "mesh/panel_mesh.h"
#include "model/options.h"
#include "model/startup.h"
#include "model/store.h"
#include "pool/pool_library.h"

#include <chrono>
#include <cstdlib>

namespace havuz {

struct BenchPool {
    double lx, ly, height;
};
constexpr BenchPool kBenchPools[] = {{5, 4, 2}, {19, 12, 4}, {50, 41, 5}};

inline double Seconds(std::chrono::steady_clock::time_point from) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

inline void GenerateBenchPool(int size) {
    setenv("HAVUZ_HOME", HAVUZ_SOURCE_DIR "/programdir", 1);
    ResetStore();
    ResetOptions();
    StartModel("");
    Lx = kBenchPools[size].lx;
    Ly = kBenchPools[size].ly;
    UstKot = SiviKotu = ToprakKotu = kBenchPools[size].height;
    PoolWindow window;
    GeneratePool(1, window);
}

inline void MeshBenchPool() {
    MeshWindow window;
    PanelMeshle(window);
    NoktaNumarala();
}

} // namespace havuz
