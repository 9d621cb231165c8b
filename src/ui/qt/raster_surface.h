// The drawing surface as a picture in memory, no antialiasing, so that every pixel has exactly one of the colours asked
// for. What is asked for waits in a display list until the picture is looked at; it is painted by bands in threads.
// Text is drawn in the program's own small font, whatever font is named. Needs no display and no QGuiApplication.
#pragma once

#include "view/picture_maker.h"

#include <memory>

class QImage;

namespace havuz {

class RasterSurface : public PictureSurface {
public:
    // width, height in pixels of the drawing, above 0; scale: pixels of the picture to one of these, for screens that
    // have more of them. A picture that memory cannot hold is Overflow.
    RasterSurface(int width, int height, double scale = 1.0);
    ~RasterSurface() override;

    void resize(int width, int height, double scale = 1.0) override;

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
    std::string png() const override;

private:
    struct Painting; // the image: who only draws needs no Qt
    std::unique_ptr<Painting> painting_;
};

} // namespace havuz
