// Element matrices with assembly, and the solver against the plain procedure in the same run, at the three sizes.
#include "fea/analysis.h"
#include "fea/assembly.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/profile_solve.h"
#include "fea/system.h"
#include "plain_solve.h"
#include "pools.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstring>

namespace havuz {

static AnalysisWindow none;

// The meshed pool with its equations, and the element matrices in STIF001.
static void PrepareSystem(int size, RecordFile &stif) {
    GenerateBenchPool(size);
    MeshBenchPool();
    MeshPass();
    NumberEquations();
    ProfileBuild(none);
    LoadColumnSetup(none);
    CheckSystemSizes();
    ElementPass(ConcreteE(Fck), stif, none);
}

static void BM_Assembly(benchmark::State &state) {
    const std::string path = "STIF001.bench";
    RecordFile stif(path, sizeof(ElementRecord));
    PrepareSystem(static_cast<int>(state.range(0)), stif);
    for (auto _ : state)
        AssembleSystem(stif, none);
    state.counters["meshes"] = MeshCount;
    std::remove(path.c_str());
}
BENCHMARK(BM_Assembly)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

// The time shown is that of ProfileSolve; "plain" is the plain procedure's time over it.
static void BM_ProfileSolve(benchmark::State &state) {
    const std::string path = "STIF001.bench";
    RecordFile stif(path, sizeof(ElementRecord));
    PrepareSystem(static_cast<int>(state.range(0)), stif);
    AssembleSystem(stif, none);
    const std::vector<float> s(S, S + ProfileSize + 1);
    const std::vector<float> rhs(Rhs, Rhs + YukSayisi * (EquationCount + 1) + 1);
    double fast = 0.0;
    double plain = 0.0;
    for (auto _ : state) {
        std::copy(s.begin(), s.end(), S);
        std::copy(rhs.begin(), rhs.end(), Rhs);
        auto start = std::chrono::steady_clock::now();
        ProfileSolve(none);
        const double seconds = Seconds(start);
        fast += seconds;
        state.SetIterationTime(seconds);
        std::vector<float> plainS = s;
        std::vector<float> plainRhs = rhs;
        start = std::chrono::steady_clock::now();
        SolveLiteral(EquationCount, YukSayisi, plainS, plainRhs);
        plain += Seconds(start);
        if (std::memcmp(plainRhs.data() + 1, Rhs + 1, sizeof(float) * static_cast<std::size_t>(RhsSize)) != 0)
            state.SkipWithError("the plain procedure stores other bits");
    }
    state.counters["plain"] = plain / fast;
    state.counters["equations"] = EquationCount;
    state.counters["cells"] = ProfileSize;
    std::remove(path.c_str());
}
BENCHMARK(BM_ProfileSolve)->DenseRange(0, 2)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.2);

} // namespace havuz

BENCHMARK_MAIN();
