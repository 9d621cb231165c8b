// Names of everything a window shows: an element is a form, a name and an index; arrays are numbered from 0 as their
// forms number them. Stays valid as long as the texts do that it was made from: literals, or the names a Form owns.
#pragma once

#include <compare>
#include <string_view>

namespace havuz {

struct Element {
    std::string_view form;
    std::string_view name;
    int index = 0;
    auto operator<=>(const Element &) const = default;
    bool operator==(const Element &) const = default;
};

// Forms
inline constexpr std::string_view kMain = "MAIN";
inline constexpr std::string_view kOverview = "DYNAMIC"; // the overview window of the dynamic zoom
inline constexpr std::string_view kDyuk = "DYUK";        // list of the edge nodes of the last mesh run, never shown
inline constexpr std::string_view kTool1 = "Tool1";      // data of drawn plates
inline constexpr std::string_view kTool2 = "Tool2";      // edge and point moves in the rotated view
inline constexpr std::string_view kTool3 = "Tool3";      // edge and point moves in plan

// Elements of the main window
inline constexpr Element kTopBarText{kMain, "VekTopBar", 0};
inline constexpr Element kScr{kMain, "SCR", 0};          // drawing surface
inline constexpr Element kScr1{kMain, "SCR1", 0};        // opens the overview
inline constexpr Element kAltnot{kMain, "ALTNOT", 0};    // prompt line
inline constexpr Element kPointEntry{kMain, "NOKTA", 0}; // a point as text, while one is awaited
inline constexpr Element kLabel1{kMain, "Label1", 0};    // the pointer's note over the surface
inline constexpr Element kSnapNote{kMain, "KOSE", 0};    // where a press would be taken, at that place
inline constexpr Element kProgLab{kMain, "ProgLab", 0};
inline constexpr Element kVekProgBar{kMain, "VekProgBar", 0};
constexpr Element Command(int index) { return {kMain, "Command", index}; }
constexpr Element Check1(int index) { return {kMain, "Check1", index}; }
constexpr Element Check2(int index) { return {kMain, "Check2", index}; }
constexpr Element ChkButton(int index) { return {kMain, "ChkButton", index}; }
constexpr Element Option1(int index) { return {kMain, "Option1", index}; }
constexpr Element Frame(int index) { return {kMain, "Frame", index}; }
constexpr Element TopBar(int index) { return {kMain, "TopBar", index}; }
constexpr Element Pol(int index) { return {kMain, "pol", index}; } // rubber lines to neighbours
constexpr Element RubberLine(int number) {                         // Line1 .. Line4
    constexpr std::string_view name[] = {"Line1", "Line2", "Line3", "Line4"};
    return {kMain, name[number - 1], 0};
}
inline constexpr int kPolLast = 50;

// The tool buttons by name (ui/commands/tools.cpp says what each does), and those of the top bar.
// clang-format off
inline constexpr Element kZoomAllTool = Command(0), kZoomWinTool = Command(1), kIsometricTool = Command(2),
    kTurnLeftTool = Command(3), kTurnRightTool = Command(4), kPlateMeshTool = Command(5);
inline constexpr Element kPointLoadTool = Check1(0), kSupportTool = Check1(1), kMeshOnOffTool = Check1(2),
    kNodeMoveTool = Check1(3), kHideNodesTool = Check1(4);
inline constexpr Element kPanelCopyTool = Check2(0), kPanelMoveTool = Check2(1), kPanelDeleteTool = Check2(2),
    kEdgeMoveTool = Check2(3), kEdgeSupportTool = Check2(4), kVerticalPlateTool = Check2(5),
    kPolygonTool = Check2(6), kCutTool = Check2(7);
inline constexpr Element kGeneralDataTool = ChkButton(0), kMaterialTool = ChkButton(1), kLibraryTool = ChkButton(2),
    kPanelTableTool = ChkButton(3), kAutoMeshTool = ChkButton(4), kMeshTableTool = ChkButton(5),
    kNodeTableTool = ChkButton(6), kAnalysisTool = ChkButton(7), kResultsTool = ChkButton(8),
    kNewTool = ChkButton(9), kOpenTool = ChkButton(10), kSaveTool = ChkButton(11), kSapTool = ChkButton(12),
    kStaadTool = ChkButton(13);
inline constexpr Element kEndButton = TopBar(0), kMinimiseButton = TopBar(1), kHelpButton = TopBar(2);
inline constexpr Element kRedoButton = TopBar(3), kUndoButton = TopBar(4);
// clang-format on

// Elements of the palettes and of the overview that the command machine itself reads or moves
constexpr Element Tool1Text(int index) {
    return {kTool1, "Tex", index};
} // "dp (cm)", "ust kot", "alt kot", "  ds  (cm)"
// Tool2, how levels are dragged: 0 tilt about a fixed item, 1 tilt, 2 the whole plate. Tool3: 0 the upper edge of a
// wall that is seen on end, 1 the lower one.
constexpr Element Tool2Option(int index) { return {kTool2, "Option1", index}; }
constexpr Element Tool3Option(int index) { return {kTool3, "Option1", index}; }
inline constexpr Element kTool3OneSide{kTool3, "Check1", 0};   // only the upper or lower edges of panels are caught
inline constexpr Element kTool3KeepWalls{kTool3, "Check1", 1}; // walls stay when a plate's edge moves
inline constexpr Element kMeshWarnings{"MESHRAP", "Uyari", 0}; // lines of the report of the last mesh
inline constexpr Element kOverviewPicture{kOverview, "SCR", 0};
inline constexpr Element kDyukList{kDyuk, "List", 0};
constexpr Element OverviewLine(int index) { return {kOverview, "Line", index}; } // 0 top, 1 bottom, 2 left, 3 right

} // namespace havuz
