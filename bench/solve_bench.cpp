// Element matrices with assembly, and the solver against the plain procedure in the same run, at the three sizes.
#include "fea/analysis.h"
#include "fea/assembly.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/profile_solve.h"
#include "fea/system.h"
#include "model/files.h"
#include "plain_elements.h"
#include "plain_solve.h"
#include "pools.h"
#include "solve_bound.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>

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

// A pass over the meshes of the pool near the limits into a file, record by record or in blocks; "plain" is the time
// over it of the plain procedure, each mesh by itself and its record written by itself. Both files have to be the same.
template <class Pass, class Plain>
static void ComparePasses(benchmark::State &state, std::size_t size, Pass pass, Plain plainPass) {
    const std::string path = "PASS.bench", plainPath = "PLAIN.bench";
    double ours = 0.0;
    double plain = 0.0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        {
            RecordFile file(path, size);
            pass(file);
        }
        const double seconds = Seconds(start);
        ours += seconds;
        state.SetIterationTime(seconds);
        start = std::chrono::steady_clock::now();
        {
            RecordFile file(plainPath, size);
            for (int i = 1; i <= MeshCount; ++i)
                plainPass(file, i);
        }
        plain += Seconds(start);
        if (ReadWholeFile(path) != ReadWholeFile(plainPath))
            state.SkipWithError("the plain procedure writes other bytes");
        std::remove(path.c_str());
        std::remove(plainPath.c_str());
    }
    state.counters["plain"] = plain / ours;
    state.counters["nodes"] = NoktaCount;
}

static void BM_ElementPass(benchmark::State &state) {
    RecordFile stif("STIF001.bench", sizeof(ElementRecord));
    PrepareSystem(2, stif);
    std::remove("STIF001.bench");
    ComparePasses(
        state, sizeof(ElementRecord), [](RecordFile &file) { ElementPass(ConcreteE(Fck), file, none); },
        [](RecordFile &file, int mesh) { file.PutRecord(PlainElement(mesh), mesh); });
}
BENCHMARK(BM_ElementPass)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.02);

static void BM_StressPass(benchmark::State &state) {
    RecordFile stif("STIF001.bench", sizeof(ElementRecord));
    PrepareSystem(2, stif);
    std::remove("STIF001.bench");
    for (int cell = 1; cell <= RhsSize; ++cell)
        Rhs[cell] = static_cast<float>(cell % 2001 - 1000) * 1e-5F;
    ComparePasses(
        state, sizeof(SonRecord), [](RecordFile &file) { StressPass(ConcreteE(Fck), file); },
        [](RecordFile &file, int mesh) { file.PutRecord(PlainResults(mesh), mesh); });
}
BENCHMARK(BM_StressPass)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.02);

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

// ProfileSolve of the pool near the limits on one thread, as processor time; "bound" is that over the time of its
// arithmetic alone, "eights" how many times eight cells it calculates, "second" what a second thread gains on the
// clock, "apart" what the second core gives to two solves on one thread each, in two processes that share nothing.
static void BM_SolveBound(benchmark::State &state) {
    const std::string path = "STIF001.bench";
    RecordFile stif(path, sizeof(ElementRecord));
    PrepareSystem(2, stif);
    AssembleSystem(stif, none);
    std::remove(path.c_str());
    const std::vector<float> s(S, S + ProfileSize + 1);
    const std::vector<float> rhs(Rhs, Rhs + YukSayisi * (EquationCount + 1) + 1);
    struct Taken {
        double clock = 1e9, processor = 1e9;
    };
    const auto solve = [&](const SolveMeans &means, Taken &least) {
        std::copy(s.begin(), s.end(), S);
        std::copy(rhs.begin(), rhs.end(), Rhs);
        const auto start = std::chrono::steady_clock::now();
        const double processor = ProcessorSeconds();
        ProfileSolve(none, means);
        least.processor = std::min(least.processor, ProcessorSeconds() - processor);
        least.clock = std::min(least.clock, Seconds(start));
    };
    const SolveKernels counting = CountingKernels();
    Taken counted;
    CountedEights() = 0;
    solve({&counting, 1}, counted);
    Taken one;
    Taken two;
    Taken beside;
    double eight = 1e9;
    for (auto _ : state) {
        eight = std::min(eight, SecondsForEightCells());
        solve({nullptr, 1}, one);
        solve({nullptr, 2}, two);
        const pid_t other = fork();
        while (other == 0)
            solve({nullptr, 1}, beside);
        solve({nullptr, 1}, beside);
        kill(other, SIGKILL);
        waitpid(other, nullptr, 0);
        state.SetIterationTime(one.processor);
    }
    const auto eights = static_cast<double>(CountedEights());
    state.counters["nanosecondsForEight"] = 1e9 * eight;
    state.counters["eights"] = eights;
    state.counters["bound"] = one.processor / (eights * eight);
    state.counters["second"] = one.clock / two.clock;
    state.counters["apart"] = 2.0 * one.clock / beside.clock;
}
BENCHMARK(BM_SolveBound)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7);

} // namespace havuz

BENCHMARK_MAIN();
