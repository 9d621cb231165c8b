// The pieces of a text document that is laid out as one strip, for cutting it into pages (view/page_cut.h).
#pragma once

#include "view/page_cut.h"

#include <QTextDocument>

namespace havuz {

// The document has a width and no page height.
std::vector<StripPiece> PiecesOf(const QTextDocument &document);

} // namespace havuz
