// The forms of the program, each made once; its opening stands in the file of the form.
#include "ui/forms/dialogs.h"

#include "ui/forms/dialog_parts.h"
#include "ui/forms/palettes.h"

namespace havuz {

std::vector<std::unique_ptr<Form>> MakeForms(Workbench &bench) {
    Forms forms;
    AddPoolDataDialog(bench, forms);
    AddMaterialDialog(bench, forms);
    AddPoolLibraryDialog(bench, forms);
    AddPanelTable(bench, forms);
    AddMeshTable(bench, forms);
    AddNodeTable(bench, forms);
    AddRowPopup(bench, forms);
    AddProjectDialogs(bench, forms);
    AddRecoveryDialog(bench, forms);
    AddNodeDialogs(bench, forms);
    AddPolygonDialog(bench, forms);
    AddPalettes(bench, forms);
    return forms;
}

} // namespace havuz
