#include "report/html.h"

#include <algorithm>
#include <cmath>

namespace havuz::report {

// What a browser and a rich text printer both understand: margins in pixels. A4 upright.
static constexpr const char *kStyle = R"(
@page { size: A4; margin: 18mm 18mm 20mm 20mm; }
html { max-width: 180mm; margin: auto; }
body { font-family: "DejaVu Sans", sans-serif; font-size: 9pt; color: #111111; margin: 0; }
h1 { font-size: 18pt; margin-bottom: 3px; }
h2 { font-size: 13pt; margin-top: 19px; margin-bottom: 5px; color: #1d3f66; page-break-after: avoid; }
h3 { font-size: 10pt; margin-top: 13px; margin-bottom: 4px; page-break-after: avoid; }
p { margin-top: 4px; margin-bottom: 4px; }
p.notice { color: #8a1020; font-weight: bold; }
p.good { color: #14602a; font-weight: bold; font-size: 11pt; }
p.bad { color: #8a1020; font-weight: bold; font-size: 11pt; }
p.caption { font-size: 8pt; color: #444444; margin-bottom: 11px; }
p.picture { margin-top: 8px; margin-bottom: 0px; page-break-inside: avoid; }
p.work { margin-left: 13px; margin-top: 7px; font-size: 8pt; }
p.workbad { margin-left: 13px; margin-top: 7px; font-size: 8pt; color: #8a1020; }
table { border-collapse: collapse; font-size: 7.5pt; margin-top: 5px; margin-bottom: 11px; margin-left: 0px; }
thead { display: table-header-group; }
tr { page-break-inside: avoid; }
th { background-color: #e3eaf2; text-align: left; border: 1px solid #9aa7b5; font-weight: bold; }
td { border: 1px solid #b9c3ce; }
td.bad { color: #8a1020; font-weight: bold; border: 1px solid #b9c3ce; }
)";

Html::Html(const std::string &title) : title_(title) {}

void Html::heading(int level, const std::string &words) {
    const std::string tag = "h" + std::to_string(level);
    body_ += "<" + tag + (breakBefore_ ? " style=\"page-break-before: always\"" : "") + ">" + XmlText(words) + "</" +
             tag + ">\n";
    breakBefore_ = false;
}

void Html::paragraph(const std::string &words, const std::string &kind) {
    body_ += "<p" + (kind.empty() ? "" : " class=\"" + kind + "\"") + ">" + XmlText(words) + "</p>\n";
}

void Html::block(const std::vector<std::string> &lines, bool good) {
    body_ += std::string("<p class=\"") + (good ? "work" : "workbad") + "\">";
    for (std::size_t i = 0; i < lines.size(); ++i)
        body_ += (i == 0 ? "<b>" + XmlText(lines[i]) + "</b>" : "<br/>" + XmlText(lines[i]));
    body_ += "</p>\n";
}

void Html::picture(const SvgCanvas &svg, const std::string &caption, double width) {
    const double scale = width > 0.0 ? width / svg.width() : 1.0;
    const auto whole = [](double v) { return std::to_string(std::lround(v)); };
    body_ += "<p class=\"picture\"><img src=\"data:image/svg+xml;base64," + Base64(svg.document(caption)) +
             "\" width=\"" + whole(scale * svg.width()) + "\" height=\"" + whole(scale * svg.height()) + "\" alt=\"" +
             XmlText(caption) + "\"/></p>\n";
    paragraph(caption, "caption");
}

void Html::table(const std::vector<std::string> &head, const std::vector<std::vector<std::string>> &rows) {
    if (rows.empty())
        return;
    body_ += "<table cellspacing=\"0\" cellpadding=\"3\" width=\"100%\"><thead><tr>";
    for (const std::string &cell : head)
        body_ += "<th>" + XmlText(cell) + "</th>";
    body_ += "</tr></thead><tbody>\n";
    for (const std::vector<std::string> &row : rows) {
        body_ += "<tr>";
        for (const std::string &cell : row) {
            const bool bad = !cell.empty() && cell.front() == '!';
            body_ += (bad ? "<td class=\"bad\">" : "<td>") + XmlText(bad ? cell.substr(1) : cell) + "</td>";
        }
        body_ += "</tr>\n";
    }
    body_ += "</tbody></table>\n";
}

std::string Html::file() const {
    return "<!DOCTYPE html>\n<html lang=\"tr\">\n<head>\n<meta charset=\"utf-8\"/>\n<title>" + XmlText(title_) +
           "</title>\n<style>" + kStyle + "</style>\n</head>\n<body>\n" + body_ + "</body>\n</html>\n";
}

std::string Base64(std::string_view bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned group = 0;
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8U | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? digits[group >> (18U - 6U * static_cast<unsigned>(k)) & 63U] : '=';
    }
    return text;
}

} // namespace havuz::report
