// Panel meshing and node numbering at the three sizes.
#include "pools.h"

#include <benchmark/benchmark.h>

namespace havuz {

static void BM_PanelMeshle(benchmark::State &state) {
    GenerateBenchPool(static_cast<int>(state.range(0)));
    MeshWindow window;
    for (auto _ : state)
        PanelMeshle(window);
    state.counters["rawNodes"] = HamNoktaCount;
}
BENCHMARK(BM_PanelMeshle)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

static void BM_NoktaNumarala(benchmark::State &state) {
    GenerateBenchPool(static_cast<int>(state.range(0)));
    MeshWindow window;
    for (auto _ : state) {
        state.PauseTiming();
        PanelMeshle(window);
        state.ResumeTiming();
        NoktaNumarala();
    }
    state.counters["nodes"] = NoktaCount;
}
BENCHMARK(BM_NoktaNumarala)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

} // namespace havuz

BENCHMARK_MAIN();
