// The drawing surface as a picture in memory: QPainter on a QImage, no antialiasing, so that every pixel has exactly
// one of the colours asked for. Text is drawn in the program's own small font, whatever font is named. Needs no display
// and no QGuiApplication.
#pragma once

#include "view/surface.h"

#include <QImage>
#include <QPainter>
#include <string>

namespace havuz {

class RasterSurface : public Surface {
public:
    // width, height in pixels, above 0. A picture that memory cannot hold is Overflow.
    RasterSurface(int width, int height);

    int width() const override { return image_.width(); }
    int height() const override { return image_.height(); }
    void Clear() override;
    void Line(int x1, int y1, int x2, int y2, Colour colour) override;
    void Box(int x1, int y1, int x2, int y2, Colour colour) override;
    void FillBox(int x1, int y1, int x2, int y2, Colour colour) override;
    void Point(int x, int y, Colour colour) override;
    void Circle(int x, int y, int radius, Colour colour) override;
    Colour ReadPoint(int x, int y) override;
    void Polygon(std::span<const Pixel> points) override;
    void Text(int x, int y, const std::string &text) override;

    const QImage &image() const { return image_; }
    std::string png() const; // the bytes of a PNG file

private:
    void takeMode();
    void takePen(Colour colour);
    void takeBrush();
    void put(int x, int y, std::uint32_t rgb);

    QImage image_;
    QPainter painter_; // open as long as the image: goes first
    // what the painter holds now, to tell it only what changes
    DrawMode mode_ = DrawMode::Copy;
    Colour penColour_, brushColour_;
    LineStyle penStyle_ = LineStyle::Solid;
    FillStyle brushStyle_ = FillStyle::None;
    int penWidth_ = 0;
};

} // namespace havuz
