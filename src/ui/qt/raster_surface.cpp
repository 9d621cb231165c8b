#include "ui/qt/raster_surface.h"

#include "model/failure.h"
#include "ui/qt/small_font.h"

#include <QBuffer>
#include <QVarLengthArray>
#include <algorithm>

namespace havuz {

static QRgb Opaque(Colour colour) {
    return 0xFF000000U | colour.rgb;
}

RasterSurface::RasterSurface(int width, int height) : image_(width, height, QImage::Format_RGB32) {
    if (image_.isNull())
        FailOverflow("a picture of " + std::to_string(width) + "x" + std::to_string(height) + " pixels");
    painter_.begin(&image_);
    RasterSurface::Clear();
}

void RasterSurface::Clear() {
    image_.fill(Opaque(kBackground));
}

void RasterSurface::takeMode() {
    if (mode_ == pen.mode)
        return;
    mode_ = pen.mode;
    painter_.setCompositionMode(mode_ == DrawMode::Merge ? QPainter::RasterOp_SourceOrDestination
                                                         : QPainter::CompositionMode_SourceOver);
}

void RasterSurface::takePen(Colour colour) {
    static constexpr Qt::PenStyle styles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                              Qt::DashDotDotLine};
    takeMode();
    if (penWidth_ == pen.lineWidth && penColour_ == colour && penStyle_ == pen.lineStyle)
        return;
    penWidth_ = pen.lineWidth;
    penColour_ = colour;
    penStyle_ = pen.lineStyle;
    // one pixel as the thinnest pen there is, which the painter draws fastest
    painter_.setPen(QPen(QColor(Opaque(colour)), penWidth_ > 1 ? penWidth_ : 0, styles[static_cast<int>(penStyle_)]));
}

void RasterSurface::takeBrush() {
    static constexpr Qt::BrushStyle styles[] = {Qt::SolidPattern, Qt::NoBrush,         Qt::HorPattern,
                                                Qt::VerPattern,   Qt::BDiagPattern,    Qt::FDiagPattern,
                                                Qt::CrossPattern, Qt::DiagCrossPattern};
    takeMode();
    if (brushStyle_ == pen.fillStyle && brushColour_ == pen.fillColour)
        return;
    brushStyle_ = pen.fillStyle;
    brushColour_ = pen.fillColour;
    painter_.setBrush(QBrush(QColor(Opaque(brushColour_)), styles[static_cast<int>(brushStyle_)]));
}

void RasterSurface::put(int x, int y, std::uint32_t rgb) {
    if (x < 0 || y < 0 || x >= image_.width() || y >= image_.height())
        return;
    auto *pixel = reinterpret_cast<QRgb *>(image_.scanLine(y)) + x;
    *pixel = 0xFF000000U | rgb;
}

void RasterSurface::Line(int x1, int y1, int x2, int y2, Colour colour) {
    takePen(colour);
    painter_.drawLine(x1, y1, x2, y2);
}

// A painter's rectangle reaches one pixel past its width and height, so its far corner is the one asked for.
void RasterSurface::Box(int x1, int y1, int x2, int y2, Colour colour) {
    takePen(colour);
    brushStyle_ = FillStyle::None;
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1));
}

void RasterSurface::FillBox(int x1, int y1, int x2, int y2, Colour colour) {
    takeMode();
    painter_.fillRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1,
                      QColor(Opaque(colour)));
}

void RasterSurface::Point(int x, int y, Colour colour) {
    const int left = pen.lineWidth / 2;
    FillBox(x - left, y - left, x - left + pen.lineWidth - 1, y - left + pen.lineWidth - 1, colour);
}

void RasterSurface::Circle(int x, int y, int radius, Colour colour) {
    takePen(colour);
    takeBrush();
    painter_.drawEllipse(QPoint(x, y), radius, radius);
}

Colour RasterSurface::ReadPoint(int x, int y) {
    return image_.valid(x, y) ? Colour{image_.pixel(x, y) & 0xFFFFFFU} : kBackground;
}

void RasterSurface::Polygon(std::span<const Pixel> points) {
    takePen(pen.colour);
    takeBrush();
    QVarLengthArray<QPoint, 8> corners;
    for (const Pixel p : points)
        corners.append(QPoint(p.x, p.y));
    painter_.drawPolygon(corners.constData(), static_cast<int>(corners.size()));
}

// Two pixels stay free at the left, as most labels stand on a line that would run into their first digit.
void RasterSurface::Text(int x, int y, const std::string &text) {
    ForEachTextPixel(text, [&](int column, int row) { put(x + 2 + column, y + row, pen.colour.rgb); });
}

std::string RasterSurface::png() const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image_.save(&buffer, "PNG"))
        throw RuntimeFailure(File, "the picture cannot be made a PNG");
    return bytes.toStdString();
}

} // namespace havuz
