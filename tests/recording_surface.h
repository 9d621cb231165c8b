// A surface that paints nothing: it keeps one line of text for each request, in the order they came. QB colours stand
// by their index, others as #rrggbb; pen state other than the plain one stands at the end of a line.
#pragma once

#include "view/surface.h"

#include <array>
#include <cstdio>
#include <string>

namespace havuz {

struct RecordingSurface : Surface {
    explicit RecordingSurface(int w = 405, int h = 305) : w_(w), h_(h) {}

    std::string log;
    Colour under = kBackground; // what ReadPoint finds everywhere

    int width() const override { return w_; }
    int height() const override { return h_; }
    void Clear() override { log += "clear\n"; }
    void Line(int x1, int y1, int x2, int y2, Colour colour) override { shape("line", x1, y1, x2, y2, colour); }
    void Box(int x1, int y1, int x2, int y2, Colour colour) override { shape("box", x1, y1, x2, y2, colour); }
    void FillBox(int x1, int y1, int x2, int y2, Colour colour) override { shape("fillbox", x1, y1, x2, y2, colour); }
    void Point(int x, int y, Colour colour) override { log += "point" + at(x, y) + " " + name(colour) + state(); }
    void Circle(int x, int y, int radius, Colour colour) override {
        log += "circle" + at(x, y) + " r" + std::to_string(radius) + " " + name(colour) + state();
    }
    Colour ReadPoint(int x, int y) override {
        log += "read" + at(x, y) + "\n";
        return under;
    }
    void Polygon(std::span<const Pixel> points) override {
        log += "polygon " + name(pen.colour) + " on ";
        log += pen.fillStyle == FillStyle::Solid
                   ? name(pen.fillColour)
                   : name(pen.fillColour) + " style " + std::to_string(static_cast<int>(pen.fillStyle));
        for (const Pixel p : points)
            log += at(p.x, p.y);
        log += state();
    }
    void Text(int x, int y, const std::string &text) override {
        log += "text" + at(x, y) + " " + name(pen.colour) + " '" + text + "'";
        log += pen.font == "Small Fonts" && pen.fontSize == 5 ? "\n" : " " + pen.font + "\n";
    }

private:
    static std::string at(int x, int y) { return " " + std::to_string(x) + "," + std::to_string(y); }
    static std::string name(Colour colour) {
        for (int i = 0; i < 16; ++i)
            if (QbColour(i) == colour)
                return std::to_string(i);
        std::array<char, 16> text{};
        std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(colour.rgb));
        return text.data();
    }
    std::string state() const {
        std::string s;
        if (pen.lineStyle != LineStyle::Solid)
            s += " line style " + std::to_string(static_cast<int>(pen.lineStyle));
        if (pen.lineWidth != 1)
            s += " width " + std::to_string(pen.lineWidth);
        if (pen.mode != DrawMode::Copy)
            s += " merged";
        return s + "\n";
    }
    void shape(const char *what, int x1, int y1, int x2, int y2, Colour colour) {
        log += what + at(x1, y1) + at(x2, y2) + " " + name(colour) + state();
    }
    int w_, h_;
};

} // namespace havuz
