// The chapters of the report in their order: report.cpp calls them, each writes to the same document.
#pragma once

#include "design/mesh_hint.h"
#include "design/worked.h"
#include "report/html.h"
#include "report/report.h"

namespace havuz::report {

struct Source {
    const ReportInput &input;
    const consistent::Analysis &analysis;
    const design::Design &design;
    const design::MeshHint hint = HintOfMesh(analysis, design);

    const consistent::Tank &tank() const { return analysis.tank(); }
    std::string combination(int place) const; // Turkish name; "-" below 0
    std::string key(int place) const;         // for narrow columns: the list of combinations explains it
};

// "Duvar 3", "Taban 1", "Plak 2", "Üst şerit 6".
std::string PanelName(const consistent::Tank &tank, int panel);
std::string WithUnit(double value, int decimals, const char *unit);
std::string PlaceText(const Vector3 &at); // "(5,00; 0,00; 2,00) m"
std::string Verdict(bool met);            // for a cell: marked when it is not met
// Place, title and verdict with the clause; formula, numbers and result under them.
void ShowWorked(Html &html, const std::string &place, const design::Worked &worked);

void VerdictChapter(Html &html, const Source &s);
void InputChapter(Html &html, const Source &s);
void LoadChapter(Html &html, const Source &s);
void ProofChapter(Html &html, const Source &s);
void SoilChapter(Html &html, const Source &s);
void FlotationChapter(Html &html, const Source &s);
void ComparisonChapter(Html &html, const Source &s); // nothing without result files
void MovementChapter(Html &html, const Source &s);
void MomentChapter(Html &html, const Source &s);
void SteelChapter(Html &html, const Source &s);
void CrackChapter(Html &html, const Source &s);
void ShearChapter(Html &html, const Source &s);
void WarningChapter(Html &html, const Source &s);

} // namespace havuz::report
