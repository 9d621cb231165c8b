// Documents on paper: a HTML report as a PDF of A4 pages, its SVG pictures painted as vectors, its text as
// text with fonts embedded. Needs no display. The same input gives the same bytes.
#pragma once

#include <string>

namespace havuz {

// date, "2026-01-31", is the date of the file; title stands at the foot of each page beside the page's number.
std::string PdfOfHtml(const std::string &html, const std::string &title, const std::string &date);

// Text of a picture or a page needs the font database of a graphical program: one without a display is begun when none
// runs yet.
void NeedFonts();

} // namespace havuz
