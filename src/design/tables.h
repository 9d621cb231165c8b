// The tables that scripts read, as text: analysis and design in exact columns. International style: comma between,
// point as decimal mark; Turkish: semicolon and comma. Numbers of up to 12 digits.
#pragma once

#include "consistent/analysis.h"
#include "consistent/tables.h"
#include "design/checks.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace havuz::design {

enum class TableStyle { International, Turkish };

// Takes the text of a table piece by piece.
using TextSink = std::function<void(std::string_view)>;

// A table row by row; the head names its columns with commas between. With a sink the text goes there in pieces.
class CsvText {
public:
    CsvText(const std::string &head, TableStyle style, TextSink sink = {});
    CsvText &put(const std::string &word);
    CsvText &put(const char *word) { return put(std::string(word)); }
    CsvText &put(double value);
    CsvText &put(int value) { return put(static_cast<double>(value)); }
    void endRow();
    void flush(); // what the sink has not got
    const std::string &text() const { return text_; }

private:
    TableStyle style_;
    TextSink sink_;
    bool rowBegun_ = false;
    std::string text_;
};

struct NamedTable {
    const char *file; // "nodes.csv"
    std::function<void(const TextSink &sink)> write;
    std::string text() const;
};

// A table of the analysis as a file: what it shows has to outlive it.
NamedTable FileOf(const char *file, const consistent::ResultTable &table, TableStyle style);

// The results that nodes.csv and corners.csv hold: the load cases, Q only where there is surcharge, and the combination
// of that key when one is given ("" none). An unknown key is a DesignFailure.
std::vector<const consistent::CaseResult *> ShownResults(const Design &design, const std::string &combination);

// nodes.csv, corners.csv, walls.csv, proof.csv, combinations.csv, steel.csv, checks.csv. Nodes and corners hold the
// load cases, Q only where there is surcharge, and the combination of that key when one is given ("" none). An unknown
// key is a DesignFailure. Analysis and design have to outlive the tables.
std::vector<NamedTable> ResultTables(const consistent::Analysis &analysis, const Design &design, TableStyle style,
                                     const std::string &combination);

// The three of the design alone.
std::vector<NamedTable> DesignTables(const Design &design, TableStyle style);

} // namespace havuz::design
