// A picture painted by bands in threads has the pixels of one painted request by request, on one thread, by a QPainter.
#include "hand_models.h"
#include "model/store.h"
#include "plain_surface.h"
#include "support.h"
#include "ui/qt/raster_surface.h"
#include "view/mesh_drawing.h"
#include "view/view_state.h"

#include <gtest/gtest.h>
#include <random>

namespace havuz {

namespace {

class Threads {
public:
    explicit Threads(int count) { setenv("HAVUZ_THREADS", std::to_string(count).c_str(), 1); }
    ~Threads() { unsetenv("HAVUZ_THREADS"); }
};

// Figures of all kinds, most of them as the mesh drawing asks for them, some reaching over the sides of the surface.
class RandomFigures {
public:
    // The widest pen: bands are made where few pens are wider than a pixel.
    RandomFigures(unsigned seed, int width, int height, int widest)
        : random_(seed), width_(width), height_(height), widest_(widest) {}

    void on(Surface &scr, int count) {
        for (int k = 0; k < count; ++k) {
            place();
            usual_ = below(4) != 0;
            scr.pen.lineWidth = usual_ ? 1 : 1 + below(widest_);
            scr.pen.mode = usual_ || below(2) == 0 ? DrawMode::Copy : DrawMode::Merge;
            scr.pen.lineStyle = static_cast<LineStyle>(usual_ ? 0 : below(5));
            scr.pen.fillStyle = static_cast<FillStyle>(usual_ ? below(2) : below(8));
            scr.pen.colour = colour();
            scr.pen.fillColour = colour();
            figure(scr, below(8));
        }
    }

private:
    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
    Colour colour() { return QbColour(1 + below(15)); }
    void place() {
        const int size = 1 << (1 + below(8));
        left_ = below(width_ + 40) - 20 - size / 2;
        top_ = below(height_ + 40) - 20 - size / 2;
        size_ = size;
    }
    int x() { return left_ + below(size_); }
    int y() { return top_ + below(size_); }
    void figure(Surface &scr, int kind) {
        const int x1 = x(), y1 = y(), x2 = x(), y2 = y();
        switch (kind) {
        case 0:
            return scr.Box(x1, y1, x2, y2, colour());
        case 1:
            return scr.FillBox(x1, y1, x2, y2, colour());
        case 2:
            return scr.Point(x1, y1, colour());
        case 3:
            return scr.Circle(x1, y1, usual_ ? 1 : below(9), colour());
        case 4:
            return scr.Text(x1, y1, std::to_string(random_()));
        case 5:
            return scr.Line(x1, y1, x2, y2, colour());
        default:
            std::vector<Pixel> ring;
            for (int n = usual_ ? 4 : 1 + below(11); n > 0; --n)
                ring.push_back({x(), y()});
            if (below(2) == 0)
                ring.push_back(ring.front());
            scr.Polygon(ring);
        }
    }

    std::mt19937 random_;
    int width_, height_, widest_;
    int left_ = 0, top_ = 0, size_ = 1;
    bool usual_ = true;
};

// The first pixel that is another one, "" when there is none.
std::string Difference(const QImage &a, const QImage &b) {
    if (a.size() != b.size())
        return "size";
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y))
                return std::to_string(x) + "," + std::to_string(y);
    return "";
}

// A closed tube around a ring, rotated: meshes of all shapes, supports, loads, numbers.
void AddTube(int around, int across) {
    const double turn = 2.0 * std::acos(-1.0);
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j) {
            const double u = turn * i / around, v = turn * j / across;
            AddNode((20 + 5 * std::cos(v)) * std::cos(u), (20 + 5 * std::cos(v)) * std::sin(u), 5 * std::sin(v),
                    j == 0 ? 4 : 0);
        }
    const auto node = [&](int i, int j) { return 1 + i % around * across + j % across; };
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j)
            AddMesh(node(i, j), node(i + 1, j), node(i + 1, j + 1), node(i, j + 1), 1 + (i + j) % 2);
    for (int n = 1; n <= NoktaCount; n += 97)
        AddLoad(n, 1.0, 2.0, 3.0);
    PanelCount = 2;
    PanelTable[2].Tip = 1;
}

} // namespace

TEST(RasterBands, FiguresOfAllKindsAsAPainterPaintsThem) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        const Threads threads(1 + static_cast<int>(seed % 8));
        const double scale = seed % 6 == 0 ? 1.5 : 1.0;
        const int width = 20 + static_cast<int>(seed * 37 % 400);
        const int height = 5 + static_cast<int>(seed * 53 % 300);
        RasterSurface bands(width, height, scale);
        PlainSurface plain(width, height, scale);
        const int widest = seed % 4 == 0 ? 3 : 1;
        const int count = seed % 3 == 0 ? 40 : 1500; // few are painted as they come
        RandomFigures(seed, width, height, widest).on(bands, count);
        RandomFigures(seed, width, height, widest).on(plain, count);
        ASSERT_EQ(Difference(bands.image(), plain.image), "") << seed;
        RandomFigures(seed + 1000, width, height, widest).on(bands, count); // over what is painted
        RandomFigures(seed + 1000, width, height, widest).on(plain, count);
        ASSERT_EQ(bands.ReadPoint(width / 2, height / 2), plain.ReadPoint(width / 2, height / 2));
        ASSERT_EQ(Difference(bands.image(), plain.image), "") << seed << ", painted over";
        bands.Clear();
        plain.Clear();
        ASSERT_EQ(Difference(bands.image(), plain.image), "") << seed << ", cleared";
    }
}

// All ways of looking at a model, some of them so near that most of it lies beside the picture.
TEST(RasterBands, ViewsOfAModel) {
    AddTube(40, 20);
    ViewWindow none;
    for (int view = 0; view < 24; ++view) {
        const Threads threads(1 + view % 4);
        const int width = 300 + 37 * view, height = 200 + 29 * view;
        RasterSurface bands(width, height);
        PlainSurface plain(width, height);
        IsoView = view % 6 == 5 ? 0 : 1;
        NodesHidden = view % 3 == 2 ? 1 : 0;
        ViewAngleA = -140.0 / 57.3 + 0.3 * view;
        ViewAngleB = 20.0 / 57.3 + 0.2 * view;
        for (Surface *scr : {static_cast<Surface *>(&bands), static_cast<Surface *>(&plain)}) {
            KeepZoom = 0;
            TakeSurfaceSize(*scr);
            DrawMeshView(*scr, none);
            if (view % 4 == 3) { // as it is after a wheel
                KeepZoom = 1;
                MeshScale *= 4.0;
                DrawMeshView(*scr, none);
            }
        }
        ASSERT_EQ(Difference(bands.image(), plain.image), "") << view;
    }
}

} // namespace havuz
