// Panel meshing and node numbering at the three sizes, and the order of rows against the plain sweep in the same run.
#include "plain_joining.h"
#include "plain_skyline.h"
#include "pools.h"

#include <benchmark/benchmark.h>
#include <chrono>

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

// The joining of a lattice of 60 and 150 panels; "plain" is the time over it of holding every node against every other.
static void BM_Joining(benchmark::State &state) {
    ResetStore();
    std::mt19937 random(5);
    PutRandomPanels(random, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    double fast = 0.0;
    double plain = 0.0;
    for (auto _ : state) {
        const auto timed = [](auto corners, auto ends, auto edges) {
            ClearMeshTables();
            MakePanelBlocks();
            const auto start = std::chrono::steady_clock::now();
            corners();
            ends();
            edges();
            return Seconds(start);
        };
        plain += timed(PlainJoinCornersOnCorners, PlainJoinCornersOnEdges, PlainJoinEdgesOnEdges);
        const auto expected = JoinedNodes();
        const double seconds = timed(JoinCornersOnCorners, JoinCornersOnEdges, JoinEdgesOnEdges);
        fast += seconds;
        state.SetIterationTime(seconds);
        if (JoinedNodes() != expected)
            state.SkipWithError("all pairs join others");
    }
    state.counters["plain"] = plain / fast;
    state.counters["nodes"] = HamNoktaCount;
}
BENCHMARK(BM_Joining)->Args({60, 4})->Args({150, 6})->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.02);

// The order of rows on a grid of 600, 2400 and 4900 nodes; "plain" is the plain sweep's time over that shown.
static void BM_SkylineOrder(benchmark::State &state) {
    const int across = static_cast<int>(state.range(0));
    const std::vector<NeighbourList> lists = GridLists(across, across * 3 / 2, 0);
    const int rows = static_cast<int>(lists.size()) - 1;
    double fast = 0.0;
    double plain = 0.0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        const std::vector<int> order = SkylineOrder(lists, rows);
        const double seconds = Seconds(start);
        fast += seconds;
        state.SetIterationTime(seconds);
        start = std::chrono::steady_clock::now();
        if (PlainSkylineOrder(lists, rows) != order)
            state.SkipWithError("the plain sweep gives another order");
        plain += Seconds(start);
    }
    state.counters["plain"] = plain / fast;
    state.counters["nodes"] = rows;
}
BENCHMARK(BM_SkylineOrder)->Arg(20)->Arg(40)->Arg(57)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.01);

} // namespace havuz

BENCHMARK_MAIN();
