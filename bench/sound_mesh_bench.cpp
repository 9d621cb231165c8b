// The sound mesher: its quality over the random models of the tests, a row for each kind with angles in degrees, and
// the time for meshes near the tables' limit, numbering included.
#include "mesh/polygon_pool.h"
#include "mesh/sound_mesh.h"
#include "model/store.h"
#include "sound_models.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>

namespace havuz {

namespace {

constexpr std::uint64_t kModels = 100; // of each kind

void Quality(benchmark::State &state) {
    const int kind = static_cast<int>(state.range(0));
    MeshWindow none;
    MeshMeasure all;
    for (auto round : state) {
        all = {};
        for (std::uint64_t seed = 0; seed < kModels; ++seed) {
            PutRandomModel(kind, seed);
            SoundMesh(none, {});
            const MeshMeasure one = MeasureMesh();
            all.meshes += one.meshes;
            all.sharp += one.sharp;
            all.leastAngle = std::min(all.leastAngle, one.leastAngle);
            all.leastAngleAtAll = std::min(all.leastAngleAtAll, one.leastAngleAtAll);
            all.aspect = std::max(all.aspect, one.aspect);
            all.longestSide = std::max(all.longestSide, one.longestSide);
        }
    }
    state.SetLabel(OutlineKindInWords(kind));
    state.counters["meshes"] = all.meshes;
    state.counters["least"] = all.leastAngle;
    state.counters["leastAtAll"] = all.leastAngleAtAll;
    state.counters["below30percent"] = 100.0 * all.sharp / all.meshes;
    state.counters["aspect"] = all.aspect;
    state.counters["side"] = all.longestSide;
}
BENCHMARK(Quality)->DenseRange(0, kOutlineKinds - 1)->Unit(benchmark::kMillisecond)->Iterations(1);

// A pool of seven sides of 20 m across with about 4900 nodes.
void NearTheLimit(benchmark::State &state) {
    ResetStore();
    PolygonPool pool;
    for (int k = 0; k < 7; ++k)
        pool.points.push_back({10.0 * std::cos(2 * M_PI * k / 7), 10.0 * std::sin(2 * M_PI * k / 7)});
    pool.dp = 20;
    pool.ds = 30;
    pool.UstKot = 3;
    BuildPolygonPool(pool);
    MeshGenisligi = 0.31;
    MeshWindow none;
    for (auto round : state)
        SoundMesh(none, {});
    state.counters["nodes"] = NoktaCount;
}
BENCHMARK(NearTheLimit)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace havuz

BENCHMARK_MAIN();
