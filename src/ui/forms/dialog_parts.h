// What the dialogs share: how each joins the forms of the main window, the buttons that most end with.
#pragma once

#include "ui/forms/form.h"
#include "ui/window/workbench.h"

#include <memory>
#include <string>
#include <vector>

namespace havuz {

using Forms = std::vector<std::unique_ptr<Form>>;

// One for each file of dialogs; in the order of the files' names.
void AddMaterialDialog(Workbench &bench, Forms &forms);
void AddMeshTable(Workbench &bench, Forms &forms);
void AddNodeDialogs(Workbench &bench, Forms &forms);
void AddNodeTable(Workbench &bench, Forms &forms);
void AddPanelTable(Workbench &bench, Forms &forms);
void AddPolygonDialog(Workbench &bench, Forms &forms);
void AddPoolDataDialog(Workbench &bench, Forms &forms);
void AddPoolLibraryDialog(Workbench &bench, Forms &forms);
void AddProjectDialogs(Workbench &bench, Forms &forms);
void AddRecoveryDialog(Workbench &bench, Forms &forms);
void AddRowPopup(Workbench &bench, Forms &forms);

template <class Dialog>
Dialog &DialogOf(Workbench &bench, std::string_view name) {
    return dynamic_cast<Dialog &>(bench.form(name));
}

// Without its trailing blanks.
inline std::string CutBlanks(const std::string &text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

// The two buttons that most dialogs end with.
inline Field OkButton(int row) {
    return {.kind = FieldKind::Button, .name = std::string(kConfirmButton), .label = "TAMAM", .row = row};
}
inline Field CancelButton(int row) {
    return {.kind = FieldKind::Button, .name = std::string(kCancelButton), .label = "IPTAL", .row = row, .column = 1};
}

} // namespace havuz
