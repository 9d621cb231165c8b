// Figures of a pen one pixel wide, as pixels of some rows of a picture: the same pixels that QPainter gives without
// antialiasing for corners at whole pixels, found out by trying all directions and held by a test. Positions in pixels;
// every corner lies on the picture.
#pragma once

#include "view/surface.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace havuz {

// Rows top..bottom-1 of a picture; what lies outside them is left out.
struct PixelRows {
    std::uint32_t *pixels; // of row 0
    std::size_t stride;    // pixels to a row
    int width, top, bottom;
};

constexpr std::size_t kMostCorners = 8; // of a filling

inline void PutPixel(const PixelRows &rows, int x, int y, std::uint32_t pixel) { // anywhere
    if (y >= rows.top && y < rows.bottom && x >= 0 && x < rows.width)
        rows.pixels[static_cast<std::size_t>(y) * rows.stride + static_cast<std::size_t>(x)] = pixel;
}
void PutArea(const PixelRows &rows, int x1, int y1, int x2, int y2, std::uint32_t pixel);    // both corners included
void PutLine(const PixelRows &rows, Pixel from, Pixel to, std::uint32_t pixel);              // both ends included
void PutOutline(const PixelRows &rows, std::span<const Pixel> corners, std::uint32_t pixel); // closed
void PutFilling(const PixelRows &rows, std::span<const Pixel> corners, std::uint32_t pixel); // by the odd-even rule

} // namespace havuz
