#include "app/check_report.h"

#include "fea/result_summary.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>

namespace havuz {

using consistent::CaseResult;
using consistent::ResultTable;
using consistent::RunComparison;
using nlohmann::ordered_json;

namespace {

template <class... Values>
std::string Line(const char *format, Values... values) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

// Printed with so many decimals a smaller value is 0, without a sign.
double Shown(double value, int decimals) { return std::fabs(value) * std::pow(10.0, decimals) < 0.5 ? 0.0 : value; }

std::string Place(const Vector3 &at) { return Line("(%.2f, %.2f, %.2f)", at.x + 0.0, at.y + 0.0, at.z + 0.0); }

void PrintSystem(const CheckReport &report, std::ostream &out) {
    const consistent::SystemFacts &facts = report.analysis->facts();
    out << "consistent analysis of " << report.file << "\n"
        << Line("  equations %d, smallest pivot %.3g, greatest %.3g\n", facts.equations, facts.smallestPivot,
                facts.greatestPivot);
    const auto &joined = report.analysis->joined();
    if (joined.empty())
        out << "  joined beyond the project's own mesh: nothing\n";
    else
        out << "  joined beyond the project's own mesh: " << joined.size() << " nodes\n";
    constexpr std::size_t shown = 12;
    for (std::size_t i = 0; i < joined.size() && i < shown; ++i) {
        const consistent::ExtraJoint &j = joined[i];
        out << (j.otherEnd == 0
                    ? Line("    node %d is one with node %d\n", j.node, j.with)
                    : Line("    node %d hangs on the edge %d-%d of mesh %d\n", j.node, j.with, j.otherEnd, j.mesh));
    }
    if (joined.size() > shown)
        out << "    and " << joined.size() - shown << " more\n";
    for (const std::string &note : report.notes)
        out << "  " << note << "\n";
}

void PrintProof(const CheckReport &report, std::ostream &out) {
    out << "\nproof (t, t.m about the origin): loads, springs, reactions and their sum\n";
    for (const CaseResult *r : report.proved()) {
        out << Line("  %s: residual %.1e", r->key.c_str(), r->proof.residual);
        if (r->tensionFree)
            out << Line(", without tension: %d rounds, %.2f m2 lifted", r->rounds, r->liftedArea);
        out << "\n";
        for (std::size_t k = 0; k < consistent::kComponents.size(); ++k)
            out << Line("    %s %14.6f %14.6f %14.6f %10.1e\n", consistent::kComponents[k], Shown(r->proof.load[k], 6),
                        Shown(r->proof.spring[k], 6), Shown(r->proof.reaction[k], 6), r->proof.sum[k]);
    }
}

void PrintWarnings(const CheckReport &report, std::ostream &out) {
    out << "\nwarnings: " << (report.warnings.empty() ? "none" : "") << "\n";
    for (const Warning &w : report.warnings)
        out << "  warning " << w.code << ": " << w.english << "\n";
}

void PrintWalls(const CheckReport &report, std::ostream &out) {
    out << "\nforce on walls, outward, and its moment about the foot\n";
    for (const CaseResult &r : report.cases)
        for (const consistent::WallForce &w : r.walls)
            if (w.force != 0.0)
                out << Line("  %-5s panel %-4d %12.4f t %12.4f t.m, %.3f m by %.3f m\n", r.key.c_str(), w.panel,
                            w.force, w.moment, w.length, w.height);
}

void PrintPanels(const CheckReport &report, std::ostream &out) {
    out << "\ngreatest values by panel and case (N t/m, M t.m/m, Q t/m)\n";
    PanelsTable(report.analysis->tank(), report.shown()).eachRow([&](const consistent::TableRow &row) {
        if (row[4].number == 0.0)
            return;
        const int corner = static_cast<int>(row[6].number);
        out << Line("  panel %-4d %-5s %-4s %12.4f   mesh %d %s at ", static_cast<int>(row[0].number),
                    row[2].word.c_str(), row[3].word.c_str(), Shown(row[4].number, 4), static_cast<int>(row[5].number),
                    corner == 0 ? "centre" : ("corner " + std::to_string(corner)).c_str())
            << Place({row[8].number, row[9].number, row[10].number}) << "\n";
    });
}

std::string Percent(const RunComparison &c) {
    return c.consistent == 0.0 ? "" : Line(" %+.0f %%", 100.0 * (c.run - c.consistent) / std::fabs(c.consistent));
}

// Causes of which a person needs to hear: above half a percent of the greater value.
std::string CausesOf(const RunComparison &c) {
    if (!c.split)
        return "not told apart: the run's own equations do not stand alone";
    std::string words;
    const double least = 0.005 * std::max(std::fabs(c.run), std::fabs(c.consistent));
    for (std::size_t k = 0; k < consistent::kCauses; ++k)
        if (std::fabs(c.cause[k]) > least)
            words += (words.empty() ? "" : ", ") +
                     std::string(consistent::NameOf(static_cast<consistent::Cause>(k)).english) +
                     Line(" %+.4f", c.cause[k]);
    return words.empty() ? "alike" : words;
}

void PrintComparison(const CheckReport &report, std::ostream &out) {
    if (report.run == ResultState::None)
        out << "\nno result files of a run: nothing to compare with; havuz-cli run makes them\n";
    if (report.run == ResultState::Older)
        out << "\nthe model has changed since the run: its results are not compared\n";
    if (report.run != ResultState::Current)
        return;
    out << "\nthe run beside it: greatest moments of a panel by load column, and what takes the one to the other\n";
    const consistent::Tank &tank = report.analysis->tank();
    for (const RunComparison &c : report.comparisons) {
        const Vector3 &at = tank.nodes[static_cast<std::size_t>(c.node)].at;
        out << Line("  column %d (%s, %s) panel %d %s: run %.4f, consistent %.4f%s at mesh %d corner %d ", c.column,
                    LoadCodeWords(c.code).c_str(), c.cases.c_str(), c.panel, c.quantity.c_str(), c.run, c.consistent,
                    Percent(c).c_str(), c.mesh, c.corner)
            << Place(at) << "\n    " << CausesOf(c) << "\n";
    }
}

ordered_json AsJson(const std::vector<std::string> &columns, const consistent::TableRow &row) {
    ordered_json object;
    for (std::size_t k = 0; k < row.size(); ++k)
        if (row[k].isWord)
            object[columns[k]] = row[k].word;
        else if (row[k].number == std::floor(row[k].number) && std::fabs(row[k].number) < 1e15)
            object[columns[k]] = static_cast<long long>(row[k].number);
        else
            object[columns[k]] = row[k].number;
    return object;
}

ordered_json AsJson(const ResultTable &table) {
    ordered_json rows = ordered_json::array();
    table.eachRow([&](const consistent::TableRow &row) { rows.push_back(AsJson(table.columns, row)); });
    return rows;
}

// One row a line: a large tank has too many to hold them all.
void PrintAsJson(const ResultTable &table, std::ostream &out) {
    out << ",\n \"" << table.name << "\": [";
    const char *before = "\n  ";
    table.eachRow([&](const consistent::TableRow &row) {
        out << before << AsJson(table.columns, row).dump();
        before = ",\n  ";
    });
    out << "\n ]";
}

ordered_json ComparisonAsJson(const RunComparison &c) {
    ordered_json o = {{"column", c.column},     {"code", c.code}, {"cases", c.cases},           {"panel", c.panel},
                      {"quantity", c.quantity}, {"run", c.run},   {"consistent", c.consistent}, {"mesh", c.mesh},
                      {"corner", c.corner},     {"node", c.node}};
    for (std::size_t k = 0; c.split && k < consistent::kCauses; ++k)
        o["causes"][std::string(consistent::NameOf(static_cast<consistent::Cause>(k)).code)] = c.cause[k];
    return o;
}

ordered_json JoinedAsJson(const std::vector<consistent::ExtraJoint> &joined) {
    ordered_json list = ordered_json::array();
    for (const consistent::ExtraJoint &j : joined)
        list.push_back({{"node", j.node}, {"with", j.with}, {"otherEnd", j.otherEnd}, {"mesh", j.mesh}});
    return list;
}

} // namespace

consistent::CaseList CheckReport::shown() const {
    consistent::CaseList all;
    for (const CaseResult &r : cases)
        all.push_back(&r);
    return all;
}

consistent::CaseList CheckReport::proved() const {
    consistent::CaseList all = shown();
    for (const CaseResult &r : combinations) {
        bool isShown = false;
        for (const CaseResult &c : cases)
            isShown = isShown || c.key == r.key;
        if (!isShown)
            all.push_back(&r);
    }
    return all;
}

void PrintCheck(const CheckReport &report, std::ostream &out) {
    PrintSystem(report, out);
    PrintProof(report, out);
    PrintWarnings(report, out);
    PrintWalls(report, out);
    PrintPanels(report, out);
    PrintComparison(report, out);
}

void PrintCheckAsJson(const CheckReport &report, bool full, std::ostream &out) {
    const consistent::Tank &tank = report.analysis->tank();
    const consistent::SystemFacts &facts = report.analysis->facts();
    ordered_json o;
    o["file"] = report.file;
    o["equations"] = facts.equations;
    o["pivots"] = {{"smallest", facts.smallestPivot}, {"greatest", facts.greatestPivot}};
    o["joined"] = JoinedAsJson(report.analysis->joined());
    o["notes"] = report.notes;
    o["panels"] = AsJson(PanelsTable(tank, report.shown()));
    o["proof"] = AsJson(ProofTable(report.proved()));
    o["warnings"] = ordered_json::array();
    for (const Warning &w : report.warnings)
        o["warnings"].push_back({{"code", w.code}, {"text", w.english}});
    o["run"] = ordered_json::array();
    for (const RunComparison &c : report.comparisons)
        o["run"].push_back(ComparisonAsJson(c));
    std::string text = o.dump(1);
    text.erase(text.rfind("\n}"));
    out << text;
    if (full)
        for (const ResultTable &table :
             {NodesTable(tank, report.shown()), CornersTable(tank, report.shown()), WallsTable(report.shown())})
            PrintAsJson(table, out);
    out << "\n}\n";
}

} // namespace havuz
