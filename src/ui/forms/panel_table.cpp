// FEAPLAK: the panels, with a second frame for the corners and loads of the focused row. m, cm, t/m2.
#include "model/number_text.h"
#include "model/place.h"
#include "model/store.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "ui/forms/paged_table.h"

#include <algorithm>

namespace havuz {

namespace {

constexpr const char *kPicture = "#####";
constexpr const char *kMeshHeading = "Mesh sayisi   X         Y";
constexpr TableColumn kColumns[] = {{"No", "PANEL    NO", kPicture},
                                    {"D", "D    (cm)", kPicture},
                                    {"Nx", kMeshHeading, kPicture},
                                    {"Ny", "", kPicture}};
constexpr TableKind kKind{"FEAPLAK", Thing::PanelTable, "SIRA    NO", kColumns, "1", kPanelCapacity, 999};

// Boxes of the second frame: X, Y, Z of corners 1 to 4, then the loads.
constexpr const char *kDetailPicture = "###0.###";
constexpr const char *kDetails[] = {"X1", "Y1", "Z1", "X2", "Y2", "Z2", "X3", "Y3", "Z3", "X4", "Y4", "Z4", "G", "P"};
constexpr int kDetailLast = 13;

class PanelTableForm : public PagedTable {
public:
    explicit PanelTableForm(Workbench &owner) : PagedTable(owner, kKind) {}
    std::vector<Field> fields() const override;

    void OnFocus(Element element) override;
    void OnLostFocus(Element element) override;
    bool OnKey(Element element, Key key) override;

private:
    double value(int record, int column) const override;
    void store(int record, int column, double value) override;
    void rowShown() override {
        for (int i = 0; i <= kDetailLast; ++i)
            showDetail(i);
    }

    static Float32 &detail(int i) {
        PanelRecord &panel = PanelTable[RecordOf(TabloSatir)];
        const int corner = i / 3 + 1;
        if (i >= 12)
            return i == 12 ? panel.G : panel.P;
        return i % 3 == 0 ? panel.X[corner] : i % 3 == 1 ? panel.Y[corner] : panel.Z[corner];
    }
    bool showAgain(Element element) override {
        if (element.name == "Deger")
            showDetail(element.index);
        return element.name == "Deger" || PagedTable::showAgain(element);
    }
    // The box that a person is typing into is stored before its row goes.
    void pageTurns() override {
        if (typing_ >= 0)
            detail(typing_) = number("Deger", typing_);
    }
    void showDetail(int i) { setText("Deger", i, PictureText(detail(i), kDetailPicture)); }

    // Closed any other way the edits stand, and the gaps stay.
    void confirm() override {
        OnClose();
        CompactPanels();
        bench.FitViews();
        bench.DrawPlateView();
    }

    int typing_ = -1; // box of the second frame with the focus
};

std::vector<Field> PanelTableForm::fields() const {
    std::vector<Field> fields = PagedTable::fields();
    for (int i = 0; i <= kDetailLast; ++i)
        fields.push_back({.kind = FieldKind::TextBox,
                          .name = "Deger",
                          .index = i,
                          .label = kDetails[i],
                          .row = kTableRows + 2 + i / 3,
                          .column = i % 3});
    for (const int i : {0, 1})
        fields.push_back({.kind = FieldKind::Label,
                          .name = "Birim",
                          .index = i,
                          .label = "t/m²",
                          .row = kTableRows + 7,
                          .column = i});
    return fields;
}

double PanelTableForm::value(int record, int column) const {
    const PanelRecord &panel = PanelTable[record];
    return column == 0 ? panel.No : column == 1 ? +panel.D : column == 2 ? panel.Nx : panel.Ny;
}

void PanelTableForm::store(int record, int column, double value) {
    PanelRecord &panel = PanelTable[record];
    if (column == 0)
        panel.No = value;
    else if (column == 1)
        panel.D = value;
    else if (column == 2)
        panel.Nx = value;
    else
        panel.Ny = value;
}

void PanelTableForm::OnFocus(Element element) {
    if (element.name == "Deger") {
        showDetail(element.index);
        typing_ = element.index;
    }
    PagedTable::OnFocus(element);
}

void PanelTableForm::OnLostFocus(Element element) {
    PagedTable::OnLostFocus(element);
    if (element.name != "Deger")
        return;
    typing_ = -1;
    AtPlace({Thing::PanelTable, RecordOf(TabloSatir)},
            [&] { detail(element.index) = ParseNumber(window.Text(element)); });
}

bool PanelTableForm::OnKey(Element element, Key key) {
    if (element.name != "Deger")
        return PagedTable::OnKey(element, key);
    if (key == Key::Enter || key == Key::Down)
        window.Focus(at("Deger", std::min(element.index + 1, kDetailLast)));
    else if (key == Key::Up)
        window.Focus(at("Deger", std::max(element.index - 1, 0)));
    return key == Key::Enter;
}

} // namespace

void AddPanelTable(Workbench &bench, Forms &forms) { forms.push_back(std::make_unique<PanelTableForm>(bench)); }

void ShowPanelTable(Workbench &bench) { DialogOf<PanelTableForm>(bench, kKind.form).show(); }

} // namespace havuz
