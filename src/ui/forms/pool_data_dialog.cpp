// POOLGEN: title, unit mesh width, soil and liquid. It has no way out that keeps the earlier values. Units as stored:
// m, t/m3, t/m2.
#include "model/number_text.h"
#include "model/store.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"

#include <algorithm>

namespace havuz {

namespace {

constexpr int kLastRow = 8;

struct PoolDataRow {
    const char *label;
    double *parameter; // none: ProjeIsmi
    const char *picture;
};

// A fractional MeshGenisligi is shown rounded, and closing reads it back so: wanted.
// clang-format off
constexpr PoolDataRow kRows[kLastRow + 1] = {
    {"PROJE İSMİ",                                         nullptr,        ""},
    {"BİRİM MESH GENİŞLİĞİ                      m",        &MeshGenisligi, "####"},
    {"Ko      ZEMİN YATAK KATSAYISI        (t/m³)",        &ZeminKo,       "####0.###"},
    {"Gzem  ZEMİN EMNİYET GERİLMESİ   (t/m²)",             &ZeminGzem,     "####0.###"},
    {"Ka      ZEMİN  YATAY  YÜK  PARAMETRESİ",             &ZeminKa,       "####0.###"},
    {"Y        ZEMİN  YOĞUNLUĞU              (t/m³)",      &ZeminYogunluk, "####0.###"},
    {"          SIVI      YOĞUNLUĞU              (t/m³)",  &SiviYogunluk,  "####0.###"},
    {"          HAVUZ SIVI KOTU                     (m)",  &SiviKotu,      "####0.###"},
    {"          ZEMİN YERALTI SU KOTU         (m)",        &YeraltiSuKotu, "####0.###"},
};
// clang-format on

class PoolDataDialog : public Form {
public:
    explicit PoolDataDialog(Workbench &owner) : Form(owner, "POOLGEN") {}

    std::vector<Field> fields() const override {
        std::vector<Field> fields;
        for (int row = 0; row <= kLastRow; ++row)
            fields.push_back({.kind = FieldKind::TextBox,
                              .name = "Tex",
                              .index = row,
                              .label = kRows[row].label,
                              .row = row,
                              .look = row == 0 ? FieldLook::Name : FieldLook::Usual});
        fields.push_back({.kind = FieldKind::Frame,
                          .name = "Frame",
                          .label = "ZEMİN YATAY YÜKÜ",
                          .row = kLastRow + 1,
                          .picture = {150, 112}});
        fields.push_back(OkButton(kLastRow + 2));
        return fields;
    }

    void show() {
        setText("Tex", 0, CutBlanks(ProjeIsmi));
        for (int row = 1; row <= kLastRow; ++row)
            setText("Tex", row, PictureText(*kRows[row].parameter, kRows[row].picture));
        open();
        window.Focus(at("Tex", 0));
    }

    void OnFocus(Element element) override {
        Form::OnFocus(element);
        if (element.name == "Tex")
            TabloSatir = element.index;
    }
    bool OnKey(Element element, Key key) override {
        if (element.name != "Tex")
            return false;
        if (key == Key::Enter || key == Key::Down)
            window.Focus(at("Tex", std::min(element.index + 1, kLastRow)));
        else if (key == Key::Up)
            window.Focus(at("Tex", std::max(element.index - 1, 0)));
        return key == Key::Enter;
    }
    void OnClose() override {
        ProjeIsmi = CutBlanks(text("Tex", 0));
        for (int row = 1; row <= kLastRow; ++row)
            *kRows[row].parameter = number("Tex", row);
        close();
    }
};

} // namespace

void AddPoolDataDialog(Workbench &bench, Forms &forms) { forms.push_back(std::make_unique<PoolDataDialog>(bench)); }

void ShowGeneralData(Workbench &bench) { DialogOf<PoolDataDialog>(bench, "POOLGEN").show(); }

} // namespace havuz
