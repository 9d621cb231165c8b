// What the dialogs share: their places, the colour of a field without the focus, how each joins the forms of the main
// window. Twips.
#pragma once

#include "ui/forms/form.h"
#include "ui/window/main_window.h"

#include <memory>
#include <string>
#include <vector>

namespace havuz {

inline constexpr Place kToolPlace{800.0, 900.0};          // dialogs of the main tools
inline constexpr Place kNodePlace{950.0, 1100.0};         // dialogs of the pointer
inline constexpr Colour kLeftColour = Rgb(224, 224, 224); // a field that has lost the focus

using Forms = std::vector<std::unique_ptr<Form>>;

// One for each file of dialogs; in the order of the files' names.
void AddMaterialDialog(MainWindow &main, Forms &forms);
void AddMeshTable(MainWindow &main, Forms &forms);
void AddNodeDialogs(MainWindow &main, Forms &forms);
void AddNodeTable(MainWindow &main, Forms &forms);
void AddPanelTable(MainWindow &main, Forms &forms);
void AddPolygonDialog(MainWindow &main, Forms &forms);
void AddPoolDataDialog(MainWindow &main, Forms &forms);
void AddPoolLibraryDialog(MainWindow &main, Forms &forms);
void AddProjectDialogs(MainWindow &main, Forms &forms);
void AddRowPopup(MainWindow &main, Forms &forms);

template <class Dialog>
Dialog &DialogOf(MainWindow &main, std::string_view name) {
    return dynamic_cast<Dialog &>(main.form(name));
}

// Without its trailing blanks.
inline std::string CutBlanks(const std::string &text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

// The two buttons that most dialogs end with.
inline Field OkButton(int row) { return {.kind = FieldKind::Button, .name = "Tamam", .label = "TAMAM", .row = row}; }
inline Field CancelButton(int row) {
    return {.kind = FieldKind::Button, .name = "Iptal", .label = "IPTAL", .row = row, .column = 1};
}

} // namespace havuz
