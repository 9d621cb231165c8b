// Results as tables for other programs, told row by row: a large tank has a hundred thousand rows of corners. The
// columns are those of docs/consistent-analysis.md.
#pragma once

#include "consistent/results.h"

#include <functional>
#include <string>
#include <vector>

namespace havuz::consistent {

// The columns by name, and what stands in a row. Words are strings, numbers doubles.
struct TableCell {
    TableCell(double v) : number(v) {}
    TableCell(int v) : number(v) {}
    TableCell(std::string w) : word(std::move(w)), isWord(true) {}
    double number = 0.0;
    std::string word;
    bool isWord = false;
};
using TableRow = std::vector<TableCell>;
struct ResultTable {
    std::string name; // "nodes"
    std::vector<std::string> columns;
    std::function<void(const std::function<void(const TableRow &)> &take)> eachRow;
};

// Tank and results have to outlive the tables.
using CaseList = std::vector<const CaseResult *>;
ResultTable NodesTable(const Tank &tank, const CaseList &results);
ResultTable CornersTable(const Tank &tank, const CaseList &results);
ResultTable WallsTable(const CaseList &results);
ResultTable ProofTable(const CaseList &results);

// The greatest value by magnitude of each quantity of corners.csv in each panel, with its place.
ResultTable PanelsTable(const Tank &tank, const CaseList &results);

std::string ShortNumber(double value); // 12 digits, no sign on zero

// The eight values of a result in the order of their names.
constexpr std::array<const char *, 8> kQuantities = {"N11", "N22", "N12", "M11", "M22", "M12", "Q1", "Q2"};
std::array<double, 8> ValuesOf(const ShellResult &r);

} // namespace havuz::consistent
