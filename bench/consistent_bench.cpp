// The consistent analysis of the largest pool (30 x 15 x 4 m at 0.5 m, 20,000 equations): all that stands of it once,
// then the seven cases with their results and proof. The argument is the number of threads; processor time is that of
// the whole process.
#include "consistent/analysis.h"
#include "consistent/tank.h"
#include "pools.h"

#include <benchmark/benchmark.h>

namespace havuz {

namespace {

using consistent::Analysis;

consistent::Tank LargestPool() {
    setenv("HAVUZ_HOME", HAVUZ_SOURCE_DIR "/programdir", 1);
    ResetStore();
    ResetOptions();
    StartModel("");
    Bk = 0;
    Lx = 30;
    Ly = 15;
    UstKot = SiviKotu = ToprakKotu = 4;
    YeraltiSuKotu = 2;
    MeshGenisligi = 0.5;
    PoolWindow window;
    GeneratePool(1, window);
    MeshBenchPool();
    NokYukTable[1].FZ = 1.0; // so that N is a case too
    return consistent::ReadTank();
}

consistent::Options WithThreads(const benchmark::State &state) {
    consistent::Options options;
    options.threads = static_cast<int>(state.range(0));
    return options;
}

void BM_Standing(benchmark::State &state) {
    const consistent::Tank tank = LargestPool();
    const consistent::Options options = WithThreads(state);
    for (auto round : state) {
        const Analysis analysis(tank, options);
        state.counters["equations"] = analysis.facts().equations;
        state.counters["cells"] = static_cast<double>(analysis.facts().factorCells);
    }
}
BENCHMARK(BM_Standing)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

void BM_SevenCases(benchmark::State &state) {
    const consistent::Tank tank = LargestPool();
    const Analysis analysis(tank, WithThreads(state));
    for (auto round : state)
        for (const consistent::Case c : consistent::kAllCases)
            if (c != consistent::kSurcharge)
                benchmark::DoNotOptimize(analysis.solve(c));
}
BENCHMARK(BM_SevenCases)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

} // namespace

} // namespace havuz

BENCHMARK_MAIN();
