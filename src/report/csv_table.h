// A table of comma-separated values as text: what a spreadsheet writes and reads. Fields are kept with the bytes that
// the file has for them, so that a table goes out as it came in. Quotes, quotes doubled inside, line ends inside quotes
// and CR LF as in RFC 4180; a byte order mark is skipped. A head line with ";" and no "," separates by ";".
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace havuz {

// A table, or what was asked of one, that cannot be: in words that name it.
class TableFailure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct CsvField {
    std::string text; // the value: without quotes, without blanks around it
    std::string raw;  // as it goes into a file separated by commas
};

struct CsvTable {
    std::vector<CsvField> head;
    std::vector<std::vector<CsvField>> rows; // each as long as the head
    // Column of that name, head.size() when there is none.
    std::size_t column(std::string_view name) const;
};

// A number at 12 digits, with a point.
CsvField CsvNumber(double value);

// A value as a field: in quotes where it holds a comma, a quote, a line end or blanks at its ends.
CsvField CsvValue(std::string text);

// place names the table in failures. A missing head, a row with more or fewer fields than the head, an empty or
// repeated name and a quote that does not close are TableFailure, with the line. Empty lines are skipped.
CsvTable ReadCsvTable(std::string_view text, const std::string &place);

// The fields of the first line alone, separated by commas.
std::vector<CsvField> ReadCsvRecord(std::string_view line);

// One line with its "\n", of the raw fields.
std::string CsvLine(const std::vector<CsvField> &fields);

// Head and rows.
std::string CsvText(const CsvTable &table);

} // namespace havuz
