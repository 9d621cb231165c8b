#include "report/report.h"

#include "design/number_words.h"
#include "design/worked.h"
#include "model/options.h"
#include "model/store.h"
#include "report/chapters.h"
#include "report/summary_chapters.h"

#include <array>
#include <charconv>

namespace havuz::report {

using design::Turkish;

std::string WithUnit(double value, int decimals, const char *unit) { return Turkish(value, decimals) + " " + unit; }

std::string Source::combination(int place) const {
    if (place < 0)
        return "-";
    return design::TurkishName(design.basis.combinations[static_cast<std::size_t>(place)].sum.key);
}

std::string Source::key(int place) const {
    return place < 0 ? "-" : design.basis.combinations[static_cast<std::size_t>(place)].sum.key;
}

std::string PanelName(const consistent::Tank &tank, int panel) {
    if (panel > 1000)
        return "Plak " + std::to_string(panel - 1000);
    const auto found = tank.panels.find(panel);
    const int kind = found == tank.panels.end() ? 0 : found->second.kind;
    return (kind == 1 ? "Duvar " : kind == 2 ? "Üst şerit " : "Taban ") + std::to_string(panel);
}

std::string PlaceText(const Vector3 &at) {
    return "(" + Turkish(at.x, 2) + "; " + Turkish(at.y, 2) + "; " + Turkish(at.z, 2) + ") m";
}

std::string Verdict(bool met) { return (met ? "" : "!") + std::string(design::VerdictText(met)); }

void ShowWorked(Html &html, const std::string &place, const design::Worked &w) {
    html.block({place + ": " + w.title + " " + design::VerdictText(w.met) + " (" + w.clause + ")", w.formula, w.numbers,
                w.result + (w.advice.empty() ? "" : "; " + w.advice)},
               w.met);
}

static std::string Diameters(const design::Basis &basis) {
    std::string text;
    for (const double d : basis.diameters)
        text += (text.empty() ? "Ø" : ", Ø") + Turkish(d, 0) + " mm";
    return text.empty() ? "seçilmemiş" : text;
}

// The limits and materials that the checks go by.
static void AddBasisFacts(Facts &facts, const design::Basis &b) {
    const bool strength = b.materials.method == design::DesignMethod::Strength;
    facts.emplace_back("Beton fck", WithUnit(b.materials.fck, 0, "kg/cm²"));
    facts.emplace_back("Çelik fyk", WithUnit(b.materials.fyk, 0, "kg/cm²"));
    facts.emplace_back("Hesap yöntemi", strength ? "TAŞIMA GÜCÜ" : "EMNİYET GERİLMESİ");
    if (strength) {
        facts.emplace_back("fcd = fck/1,5", WithUnit(b.materials.fcd(), 1, "kg/cm²"));
        facts.emplace_back("fyd = fyk/1,15", WithUnit(b.materials.fyd(), 1, "kg/cm²"));
        facts.emplace_back("Yük katsayıları",
                           "G: " + Turkish(YukFaktorG, 2) + " ve 0,90; diğerleri: " + Turkish(YukFaktorP, 2));
    } else {
        facts.emplace_back("Çelik emniyet gerilmesi", WithUnit(b.materials.allowableSteel, 1, "kg/cm²"));
        facts.emplace_back("Beton emniyet gerilmesi", WithUnit(b.materials.allowableConcrete, 1, "kg/cm²"));
    }
    facts.emplace_back("Donatı çapları", Diameters(b));
    facts.emplace_back("Paspayı (net örtü) iç / dış",
                       WithUnit(b.settings.coverInner, 1, "cm") + " / " + WithUnit(b.settings.coverOuter, 1, "cm"));
    facts.emplace_back("Yüzme güvenliği sınırı G/U", Turkish(b.settings.flotationLimit, 2));
}

Facts ProjectFacts(const design::Basis &basis) {
    Facts facts = {
        {"Zemin yatak katsayısı Ko", WithUnit(ZeminKo, 1, "t/m³")},
        {"Zemin emniyet gerilmesi Gzem", WithUnit(ZeminGzem, 2, "t/m²")},
        {"Zemin yatay yük parametresi Ka", Turkish(ZeminKa, 3)},
        {"Zemin yoğunluğu", WithUnit(ZeminYogunluk, 3, "t/m³")},
        {"Sıvı yoğunluğu", WithUnit(SiviYogunluk, 3, "t/m³")},
        {"Havuz sıvı kotu", WithUnit(SiviKotu, 2, "m")},
        {"Toprak kotu", WithUnit(ToprakKotu, 2, "m")},
        {"Yeraltı su kotu", WithUnit(YeraltiSuKotu, 2, "m")},
    };
    if (basis.settings.saturatedDensity > 0.0)
        facts.emplace_back("Suya doygun zemin yoğunluğu", WithUnit(basis.settings.saturatedDensity, 3, "t/m³"));
    else
        facts.emplace_back("Su altındaki zemin", "tam yoğunluğu ile alındı");
    if (basis.settings.surcharge > 0.0)
        facts.emplace_back("Duvar arkasında sürşarj", WithUnit(basis.settings.surcharge, 2, "t/m²"));
    AddBasisFacts(facts, basis);
    return facts;
}

static void TitleBlock(Html &html, const ReportInput &input, const design::Design &design) {
    html.heading(1, "Hesap Raporu");
    html.paragraph(input.title.empty() ? input.name : input.title + " (" + input.name + ")");
    std::vector<std::vector<std::string>> rows = {{"Proje", input.name},
                                                  {"Tarih", input.date},
                                                  {"Program", "Havuz " + input.version},
                                                  {"Modelin özeti (SHA-256)", input.hash}};
    for (const auto &[name, text] : design.basis.settings.texts)
        rows.push_back({name, text});
    html.table({"Rapor", "Bilgi"}, rows);
    for (const std::string &notice : input.notices)
        html.paragraph(notice, "notice");
}

std::string ReportHtml(const ReportInput &input, const consistent::Analysis &analysis, const design::Design &design) {
    Html html("Hesap Raporu: " + (input.title.empty() ? input.name : input.title));
    const Source source{input, analysis, design};
    TitleBlock(html, input, design);
    for (const auto chapter : {VerdictChapter, InputChapter, WeightChapter, LoadChapter, ProofChapter, SoilChapter,
                               FlotationChapter, MovementChapter, MomentChapter, ComparisonChapter, SteelChapter,
                               CrackChapter, ShearChapter, MeshChapter, WarningChapter})
        chapter(html, source);
    return html.file();
}

std::string TurkishDate(const std::string &date) {
    constexpr std::array<int, 13> days = {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const auto part = [&date](std::size_t from, std::size_t count) {
        int value = -1;
        const char *end = date.data() + from + count;
        return std::from_chars(date.data() + from, end, value).ptr == end ? value : -1;
    };
    if (date.size() != 10 || date[4] != '-' || date[7] != '-')
        return "";
    const int year = part(0, 4), month = part(5, 2), day = part(8, 2);
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    if (year < 1 || month < 1 || month > 12 || day < 1 || day > days[static_cast<std::size_t>(month)] ||
        (month == 2 && day == 29 && !leap))
        return "";
    return date.substr(8, 2) + "." + date.substr(5, 2) + "." + date.substr(0, 4);
}

} // namespace havuz::report
