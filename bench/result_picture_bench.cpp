// The output program's picture: from a project to its first picture (the largest pool: 30 x 15 x 4 m at 0.5), and a
// frame of turning it, of 900 x 600 pixels, banded and smooth, with and without mesh lines. Processor time.
//   cmake --preset bench && cmake --build --preset bench --target result_picture_bench &&
//   build/bench/result_picture_bench
#include "mesh/oto_mesh.h"
#include "model/options.h"
#include "model/startup.h"
#include "pool/pool_library.h"
#include "report/picture_results.h"
#include "ui/qt/image_canvas.h"

#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>

namespace havuz {

namespace {

constexpr int kWidth = 900, kHeight = 600;

void LargestPool() {
    setenv("HAVUZ_HOME", HAVUZ_SOURCE_DIR "/programdir", 1);
    ResetStore();
    ResetOptions();
    StartModel("");
    Lx = 30.0, Ly = 15.0, UstKot = 4.0, SiviKotu = 4.0, MeshGenisligi = 0.5, Bk = 0.0;
    PoolWindow window;
    GeneratePool(1, window);
    MeshWindow none;
    AutoMesh(none);
    ViewAngleA = -140.0 / 180.0 * std::acos(-1.0);
    ViewAngleB = 20.0 / 180.0 * std::acos(-1.0);
}

TankAnswer Answer() {
    TankAnswer answer = AnswerOfModel("/nowhere/tank");
    AnalyseAnswer(answer);
    return answer;
}

ResultScene FirstScene(const TankAnswer &answer) {
    return SceneOf(answer, PictureResults(answer).front(), *FindQuantity("M22"), {});
}

void Draw(const ResultScene &scene, const SceneStyle &style) {
    ImageCanvas canvas(kWidth, kHeight);
    DrawScene(canvas, scene, style, FitScene(scene, kWidth, kHeight));
    benchmark::DoNotOptimize(canvas.colourAt(0, 0).rgb);
}

void FirstPicture(benchmark::State &state) {
    LargestPool();
    for (auto _ : state)
        Draw(FirstScene(Answer()), {});
    state.counters["meshes"] = MeshCount;
}
BENCHMARK(FirstPicture)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void Frame(benchmark::State &state) {
    LargestPool();
    const TankAnswer answer = Answer();
    const ResultScene scene = FirstScene(answer);
    SceneStyle style;
    style.smooth = state.range(0) != 0;
    style.meshLines = state.range(1) != 0;
    for (auto _ : state) {
        ViewAngleB -= 0.01;
        Draw(scene, style);
    }
    state.counters["meshes"] = static_cast<double>(scene.faces.size());
}
BENCHMARK(Frame)
    ->ArgNames({"smooth", "lines"})
    ->Args({0, 1})
    ->Args({0, 0})
    ->Args({1, 1})
    ->Unit(benchmark::kMillisecond);

void Probe(benchmark::State &state) {
    LargestPool();
    const TankAnswer answer = Answer();
    const ResultScene scene = FirstScene(answer);
    const SceneTransform to = FitScene(scene, kWidth, kHeight);
    double x = 200.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(HitScene(scene, to, 0.0, x, 300.0));
        x = x < 600.0 ? x + 1.0 : 200.0;
    }
}
BENCHMARK(Probe)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace havuz

int main(int argc, char **argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QGuiApplication application(argc, argv); // fonts of the legend
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
