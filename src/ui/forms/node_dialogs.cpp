// MESTIP and NOKYUK: the support and the point load of node SeciliNo. t.
#include "model/number_text.h"
#include "model/place.h"
#include "model/store.h"
#include "model/supports.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "view/marks.h"

namespace havuz {

namespace {

struct SupportButton {
    int bit;
    const char *label, *on, *off;
};
constexpr int kSupportButtons = 3;
constexpr SupportButton kSupport[kSupportButtons] = {{kTranslationHeld, "Z COKME", "Z COKME MESNET", "Z COKME SERBEST"},
                                                     {kRotationXHeld, "X DONME", "X DONME MESNET", "X DONME SERBEST"},
                                                     {kRotationYHeld, "Y DONME", "Y DONME MESNET", "Y DONME SERBEST"}};

class SupportDialog : public Form {
public:
    explicit SupportDialog(Workbench &owner) : Form(owner, "MESTIP") {}
    std::vector<Field> fields() const override {
        std::vector<Field> fields;
        for (int i = 0; i < kSupportButtons; ++i)
            fields.push_back({.kind = FieldKind::Toggle,
                              .name = "Mesnet",
                              .index = i,
                              .label = kSupport[i].label,
                              .text = kSupport[i].off,
                              .row = i});
        fields.push_back(OkButton(kSupportButtons));
        fields.push_back(CancelButton(kSupportButtons));
        return fields;
    }

    void show() {
        window.SetCaption(name(), std::to_string(SeciliNo) + " NOKTASI MESNET KOSULU");
        for (int i = 0; i < kSupportButtons; ++i) {
            setChecked("Mesnet", i, (NoktaTable[SeciliNo].Mesnet & kSupport[i].bit) != 0);
            showState(i);
        }
        open();
    }
    void OnClick(Element element) override {
        if (element.name == "Mesnet")
            showState(element.index);
        else
            Form::OnClick(element);
    }

private:
    void showState(int i) { setText("Mesnet", i, checked("Mesnet", i) ? kSupport[i].on : kSupport[i].off); }

    void confirm() override {
        int sum = 0;
        for (int i = 0; i < kSupportButtons; ++i)
            sum += checked("Mesnet", i) ? kSupport[i].bit : 0;
        Int16 &held = NoktaTable[SeciliNo].Mesnet;
        const bool changed = held != sum;
        held = sum;
        if (changed)
            bench.DrawMeshView();
        close();
    }
};

class PointLoadDialog : public Form {
public:
    explicit PointLoadDialog(Workbench &owner) : Form(owner, "NOKYUK") {}
    std::vector<Field> fields() const override {
        return {box(0, "FX"), box(1, "FY"), box(2, "FZ"), OkButton(3), CancelButton(3)};
    }

    void show() {
        window.SetCaption(name(), std::to_string(SeciliNo) + " NOKTASI YUK BILGISI");
        const NokYukRecord &load = NokYukTable[SeciliNo];
        int i = 0;
        for (const double force : {load.FX + 0.0, load.FY + 0.0, load.FZ + 0.0})
            setText("Tex", i++, PictureText(force, "####0.###"));
        open();
        window.Focus(at("Tex", 2));
    }

private:
    static Field box(int index, const char *label) {
        return {.kind = FieldKind::TextBox, .name = "Tex", .index = index, .label = label, .row = index};
    }

    void confirm() override {
        window.EnableForm(kMain, true);
        store();
        close();
    }

    void store() {
        NokYukRecord &load = NokYukTable[SeciliNo];
        AtPlace({Thing::Node, SeciliNo}, [&] {
            load.FX = number("Tex", 0);
            load.FY = number("Tex", 1);
            load.FZ = number("Tex", 2);
        });
        DrawPointLoadArrow(bench.scr(), SeciliNo);
        bench.RefreshSurface();
    }
};

} // namespace

void AddNodeDialogs(Workbench &bench, Forms &forms) {
    forms.push_back(std::make_unique<SupportDialog>(bench));
    forms.push_back(std::make_unique<PointLoadDialog>(bench));
}

void ShowSupportType(Workbench &bench) { DialogOf<SupportDialog>(bench, "MESTIP").show(); }

void ShowPointLoad(Workbench &bench) { DialogOf<PointLoadDialog>(bench, "NOKYUK").show(); }

} // namespace havuz
