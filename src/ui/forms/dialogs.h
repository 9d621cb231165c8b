// The openings of all dialogs, palettes and tables. Each takes its boxes from the model and shows its form; none waits
// for its end. Places are twips.
#pragma once

#include "ui/forms/form.h"
#include "ui/window/workbench.h"

#include <memory>
#include <string>
#include <vector>

namespace havuz {

// Every form but the main one: dialogs, tables, palettes, the row popup. Called once, by the constructor of MainWindow.
std::vector<std::unique_ptr<Form>> MakeForms(Workbench &bench);

// Dialogs of the main tools, at left 800, top 900. Those marked leave the main window enabled: they are modal instead.
// Closing one clears its main tool.
void ShowGeneralData(Workbench &bench);     // POOLGEN, leaves it enabled
void ShowMaterialOptions(Workbench &bench); // donsec
void ShowPoolLibrary(Workbench &bench);     // POOLlib
void ShowPanelTable(Workbench &bench);      // FEAPLAK, focus on its first cell
void ShowMeshTable(Workbench &bench);       // MESHBIL, focus on its first cell
void ShowNodeTable(Workbench &bench);       // KOORBIL, focus on its first cell
void ShowOpenProject(Workbench &bench);     // LOADFILE, leaves it enabled
void ShowSaveName(Workbench &bench);        // BILGI, with ProjeAdi in its box

// A project dropped on the window or chosen from the recent ones: whatever is armed ends, no tool stays down, and the
// file is read as LOADFILE reads it. What is no .POL file, in any case of its letters, is told of in the prompt line
// and changes nothing.
void OpenGivenProject(Workbench &bench, const std::string &path);

// KURTAR, with what earlier sessions left unsaved; nothing when there is nothing. Opens a copy of it as a model without
// a name: false when the file is none.
void OfferRecovery(Workbench &bench);
bool OpenRecovered(Workbench &bench, const std::string &file);

// MESHRAP, the warnings of the last mesh; nothing without any.
void ShowMeshWarnings(Workbench &bench);

// The window after a project was read: rotated view, nothing pending, no node hidden.
void ShowReadProject(Workbench &bench);

void ShowEndConfirm(Workbench &bench); // ENDKONT, at left (screen width - its width - 90), top 800

// Of node SeciliNo, at left 950, top 1100; the main window is disabled.
void ShowPointLoad(Workbench &bench);   // NOKYUK, focus on its third field
void ShowSupportType(Workbench &bench); // MESTIP

void ShowPolygonConfirm(Workbench &bench); // yesno, over PolyX, PolyY 1..PolyCount

// The popup TOOL beside a row of a table, acting on record SeciliNo: "1" panels, "2" meshes, "3" nodes.
void ShowRowPopup(Workbench &bench, const std::string &tag, Place place);

// The palettes Tool1, Tool2, Tool3 at the screen's top right corner, on top of all windows: left is the screen's width
// less the palette's. The main window stays enabled.
void ShowPalette(Workbench &bench, std::string_view palette);

// Boxes of POOLlib into the pool parameters; what the generator asks of the dialog.
void ReadPoolLibraryForm(Workbench &bench);

} // namespace havuz
