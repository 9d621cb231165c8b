// The tool buttons of the main window: one table, from which the handlers, the windows, the scripts and the tests are
// made. A handler runs after the button took its new checked value.
#pragma once

#include "ui/window/command_state.h"
#include "ui/window/main_window.h"

#include <span>
#include <string>

namespace havuz {

enum class ToolGroup { View, Mesh, Plate, Main }; // Command, Check1, Check2, ChkButton

constexpr int kUnchanged = -1; // a tool that leaves CommandState as it is

struct ToolRow {
    ToolGroup group;
    int index;
    const char *tooltip;
    int arms;                      // CommandState, or kUnchanged
    const char *prompt;            // "" for none
    void (*run)(MainWindow &main); // what it does besides
};

std::span<const ToolRow> Tools();
const ToolRow &Tool(ToolGroup group, int index); // Subscript when there is none
Element ToolButton(ToolGroup group, int index);
int ToolFrame(const ToolRow &tool); // index of the Frame that holds it

// Results that the mesh view can show beside each node: Option1 (0..4).
constexpr int kResultOptions = 5;

// Prompts that the pointer gives again.
inline constexpr const char *kMovePrompt = "PLAK KENARI veya NOKTA SECIN < ESC : IPTAL >";
inline constexpr const char *kFixedPrompt = "SABIT PLAK KENARI veya SABIT NOKTA SECIN < ESC : IPTAL >";

// Entry points, a click each. An index that no tool has is Subscript.
void OnViewCommand(MainWindow &main, int index);
void OnMeshTool(MainWindow &main, int index);
void OnPlateTool(MainWindow &main, int index);
void OnMainTool(MainWindow &main, int index);
void OnTopBar(MainWindow &main, int index);      // 0 end, 1 minimise, 2 help
void OnTool2Option(MainWindow &main, int index); // an option of the palette Tool2 was selected

// Runs first in every handler of a tool. Clears the prompt, the rubber band's first two lines, the note, the palettes
// and the selected panel, and sets PickStage to 0. CommandState and ZoomPending stay.
void CancelPending(MainWindow &main);

void UncheckMeshTools(MainWindow &main);            // Check1 (0..4)
void UncheckPlateTools(MainWindow &main, int last); // Check2 (0..last)

// The pointer is over a tool button: it takes the hot colour, the hot one of its group before it loses it.
void OnToolHover(MainWindow &main, ToolGroup group, int index);
void OnHoverTimer(MainWindow &main); // every 100 ms: hot buttons that the pointer has left lose the colour

// The main form itself: every element named in element.h.
FormFields MainFields();

// Tool handlers that stand in files of their own.
void ZoomAll(MainWindow &main);
void ZoomWin(MainWindow &main);
void TurnIsometric(MainWindow &main);
void RotateLeft(MainWindow &main);
void RotateRight(MainWindow &main);
void SwitchView(MainWindow &main);
void ShowResultOptions(MainWindow &main);
void HideNodes(MainWindow &main);
void StartEdgeMove(MainWindow &main);
void StartVerticalPlate(MainWindow &main);
void StartPolygon(MainWindow &main);
void StartPolygonCut(MainWindow &main);
void AutoMeshTool(MainWindow &main);
void RunAnalysis(MainWindow &main);
void ShowResults(MainWindow &main);
void NewProject(MainWindow &main);
void SaveProjectAs(MainWindow &main);
void ExportSapTool(MainWindow &main);
void ExportStaadTool(MainWindow &main);

} // namespace havuz
