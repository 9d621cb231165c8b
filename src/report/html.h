// The report's text as HTML: headings, paragraphs, tables and pictures in the part of HTML that a browser and the
// printed page draw alike. All words are escaped here; pictures are data, nothing is fetched.
#pragma once

#include "view/svg_canvas.h"

#include <string>
#include <string_view>
#include <vector>

namespace havuz::report {

class Html {
public:
    Html(const std::string &title);

    void heading(int level, const std::string &words);                      // 1 to 3
    void paragraph(const std::string &words, const std::string &kind = ""); // kind: a class of the style sheet
    // Lines one under the other in one block; the first is bold.
    void block(const std::vector<std::string> &lines, bool good);
    // width: at which it is shown, pixels; 0: its own.
    void picture(const SvgCanvas &svg, const std::string &caption, double width = 0.0);
    // Cells of a row in the order of the head; a cell that begins with "!" is marked as not met. A table without rows
    // is left out.
    void table(const std::vector<std::string> &head, const std::vector<std::vector<std::string>> &rows);
    void pageBreak() { breakBefore_ = true; } // before the next heading

    std::string file() const; // the whole file

private:
    std::string title_, body_;
    bool breakBefore_ = false;
};

std::string Base64(std::string_view bytes); // RFC 4648

} // namespace havuz::report
