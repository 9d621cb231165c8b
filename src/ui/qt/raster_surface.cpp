#include "ui/qt/raster_surface.h"

#include "model/failure.h"
#include "ui/qt/small_font.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QVarLengthArray>
#include <algorithm>
#include <cmath>

namespace havuz {

static QRgb Opaque(Colour colour) { return 0xFF000000U | colour.rgb; }

struct RasterSurface::Painting {
    int width, height;
    double scale;
    QImage image;
    QPainter painter; // open as long as the image: goes first
    // what the painter holds now, to tell it only what changes
    DrawMode mode = DrawMode::Copy;
    Colour penColour, brushColour;
    LineStyle penStyle = LineStyle::Solid;
    FillStyle brushStyle = FillStyle::None;
    int penWidth = 0;

    Painting(int w, int h, double s)
        : width(w), height(h), scale(s), image(toPicture(w), toPicture(h), QImage::Format_RGB32) {
        if (image.isNull())
            throw RuntimeFailure({.fault = Fault::PictureTooLarge, .number = w, .bound = h});
        painter.begin(&image);
        painter.scale(scale, scale);
    }
    int toPicture(int pixel) const { return static_cast<int>(std::lround(pixel * scale)); }
    void takeMode(const PenState &pen);
    void takePen(const PenState &pen, Colour colour);
    void takeBrush(const PenState &pen);
    void put(int x, int y, Colour colour);
};

void RasterSurface::Painting::takeMode(const PenState &pen) {
    if (mode == pen.mode)
        return;
    mode = pen.mode;
    painter.setCompositionMode(mode == DrawMode::Merge ? QPainter::RasterOp_SourceOrDestination
                                                       : QPainter::CompositionMode_SourceOver);
}

void RasterSurface::Painting::takePen(const PenState &pen, Colour colour) {
    static constexpr Qt::PenStyle styles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                              Qt::DashDotDotLine};
    takeMode(pen);
    if (penWidth == pen.lineWidth && penColour == colour && penStyle == pen.lineStyle)
        return;
    penWidth = pen.lineWidth;
    penColour = colour;
    penStyle = pen.lineStyle;
    // one pixel as the thinnest pen there is, which the painter draws fastest
    painter.setPen(
        QPen(QColor(Opaque(colour)), penWidth > 1 || scale > 1.0 ? penWidth : 0, styles[static_cast<int>(penStyle)]));
}

void RasterSurface::Painting::takeBrush(const PenState &pen) {
    static constexpr Qt::BrushStyle styles[] = {Qt::SolidPattern, Qt::NoBrush,         Qt::HorPattern,
                                                Qt::VerPattern,   Qt::BDiagPattern,    Qt::FDiagPattern,
                                                Qt::CrossPattern, Qt::DiagCrossPattern};
    takeMode(pen);
    if (brushStyle == pen.fillStyle && brushColour == pen.fillColour)
        return;
    brushStyle = pen.fillStyle;
    brushColour = pen.fillColour;
    painter.setBrush(QBrush(QColor(Opaque(brushColour)), styles[static_cast<int>(brushStyle)]));
}

void RasterSurface::Painting::put(int x, int y, Colour colour) {
    for (int row = toPicture(y); row < toPicture(y + 1); ++row)
        for (int column = toPicture(x); column < toPicture(x + 1); ++column)
            if (image.valid(column, row))
                reinterpret_cast<QRgb *>(image.scanLine(row))[column] = Opaque(colour);
}

RasterSurface::RasterSurface(int width, int height, double scale) { resize(width, height, scale); }

void RasterSurface::resize(int width, int height, double scale) {
    painting_ = std::make_unique<Painting>(width, height, scale);
    RasterSurface::Clear();
}

RasterSurface::~RasterSurface() = default;

int RasterSurface::width() const { return painting_->width; }

int RasterSurface::height() const { return painting_->height; }

const QImage &RasterSurface::image() const { return painting_->image; }

void RasterSurface::Clear() { painting_->image.fill(Opaque(kBackground)); }

void RasterSurface::Line(int x1, int y1, int x2, int y2, Colour colour) {
    painting_->takePen(pen, colour);
    painting_->painter.drawLine(x1, y1, x2, y2);
}

// A painter's rectangle reaches one pixel past its width and height, so its far corner is the one asked for.
void RasterSurface::Box(int x1, int y1, int x2, int y2, Colour colour) {
    painting_->takePen(pen, colour);
    painting_->brushStyle = FillStyle::None;
    painting_->painter.setBrush(Qt::NoBrush);
    painting_->painter.drawRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1));
}

void RasterSurface::FillBox(int x1, int y1, int x2, int y2, Colour colour) {
    painting_->takeMode(pen);
    painting_->painter.fillRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1,
                                QColor(Opaque(colour)));
}

void RasterSurface::Point(int x, int y, Colour colour) {
    const int left = pen.lineWidth / 2;
    FillBox(x - left, y - left, x - left + pen.lineWidth - 1, y - left + pen.lineWidth - 1, colour);
}

void RasterSurface::Circle(int x, int y, int radius, Colour colour) {
    painting_->takePen(pen, colour);
    painting_->takeBrush(pen);
    painting_->painter.drawEllipse(QPoint(x, y), radius, radius);
}

Colour RasterSurface::ReadPoint(int x, int y) {
    const QImage &image = painting_->image;
    const QPoint at(painting_->toPicture(x), painting_->toPicture(y));
    return image.valid(at) ? Colour{image.pixel(at) & 0xFFFFFFU} : kBackground;
}

void RasterSurface::Polygon(std::span<const Pixel> points) {
    painting_->takePen(pen, pen.colour);
    painting_->takeBrush(pen);
    QVarLengthArray<QPoint, 8> corners;
    for (const Pixel p : points)
        corners.append(QPoint(p.x, p.y));
    painting_->painter.drawPolygon(corners.constData(), static_cast<int>(corners.size()));
}

// Two pixels stay free at the left, as most labels stand on a line that would run into their first digit.
void RasterSurface::Text(int x, int y, const std::string &text) {
    ForEachTextPixel(text, [&](int column, int row) { painting_->put(x + 2 + column, y + row, pen.colour); });
}

void RasterSurface::drawScaled(const QImage &picture) {
    painting_->mode = DrawMode::Copy;
    painting_->painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painting_->painter.drawImage(
        QRectF(0, 0, width(), height()),
        picture.scaled(painting_->image.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

std::string RasterSurface::png() const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !painting_->image.save(&buffer, "PNG"))
        throw RuntimeFailure({.fault = Fault::NoPicture});
    return bytes.toStdString();
}

} // namespace havuz
