// The small font of the drawings: the printable ASCII characters as pixels, drawn for this program, so that a picture
// is the same on every machine and needs no font of the system. Capitals are 7 pixels high; one row hangs below.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace havuz {

constexpr int kGlyphRows = 8;

struct Glyph {
    char character;
    const char *rows; // rows of "#" and ".", all of one length, separated by blanks; rows left out at the end are blank
};

// What is not in the font is drawn as a hollow box, one for each character of UTF-8.
const Glyph &GlyphOf(char character);

int GlyphWidth(const Glyph &glyph);

// Calls put(column, row) for each pixel of the text, counted from its top left.
template <class Put>
void ForEachTextPixel(std::string_view text, Put put) {
    int left = 0;
    for (const char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80U)
            continue; // inside a character of UTF-8
        const Glyph &glyph = GlyphOf(c);
        int column = 0;
        int row = 0;
        for (const char *p = glyph.rows; *p != '\0'; ++p) {
            if (*p == ' ') {
                column = 0;
                ++row;
                continue;
            }
            if (*p == '#')
                put(left + column, row);
            ++column;
        }
        left += GlyphWidth(glyph) + 1;
    }
}

} // namespace havuz
