// Moments with contours, steel by zones, cracks and shear.
#include "design/number_words.h"
#include "design/worked.h"
#include "report/chapters.h"
#include "report/pictures.h"

#include <algorithm>
#include <cmath>

namespace havuz::report {

using design::SteelRow;
using design::Turkish;
using design::Worked;

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr std::size_t kMostContourPanels = 12; // of a report: the panels with the greatest moments

struct Extreme {
    double value = 0;
    int combination = -1;
    std::size_t mesh = 0, corner = 0;
};

// The greatest (side 1) or least (side -1) corner value of a panel over the combinations in service.
Extreme FindExtreme(const Source &s, int panel, const Quantity &quantity, double side) {
    Extreme found;
    for (std::size_t c = 0; c < s.design.combinations.size(); ++c) {
        if (s.design.basis.combinations[c].factored)
            continue;
        for (std::size_t i = 0; i < s.tank().meshes.size(); ++i)
            for (std::size_t k = 1; s.tank().meshes[i].panel == panel && k <= 4; ++k) {
                const double value = ValueOf(quantity, s.design.combinations[c].meshes[i][k]);
                if (found.combination < 0 || side * value > side * found.value)
                    found = {value, static_cast<int>(c), i, k};
            }
    }
    return found;
}

std::string ExtremeText(const Source &s, const Extreme &e, const std::string &unit) {
    if (e.combination < 0)
        return "-";
    return WithUnit(e.value, 2, unit.c_str()) + ", " + s.key(e.combination) + ", " +
           PlaceText(s.tank().corner(s.tank().meshes[e.mesh], e.corner - 1));
}

Rows ExtremeRows(const Source &s) {
    Rows rows;
    for (const auto &[number, panel] : s.tank().panels)
        for (const char *name : {"M11", "M22", "N11", "N22"}) {
            const Quantity &quantity = *FindQuantity(name);
            const std::string unit(quantity.unit);
            rows.push_back({PanelName(s.tank(), number), name,
                            ExtremeText(s, FindExtreme(s, number, quantity, 1.0), unit),
                            ExtremeText(s, FindExtreme(s, number, quantity, -1.0), unit)});
        }
    return rows;
}

struct Contour {
    int panel = 0, combination = 0;
    double moment = 0;
};

// Floors and walls with the combination in service that bends each most; the greatest moments where there are too many.
std::vector<Contour> ContoursToDraw(const Source &s) {
    std::vector<Contour> contours;
    for (const auto &[number, panel] : s.tank().panels) {
        Contour contour{number, 0, -1.0};
        for (const char *name : {"M11", "M22"})
            for (const double side : {1.0, -1.0}) {
                const Extreme e = FindExtreme(s, number, *FindQuantity(name), side);
                if (panel.kind != 2 && e.combination >= 0 && std::fabs(e.value) > contour.moment)
                    contour = {number, e.combination, std::fabs(e.value)};
            }
        if (contour.moment >= 0.0)
            contours.push_back(contour);
    }
    std::stable_sort(contours.begin(), contours.end(),
                     [](const Contour &a, const Contour &b) { return a.moment > b.moment; });
    contours.resize(std::min(contours.size(), kMostContourPanels));
    std::sort(contours.begin(), contours.end(), [](const Contour &a, const Contour &b) { return a.panel < b.panel; });
    return contours;
}

void DrawContours(Html &html, const Source &s, const Contour &c) {
    for (const char *name : {"M11", "M22"}) {
        const Quantity &quantity = *FindQuantity(name);
        const std::string title = PanelName(s.tank(), c.panel) + ", " + name + ", " + s.combination(c.combination) +
                                  " (" + std::string(quantity.unit) + ")";
        const auto &result = s.design.combinations[static_cast<std::size_t>(c.combination)];
        html.picture(ContourPicture(s.analysis, result, quantity, c.panel), title);
    }
}

// The row of a panel that the list of checks names for a kind; the end when it names none.
const SteelRow *GoverningRow(const Source &s, const char *kind, int panel) {
    for (const design::Check &c : s.design.checks)
        if (c.kind == kind && c.panel == panel)
            return &s.design.steel[static_cast<std::size_t>(c.place)];
    return nullptr;
}

std::string RowPlace(const SteelRow &row) {
    return std::string(TurkishNameOf(row.zone)) + ", " + TurkishFaceName(row) + ", " + std::to_string(row.direction);
}

// The row that governs a kind of check in a panel, worked by hand.
void ShowRow(Html &html, const Source &s, const SteelRow &row, const Worked &w) {
    ShowWorked(html, PanelName(s.tank(), row.panel) + ", " + RowPlace(row), w);
}

// Where and under what the governing steel of a row was found, with its numbers.
std::string GoverningText(const Source &s, const SteelRow &row) {
    const design::LayerChoice &l = row.layer;
    return s.combination(l.governs.combination) + ", eleman " + std::to_string(l.governs.mesh) + " köşe " +
           std::to_string(l.governs.corner) + ": M* = " + WithUnit(l.governs.M, 3, "t·m/m") +
           ", N* = " + WithUnit(l.governs.N, 2, "t/m") + ", h = " + WithUnit(l.section.h, 0, "cm") +
           ", d = " + WithUnit(l.section.d, 1, "cm");
}

std::vector<std::string> SteelCells(const Source &s, const SteelRow &row) {
    const design::LayerChoice &l = row.layer;
    return {RowPlace(row),
            s.key(l.governs.combination),
            WithUnit(l.governs.M, 2, "t·m/m"),
            WithUnit(l.governs.N, 2, "t/m"),
            WithUnit(l.need.area, 2, "cm²/m"),
            WithUnit(l.least, 2, "cm²/m"),
            design::BarsText(l.bars) + (l.bars.diameter > 0.0 ? " cm" : ""),
            WithUnit(l.bars.area(), 2, "cm²/m"),
            Verdict(row.strengthMet())};
}

const std::vector<std::string> kSteelHead = {"Bölge, yüz, yön", "Komb.",   "M*",         "N*",   "As",
                                             "As,min",          "Seçilen", "Seçilen As", "Sonuç"};

void PanelSteel(Html &html, const Source &s, int panel) {
    html.heading(3, PanelName(s.tank(), panel));
    html.picture(SteelPicture(s.tank(), panel, s.design.steel), PanelName(s.tank(), panel) + ": donatı bölgeleri",
                 kPageWidth);
    Rows rows;
    for (const SteelRow &row : s.design.steel)
        if (row.panel == panel)
            rows.push_back(SteelCells(s, row));
    html.table(kSteelHead, rows);
    if (const SteelRow *row = GoverningRow(s, "steel", panel)) {
        html.paragraph(GoverningText(s, *row));
        ShowRow(html, s, *row, SteelWorked(s.design.basis, *row));
        ShowRow(html, s, *row, LeastSteelWorked(s.design.basis, *row));
        ShowRow(html, s, *row, SpacingWorked(s.design.basis, *row));
    }
}

} // namespace

void MomentChapter(Html &html, const Source &s) {
    html.heading(2, "Momentler");
    html.paragraph("Katsayısız kombinasyonların köşe değerleri; resimlerde düğüm ortalamaları.");
    html.table({"Panel", "Büyüklük", "En büyük", "En küçük"}, ExtremeRows(s));
    for (const Contour &c : ContoursToDraw(s))
        DrawContours(html, s, c);
}

void SteelChapter(Html &html, const Source &s) {
    html.heading(2, "Donatı");
    double greatest = 0.0;
    for (const SteelRow &row : s.design.steel)
        greatest = std::max(greatest, row.layer.bars.area());
    html.paragraph("En büyük seçilen donatı " + WithUnit(greatest, 2, "cm²/m") + "; toplam donatı ağırlığı " +
                   WithUnit(SteelWeight(s.tank(), s.design.steel), 2, "t") +
                   " (bindirme ve kancasız). Ø12/15: çapı 12 mm, aralığı 15 cm.");
    for (const auto &[number, panel] : s.tank().panels)
        PanelSteel(html, s, number);
}

void CrackChapter(Html &html, const Source &s) {
    html.heading(2, "Çatlak");
    Rows rows;
    for (const SteelRow &row : s.design.steel) {
        const design::CrackWidth &c = row.layer.crack;
        rows.push_back({PanelName(s.tank(), row.panel), RowPlace(row), s.key(row.layer.crackPlace.combination),
                        WithUnit(row.layer.crackPlace.M, 2, "t·m/m"), WithUnit(row.layer.crackPlace.N, 2, "t/m"),
                        WithUnit(c.steel, 0, "kg/cm²"), WithUnit(c.wk, 3, "mm"), WithUnit(row.crackLimit, 3, "mm"),
                        Verdict(row.crackMet())});
    }
    html.table({"Panel", "Bölge, yüz, yön", "Komb.", "M*", "N*", "σs", "wk", "Sınır", "Sonuç"}, rows);
    for (const auto &[number, panel] : s.tank().panels)
        if (const SteelRow *row = GoverningRow(s, "crack", number))
            ShowRow(html, s, *row, CrackWorked(*row));
}

void ShearChapter(Html &html, const Source &s) {
    html.heading(2, "Kesme");
    html.paragraph("V, mesnetten bir faydalı yükseklik içeride alınmıştır; etriye yoktur.");
    Rows rows;
    for (const SteelRow &row : s.design.steel)
        if (row.shear.mesh != 0)
            rows.push_back({PanelName(s.tank(), row.panel), RowPlace(row), s.key(row.shear.combination),
                            std::to_string(row.shear.mesh), WithUnit(row.shear.V, 2, "t/m"),
                            WithUnit(row.shear.allowed, 2, "t/m"), Verdict(row.shearMet())});
    html.table({"Panel", "Bölge, yüz, yön", "Komb.", "Eleman", "V", "VRd", "Sonuç"}, rows);
    for (const auto &[number, panel] : s.tank().panels)
        if (const SteelRow *row = GoverningRow(s, "shear", number); row != nullptr && row->shear.mesh != 0)
            ShowRow(html, s, *row, ShearWorked(s.design.basis, *row));
}

} // namespace havuz::report
