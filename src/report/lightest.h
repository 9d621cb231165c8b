// "En hafif": of the rows of a table of variants that meet all checks, the one of least cost.
#pragma once

#include "report/csv_table.h"

#include <optional>
#include <string>

namespace havuz {

// Of a unit of concrete (m3) and of steel (t), in whatever money.
struct Prices {
    double concrete = 0.0, steel = 0.0;
};

// "concrete=120,steel=900", either or both. Text that is none of this is TableFailure.
Prices ParsePrices(const std::string &text);

// The columns that a cost needs.
constexpr const char *kConcreteColumn = "concrete_m3";
constexpr const char *kSteelColumn = "steel_t";
constexpr const char *kVerdictColumn = "verdict";
constexpr const char *kVerdictMet = "ok";

struct Lightest {
    std::size_t row = 0; // of table.rows
    double cost = 0.0;
};

// Nothing when no row meets its checks; of equal ones the first. A table without the columns is TableFailure.
std::optional<Lightest> LightestRow(const CsvTable &table, const Prices &prices);

// "En hafif: row 3, Lx=8: concrete_m3 41.2, steel_t 3.1, cost 7734", one line: the row's number from column 0 and what
// was varied, columns 1 to inputs.
std::string LightestText(const CsvTable &table, std::size_t inputs, const Prices &prices);

} // namespace havuz
