// The three palettes of the plate tools, shown at the screen's top right corner while their command is armed.
#include "ui/forms/palettes.h"

#include "ui/commands/tools.h"

namespace havuz {

namespace {

class DrawingPalette : public Form {
public:
    explicit DrawingPalette(Workbench &owner) : Form(owner, kTool1) {}
    std::vector<Field> fields() const override {
        return {box(0, "dp (cm)", "20"), box(1, "ust kot", "3.0"), box(2, "alt kot", "0"), box(3, "  ds  (cm)", "30")};
    }

private:
    static Field box(int index, const char *label, const char *text) {
        return {.kind = FieldKind::TextBox,
                .name = "Tex",
                .index = index,
                .label = label,
                .text = text,
                .row = index,
                .look = FieldLook::Point};
    }
};

Field Choice(FieldKind kind, const char *name, int index, const char *label, int row, bool checked = false) {
    return {.kind = kind, .name = name, .index = index, .label = label, .row = row, .checked = checked};
}

class LevelPalette : public Form {
public:
    explicit LevelPalette(Workbench &owner) : Form(owner, kTool2) {}
    std::vector<Field> fields() const override {
        return {Choice(FieldKind::Option, "Option1", 0, "sabit kenar/nokta", 0),
                Choice(FieldKind::Option, "Option1", 1, "serbest", 1, true),
                Choice(FieldKind::Option, "Option1", 2, "tum noktalar", 2)};
    }
    void OnClick(Element element) override { OnTool2Option(bench, element.index); }
};

class PlanPalette : public Form {
public:
    explicit PlanPalette(Workbench &owner) : Form(owner, kTool3) {}
    std::vector<Field> fields() const override {
        return {Choice(FieldKind::Option, "Option1", 0, "ust kenar", 0, true),
                Choice(FieldKind::Option, "Option1", 1, "alt kenar", 1),
                Choice(FieldKind::CheckBox, "Check1", 0, "yalniz bu kenarlar", 2),
                Choice(FieldKind::CheckBox, "Check1", 1, "duvarlar sabit", 3)};
    }
};

} // namespace

void AddPalettes(Workbench &bench, std::vector<std::unique_ptr<Form>> &forms) {
    forms.push_back(std::make_unique<DrawingPalette>(bench));
    forms.push_back(std::make_unique<LevelPalette>(bench));
    forms.push_back(std::make_unique<PlanPalette>(bench));
}

void ShowPalette(Workbench &bench, std::string_view palette) {
    Window &window = bench.window;
    const double left = window.ScreenWidth() * window.TwipsPerPixel() - window.FormWidth(palette);
    window.ShowForm(palette, {left, 0.0}, Modality::Modeless, true);
}

} // namespace havuz
