#include "view/page_cut.h"

#include <cstddef>

namespace havuz {

std::vector<StripPage> CutIntoPages(const std::vector<StripPiece> &pieces, double height) {
    std::vector<StripPage> pages;
    for (std::size_t first = 0, last = 0; first < pieces.size(); first = last + 1) {
        for (last = first; pieces[last].keepWithNext && last + 1 < pieces.size();)
            ++last;
        if (pages.empty() || pieces[last].bottom - pages.back().top > height - pages.back().head())
            pages.push_back({pieces[first].top, 0.0, pieces[first].headTop, pieces[first].headBottom});
        pages.back().bottom = pieces[last].bottom;
    }
    return pages;
}

} // namespace havuz
