// yesno: confirms the polygon that was drawn and builds a pool from it and the boxes of the palette Tool1. m, cm.
#include "mesh/polygon_pool.h"
#include "model/number_text.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"

namespace havuz {

namespace {

// Boxes of the palette
enum { kDp = 0, kUst = 1, kAlt = 2, kDs = 3 };

class PolygonDialog : public Form {
public:
    explicit PolygonDialog(Workbench &owner) : Form(owner, "yesno") {}
    std::vector<Field> fields() const override {
        return {{.kind = FieldKind::Label, .name = "Soru", .label = "POLİGON HAVUZU ONAYLIYOR MUSUNUZ?"},
                OkButton(1),
                CancelButton(1)};
    }
    void show() { open(); }

    void OnClose() override {
        close();
        bench.DrawPlateView();
        PolyCount = 0;
    }

private:
    // A comma is no decimal point in these boxes: wanted.
    double paletteNumber(int box) const { return ParsePlainNumber(window.Text(Tool1Text(box))); }

    PolygonPool drawnPool() const {
        PolygonPool pool;
        for (int k = 1; k <= PolyCount; ++k)
            pool.points.push_back({PolyX[k], PolyY[k]});
        pool.dp = paletteNumber(kDp);
        pool.ds = paletteNumber(kDs);
        pool.UstKot = paletteNumber(kUst);
        pool.AltKot = paletteNumber(kAlt);
        return pool;
    }

    void confirm() override {
        BuildPolygonPool(drawnPool());
        bench.TakeRotated();
        bench.DrawPlateView();
        close();
    }
};

} // namespace

void AddPolygonDialog(Workbench &bench, Forms &forms) { forms.push_back(std::make_unique<PolygonDialog>(bench)); }

void ShowPolygonConfirm(Workbench &bench) { DialogOf<PolygonDialog>(bench, "yesno").show(); }

} // namespace havuz
