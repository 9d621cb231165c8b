// What the run_warnings files share: sentences in both languages from one list of amounts.
#pragma once

#include "fea/pressures.h"
#include "fea/run_loads.h"
#include "fea/run_warnings.h"

#include <string>
#include <vector>

namespace havuz {

// An amount or a name of a sentence.
struct SaidAmount {
    std::string english, turkish;
};
SaidAmount Number(double value, int decimals); // decimal point, decimal comma
SaidAmount Count(int value);
SaidAmount Level(double z);                     // m, without zeros at the end
SaidAmount Names(const std::string &names);     // the same in both
SaidAmount ColumnName(std::size_t c, int code); // "3 (liquid)", c from 0
SaidAmount List(const std::vector<SaidAmount> &parts);

// {0}..{9} of both patterns filled in.
Warning Say(const char *code, const char *english, const char *turkish, const std::vector<SaidAmount> &amounts);

// The columns whose code takes the pressure; empty where none does.
SaidAmount ColumnsOf(Pressure pressure, const std::vector<RunColumn> &columns);

void WarnOfWallPressures(const std::vector<RunColumn> &columns, std::vector<Warning> &warnings);
void WarnOfUplift(const std::vector<RunColumn> &columns, std::vector<Warning> &warnings);
void WarnOfRepeats(const std::vector<RunColumn> &columns, std::vector<Warning> &warnings);
void WarnOfWeightlessWalls(std::vector<Warning> &warnings);
void WarnOfNoFoundation(std::vector<Warning> &warnings);

} // namespace havuz
