// Verdict, inputs, loads by hand formula, proof, soil, flotation and warnings.
#include "design/number_words.h"
#include "design/places.h"
#include "design/worked.h"
#include "report/chapters.h"
#include "report/pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace havuz::report {

using consistent::Case;
using design::Check;
using design::Turkish;

namespace {

using Rows = std::vector<std::vector<std::string>>;

const std::map<std::string, const char *> kCheckNames = {
    {"soil", "Zemin gerilmesi"}, {"flotation", "Yüzme"},        {"steel", "Donatı"},         {"crack", "Çatlak"},
    {"shear", "Kesme"},          {"spacing", "Donatı aralığı"}, {"residual", "Çözüm artığı"}};

std::string TurkishUnit(const std::string &unit) {
    return unit == "t/m2" ? "t/m²" : unit == "cm2/m" ? "cm²/m" : unit == "-" ? "" : unit;
}

// "1,5·10⁻¹²"; 0 and what is not small stay plain.
std::string SmallNumber(double value) {
    if (!(value > 0.0) || value >= .001)
        return Turkish(value, value > 0.0 ? 3 : 0);
    const int power = static_cast<int>(std::floor(std::log10(value) + 1e-9));
    constexpr std::array digits = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    std::string raised = "⁻";
    for (const char c : std::to_string(-power))
        raised += digits.at(static_cast<std::size_t>(c - '0'));
    return Turkish(value / std::pow(10.0, power), 1) + "·10" + raised;
}

std::string CheckNumber(const Check &c, double value) {
    if (c.kind == "residual")
        return SmallNumber(value);
    const std::string unit = TurkishUnit(c.unit);
    return Turkish(value, c.kind == "crack" || c.kind == "flotation" ? 3 : 2) + (unit.empty() ? "" : " " + unit);
}

std::string AdviceFor(const Source &s, const Check &c) {
    const auto row = [&]() -> const design::SteelRow & { return s.design.steel[static_cast<std::size_t>(c.place)]; };
    if (c.kind == "soil")
        for (const design::SoilState &state : s.design.soil)
            if (state.combination == c.combination)
                return SoilWorked(state, s.design.basis.allowableSoil).advice;
    if (c.kind == "flotation")
        return FlotationWorked(s.design.flotation).advice;
    if (c.kind == "steel")
        return SteelWorked(s.design.basis, row()).advice;
    if (c.kind == "spacing")
        return SpacingWorked(s.design.basis, row()).advice;
    if (c.kind == "crack")
        return CrackWorked(row()).advice;
    if (c.kind == "shear")
        return ShearWorked(s.design.basis, row()).advice;
    return "";
}

Rows VerdictRows(const Source &s, bool met) {
    Rows rows;
    const Check *residual = nullptr; // of all combinations the greatest stands for them
    for (const Check &c : s.design.checks) {
        if (c.kind == "residual" && (residual == nullptr || c.value > residual->value))
            residual = &c;
        if (c.met == met && c.kind != "residual")
            rows.push_back({kCheckNames.at(c.kind), c.panel == 0 ? "tüm havuz" : PanelName(s.tank(), c.panel),
                            design::TurkishName(c.combination), CheckNumber(c, c.value), CheckNumber(c, c.limit),
                            Verdict(met), met ? "" : AdviceFor(s, c)});
    }
    if (residual != nullptr && residual->met == met)
        rows.push_back({kCheckNames.at("residual"), "tüm havuz", design::TurkishName(residual->combination),
                        SmallNumber(residual->value), SmallNumber(residual->limit), Verdict(met), ""});
    return rows;
}

double PlanArea(const consistent::Tank &tank, const consistent::TankMesh &m) {
    const Vector3 twice = Cross(tank.corner(m, 2) - tank.corner(m, 0), tank.corner(m, 3) - tank.corner(m, 1));
    return std::fabs(twice.z) / 2.0;
}

double TrueArea(const consistent::Tank &tank, const consistent::TankMesh &m) {
    const Vector3 twice = Cross(tank.corner(m, 2) - tank.corner(m, 0), tank.corner(m, 3) - tank.corner(m, 1));
    return std::sqrt(Dot(twice, twice)) / 2.0;
}

double MiddleHeight(const consistent::Tank &tank, const consistent::TankMesh &m) {
    double z = 0.0;
    for (std::size_t k = 0; k < 4; ++k)
        z += tank.corner(m, k).z / 4.0;
    return z;
}

// What one mesh adds to a vertical load by hand: area times load, downward.
double ByHand(const consistent::Tank &tank, const consistent::TankMesh &m, Case c) {
    const consistent::TankPanel &p = tank.panelOf(m);
    if (c == consistent::kDead)
        return p.dead * TrueArea(tank, m);
    if (c == consistent::kLive)
        return p.live * TrueArea(tank, m);
    if (p.kind != 0 || !m.loaded)
        return 0.0;
    const double z = MiddleHeight(tank, m);
    if (c == consistent::kLiquid)
        return tank.liquidDensity * std::max(0.0, tank.liquidLevel - z - p.thickness) * PlanArea(tank, m);
    return -std::max(0.0, tank.groundwaterLevel - z) * PlanArea(tank, m);
}

std::string HandFormula(const consistent::Tank &tank, Case c) {
    const char *formula = c == consistent::kDead     ? "Σ G·A = "
                          : c == consistent::kLive   ? "Σ P·A = "
                          : c == consistent::kLiquid ? "Σ γs (sıvı kotu − taban üstü)·A = "
                          : c == consistent::kUplift ? "−Σ 1,00 (su kotu − taban altı)·A = "
                                                     : nullptr;
    if (formula == nullptr)
        return "-";
    double sum = 0.0;
    for (const consistent::TankMesh &m : tank.meshes)
        sum += ByHand(tank, m, c);
    return formula + WithUnit(sum, 2, "t");
}

Rows VerticalRows(const Source &s) {
    Rows rows;
    for (const Case c : consistent::kAllCases) {
        const consistent::Proof &proof = s.design.cases[c].proof;
        if (c == consistent::kSurcharge && s.design.basis.settings.surcharge == 0.0)
            continue;
        const consistent::CaseName &name = consistent::NameOf(c);
        rows.push_back({std::string(name.key) + ": " + std::string(name.turkish), WithUnit(-proof.load[2], 2, "t"),
                        WithUnit(proof.load[0], 2, "t"), WithUnit(proof.load[1], 2, "t"), HandFormula(s.tank(), c)});
    }
    return rows;
}

// Force and moment about the foot of 1 m of a wall of height h under a pressure that grows by gamma below the level.
std::string WallByHand(const Source &s, Case c, double foot, double height) {
    const consistent::Tank &t = s.tank();
    const design::Settings &settings = s.design.basis.settings;
    const double level = c == consistent::kLiquid        ? t.liquidLevel
                         : c == consistent::kGroundwater ? t.groundwaterLevel
                                                         : t.soilLevel;
    const double depth = std::max(0.0, level - foot), reach = std::min(depth, height);
    if (c == consistent::kSurcharge)
        return "Ka q h = " + WithUnit(-t.soilKa * settings.surcharge * reach, 2, "t/m");
    if (c == consistent::kSoil && settings.saturatedDensity > 0.0)
        return "-";
    const double gamma = c == consistent::kLiquid        ? t.liquidDensity
                         : c == consistent::kGroundwater ? -1.0
                                                         : -t.soilKa * t.soilDensity;
    const double force = gamma * (depth * reach - reach * reach / 2.0);
    const double moment = gamma * (depth * reach * reach / 2.0 - reach * reach * reach / 3.0);
    return (depth > height ? "γ (h − t/2) t = " : "γ h²/2 = ") + WithUnit(force, 2, "t/m") +
           (depth > height ? "; " : "; γ h³/6 = ") + WithUnit(moment, 2, "t·m/m");
}

Rows WallRows(const Source &s) {
    Rows rows;
    for (const Case c : {consistent::kLiquid, consistent::kSoil, consistent::kGroundwater, consistent::kSurcharge})
        for (const consistent::WallForce &w : s.design.cases[c].walls) {
            if (w.force == 0.0 || !(w.length > 0.0))
                continue;
            const double foot = design::SizeOf(s.tank(), w.panel).lowest;
            rows.push_back({std::string(consistent::NameOf(c).turkish), PanelName(s.tank(), w.panel),
                            WithUnit(w.length, 2, "m"), WithUnit(w.force / w.length, 2, "t/m"),
                            WithUnit(w.moment / w.length, 2, "t·m/m"), WallByHand(s, c, foot, w.height)});
        }
    return rows;
}

void PanelTable(Html &html, const Source &s) {
    Rows rows;
    for (const auto &[number, panel] : s.tank().panels) {
        const design::PanelSize size = design::SizeOf(s.tank(), number);
        rows.push_back({PanelName(s.tank(), number), WithUnit(panel.thickness * 100.0, 0, "cm"),
                        WithUnit(size.length, 2, "m"), WithUnit(size.width, 2, "m"), WithUnit(panel.dead, 3, "t/m²"),
                        WithUnit(panel.live, 3, "t/m²")});
    }
    html.table({"Panel", "Kalınlık", "Boy", "En / yükseklik", "G", "P"}, rows);
}

// The error estimate by panel.
void MeshError(Html &html, const Source &s) {
    if (s.hint.combination.empty())
        return;
    html.heading(3, "Ağ sıklığı");
    html.paragraph(
        "Zienkiewicz ve Zhu (1987) hata tahmini, " + design::TurkishName(s.hint.combination) +
        ": elemanların moment ve kuvvetleri ile düğümlerdeki ortalamaları arasındaki fark, enerji normunda.");
    const auto cells = [](const std::string &place, const consistent::ErrorShare &share) {
        return std::vector<std::string>{place, WithUnit(share.width(), 2, "m"), design::ErrorText(share)};
    };
    Rows rows = {cells("tüm havuz", s.hint.estimate.whole)};
    for (const auto &[number, share] : s.hint.estimate.panels)
        rows.push_back(cells(PanelName(s.tank(), number), share));
    html.table({"Yer", "Ortalama ağ genişliği", "Hata tahmini"}, rows);
}

std::string Tons(double value) { return WithUnit(value, 3, "t"); }

} // namespace

void VerdictChapter(Html &html, const Source &s) {
    html.heading(2, "Sonuç");
    const Rows bad = VerdictRows(s, false), good = VerdictRows(s, true);
    const std::vector<std::string> head = {"Kontrol", "Yer", "Kombinasyon", "Değer", "Sınır", "Sonuç", "Ne değişmeli"};
    if (bad.empty())
        html.paragraph("Bütün kontroller sağlanıyor.", "good");
    else {
        html.paragraph(std::to_string(bad.size()) + " kontrol sağlanmıyor.", "bad");
        html.table(head, bad);
    }
    if (!s.input.meshFaults.empty())
        html.paragraph("Mesh kusurlu; \"Mesh raporu\" bölümü yerlerini söyler.", "notice");
    if (s.hint.coarse())
        html.paragraph("Ağ seyrek: hata tahmini " + design::ErrorText(s.hint.estimate.whole) + ".", "notice");
    html.table(std::vector(head.begin(), head.end() - 1), [&] {
        Rows rows = good;
        for (auto &row : rows)
            row.pop_back();
        return rows;
    }());
}

void InputChapter(Html &html, const Source &s) {
    html.heading(2, "Girdiler");
    Rows rows;
    for (const auto &[label, value] : s.input.facts)
        rows.push_back({label, value});
    rows.push_back({"Elastisite modülü E", WithUnit(s.tank().E, 0, "t/m²")});
    rows.push_back({"Düğüm ve eleman sayısı", std::to_string(std::count_if(s.tank().nodes.begin(), s.tank().nodes.end(),
                                                                           [](const auto &n) { return n.used; })) +
                                                  " düğüm, " + std::to_string(s.tank().meshes.size()) + " eleman"});
    html.table({"Büyüklük", "Değer"}, rows);
    PanelTable(html, s);
    html.picture(PlanPicture(s.tank()), "Plan");
    html.picture(SectionPicture(s.tank()), "Kesit ve kotlar");
    html.picture(MeshPicture(s.tank()), "Eleman ağı: taban sarı, duvar mavi, üst şerit yeşil");
}

void LoadChapter(Html &html, const Source &s) {
    html.heading(2, "Yükler");
    html.paragraph("Her yük durumu tek başına; düşey toplam aşağı doğru artıdır.");
    html.table({"Yük durumu", "Düşey toplam", "X toplamı", "Y toplamı", "Elle"}, VerticalRows(s));
    html.paragraph("Duvarların 1 m boyuna düşen kuvvet ve dibine göre moment; havuzdan dışarı doğru artıdır.");
    html.table({"Yük durumu", "Duvar", "Boy", "F", "M", "Elle"}, WallRows(s));
    Rows rows;
    for (const design::DesignCombination &c : s.design.basis.combinations) {
        std::string sum;
        for (const Case kase : consistent::kAllCases)
            if (const double f = c.sum.factor[kase]; f != 0.0)
                sum += (sum.empty() ? "" : " + ") + Turkish(f, 2) + " " + std::string(consistent::NameOf(kase).key);
        rows.push_back({design::TurkishName(c.sum.key), c.sum.key, sum});
    }
    html.table({"Kombinasyon", "Anahtar", "Toplam"}, rows);
}

void ProofChapter(Html &html, const Source &s) {
    html.heading(2, "Denge");
    html.paragraph(
        "Yükler, zemin yayları ve mesnet tepkileri (yukarı doğru artı) birlikte sıfır olmalıdır; artık |f − K u|/|f|.");
    Rows rows;
    for (const consistent::CaseResult &r : s.design.combinations) {
        const consistent::Proof &p = r.proof;
        rows.push_back({design::TurkishName(r.key), Tons(p.load[2]), Tons(p.spring[2]), Tons(p.reaction[2]),
                        Tons(p.sum[2]), SmallNumber(p.residual)});
    }
    html.table({"Kombinasyon", "Yük Z", "Yay Z", "Tepki Z", "Toplam Z", "Artık"}, rows);
    MeshError(html, s);
}

void SoilChapter(Html &html, const Source &s) {
    html.heading(2, "Zemin gerilmesi");
    Rows rows;
    for (const design::SoilState &state : s.design.soil) {
        if (state.node == 0)
            continue;
        const bool met = state.failure.empty() && state.pressure <= s.design.basis.allowableSoil;
        rows.push_back(
            {design::TurkishName(state.combination), WithUnit(state.pressure, 2, "t/m²"),
             WithUnit(s.design.basis.allowableSoil, 2, "t/m²"),
             std::to_string(state.node) + " " + PlaceText(s.tank().nodes[static_cast<std::size_t>(state.node)].at),
             state.pulls ? WithUnit(state.liftedArea, 2, "m²") + " kalkıyor" : "çekme yok", Verdict(met)});
    }
    if (rows.empty())
        html.paragraph("Zemine oturan eleman yok.");
    html.table({"Kombinasyon", "En büyük gerilme", "Gzem", "Düğüm", "Kalkan taban", "Sonuç"}, rows);
    const auto worst = std::max_element(s.design.soil.begin(), s.design.soil.end(),
                                        [](const auto &a, const auto &b) { return a.pressure < b.pressure; });
    if (worst != s.design.soil.end() && worst->node != 0)
        ShowWorked(html, design::TurkishName(worst->combination), SoilWorked(*worst, s.design.basis.allowableSoil));
    for (const design::SoilState &state : s.design.soil)
        if (!state.failure.empty())
            html.paragraph(design::TurkishName(state.combination) + ": " + state.failure, "notice");
    if (std::any_of(s.design.soil.begin(), s.design.soil.end(), [](const auto &state) { return state.pulls; }))
        html.paragraph("Yayların çektiği kombinasyon, çekme almayan zeminle yeniden çözülmüştür.");
}

void FlotationChapter(Html &html, const Source &s) {
    html.heading(2, "Yüzme");
    ShowWorked(html, "tüm havuz", FlotationWorked(s.design.flotation));
}

void MovementChapter(Html &html, const Source &s) {
    html.heading(2, "Yer değiştirmeler");
    Rows rows;
    for (std::size_t c = 0; c < s.design.combinations.size(); ++c) {
        if (s.design.basis.combinations[c].factored)
            continue;
        const consistent::CaseResult &r = s.design.combinations[c];
        std::size_t lowest = 0, farthest = 0;
        const auto across = [&r](std::size_t n) { return std::hypot(r.nodes[n].u[0], r.nodes[n].u[1]); };
        for (std::size_t n = 1; n < r.nodes.size(); ++n) {
            if (!s.tank().nodes[n].used)
                continue;
            if (lowest == 0 || r.nodes[n].u[2] < r.nodes[lowest].u[2])
                lowest = n;
            if (farthest == 0 || across(n) > across(farthest))
                farthest = n;
        }
        if (lowest != 0)
            rows.push_back({design::TurkishName(r.key), WithUnit(-1000.0 * r.nodes[lowest].u[2], 2, "mm"),
                            std::to_string(lowest) + " " + PlaceText(s.tank().nodes[lowest].at),
                            WithUnit(1000.0 * across(farthest), 2, "mm"),
                            std::to_string(farthest) + " " + PlaceText(s.tank().nodes[farthest].at)});
    }
    html.table({"Kombinasyon", "En büyük çökme", "Düğüm", "En büyük yatay", "Düğüm"}, rows);
}

void WarningChapter(Html &html, const Source &s) {
    html.heading(2, "Uyarılar ve işaretler");
    Rows rows;
    for (const auto &[code, words] : s.input.warnings)
        rows.push_back({code, words});
    html.paragraph(rows.empty() ? "Programın kendi çözümünün uyarısı yok."
                                : "Programın kendi çözümünün (.SON) uyarıları; tutarlı hesap bunlardan etkilenmez.");
    html.table({"Kod", "Uyarı"}, rows);
    html.paragraph(
        "Eksenler: duvarda 1 yatay, 2 yukarı; döşemede 1 = X, 2 = Y; yuvarlak havuzun tabanında 1 teğet, 2 yarıçap "
        "doğrultusu. N çekmede artı; M artı ise duvarın iç (ıslak) yüzü, döşemenin üst yüzü çekmededir; M11, 1 "
        "doğrultusundaki donatıyı eğer.");
    html.paragraph(
        "M* = M + |M12| (Wood), N* = N + |N12|; h kalınlık, d faydalı yükseklik, d' = h − d, b = 100 cm, As donatı "
        "alanı, wk çatlak genişliği, V kesme kuvveti.");
}

} // namespace havuz::report
