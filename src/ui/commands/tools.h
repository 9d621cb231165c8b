// The tool buttons of the main window: one table, from which the handlers, the windows, the scripts and the tests are
// made. A handler runs after the button took its new checked value.
#pragma once

#include "ui/window/command_state.h"
#include "ui/window/workbench.h"

#include <span>
#include <string>

namespace havuz {

enum class ToolGroup { View, Mesh, Plate, Main }; // Command, Check1, Check2, ChkButton

constexpr int kUnchanged = -1; // a tool that leaves CommandState as it is

struct ToolRow {
    ToolGroup group;
    Element button;
    const char *tooltip;
    int arms;                      // CommandState, or kUnchanged
    const char *prompt;            // "" for none
    void (*run)(Workbench &bench); // what it does besides
    bool planOnly = false;         // the rotated plate view disables it
};

std::span<const ToolRow> Tools();
const ToolRow *ToolOf(Element button); // none: nullptr
int ToolFrame(const ToolRow &tool);    // index of the Frame that holds it

// Prompts that the pointer gives again.
inline constexpr const char *kMovePrompt = "PLAK KENARI veya NOKTA SECIN < ESC : IPTAL >";
inline constexpr const char *kFixedPrompt = "SABIT PLAK KENARI veya SABIT NOKTA SECIN < ESC : IPTAL >";

// A tool was clicked; a button of the top bar; an option of the palette Tool2.
void OnTool(Workbench &bench, const ToolRow &tool);
void OnTopBar(Workbench &bench, Element button);
// A result was chosen; the one that is chosen already is switched off.
void OnResultOption(Workbench &bench, Element option);
void OnTool2Option(Workbench &bench, int index);

// Runs first in every handler of a tool. Clears the prompt, the rubber band's first two lines, the note, the palettes
// and the selected panel, and sets PickStage to 0. CommandState and ZoomPending stay.
void CancelPending(Workbench &bench);

void UncheckMeshTools(Workbench &bench);
void UncheckPlateTools(Workbench &bench, Element last); // up to this one
void UncheckMainTools(Workbench &bench);

// The pointer is over a tool button: it takes the hot colour, the hot one of its group before it loses it.
void OnToolHover(Workbench &bench, const ToolRow &tool);
void OnHoverTimer(Workbench &bench); // every 100 ms: hot buttons that the pointer has left lose the colour

// The main form itself: every element named in element.h.
FormFields MainFields();

// Tool handlers that stand in files of their own.
void ZoomAll(Workbench &bench);
void ZoomWin(Workbench &bench);
void TurnIsometric(Workbench &bench);
void RotateLeft(Workbench &bench);
void RotateRight(Workbench &bench);
void SwitchView(Workbench &bench);
void ShowResultOptions(Workbench &bench);
void HideNodes(Workbench &bench);
void StartEdgeMove(Workbench &bench);
void StartVerticalPlate(Workbench &bench);
void StartPolygon(Workbench &bench);
void StartPolygonCut(Workbench &bench);
void AutoMeshTool(Workbench &bench);
void RunAnalysis(Workbench &bench);
void ShowResults(Workbench &bench);
void NewProject(Workbench &bench);
void SaveProjectAs(Workbench &bench);
void ExportSapTool(Workbench &bench);
void ExportStaadTool(Workbench &bench);

} // namespace havuz
