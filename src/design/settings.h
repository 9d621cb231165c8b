// NAME.RAP: what belongs to the checks and the report and not to the model, as JSON with a version. It may be deleted:
// then the values below stand. What this program does not know in it is kept when it is written again.
#pragma once

#include "design/combination.h"

#include <map>
#include <string>
#include <vector>

namespace havuz::design {

constexpr int kSettingsVersion = 1;

struct Settings {
    double coverInner = 4.0, coverOuter = 4.0;            // clear cover, cm; of slabs upper and lower
    double spacingLeast = 8.0, spacingGreatest = 25.0;    // of bars, cm
    double leastTotal = .0025;                            // steel of both faces per direction over h
    double crackLimit = 0.0;                              // mm; 0: by EN 1992-3 class 1
    double flotationLimit = 1.10;                         // G / U
    double shearSafety = 1.5;                             // on VRd,c with the elastic method, whose loads have none
    double allowableSteel = 0.0, allowableConcrete = 0.0; // kg/cm2; 0: fyk/1.75 and .40 fck
    double saturatedDensity = 0.0;                        // t/m3; 0: soil under water keeps its full density
    double surcharge = 0.0;                               // t/m2 on the ground behind the walls
    std::vector<DesignCombination> combinations;          // empty: the defaults
    std::map<std::string, std::string> texts;             // of the report by name: "firma", "muhendis", "not"
};

// The file as it was found.
struct SettingsFile {
    enum State { Absent, Read, Damaged, Newer };
    State state = Absent;
    Settings settings;            // the defaults unless Read
    std::string english, turkish; // what is wrong with a damaged or newer file; else empty
    std::string kept;             // its text, so that unknown parts survive
};

// Never fails for what is in the file; a file that cannot be read at all is Damaged with the words of the failure.
SettingsFile ReadSettings(const std::string &path);

// Writes the file whole. A damaged or newer file is not replaced: DesignFailure, in words.
void WriteSettings(const std::string &path, const Settings &settings);

} // namespace havuz::design
