// A picture of a table: one column over another, a line for each value of a third, as SVG text. Groups differ in
// lightness and in the shape of their marks, so that a grey print keeps them apart; rows that do not meet their checks
// have hollow marks.
#pragma once

#include "report/csv_table.h"

#include <string>

namespace havuz {

struct PlotQuestion {
    std::string x, y, by; // columns by their names, or by a beginning that ends before "_": steel is steel_t
    std::string title;    // over the picture; empty: none
    int width = 900, height = 560;
};

// Rows without a number for y are left out and counted below the picture. x and by may be words: they then stand in the
// order in which they first come. A column that is not there, and a table without one point, is TableFailure.
std::string PlotSvg(const CsvTable &table, const PlotQuestion &question);

} // namespace havuz
