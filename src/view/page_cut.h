// Where a report that was laid out once, as one strip, is cut into pages: between paragraphs and between rows of
// tables; never behind what belongs to what follows it. The head of a table stands again where the table goes on.
// Lengths in the unit of the layout, from the top of the strip.
#pragma once

#include <vector>

namespace havuz {

// What is never cut: a paragraph, a picture, a row.
struct StripPiece {
    double top = 0.0, bottom = 0.0;
    bool keepWithNext = false;              // a heading, a picture before its caption, the head of a table
    double headTop = 0.0, headBottom = 0.0; // of a row that may not stand on a page without the head of its table
};

struct StripPage {
    double top = 0.0, bottom = 0.0;         // what of the strip stands on it
    double headTop = 0.0, headBottom = 0.0; // a table's head, above the rest; equal: none
    double head() const { return headBottom - headTop; }
};

// Pieces from the top down. What is higher than a page goes over its foot.
std::vector<StripPage> CutIntoPages(const std::vector<StripPiece> &pieces, double height);

} // namespace havuz
