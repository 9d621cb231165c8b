// Redraws of the fullest model there is, 5000 meshes on 5000 nodes, in the rotated mesh view on the raster surface of
// 3826 x 1992 pixels, and where their time goes: the drawing on a surface that paints nothing, then with one kind of
// request painted at a time. The exchange sort stands beside the sort that the drawing uses.
#include "full_model.h"
#include "plain_surface.h"
#include "pools.h"
#include "ui/qt/raster_surface.h"
#include "view/blank_surface.h"
#include "view/mesh_drawing.h"
#include "view/view_state.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace havuz {

namespace {

constexpr int kWidth = 3826, kHeight = 1992; // the surface on a screen of 3840 x 2160

// Paints the requests of one kind and lets the others pass.
enum Kind { Nothing, Polygons, Lines, Points, Circles, Texts };

class PartSurface : public BlankSurface {
public:
    PartSurface(Surface &painted, Kind kind)
        : BlankSurface(painted.width(), painted.height()), to_(painted), kind_(kind) {}
    void Line(int x1, int y1, int x2, int y2, Colour colour) override {
        if (kind_ == Lines)
            to_.Line(x1, y1, x2, y2, colour);
    }
    void Point(int x, int y, Colour colour) override {
        if (kind_ == Points)
            to_.Point(x, y, colour);
    }
    void Circle(int x, int y, int radius, Colour colour) override {
        if (kind_ == Circles)
            to_.Circle(x, y, radius, colour);
    }
    void Polygon(std::span<const Pixel> points) override {
        if (kind_ != Polygons)
            return;
        to_.pen = pen;
        to_.Polygon(points);
    }
    void Text(int x, int y, const std::string &text) override {
        if (kind_ != Texts)
            return;
        to_.pen = pen;
        to_.Text(x, y, text);
    }

private:
    Surface &to_;
    Kind kind_;
};

// The whole picture; "plain" is the time over it of a painter that takes request after request on one thread.
void BM_FullRedraw(benchmark::State &state) {
    ResetStore();
    ResetView();
    MakeFullModel();
    RasterSurface scr(kWidth, kHeight);
    PlainSurface plain(kWidth, kHeight);
    TakeSurfaceSize(scr);
    ViewWindow none;
    double ours = 0.0;
    double theirs = 0.0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        DrawMeshView(scr, none);
        scr.image();
        const double seconds = Seconds(start);
        ours += seconds;
        state.SetIterationTime(seconds);
        start = std::chrono::steady_clock::now();
        DrawMeshView(plain, none);
        theirs += Seconds(start);
        if (scr.image() != plain.image)
            state.SkipWithError("the painter gives other pixels");
    }
    state.counters["plain"] = theirs / ours;
    state.counters["nodes"] = NoktaCount;
}

void BM_FullRedrawPart(benchmark::State &state) {
    static const char *const names[] = {"arithmetic and sort alone", "polygons", "sides", "dots", "circles", "numbers"};
    ResetStore();
    ResetView();
    MakeFullModel();
    RasterSurface painted(kWidth, kHeight);
    TakeSurfaceSize(painted);
    PartSurface scr(painted, static_cast<Kind>(state.range(0)));
    ViewWindow none;
    for (auto _ : state) {
        DrawMeshView(scr, none);
        painted.image();
    }
    state.SetLabel(names[state.range(0)]);
}

void BM_DragOutline(benchmark::State &state) {
    ResetStore();
    ResetView();
    MakeFullModel();
    RasterSurface scr(kWidth, kHeight);
    TakeSurfaceSize(scr);
    for (auto _ : state) {
        QuickMeshOutline(scr);
        scr.image();
    }
}

void BM_PictureAsPng(benchmark::State &state) {
    ResetStore();
    ResetView();
    MakeFullModel();
    RasterSurface scr(kWidth, kHeight);
    TakeSurfaceSize(scr);
    ViewWindow none;
    DrawMeshView(scr, none);
    for (auto _ : state)
        benchmark::DoNotOptimize(scr.png());
}

// The quadratic sort that the drawing's order was first told with.
void BM_ExchangeSort(benchmark::State &state) {
    ResetStore();
    ResetView();
    MakeFullModel();
    std::vector<std::pair<float, int>> keys;
    for (int i = 1; i <= MeshCount; ++i)
        keys.emplace_back(static_cast<float>(std::hypot(NoktaTable[i].X + 300, NoktaTable[i].Y + 400, NoktaTable[i].Z)),
                          i);
    for (auto _ : state) {
        auto order = keys;
        for (std::size_t i = 0; i < order.size(); ++i)
            for (std::size_t j = i + 1; j < order.size(); ++j)
                if (order[i].first < order[j].first)
                    std::swap(order[i], order[j]);
        benchmark::DoNotOptimize(order.data());
    }
}

BENCHMARK(BM_FullRedraw)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.3);
BENCHMARK(BM_FullRedrawPart)->DenseRange(Nothing, Texts)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DragOutline)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PictureAsPng)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExchangeSort)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace havuz

BENCHMARK_MAIN();
