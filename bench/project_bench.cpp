// Reading and writing the project of the fullest model there is, 5000 meshes on 5000 nodes with a load on every tenth.
#include "full_model.h"
#include "model/project_file.h"
#include "model/project_window.h"
#include "pools.h"

#include <benchmark/benchmark.h>
#include <filesystem>

namespace havuz {

namespace {

void MakeProject() {
    GenerateBenchPool(1);
    MakeFullModel();
    for (int i = 10; i <= NoktaCount; i += 10) {
        NokYukTable[i].Nokta = i;
        NokYukTable[i].FX = 0.1 * i;
        NokYukTable[i].FZ = -1.0 / i;
    }
}

struct Folder {
    std::filesystem::path path = std::filesystem::temp_directory_path() / ("havuz_bench_" + std::to_string(getpid()));
    Folder() { std::filesystem::create_directory(path); }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string project() const { return path / "P.POL"; }
};

void BM_WriteProject(benchmark::State &state) {
    MakeProject();
    const Folder folder;
    ProjectWindow none;
    for (auto _ : state)
        SaveProject(folder.project(), none);
    state.counters["nodes"] = NoktaCount;
}

// Without the file system, whose flush to the disk a save waits for.
void BM_ProjectText(benchmark::State &state) {
    MakeProject();
    for (auto _ : state)
        benchmark::DoNotOptimize(ProjectText());
    state.counters["nodes"] = NoktaCount;
}

void BM_ReadProject(benchmark::State &state) {
    MakeProject();
    const Folder folder;
    ProjectWindow none;
    SaveProject(folder.project(), none);
    for (auto _ : state)
        LoadProject(folder.project(), none);
    state.counters["nodes"] = NoktaCount;
}

BENCHMARK(BM_WriteProject)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ProjectText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadProject)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace havuz

BENCHMARK_MAIN();
