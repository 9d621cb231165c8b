#include "design/worked.h"

#include "design/number_words.h"

#include <algorithm>

namespace havuz::design {

namespace {

std::string T(double value, int decimals = 2) { return Turkish(value, decimals); }

// A number behind a sign of multiplication or addition stands in brackets when it is negative.
std::string Inside(double value, int decimals = 2) {
    return value < 0.0 ? "(" + T(value, decimals) + ")" : T(value, decimals);
}

std::string PulledFormula(const Basis &b, const SteelRow &row, std::string &numbers) {
    const LayerChoice &l = row.layer;
    numbers = "10³·" + Inside(l.governs.N) + "/(2·" + T(b.materials.f(), 1) + ") + 10⁵·" + Inside(l.governs.M) + "/(" +
              T(b.materials.f(), 1) + "·" + T(l.section.leverArm(), 1) + ")";
    return "As = N*/(2 f) + M*/(f (d − d'))";
}

std::string StrengthFormula(const Basis &b, const SteelRow &row, std::string &numbers) {
    const LayerChoice &l = row.layer;
    const double a = b.materials.k1() * l.need.depth;
    numbers = "Ms = " + T(l.need.ms, 3) + " t·m/m, a = " + T(a) + " cm; (" + T(l.need.concrete, 1) + "·100·" + T(a) +
              " + 10³·" + Inside(l.governs.N) + ")/" + T(b.materials.fyd(), 1);
    return "Ms = M* − N* (d − h/2) = 0,85 fcd b a (d − a/2); As = (0,85 fcd b a + N*)/fyd";
}

std::string ElasticFormula(const Basis &b, const SteelRow &row, std::string &numbers) {
    const LayerChoice &l = row.layer;
    numbers = "Ms = " + T(l.need.ms, 3) + " t·m/m, x = " + T(l.need.depth) + " cm, σc = " + T(l.need.concrete, 1) +
              " ≤ " + T(b.materials.allowableConcrete, 1) + " kg/cm²; (" + T(l.need.concrete, 1) + "·100·" +
              T(l.need.depth) + "/2 + 10³·" + Inside(l.governs.N) + ")/" + T(b.materials.f(), 1);
    return "Ms = M* − N* (d − h/2) = σc b x (d − x/3)/2, σc = f x/(15 (d − x)); As = (σc b x/2 + N*)/f";
}

std::string ThickerAdvice(double thicker) {
    return thicker > 0.0 ? "h = " + T(thicker, 0) + " cm yeterli olur" : "kalınlık artışı yetmiyor; sistem değişmeli";
}

std::string SteelAdvice(const SteelRow &row) {
    if (row.layer.bars.diameter == 0.0)
        return "projede donatı çapı seçilmemiş";
    if (!row.layer.need.met)
        return "beton basınç bölgesi yetmiyor; " + ThickerAdvice(row.thickerForBending);
    if (!row.layer.totalMet)
        return "iki yüzün toplamı en az donatının altında; daha büyük çap gerekli";
    return "seçilebilen çaplar yetmiyor; daha büyük çap ya da " + ThickerAdvice(row.thickerForBending);
}

} // namespace

const char *VerdictText(bool met) { return met ? "sağlanıyor" : "sağlanmıyor"; }

std::string BarsText(const Bars &bars) {
    return bars.diameter > 0.0 ? "Ø" + T(bars.diameter, 0) + "/" + T(bars.spacing, 0) : "-";
}

Worked SteelWorked(const Basis &b, const SteelRow &row) {
    Worked w;
    const LayerChoice &l = row.layer;
    const bool strength = b.materials.method == DesignMethod::Strength;
    w.title = "Donatı alanı";
    w.clause = strength ? "Taşıma gücü (TS 500 7.1), Wood 1968" : "Emniyet gerilmesi (n = 15), Wood 1968";
    w.formula = l.need.allTension ? PulledFormula(b, row, w.numbers)
                : strength        ? StrengthFormula(b, row, w.numbers)
                                  : ElasticFormula(b, row, w.numbers);
    w.result = "As = " + T(l.need.area) + " cm²/m; seçilen " + BarsText(l.bars) + " = " + T(l.bars.area()) + " cm²/m";
    w.met = row.strengthMet();
    if (!w.met)
        w.advice = SteelAdvice(row);
    return w;
}

Worked LeastSteelWorked(const Basis &b, const SteelRow &row) {
    Worked w;
    const LayerChoice &l = row.layer;
    w.title = "En az donatı";
    w.clause = "EN 1992-1-1 9.2.1.1 (1)";
    w.formula = "As,min = 0,26 fctm/fyk b d ≥ 0,0013 b d; iki yüz birlikte ρ b h";
    w.numbers = "0,26·" + T(b.materials.fctm(), 1) + "/" + T(b.materials.fyk, 0) + "·100·" + T(l.section.d, 1) +
                " ≥ 0,0013·100·" + T(l.section.d, 1) + "; " + T(b.settings.leastTotal, 4) + "·100·" +
                T(l.section.h, 1) + " = " + T(b.settings.leastTotal * kWidth * l.section.h) + " cm²/m";
    w.result = "As,min = " + T(l.least) + " cm²/m; seçilen " + T(l.bars.area()) + " cm²/m; iki yüzün toplamı " +
               (l.totalMet ? "yeterli" : "yetersiz");
    w.met = l.bars.area() >= l.least && l.totalMet;
    return w;
}

Worked SpacingWorked(const Basis &b, const SteelRow &row) {
    Worked w;
    const double spacing = row.layer.bars.spacing;
    w.title = "Donatı aralığı";
    w.clause = "EN 1992-1-1 9.3.1.1 (3), projenin sınırları";
    w.formula = "s,min ≤ s ≤ s,max";
    w.numbers = T(b.settings.spacingLeast, 0) + " ≤ " + T(spacing, 0) + " ≤ " + T(b.settings.spacingGreatest, 0);
    w.result = "s = " + T(spacing, 0) + " cm";
    w.met = spacing >= b.settings.spacingLeast && spacing <= b.settings.spacingGreatest;
    if (!w.met)
        w.advice = "projede donatı çapı seçilmeli";
    return w;
}

Worked CrackWorked(const SteelRow &row) {
    Worked w;
    const CrackWidth &c = row.layer.crack;
    w.title = "Çatlak genişliği";
    w.clause = "EN 1992-1-1 7.3.4; sınır EN 1992-3 7.3.1 (sınıf 1)";
    w.formula = "wk = sr,max (εsm − εcm); sr,max = 3,4 c + 0,8 k2 0,425 Ø/ρp,eff; "
                "εsm − εcm = [σs − 0,4 fctm/ρp,eff (1 + αe ρp,eff)]/Es ≥ 0,6 σs/Es";
    if (c.wk > 0.0)
        w.numbers = "c = " + T(row.cover, 1) + " cm, σs = " + T(c.steel, 0) + " kg/cm², ρp,eff = " + T(c.rho, 5) +
                    ", k2 = " + T(c.k2, 3) + ", sr,max = " + T(c.srMax, 0) +
                    " mm, εsm − εcm = " + T(c.strain * 1000.0, 3) + "·10⁻³";
    else
        w.numbers = "bu yüzde çekme yok";
    w.result = "wk = " + T(c.wk, 3) + " mm, sınır " + T(row.crackLimit, 3) + " mm (su yükü " + T(row.head) +
               " m, h = " + T(row.layer.section.h, 0) + " cm)";
    w.met = row.crackMet();
    if (!w.met)
        w.advice = "daha çok donatı, daha ince çap ya da daha kalın kesit gerekli";
    return w;
}

Worked ShearWorked(const Basis &b, const SteelRow &row) {
    Worked w;
    const ShearPlace &s = row.shear;
    const bool elastic = b.materials.method == DesignMethod::Elastic;
    w.title = "Kesme";
    w.clause = "EN 1992-1-1 6.2.2 (1)";
    w.formula = "VRd,c = [0,12 k (100 ρl fck)^(1/3) + 0,15 σcp] b d ≥ [0,035 k^1,5 fck^0,5 + 0,15 σcp] b d";
    if (elastic)
        w.formula += "; izin verilen VRd,c/" + T(b.settings.shearSafety);
    w.numbers = "k = " + T(s.strength.k, 3) + ", ρl = " + T(s.strength.rho, 5) +
                ", fck = " + T(b.materials.fck / 10.0, 1) + " N/mm², σcp = " + T(s.strength.sigma, 3) +
                " N/mm², d = " + T(row.layer.section.d, 1) + " cm";
    w.result = "V = " + T(s.V) + " t/m, VRd = " + T(s.allowed) + " t/m";
    w.met = row.shearMet();
    if (!w.met)
        w.advice = ThickerAdvice(row.thickerForShear);
    return w;
}

Worked SoilWorked(const SoilState &state, double allowable) {
    Worked w;
    w.title = "Zemin gerilmesi";
    w.clause = "Gzem, zemin emniyet gerilmesi";
    w.formula = "σ = Ko · çökme ≤ Gzem";
    w.numbers = T(state.pressure) + " ≤ " + T(allowable);
    w.result = "σ = " + T(state.pressure) + " t/m², Gzem = " + T(allowable) + " t/m²";
    w.met = state.failure.empty() && state.pressure <= allowable;
    if (!state.failure.empty())
        w.advice = state.failure;
    else if (!w.met)
        w.advice = "daha geniş taban ya da daha iyi zemin gerekli";
    return w;
}

Worked FlotationWorked(const Flotation &f) {
    Worked w;
    w.title = "Yüzme";
    w.clause = "G/U ≥ " + T(f.limit);
    w.formula = "G/U, G ölü yük, U su kaldırması";
    w.met = f.met();
    if (!f.asked()) {
        w.numbers = "U = 0,00 t";
        w.result = "kaldırma yok";
        return w;
    }
    w.numbers = T(f.dead) + " t / " + T(f.uplift) + " t";
    w.result = "G/U = " + T(f.ratio(), 3) + " (sınır " + T(f.limit) + ")";
    if (!w.met)
        w.advice = "eksik ağırlık " + T(f.missing()) + " t";
    return w;
}

} // namespace havuz::design
