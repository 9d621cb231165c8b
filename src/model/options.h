// Working environment: the two directories, the option files read once at the start, the tables and factors taken from
// them.
#pragma once

#include "model/fields.h"

#include <map>
#include <string>

namespace havuz {

extern std::string ProgramDizini;     // directory of the option files, without a closing separator
extern std::string CalismaDizini;     // directory of the project files, without a closing separator
extern Row<double, 5> BetonTablosu;   // concrete strengths fck in elements 1..5, kg/cm2
extern Row<double, 5> CelikTablosu;   // steel strengths fyk in elements 1..5, kg/cm2
extern double YukFaktorG, YukFaktorP; // load factors of dead and live load
extern const double kPi;              // 4*atan(1)

// First and last record, counted from 1, of each character code of the stroke font. Nothing draws with it.
struct FontRange {
    int first = 0, last = 0;
};
extern std::map<int, FontRange> FontTablosu;

void ResetOptions();

// $HAVUZ_HOME when set, else the directory of the executable when it holds the option files, else
// <prefix>/share/havuz. A program directory whose path holds "/VBVEK" is replaced by that of C:\VEK9V12.
std::string FindProgramDirectory(const std::string &executable);

// First field of "WORKING.DIR" as it is written there, "" without the file or the field.
std::string WorkingDirectoryField(const std::string &programDirectory);

// Each reads one option file and fails as a project file does: File when a needed one is missing, BadNumber with path,
// line and field for a bad field. Reading stops without complaint where a file ends behind a whole line.
void ReadWorkingDirectory(); // "WORKING.DIR", optional: sets CalismaDizini
void ReadCard();             // "VEKCARD.OPS": sets BetonTablosu, CelikTablosu
void ReadWorkingFile();      // "WORKING" in CalismaDizini
void ReadDimensions();       // "DIMS.OPS"
void ReadLoadFactors();      // "VEK9.COD", optional: sets YukFaktorG, YukFaktorP
void ReadFont();             // "ROMANS.FON", optional: sets FontTablosu

} // namespace havuz
