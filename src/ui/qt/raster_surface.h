// The drawing surface as a picture in memory: QPainter on a QImage, no antialiasing, so that every pixel has exactly
// one of the colours asked for. Text is drawn in the program's own small font, whatever font is named. Needs no display
// and no QGuiApplication.
#pragma once

#include "view/surface.h"

#include <memory>
#include <string>

class QImage;

namespace havuz {

class RasterSurface : public Surface {
public:
    // width, height in pixels of the drawing, above 0; scale: pixels of the picture to one of these, for screens that
    // have more of them. A picture that memory cannot hold is Overflow.
    RasterSurface(int width, int height, double scale = 1.0);
    ~RasterSurface() override;

    // Takes another size; what was drawn is gone. The pen stays.
    void resize(int width, int height, double scale = 1.0);

    int width() const override;
    int height() const override;
    void Clear() override;
    void Line(int x1, int y1, int x2, int y2, Colour colour) override;
    void Box(int x1, int y1, int x2, int y2, Colour colour) override;
    void FillBox(int x1, int y1, int x2, int y2, Colour colour) override;
    void Point(int x, int y, Colour colour) override;
    void Circle(int x, int y, int radius, Colour colour) override;
    Colour ReadPoint(int x, int y) override;
    void Polygon(std::span<const Pixel> points) override;
    void Text(int x, int y, const std::string &text) override;

    const QImage &image() const;
    void drawScaled(const QImage &picture); // over the whole surface
    std::string png() const;                // the bytes of a PNG file

private:
    struct Painting; // the image and its painter: who only draws needs no Qt
    std::unique_ptr<Painting> painting_;
};

} // namespace havuz
