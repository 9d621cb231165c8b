#include "ui/dialogs.h"

#include "ui/palettes.h"

namespace havuz {

namespace {

// A dialog that has no elements yet.
class BareForm : public Form {
public:
    BareForm(MainWindow &owner, const char *name) : Form(owner, name, "") {}
    std::vector<Field> fields() const override { return {}; }
    void show(Place place, Modality modality, bool disableMain) { open(place, modality, disableMain); }
};

constexpr Place kToolPlace{800.0, 900.0};
constexpr Place kNodePlace{950.0, 1100.0};

void Show(MainWindow &main, const char *name, Place place) {
    dynamic_cast<BareForm &>(main.form(name)).show(place, Modality::Modeless, true);
}

void ShowModal(MainWindow &main, const char *name) {
    dynamic_cast<BareForm &>(main.form(name)).show(kToolPlace, Modality::Modal, false);
}

} // namespace

std::vector<std::unique_ptr<Form>> MakeForms(MainWindow &main) {
    std::vector<std::unique_ptr<Form>> forms;
    for (const char *name : {"POOLGEN", "donsec", "POOLlib", "FEAPLAK", "MESHBIL", "KOORBIL", "LOADFILE", "BILGI",
                             "ENDKONT", "NOKYUK", "MESTIP", "yesno", "TOOL"})
        forms.push_back(std::make_unique<BareForm>(main, name));
    AddPalettes(main, forms);
    return forms;
}

void ShowGeneralData(MainWindow &main) {
    ShowModal(main, "POOLGEN");
}
void ShowMaterialOptions(MainWindow &main) {
    Show(main, "donsec", kToolPlace);
}
void ShowPoolLibrary(MainWindow &main) {
    Show(main, "POOLlib", kToolPlace);
}
void ShowPanelTable(MainWindow &main) {
    Show(main, "FEAPLAK", kToolPlace);
}
void ShowMeshTable(MainWindow &main) {
    Show(main, "MESHBIL", kToolPlace);
}
void ShowNodeTable(MainWindow &main) {
    Show(main, "KOORBIL", kToolPlace);
}
void ShowOpenProject(MainWindow &main) {
    ShowModal(main, "LOADFILE");
}
void ShowSaveName(MainWindow &main) {
    Show(main, "BILGI", kToolPlace);
}

void ShowEndConfirm(MainWindow &main) {
    Window &window = main.window;
    const double left = window.ScreenWidth() * window.TwipsPerPixel() - window.FormWidth("ENDKONT") - 90.0;
    Show(main, "ENDKONT", {left, 800.0});
}

void ShowPointLoad(MainWindow &main) {
    Show(main, "NOKYUK", kNodePlace);
}
void ShowSupportType(MainWindow &main) {
    Show(main, "MESTIP", kNodePlace);
}
void ShowPolygonConfirm(MainWindow &main) {
    Show(main, "yesno", kNodePlace);
}
void ShowRowPopup(MainWindow &main, const std::string & /*tag*/, Place place) {
    Show(main, "TOOL", place);
}
void ReadPoolLibraryForm(MainWindow & /*main*/) {}

} // namespace havuz
