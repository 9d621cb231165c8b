// The run's own result files beside the consistent analysis: its columns, and by panel what differs and why.
#include "design/number_words.h"
#include "report/chapters.h"

#include <algorithm>
#include <cmath>

namespace havuz::report {

using consistent::RunComparison;
using design::Turkish;

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr double kWorthTelling = .02; // of the greater of two values: what differs by less is alike

Rows ColumnRows(const Source &s) {
    Rows rows;
    for (const LiteralColumn &c : s.input.literal)
        rows.push_back({c.name, WithUnit(c.settlement, 3, "mm"), WithUnit(c.mx, 2, "t·m/m"), WithUnit(c.my, 2, "t·m/m"),
                        WithUnit(c.verticalLoad, 2, "t"), WithUnit(c.springForce, 2, "t")});
    return rows;
}

double Greater(const RunComparison &c) { return std::max(std::fabs(c.run), std::fabs(c.consistent)); }

// The causes that count, the greatest first.
std::string CauseWords(const RunComparison &c) {
    if (!c.split)
        return "ayrılamadı: programın denklemleri tek başına ayakta durmuyor";
    std::vector<std::size_t> order;
    for (std::size_t k = 0; k < consistent::kCauses; ++k)
        if (std::fabs(c.cause[k]) > kWorthTelling * Greater(c))
            order.push_back(k);
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return std::fabs(c.cause[a]) > std::fabs(c.cause[b]); });
    std::string words;
    for (const std::size_t k : order)
        words += (words.empty() ? "" : "; ") + std::string(NameOf(static_cast<consistent::Cause>(k)).turkish) + " " +
                 (c.cause[k] > 0.0 ? "+" : "") + WithUnit(c.cause[k], 2, "t·m/m");
    return words.empty() ? "çok sayıda küçük fark" : words;
}

std::string Percent(const RunComparison &c) {
    if (std::fabs(c.consistent) < .005) // "0,00" in the table
        return "-";
    const double percent = 100.0 * (c.run - c.consistent) / std::fabs(c.consistent);
    return (percent > 0.0 ? "+%" : "-%") + Turkish(std::fabs(percent), 0);
}

// Panels that say the same, as opposite walls do, share a row.
Rows ComparisonRows(const Source &s) {
    Rows rows;
    for (const RunComparison &c : s.input.comparison) {
        if (Greater(c) < .005 || std::fabs(c.run - c.consistent) <= kWorthTelling * Greater(c))
            continue;
        const std::vector<std::string> row = {s.input.literal[static_cast<std::size_t>(c.column - 1)].name + " (" +
                                                  c.cases + ")",
                                              PanelName(s.tank(), c.panel),
                                              c.quantity,
                                              WithUnit(c.run, 2, "t·m/m"),
                                              WithUnit(c.consistent, 2, "t·m/m"),
                                              Percent(c),
                                              CauseWords(c)};
        const auto same = std::find_if(rows.begin(), rows.end(), [&](const std::vector<std::string> &other) {
            return other[0] == row[0] && std::equal(row.begin() + 2, row.end(), other.begin() + 2);
        });
        if (same == rows.end())
            rows.push_back(row);
        else
            (*same)[1] += ", " + row[1];
    }
    return rows;
}

} // namespace

void ComparisonChapter(Html &html, const Source &s) {
    if (s.input.literal.empty())
        return;
    html.heading(2, "Programın kendi çözümü");
    html.paragraph(".SON ve .DEP dosyaları, yük kolonlarına göre:");
    html.table({"Yük kolonu", "En büyük çökme", "En büyük Mx", "En büyük My", "Düşey yük", "Yay kuvveti"},
               ColumnRows(s));
    const Rows rows = ComparisonRows(s);
    if (rows.empty()) {
        html.paragraph("Panellerin en büyük momentleri tutarlı hesapla %2 içinde aynıdır.");
        return;
    }
    html.paragraph("Panelin en büyük momenti tutarlı hesapla karşılaştırıldığında %2'den çok ayrılan yerler ve "
                   "nedenleri. Bu rapordaki kontroller tutarlı hesapla yapılmıştır.");
    html.table({"Yük kolonu", "Panel", "M", ".SON", "Tutarlı", "Fark", "Nedeni"}, rows);
}

} // namespace havuz::report
