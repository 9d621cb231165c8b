// The small font of the drawings: the printable ASCII characters as pixels, drawn for this program, so that a picture
// is the same on every machine and needs no font of the system. Capitals are 7 pixels high; one row hangs below.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

namespace havuz {

constexpr int kGlyphRows = 8;

struct Glyph {
    char character;
    const char *rows; // rows of "#" and ".", all of one length, separated by blanks; rows left out at the end are blank
};

// What is not in the font is drawn as a hollow box, one for each character of UTF-8.
const Glyph &GlyphOf(char character);

// The pixels of a glyph: bit c of row r is column c.
struct GlyphPixels {
    int width = 0;
    std::array<std::uint8_t, kGlyphRows> row{};
};
const GlyphPixels &PixelsOf(char character);

// Calls put(column, row) for each pixel of the text, counted from its top left.
template <class Put>
void ForEachTextPixel(std::string_view text, Put put) {
    int left = 0;
    for (const char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80U)
            continue; // inside a character of UTF-8
        const GlyphPixels &glyph = PixelsOf(c);
        for (int row = 0; row < kGlyphRows; ++row)
            for (unsigned bits = glyph.row[static_cast<std::size_t>(row)]; bits != 0; bits &= bits - 1)
                put(left + std::countr_zero(bits), row);
        left += glyph.width + 1;
    }
}

} // namespace havuz
