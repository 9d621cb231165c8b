// donsec: load situations to analyse, design method, materials, bar diameters. kg/cm2, mm.
#include "model/number_text.h"
#include "model/options.h"
#include "model/store.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"

#include <cmath>

namespace havuz {

namespace {

constexpr int kDiameters = 13;
constexpr int kStrengths = 5;
constexpr int kUsualConcrete = 3, kUsualSteel = 1; // entries taken for a strength that the table lacks

// Buttons are numbered from 1: 6 mm to 30 mm.
constexpr int Diameter(int button) { return 2 * button + 4; }

// The button of a diameter, 0 for one that no button has.
int DiameterButton(double diameter) {
    const double button = std::nearbyint((diameter - 4.0) / 2.0);
    return button >= 1.0 && button <= kDiameters ? static_cast<int>(button) : 0;
}

int Entry(const Row<double, kStrengths> &table, double strength, int otherwise) {
    for (int i = 1; i <= kStrengths; ++i)
        if (table[i] == strength)
            return i;
    return otherwise;
}

class MaterialDialog : public Form {
public:
    explicit MaterialDialog(Workbench &owner) : Form(owner, "donsec") {}

    std::vector<Field> fields() const override {
        std::vector<Field> fields = {
            {.kind = FieldKind::Frame, .name = "Frame", .index = 0, .label = "ANALIZ OPSIYONLARI", .row = 0}};
        int i = 0;
        for (const char *label : {"zemin ve sıvı", "sıvı", "zemin", "yeraltı suyu"}) {
            fields.push_back({.kind = FieldKind::CheckBox,
                              .name = "Yuk",
                              .index = i,
                              .label = label,
                              .row = 1,
                              .column = i,
                              .picture = {84, 63}});
            ++i;
        }
        fields.push_back({.kind = FieldKind::Frame, .name = "Frame", .index = 1, .label = "BETONARME HESAP", .row = 2});
        fields.push_back({.kind = FieldKind::Option, .name = "Yontem", .index = 0, .label = "TASIMA GUCU", .row = 3});
        fields.push_back({.kind = FieldKind::Option,
                          .name = "Yontem",
                          .index = 1,
                          .label = "EMNIYET GERILMESI",
                          .row = 3,
                          .column = 1});
        fields.push_back({.kind = FieldKind::List, .name = "Beton", .label = "Beton", .row = 4});
        fields.push_back({.kind = FieldKind::List, .name = "Celik", .label = "Çelik", .row = 4, .column = 1});
        for (int button = 1; button <= kDiameters; ++button)
            fields.push_back({.kind = FieldKind::Toggle,
                              .name = "Cap",
                              .index = button,
                              .label = std::to_string(Diameter(button)),
                              .row = 5,
                              .column = button,
                              .picture = {18, 18}});
        fields.push_back(
            {.kind = FieldKind::Label, .name = "Birim", .label = "mm", .row = 5, .column = kDiameters + 1});
        fields.push_back(OkButton(6));
        fields.push_back(CancelButton(6));
        return fields;
    }

    void show() {
        showDiameters();
        setChecked("Yontem", HesapYontem == 0.0 ? 1 : 0, true);
        for (int i = 0; i <= kYukDurumLast; ++i)
            setChecked("Yuk", i, YukDurum[i] != 0.0);
        showStrengths();
        takeStrengths(); // opening alone brings Fck and Fyk into line with the tables: wanted
        open();
    }

    void OnClick(Element element) override {
        if (element.name == "Cap")
            showTick(element.index);
        else
            Form::OnClick(element);
    }

private:
    void showTick(int button) { window.SetPicture(at("Cap", button), checked("Cap", button) ? 1 : 0); }

    void showDiameters() {
        for (int button = 1; button <= kDiameters; ++button)
            setChecked("Cap", button, false);
        std::string without;
        for (int i = 1; i <= kDiameters; ++i)
            if (const int button = DiameterButton(DonatiCaplari[i]); button > 0)
                setChecked("Cap", button, true);
            else if (DonatiCaplari[i] > 0.0)
                without += " " + NumberText(DonatiCaplari[i]);
        if (!without.empty())
            bench.Prompt("DUGMESI OLMAYAN CAP SECILMEDI:" + without + " mm");
        for (int button = 1; button <= kDiameters; ++button)
            showTick(button);
    }

    void showStrengths() {
        std::vector<std::string> concrete, steel;
        for (int i = 1; i <= kStrengths; ++i) {
            const double v = BetonTablosu[i];
            concrete.push_back("BS" + NumberText(v / 10.0) + " (fck=" + NumberText(v) + " kg/cm²)");
            steel.push_back("fyk=" + NumberText(CelikTablosu[i]) + " kg/cm²");
        }
        window.SetItems(at("Beton"), concrete);
        window.SetItems(at("Celik"), steel);
        window.SelectItem(at("Beton"), Entry(BetonTablosu, Fck, kUsualConcrete) - 1);
        window.SelectItem(at("Celik"), Entry(CelikTablosu, Fyk, kUsualSteel) - 1);
    }

    void takeStrengths() {
        Fck = BetonTablosu[window.SelectedItem(at("Beton")) + 1];
        Fyk = CelikTablosu[window.SelectedItem(at("Celik")) + 1];
    }

    void takeDiameters() {
        DonatiCaplari = {};
        int taken = 0;
        for (int button = 1; button <= kDiameters; ++button)
            if (checked("Cap", button))
                DonatiCaplari[++taken] = Diameter(button);
    }

    void confirm() override {
        takeDiameters();
        HesapYontem = checked("Yontem", 1) ? 0.0 : 1.0;
        for (int i = 0; i <= kYukDurumLast; ++i)
            YukDurum[i] = checked("Yuk", i) ? 1.0 : 0.0;
        takeStrengths();
        OnClose();
    }
};

} // namespace

void AddMaterialDialog(Workbench &bench, Forms &forms) { forms.push_back(std::make_unique<MaterialDialog>(bench)); }

void ShowMaterialOptions(Workbench &bench) { DialogOf<MaterialDialog>(bench, "donsec").show(); }

} // namespace havuz
