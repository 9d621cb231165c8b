#include "design/tables.h"

#include "design/failure.h"
#include "design/number_words.h"

#include <algorithm>
#include <utility>

namespace havuz::design {

using consistent::Analysis;
using consistent::CaseResult;

namespace {

const char *Verdict(bool met) { return met ? "ok" : "not met"; }

constexpr std::size_t kPiece = 1 << 16; // bytes that a sink gets at once

NamedTable FileOf(const char *file, std::string text) {
    return {file, [text = std::move(text)](const TextSink &sink) { sink(text); }};
}

// Load cases, then all combinations.
std::vector<const CaseResult *> Proved(const Design &design) {
    std::vector<const CaseResult *> proved = ShownResults(design, "");
    for (const CaseResult &r : design.combinations)
        proved.push_back(&r);
    return proved;
}

std::string CombinationsTable(const Design &design, TableStyle style) {
    CsvText csv("combination,case,factor", style);
    for (const DesignCombination &c : design.basis.combinations)
        for (const consistent::Case kase : consistent::kAllCases)
            if (const double factor = c.sum.factor[kase]; factor != 0.0)
                csv.put(c.sum.key).put(std::string(consistent::NameOf(kase).key)).put(factor).endRow();
    return csv.text();
}

std::string SteelTable(const Design &design, TableStyle style) {
    CsvText csv("panel,kind,zone,face,direction,combination,mesh,corner,h,d,M,N,As,AsMin,diameter,spacing,AsProv,wk,"
                "wkLimit,V,VRd,verdict",
                style);
    for (const SteelRow &row : design.steel) {
        const LayerChoice &l = row.layer;
        csv.put(row.panel).put(row.kind).put(NameOf(row.zone)).put(FaceName(row)).put(row.direction);
        csv.put(design.basis.combinations[static_cast<std::size_t>(l.governs.combination)].sum.key);
        csv.put(l.governs.mesh).put(l.governs.corner).put(l.section.h).put(l.section.d);
        csv.put(l.governs.M).put(l.governs.N).put(l.need.area).put(l.least);
        csv.put(l.bars.diameter).put(l.bars.spacing).put(l.bars.area());
        csv.put(l.crack.wk)
            .put(row.crackLimit)
            .put(row.shear.V)
            .put(row.shear.allowed)
            .put(Verdict(row.met()))
            .endRow();
    }
    return csv.text();
}

std::string ChecksTable(const Design &design, TableStyle style) {
    CsvText csv("check,combination,panel,value,limit,unit,verdict", style);
    for (const Check &c : design.checks)
        csv.put(c.kind)
            .put(c.combination)
            .put(c.panel)
            .put(c.value)
            .put(c.limit)
            .put(c.unit)
            .put(Verdict(c.met))
            .endRow();
    return csv.text();
}

} // namespace

std::vector<const CaseResult *> ShownResults(const Design &design, const std::string &combination) {
    std::vector<const CaseResult *> shown;
    for (const consistent::Case c : consistent::kAllCases)
        if (c != consistent::kSurcharge || design.basis.settings.surcharge > 0.0)
            shown.push_back(&design.cases[c]);
    if (combination.empty())
        return shown;
    const auto found = std::find_if(design.combinations.begin(), design.combinations.end(),
                                    [&](const CaseResult &r) { return r.key == combination; });
    if (found == design.combinations.end())
        throw DesignFailure("combination " + combination + ": there is none of that name",
                            combination + ": bu adda kombinasyon yok");
    shown.push_back(&*found);
    return shown;
}

std::string NamedTable::text() const {
    std::string whole;
    write([&](std::string_view piece) { whole += piece; });
    return whole;
}

NamedTable FileOf(const char *file, const consistent::ResultTable &table, TableStyle style) {
    return {file, [table, style](const TextSink &sink) {
                std::string head;
                for (const std::string &column : table.columns)
                    head += (head.empty() ? "" : ",") + column;
                CsvText csv(head, style, sink);
                table.eachRow([&](const consistent::TableRow &row) {
                    for (const consistent::TableCell &cell : row)
                        cell.isWord ? csv.put(cell.word) : csv.put(cell.number);
                    csv.endRow();
                });
                csv.flush();
            }};
}

CsvText::CsvText(const std::string &head, TableStyle style, TextSink sink)
    : style_(style), sink_(std::move(sink)), text_(head) {
    if (style == TableStyle::Turkish)
        std::replace(text_.begin(), text_.end(), ',', ';');
    text_ += "\n";
}

CsvText &CsvText::put(const std::string &word) {
    if (rowBegun_)
        text_ += style_ == TableStyle::Turkish ? ';' : ',';
    rowBegun_ = true;
    text_ += word;
    return *this;
}

CsvText &CsvText::put(double value) {
    std::string number = TwelveDigits(value);
    if (style_ == TableStyle::Turkish)
        std::replace(number.begin(), number.end(), '.', ',');
    return put(number);
}

void CsvText::endRow() {
    text_ += "\n";
    rowBegun_ = false;
    if (sink_ && text_.size() >= kPiece)
        flush();
}

void CsvText::flush() {
    if (sink_)
        sink_(std::exchange(text_, {}));
}

std::vector<NamedTable> ResultTables(const Analysis &analysis, const Design &design, TableStyle style,
                                     const std::string &combination) {
    const std::vector<const CaseResult *> shown = ShownResults(design, combination);
    const consistent::Tank &tank = analysis.tank();
    std::vector<NamedTable> tables = {
        FileOf("nodes.csv", consistent::NodesTable(tank, shown), style),
        FileOf("corners.csv", consistent::CornersTable(tank, shown), style),
        FileOf("walls.csv", consistent::WallsTable(shown), style),
        FileOf("proof.csv", consistent::ProofTable(Proved(design)), style),
    };
    for (NamedTable &table : DesignTables(design, style))
        tables.push_back(std::move(table));
    return tables;
}

std::vector<NamedTable> DesignTables(const Design &design, TableStyle style) {
    return {FileOf("combinations.csv", CombinationsTable(design, style)),
            FileOf("steel.csv", SteelTable(design, style)), FileOf("checks.csv", ChecksTable(design, style))};
}

} // namespace havuz::design
