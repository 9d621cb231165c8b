// A surface that keeps nothing, for windows without a platform. Pixels.
#pragma once

#include "view/surface.h"

namespace havuz {

class BlankSurface : public Surface {
public:
    BlankSurface(int width, int height) : width_(width), height_(height) {}
    int width() const override { return width_; }
    int height() const override { return height_; }
    void Clear() override {}
    void Line(int, int, int, int, Colour) override {}
    void Box(int, int, int, int, Colour) override {}
    void FillBox(int, int, int, int, Colour) override {}
    void Point(int, int, Colour) override {}
    void Circle(int, int, int, Colour) override {}
    Colour ReadPoint(int, int) override { return kBackground; }
    void Polygon(std::span<const Pixel>) override {}
    void Text(int, int, const std::string &) override {}

private:
    int width_, height_;
};

} // namespace havuz
