#include "ui/qt/band_painter.h"

#include "ui/qt/small_font.h"

#include <QVarLengthArray>
#include <algorithm>
#include <cmath>

namespace havuz {

BandPainter::BandPainter(const DisplayList &list, std::uint32_t *pixels, int width, int height)
    : list_(list), rows_{pixels, static_cast<std::size_t>(width), width, 0, height},
      image_(reinterpret_cast<uchar *>(pixels), width, height, QImage::Format_RGB32) {}

void BandPainter::begin(int top, int bottom) {
    rows_.top = top;
    rows_.bottom = bottom;
    clipped_ = false;
}

void BandPainter::clear() { PutArea(rows_, 0, rows_.top, rows_.width - 1, rows_.bottom - 1, Opaque(kBackground)); }

void BandPainter::paint(const Request &r) {
    const QRgb pixel = Opaque(r.colour);
    switch (r.figure) {
    case Figure::ThinLine:
        return PutLine(rows_, {r.x1, r.y1}, {r.x2, r.y2}, pixel);
    case Figure::ThinPolygon:
        if (static_cast<FillStyle>(r.fillStyle) == FillStyle::Solid)
            PutFilling(rows_, list_.points(r), Opaque(r.fillColour));
        return PutOutline(rows_, list_.points(r), pixel);
    case Figure::ThinCircle:
        for (const Pixel by : {Pixel{0, -1}, Pixel{-1, 0}, Pixel{1, 0}, Pixel{0, 1}})
            PutPixel(rows_, r.x1 + by.x, r.y1 + by.y, pixel);
        return;
    case Figure::Area:
        return PutArea(rows_, r.x1, r.y1, r.x2, r.y2, pixel);
    case Figure::Text:
        return paintText(r);
    default:
        return paintByPainter(r);
    }
}

// Two pixels stay free at the left, as most labels stand on a line that would run into their first digit.
void BandPainter::paintText(const Request &r) {
    const QRgb pixel = Opaque(r.colour);
    if (list_.scale() == 1.0)
        return ForEachTextPixel(list_.text(r),
                                [&](int column, int row) { PutPixel(rows_, r.x1 + 2 + column, r.y1 + row, pixel); });
    ForEachTextPixel(list_.text(r), [&](int column, int row) {
        const int x = r.x1 + 2 + column;
        const int y = r.y1 + row;
        PutArea(rows_, std::max(list_.toPicture(x), 0), list_.toPicture(y),
                std::min(list_.toPicture(x + 1), rows_.width) - 1, list_.toPicture(y + 1) - 1, pixel);
    });
}

QPainter &BandPainter::painter() {
    if (!painter_)
        painter_.emplace(&image_);
    if (!clipped_) {
        painter_->resetTransform();
        painter_->setClipRect(0, rows_.top, rows_.width, rows_.bottom - rows_.top);
        painter_->scale(list_.scale(), list_.scale());
        clipped_ = true;
    }
    return *painter_;
}

void BandPainter::takeMode(const Request &r) {
    if (mode_ && mode_->mode == r.mode)
        return;
    mode_ = r;
    painter_->setCompositionMode(static_cast<DrawMode>(r.mode) == DrawMode::Merge
                                     ? QPainter::RasterOp_SourceOrDestination
                                     : QPainter::CompositionMode_SourceOver);
}

void BandPainter::takePen(const Request &r) {
    static constexpr Qt::PenStyle styles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                              Qt::DashDotDotLine};
    takeMode(r);
    if (pen_ && pen_->lineWidth == r.lineWidth && pen_->colour == r.colour && pen_->lineStyle == r.lineStyle)
        return;
    pen_ = r;
    // one pixel as the thinnest pen there is, which the painter draws fastest
    painter_->setPen(
        QPen(QColor(Opaque(r.colour)), r.lineWidth > 1 || list_.scale() > 1.0 ? r.lineWidth : 0, styles[r.lineStyle]));
}

void BandPainter::takeBrush(const Request &r) {
    static constexpr Qt::BrushStyle styles[] = {Qt::SolidPattern, Qt::NoBrush,         Qt::HorPattern,
                                                Qt::VerPattern,   Qt::BDiagPattern,    Qt::FDiagPattern,
                                                Qt::CrossPattern, Qt::DiagCrossPattern};
    takeMode(r);
    if (brush_ && brush_->fillStyle == r.fillStyle && brush_->fillColour == r.fillColour)
        return;
    brush_ = r;
    painter_->setBrush(QBrush(QColor(Opaque(r.fillColour)), styles[r.fillStyle]));
}

// A painter's rectangle reaches one pixel past its width and height, so its far corner is the one asked for.
void BandPainter::paintByPainter(const Request &r) {
    QPainter &p = painter();
    const int left = std::min(r.x1, r.x2);
    const int top = std::min(r.y1, r.y2);
    if (r.figure == Figure::FillBox) {
        takeMode(r);
        return p.fillRect(left, top, std::abs(r.x2 - r.x1) + 1, std::abs(r.y2 - r.y1) + 1, QColor(Opaque(r.colour)));
    }
    takePen(r);
    if (r.figure == Figure::Line)
        return p.drawLine(r.x1, r.y1, r.x2, r.y2);
    if (r.figure == Figure::Box) {
        brush_.reset();
        p.setBrush(Qt::NoBrush);
        return p.drawRect(left, top, std::abs(r.x2 - r.x1), std::abs(r.y2 - r.y1));
    }
    takeBrush(r);
    if (r.figure == Figure::Circle)
        return p.drawEllipse(QPoint(r.x1, r.y1), r.x2, r.x2);
    QVarLengthArray<QPoint, 8> corners;
    for (const Pixel corner : list_.points(r))
        corners.append(QPoint(corner.x, corner.y));
    p.drawPolygon(corners.constData(), static_cast<int>(corners.size()));
}

} // namespace havuz
