// A result picture in memory: triangles by scan lines of our own, the rest by QPainter. Needs no display, but the fonts
// of a QGuiApplication for text.
#pragma once

#include "view/result_canvas.h"

#include <memory>

class QImage;

namespace havuz {

class ImageCanvas : public ResultCanvas {
public:
    // width, height in pixels of the drawing; scale: pixels of the picture to one of these.
    ImageCanvas(int width, int height, double scale = 1.0);
    ~ImageCanvas() override;
    double width() const override { return width_; }
    double height() const override { return height_; }
    void Triangle(const std::array<ValuePoint, 3> &corners, const ColourMap &map) override;
    void Fill(std::span<const ScreenPoint> ring, Colour colour) override;
    void Line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth) override;
    void Text(ScreenPoint at, const std::string &text, TextAlign align, double size, Colour colour) override;

    Colour colourAt(int x, int y) const; // of a pixel of the picture
    const QImage &image() const;
    std::string png() const; // the bytes of a PNG file

private:
    struct Painting; // the image and its painter: who only draws needs no Qt
    int width_, height_;
    double scale_;
    std::unique_ptr<Painting> painting_;
};

} // namespace havuz
