// The forms of the program, each made once; its opening stands in the file of the form.
#include "ui/forms/dialogs.h"

#include "ui/forms/dialog_parts.h"
#include "ui/forms/palettes.h"

namespace havuz {

std::vector<std::unique_ptr<Form>> MakeForms(MainWindow &main) {
    Forms forms;
    AddPoolDataDialog(main, forms);
    AddMaterialDialog(main, forms);
    AddPoolLibraryDialog(main, forms);
    AddPanelTable(main, forms);
    AddMeshTable(main, forms);
    AddNodeTable(main, forms);
    AddRowPopup(main, forms);
    AddProjectDialogs(main, forms);
    AddNodeDialogs(main, forms);
    AddPolygonDialog(main, forms);
    AddPalettes(main, forms);
    return forms;
}

} // namespace havuz
