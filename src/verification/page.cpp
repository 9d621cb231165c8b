#include "verification/page.h"

#include "verification/sketch.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace havuz::verification {

namespace {

constexpr double kExplained = 0.02, kConfirmed = 5e-4;
const char *const kPictures = "pictures/verification/";

double ScaleOf(const Quantity &q) { return q.scale > 0.0 ? q.scale : std::fabs(q.target); }

std::string Fixed(double value, int decimals) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    std::string number(text.data(), end.ptr);
    if (number.find_first_not_of("-0.") == std::string::npos && number[0] == '-')
        number.erase(0, 1);
    return number;
}

double Difference(const Quantity &q, double value) { return (value - q.target) / ScaleOf(q); }

std::string Percent(const Quantity &q, double value) {
    if (std::isnan(value))
        return "–";
    const std::string text = Fixed(100.0 * Difference(q, value), 1);
    return (text[0] == '-' || text == "0.0" ? text : "+" + text) + " %";
}

std::string NameOf(const Quantity &q) { return q.name + (q.unit.empty() ? "" : ", " + q.unit); }

const char *const kOpening = R"(# Verification manual

Every number of this page was computed when the page was made; `docs/make-verification` makes it anew, and a test compares it with the program. *Target* is what a book, statics or another method says. *Literal* is the program's own run at the mesh that its column names, wherever its rules can model the case; the columns behind it are the [consistent analysis](consistent-analysis.md) at three mesh widths, one where a case has no mesh. *Difference* is that of the finest mesh against the target. Differences above 2 % are explained below their table; none is left out. In the pictures arrows are forces; filled marks are nodes whose translations are all held. Units: metres, tons.

MacNeal and Harder's set stands whole in its shell form. Left out is what it has for solid elements: this is a shell.

)";

struct Results {
    std::vector<std::vector<double>> byMesh; // as many meshes as were computed
    std::vector<std::optional<double>> literal;
};

Results Solve(const Example &e, Depth depth) {
    Results r;
    for (std::size_t mesh = 0; mesh < (depth == Depth::Whole ? e.meshes.size() : 1); ++mesh)
        r.byMesh.push_back(e.values(mesh));
    if (e.literal)
        r.literal = e.literal();
    r.literal.resize(e.quantities.size());
    return r;
}

std::string TableHead(const Example &e) {
    std::string head = "| | target | literal", line = "|---|---|---|";
    head += (e.literal && e.meshes.size() > 1 ? ", " + e.meshes[e.literalMesh] : "") + " |";
    for (const std::string &mesh : e.meshes) {
        head += " " + mesh + " |";
        line += "---|";
    }
    return head + " difference |\n" + line + "---|\n";
}

std::string Row(const Example &e, const Results &r, std::size_t i) {
    const Quantity &q = e.quantities[i];
    std::string row = "| " + NameOf(q) + " | " + Digits(q.target, ScaleOf(q)) + " | ";
    row += r.literal[i] ? Digits(*r.literal[i], ScaleOf(q)) + " (" + Percent(q, *r.literal[i]) + ")" : "–";
    for (std::size_t mesh = 0; mesh < e.meshes.size(); ++mesh)
        row += " | " + (mesh < r.byMesh.size() ? Digits(r.byMesh[mesh][i], ScaleOf(q)) : kOpen);
    const bool whole = r.byMesh.size() == e.meshes.size();
    return row + " | " + (whole ? Percent(q, r.byMesh.back()[i]) : kOpen) + " |\n";
}

// One line a source with the quantities that have it.
std::string Sources(const Example &e) {
    std::vector<std::pair<std::string, std::string>> lines;
    for (const Quantity &q : e.quantities) {
        const auto found =
            std::find_if(lines.begin(), lines.end(), [&](const auto &line) { return line.first == q.source; });
        if (found == lines.end())
            lines.emplace_back(q.source, q.name);
        else
            found->second += ", " + q.name;
    }
    std::string text;
    for (const auto &[source, names] : lines)
        text += "- Target of " + (lines.size() == 1 ? "all" : names) + ": " + source + ".\n";
    return text;
}

void TellDifference(const Quantity &q, double value, const std::string &which, const std::string &words,
                    const std::string &title, std::string &text, Page &page) {
    if (!(std::fabs(Difference(q, value)) > kExplained))
        return;
    if (words.empty())
        page.faults.push_back("not explained: " + title + ": " + q.name + ", " + which + Percent(q, value));
    text += "- " + q.name + ", " + which + Percent(q, value) + ": " + words + ".\n";
}

// Sentences of the literal differences stand in a coarse page as well, those of the finest mesh as an open line.
std::string Explanations(const Example &e, const Results &r, Page &page) {
    std::string text;
    const bool whole = r.byMesh.size() == e.meshes.size();
    for (std::size_t i = 0; i < e.quantities.size(); ++i) {
        const Quantity &q = e.quantities[i];
        if (r.literal[i])
            TellDifference(q, *r.literal[i], "literal ", q.literally, e.title, text, page);
        if (whole)
            TellDifference(q, r.byMesh.back()[i], "finest ", q.explanation, e.title, text, page);
    }
    return text;
}

std::string PlotOf(const Example &e, const Results &r) {
    std::vector<PlotLine> lines;
    for (std::size_t i = 0; i < e.quantities.size(); ++i) {
        PlotLine line{e.quantities[i].name, {}};
        for (const auto &values : r.byMesh)
            line.ratio.push_back(1.0 + Difference(e.quantities[i], values[i]));
        if (std::none_of(line.ratio.begin(), line.ratio.end(), [](double v) { return std::isnan(v); }))
            lines.push_back(line);
    }
    return ConvergencePlot(e.meshes, lines);
}

std::string Pictures(const Example &e, const Results &r, Depth depth, Page &page) {
    std::string text;
    const auto put = [&](const std::string &name, const std::string &words, const auto &svg) {
        text += (text.empty() ? "![" : " ![") + words + "](" + kPictures + name + ".svg)";
        if (depth == Depth::Whole)
            page.pictures[name + ".svg"] = svg();
    };
    if (e.sketch)
        put(e.key, e.title, e.sketch);
    if (e.meshes.size() > 1)
        put(e.key + "-convergence", "value over target by mesh", [&] { return PlotOf(e, r); });
    return text.empty() ? "" : text + "\n\n";
}

// Targets from meshes finer than those of the table stand in the source: still what those meshes give?
void ConfirmTargets(const Example &e, Page &page) {
    const std::vector<double> finer = e.finer ? e.finer() : std::vector<double>{};
    for (std::size_t i = 0; i < finer.size(); ++i)
        if (std::fabs(Difference(e.quantities[i], finer[i])) > kConfirmed) {
            std::array<char, 32> now{};
            std::snprintf(now.data(), now.size(), "%.6g", finer[i]);
            page.faults.push_back(e.title + ": the target of " + e.quantities[i].name + " is " + now.data() + " now");
        }
}

void AddExample(const Example &e, Depth depth, Page &page) {
    const Results r = Solve(e, depth);
    if (depth == Depth::Whole)
        ConfirmTargets(e, page);
    page.markdown += "### " + e.title + "\n\n" + e.words + "\n\n" + Pictures(e, r, depth, page) + TableHead(e);
    for (std::size_t i = 0; i < e.quantities.size(); ++i)
        page.markdown += Row(e, r, i);
    page.markdown += "\n" + Sources(e);
    if (!e.notLiteral.empty())
        page.markdown += "- No literal result: " + e.notLiteral + ".\n";
    page.markdown += Explanations(e, r, page) + "\n";
}

std::vector<std::string> LinesOf(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> CellsOf(const std::string &line) {
    std::vector<std::string> cells;
    std::istringstream in(line);
    for (std::string cell; std::getline(in, cell, '|');)
        cells.push_back(cell);
    return cells;
}

bool Agrees(const std::string &coarse, const std::string &line) {
    const std::vector<std::string> want = CellsOf(coarse), got = CellsOf(line);
    if (want.size() != got.size())
        return false;
    for (std::size_t i = 0; i < want.size(); ++i)
        if (want[i] != got[i] &&
            !(want[i] == " ~ " && (got[i] == " – " || got[i].find_first_of("0123456789") != std::string::npos)))
            return false;
    return true;
}

// Lines that only a whole page has.
bool OfFinest(const std::string &line) {
    return line.rfind("- ", 0) == 0 && line.find(", finest ") != std::string::npos;
}

} // namespace

std::string Digits(double value, double scale) {
    if (std::isnan(value))
        return "–";
    const int first = scale > 0.0 ? static_cast<int>(std::floor(std::log10(scale) + 1e-9)) : 0;
    return Fixed(value, std::clamp(3 - first, 0, 12));
}

Page MakePage(const std::vector<Chapter> &chapters, Depth depth) {
    Page page;
    page.markdown = kOpening;
    for (const Chapter &chapter : chapters) {
        page.markdown += "## " + chapter.title + "\n\n" + (chapter.words.empty() ? "" : chapter.words + "\n\n");
        for (const Example &e : chapter.examples)
            AddExample(e, depth, page);
    }
    while (page.markdown.size() > 1 && page.markdown[page.markdown.size() - 2] == '\n')
        page.markdown.pop_back();
    return page;
}

std::string FirstDifference(const std::string &coarse, const std::string &page) {
    std::vector<std::string> want = LinesOf(coarse), got = LinesOf(page);
    for (auto *lines : {&want, &got}) // a case with one mesh has such lines in both
        lines->erase(std::remove_if(lines->begin(), lines->end(), OfFinest), lines->end());
    for (std::size_t i = 0; i < std::max(want.size(), got.size()); ++i) {
        const std::string w = i < want.size() ? want[i] : "(end)", g = i < got.size() ? got[i] : "(end)";
        if (!Agrees(w, g))
            return "computed now:   " + w + "\nin the page:    " + g;
    }
    return "";
}

} // namespace havuz::verification
