// A sweep: names with lists and ranges of values, and the table of every combination of them.
#pragma once

#include "report/csv_table.h"

#include <string>

namespace havuz {

constexpr std::size_t kSweepRows = 1'000'000;

// "KenarKalinlik=20:40:5 Lx=8,10,12": names and values between blanks, values between commas, a range as
// first:last:step with both ends where the step meets them. A value with blanks or commas stands in single quotes. The
// last name turns fastest. Text that is none of this is TableFailure, and so are more than kSweepRows rows.
CsvTable SweepTable(const std::string &text);

} // namespace havuz
