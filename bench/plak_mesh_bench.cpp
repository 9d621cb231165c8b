// The largest plates that the limits of plate meshing allow: most points with most outline points, and the largest
// grid.
#include "mesh/mesh_report.h"
#include "mesh/oto_mesh.h"
#include "mesh/plak_mesh.h"
#include "model/store.h"

#include <benchmark/benchmark.h>
#include <cmath>

namespace havuz {

namespace {

void PutOutline(const std::vector<PlanPoint> &outline) {
    PlakRecord &plate = PlakTable[++PlakCount];
    plate.NoktaSayisi = static_cast<int>(outline.size());
    for (int k = 1; k <= plate.NoktaSayisi; ++k) {
        plate.X[k] = outline[static_cast<std::size_t>(k - 1)].x;
        plate.Y[k] = outline[static_cast<std::size_t>(k - 1)].y;
    }
}

// 199 outline points around a circle in which about 1000 grid points of 1 m fit.
std::vector<PlanPoint> Round() {
    std::vector<PlanPoint> outline;
    for (int k = 0; k < kMeshedPlakPoints; ++k) {
        const double a = 2 * M_PI * k / kMeshedPlakPoints;
        outline.push_back({17.2 * std::cos(a), 17.2 * std::sin(a)});
    }
    return outline;
}

// 199 outline points of a band along the diagonal of a grid of 499 steps of 1 m, so narrow that its points fit.
std::vector<PlanPoint> Band() {
    std::vector<PlanPoint> outline;
    for (int k = 0; k < 100; ++k)
        outline.push_back({4.9 * k, 4.9 * k});
    for (int k = 99; k >= 1; --k)
        outline.push_back({4.9 * k, 4.9 * k + 0.9});
    return outline;
}

void MeshOne(benchmark::State &state, const std::vector<PlanPoint> &outline) {
    ResetStore();
    MeshGenisligi = 1.0;
    PutOutline(outline);
    for (auto _ : state) {
        NoktaCount = MeshCount = 0;
        PlakMeshle(1, MeshGenisligi);
    }
    state.counters["nodes"] = NoktaCount;
    state.counters["meshes"] = MeshCount;
}

void BM_MostPoints(benchmark::State &state) { MeshOne(state, Round()); }
void BM_LargestGrid(benchmark::State &state) { MeshOne(state, Band()); }

// Plates until the node table is full, walls left out; with numbering and report.
void BM_WholeModel(benchmark::State &state) {
    ResetStore();
    MeshGenisligi = 1.0;
    for (int k = 0; k < 5; ++k) {
        std::vector<PlanPoint> outline = Round();
        for (PlanPoint &p : outline)
            p.x += 40.0 * k;
        PutOutline(outline);
    }
    MeshWindow none;
    std::size_t warnings = 0;
    for (auto _ : state) {
        OtoMesh(MeshGenisligi, none);
        warnings = MeshReport().size();
    }
    state.counters["nodes"] = NoktaCount;
    state.counters["warnings"] = static_cast<double>(warnings);
}

} // namespace

BENCHMARK(BM_MostPoints)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LargestGrid)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WholeModel)->Unit(benchmark::kMillisecond);

} // namespace havuz

BENCHMARK_MAIN();
