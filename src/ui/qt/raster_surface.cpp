#include "ui/qt/raster_surface.h"

#include "model/failure.h"
#include "model/workers.h"
#include "ui/qt/band_painter.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <atomic>
#include <numeric>
#include <optional>

namespace havuz {

namespace {

constexpr int kBandRows = 32;             // of usual pictures: half a megabyte at most, which stays in a core's cache
constexpr std::size_t kWorthBands = 500;  // fewer requests than these are painted as they come
constexpr std::size_t kMostKept = 200000; // requests that wait to be painted

} // namespace

struct RasterSurface::Painting {
    int width, height;
    DisplayList list;
    QImage image;

    Painting(int w, int h, double scale)
        : width(w), height(h), list(w, h, scale), image(list.toPicture(w), list.toPicture(h), QImage::Format_RGB32) {
        if (image.isNull())
            throw RuntimeFailure({.fault = Fault::PictureTooLarge, .number = w, .bound = h});
    }
    DisplayList &ask() {
        if (list.requests().size() >= kMostKept)
            paint();
        return list;
    }
    void paint();

private:
    using Run = std::span<const Request>;
    void paintBands(Run run, bool clear, std::uint32_t *pixels);
};

// The requests of a run that touch each band, in their order.
class Bands {
public:
    Bands(std::span<const Request> run, int rows)
        : start_(static_cast<std::size_t>((rows + kBandRows - 1) / kBandRows) + 1, 0) {
        forEach(run, [&](std::size_t band, std::size_t) { ++start_[band + 1]; });
        std::partial_sum(start_.begin(), start_.end(), start_.begin());
        request_.resize(start_.back());
        std::vector<std::size_t> next = start_;
        forEach(run, [&](std::size_t band, std::size_t no) { request_[next[band]++] = no; });
    }
    int count() const { return static_cast<int>(start_.size()) - 1; }
    std::span<const std::size_t> of(int band) const {
        const auto k = static_cast<std::size_t>(band);
        return std::span(request_).subspan(start_[k], start_[k + 1] - start_[k]);
    }

private:
    template <class Job>
    static void forEach(std::span<const Request> run, Job job) {
        for (std::size_t no = 0; no < run.size(); ++no)
            for (int band = run[no].top / kBandRows; band <= (run[no].bottom - 1) / kBandRows; ++band)
                job(static_cast<std::size_t>(band), no);
    }
    std::vector<std::size_t> start_, request_;
};

// Long runs of requests that bands leave as they are go by bands, the others as they come.
void RasterSurface::Painting::paint() {
    if (!list.cleared() && list.requests().empty())
        return;
    auto *const pixels = reinterpret_cast<std::uint32_t *>(image.bits());
    bool clear = list.cleared();
    std::optional<BandPainter> whole; // kept between two runs by bands
    Run left = list.requests();
    while (clear || !left.empty()) {
        const auto end = std::find_if(left.begin(), left.end(), [](const Request &r) { return !r.byBands; });
        Run run = left.first(static_cast<std::size_t>(end - left.begin()));
        if (run.size() >= kWorthBands) {
            whole.reset();
            paintBands(run, clear, pixels);
        } else {
            run = left.first(std::min(run.size() + 1, left.size()));
            if (!whole)
                whole.emplace(list, pixels, image.width(), image.height());
            if (clear)
                whole->clear();
            for (const Request &request : run)
                whole->paint(request);
        }
        clear = false;
        left = left.subspan(run.size());
    }
    list.painted();
}

void RasterSurface::Painting::paintBands(Run run, bool clear, std::uint32_t *pixels) {
    const int rows = image.height();
    const Bands bands(run, rows);
    std::atomic<int> next = 0;
    WorkerTeam(std::min(AllowedThreads(), bands.count())).run([&](int) {
        BandPainter own(list, pixels, image.width(), rows);
        for (int band = next++; band < bands.count(); band = next++) {
            own.begin(band * kBandRows, std::min((band + 1) * kBandRows, rows));
            if (clear)
                own.clear();
            for (const std::size_t no : bands.of(band))
                own.paint(run[no]);
        }
    });
}

RasterSurface::RasterSurface(int width, int height, double scale) { RasterSurface::resize(width, height, scale); }

void RasterSurface::resize(int width, int height, double scale) {
    painting_ = std::make_unique<Painting>(width, height, scale);
    painting_->list.clear();
}

RasterSurface::~RasterSurface() = default;

int RasterSurface::width() const { return painting_->width; }

int RasterSurface::height() const { return painting_->height; }

const QImage &RasterSurface::image() const {
    painting_->paint();
    return painting_->image;
}

void RasterSurface::Clear() { painting_->list.clear(); }

void RasterSurface::Line(int x1, int y1, int x2, int y2, Colour colour) {
    painting_->ask().line(pen, x1, y1, x2, y2, colour);
}

void RasterSurface::Box(int x1, int y1, int x2, int y2, Colour colour) {
    painting_->ask().box(pen, x1, y1, x2, y2, colour);
}

void RasterSurface::FillBox(int x1, int y1, int x2, int y2, Colour colour) {
    painting_->ask().fillBox(pen, x1, y1, x2, y2, colour);
}

void RasterSurface::Point(int x, int y, Colour colour) {
    const int left = pen.lineWidth / 2;
    FillBox(x - left, y - left, x - left + pen.lineWidth - 1, y - left + pen.lineWidth - 1, colour);
}

void RasterSurface::Circle(int x, int y, int radius, Colour colour) {
    painting_->ask().circle(pen, x, y, radius, colour);
}

Colour RasterSurface::ReadPoint(int x, int y) {
    const QPoint at(painting_->list.toPicture(x), painting_->list.toPicture(y));
    return image().valid(at) ? Colour{painting_->image.pixel(at) & 0xFFFFFFU} : kBackground;
}

void RasterSurface::Polygon(std::span<const Pixel> points) { painting_->ask().polygon(pen, points); }

void RasterSurface::Text(int x, int y, const std::string &text) { painting_->ask().text(pen, x, y, text); }

void RasterSurface::drawScaled(const QImage &picture) {
    const QImage whole = picture.scaled(image().size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter(&painting_->image).drawImage(0, 0, whole);
}

std::string RasterSurface::png() const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image().save(&buffer, "PNG"))
        throw RuntimeFailure({.fault = Fault::NoPicture});
    return bytes.toStdString();
}

} // namespace havuz
