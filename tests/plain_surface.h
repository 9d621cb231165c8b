// The drawing surface as a QPainter paints it, request by request, on one thread: what the pixels of RasterSurface are
// held against.
#pragma once

#include "ui/qt/small_font.h"
#include "view/surface.h"

#include <QImage>
#include <QPainter>
#include <QPolygon>
#include <cmath>

namespace havuz {

class PlainSurface : public Surface {
public:
    explicit PlainSurface(int width, int height, double scale = 1.0)
        : width_(width), height_(height), scale_(scale), image(at(width), at(height), QImage::Format_RGB32) {
        PlainSurface::Clear();
    }
    int width() const override { return width_; }
    int height() const override { return height_; }
    void Clear() override { image.fill(0xFF000000U | kBackground.rgb); }
    void Line(int x1, int y1, int x2, int y2, Colour colour) override {
        with(colour, FillStyle::None).drawLine(x1, y1, x2, y2);
    }
    void Box(int x1, int y1, int x2, int y2, Colour colour) override {
        with(colour, FillStyle::None)
            .drawRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1));
    }
    void FillBox(int x1, int y1, int x2, int y2, Colour colour) override {
        with(colour, FillStyle::None)
            .fillRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1,
                      QColor(QRgb(colour.rgb)));
    }
    void Point(int x, int y, Colour colour) override {
        const int left = pen.lineWidth / 2;
        FillBox(x - left, y - left, x - left + pen.lineWidth - 1, y - left + pen.lineWidth - 1, colour);
    }
    void Circle(int x, int y, int radius, Colour colour) override {
        with(colour, pen.fillStyle).drawEllipse(QPoint(x, y), radius, radius);
    }
    Colour ReadPoint(int x, int y) override {
        return image.valid(at(x), at(y)) ? Colour{image.pixel(at(x), at(y)) & 0xFFFFFFU} : kBackground;
    }
    void Polygon(std::span<const Pixel> points) override {
        QPolygon corners;
        for (const Pixel p : points)
            corners << QPoint(p.x, p.y);
        with(pen.colour, pen.fillStyle).drawPolygon(corners);
    }
    void Text(int x, int y, const std::string &text) override {
        ForEachTextPixel(text, [&](int column, int row) {
            for (int v = at(y + row); v < at(y + row + 1); ++v)
                for (int u = at(x + 2 + column); u < at(x + 2 + column + 1); ++u)
                    if (image.valid(u, v))
                        image.setPixel(u, v, 0xFF000000U | pen.colour.rgb);
        });
    }

private:
    int at(int pixel) const { return static_cast<int>(std::lround(pixel * scale_)); }
    // The painter in the pen's state.
    QPainter &with(Colour colour, FillStyle fill) {
        static constexpr Qt::PenStyle lines[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                                 Qt::DashDotDotLine};
        static constexpr Qt::BrushStyle fills[] = {Qt::SolidPattern, Qt::NoBrush,         Qt::HorPattern,
                                                   Qt::VerPattern,   Qt::BDiagPattern,    Qt::FDiagPattern,
                                                   Qt::CrossPattern, Qt::DiagCrossPattern};
        if (!painter_.isActive()) {
            painter_.begin(&image);
            painter_.scale(scale_, scale_);
        }
        painter_.setCompositionMode(pen.mode == DrawMode::Merge ? QPainter::RasterOp_SourceOrDestination
                                                                : QPainter::CompositionMode_SourceOver);
        painter_.setPen(QPen(QColor(QRgb(colour.rgb)), pen.lineWidth > 1 || scale_ > 1.0 ? pen.lineWidth : 0,
                             lines[static_cast<int>(pen.lineStyle)]));
        painter_.setBrush(QBrush(QColor(QRgb(pen.fillColour.rgb)), fills[static_cast<int>(fill)]));
        return painter_;
    }

    int width_, height_;
    double scale_;

public:
    QImage image;

private:
    QPainter painter_; // open as long as the image: goes first
};

} // namespace havuz
