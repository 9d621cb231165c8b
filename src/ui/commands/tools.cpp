#include "ui/commands/tools.h"

#include "model/failure.h"
#include "ui/forms/dialogs.h"

#include <array>

namespace havuz {

static void NoMore(Workbench & /*bench*/) {}

// clang-format off
static constexpr ToolRow kTools[] = {
    {ToolGroup::View,  kZoomAllTool,       "zoom all",             kUnchanged,     "", ZoomAll},
    {ToolGroup::View,  kZoomWinTool,       "zoom win",             kUnchanged,     "ZOOM WINDOW ICIN 1. NOKTAYI SECIN", ZoomWin},
    {ToolGroup::View,  kIsometricTool,     "izometrik gorunus",    kIdle,          "", TurnIsometric},
    {ToolGroup::View,  kTurnLeftTool,      "sola dondurme",        kUnchanged,     "", RotateLeft},
    {ToolGroup::View,  kTurnRightTool,     "saga dondurme",        kUnchanged,     "", RotateRight},
    {ToolGroup::View,  kPlateMeshTool,     "plak/mesh",            kUnchanged,     "", SwitchView},

    {ToolGroup::Mesh,  kPointLoadTool,     "nokta dis yuku",       kPointLoad,     "YUK DUZENLEME ICIN NOKTA SECIN < ESC : IPTAL >", ShowResultOptions},
    {ToolGroup::Mesh,  kSupportTool,       "mesnet on/off",        kSupport,       "MESNET DUZENLEME ICIN NOKTA SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Mesh,  kMeshOnOffTool,     "mesh on/off",          kMeshOnOff,     "MESH ON/OFF ICIN MESH SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Mesh,  kNodeMoveTool,      "nokta kaydirma",       kNodeMove,      "NOKTA KAYDIRMA ICIN NOKTA SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Mesh,  kHideNodesTool,     "nokta on/off",         kUnchanged,     "", HideNodes},

    {ToolGroup::Plate, kPanelCopyTool,     "plak kopyalama",       kPanelCopy,     "KOPYELENECEK PLAK SECIN < ESC : IPTAL >", NoMore, true},
    {ToolGroup::Plate, kPanelMoveTool,     "plak kaydirma",        kPanelMove,     "KAYDIRILACAK PLAK SECIN < ESC : IPTAL >", NoMore, true},
    {ToolGroup::Plate, kPanelDeleteTool,   "plak silme",           kPanelDelete,   "SILINECEK PLAK SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Plate, kEdgeMoveTool,      "nokta kaydirma",       kEdgeMove,      kMovePrompt, StartEdgeMove},
    {ToolGroup::Plate, kEdgeSupportTool,   "mesnet on/off",        kEdgeSupport,   "PLAK MESNETLI KENARINI SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Plate, kVerticalPlateTool, "dusey plak cizimi",    kVerticalPlate, "DUSEY PLAK HATTINI CIZIN < ESC : IPTAL >", StartVerticalPlate, true},
    {ToolGroup::Plate, kPolygonTool,       "polygon plak cizimi",  kPolygon,       "POLIGON PLAK NOKTALARINI CIZIN < ESC : IPTAL >", StartPolygon, true},
    {ToolGroup::Plate, kCutTool,           "polygon plak kes",     kPolygonCut,    "POLIGON PLAK KESIM NOKTASINI CIZIN < ESC : IPTAL >", StartPolygonCut, true},

    {ToolGroup::Main,  kGeneralDataTool,   "genel havuz bilgisi",  kIdle,          "", ShowGeneralData},
    {ToolGroup::Main,  kMaterialTool,      "malzeme bilgisi",      kIdle,          "", ShowMaterialOptions},
    {ToolGroup::Main,  kLibraryTool,       "havuz kutuphanesi",    kIdle,          "", ShowPoolLibrary},
    {ToolGroup::Main,  kPanelTableTool,    "panel bilgisi",        kIdle,          "", ShowPanelTable},
    {ToolGroup::Main,  kAutoMeshTool,      "auto mesh",            kIdle,          "", AutoMeshTool},
    {ToolGroup::Main,  kMeshTableTool,     "mesh bilgisi",         kIdle,          "", ShowMeshTable},
    {ToolGroup::Main,  kNodeTableTool,     "koordinat bilgisi",    kIdle,          "", ShowNodeTable},
    {ToolGroup::Main,  kAnalysisTool,      "FEA analizi",          kIdle,          "", RunAnalysis},
    {ToolGroup::Main,  kResultsTool,       "analiz sonuclari",     kIdle,          "", ShowResults},
    {ToolGroup::Main,  kNewTool,           "yeni proje",           kIdle,          "", NewProject},
    {ToolGroup::Main,  kOpenTool,          "FEA bilgisi okuma",    kIdle,          "", ShowOpenProject},
    {ToolGroup::Main,  kSaveTool,          "FEA bilgisi saklama",  kIdle,          "", SaveProjectAs},
    {ToolGroup::Main,  kSapTool,           "sap90 konvertor",      kIdle,          "", ExportSapTool},
    {ToolGroup::Main,  kStaadTool,         "staadIII-konvertor",   kIdle,          "", ExportStaadTool},
};
// clang-format on

std::span<const ToolRow> Tools() { return kTools; }

const ToolRow *ToolOf(Element button) {
    for (const ToolRow &row : kTools)
        if (row.button == button)
            return &row;
    return nullptr;
}

int ToolFrame(const ToolRow &tool) {
    switch (tool.group) {
    case ToolGroup::View:
        return 0;
    case ToolGroup::Mesh:
        return 1;
    case ToolGroup::Plate:
        return 2;
    case ToolGroup::Main:
        break;
    }
    return tool.button < kAnalysisTool ? 4 : tool.button < kNewTool ? 5 : 6; // data, analysis, files
}

// Unchecking

// The group's tools up to last, but for one.
static void Uncheck(Workbench &bench, ToolGroup group, Element last, Element except = {}) {
    for (const ToolRow &row : kTools)
        if (row.group == group && row.button <= last && row.button != except)
            bench.window.SetChecked(row.button, false);
}

void UncheckMeshTools(Workbench &bench) { Uncheck(bench, ToolGroup::Mesh, kHideNodesTool); }
void UncheckPlateTools(Workbench &bench, Element last) { Uncheck(bench, ToolGroup::Plate, last); }
void UncheckMainTools(Workbench &bench) { Uncheck(bench, ToolGroup::Main, kStaadTool); }

static void HideRubberLine(Workbench &bench, int number) {
    if (!bench.window.Shown(RubberLine(number)))
        return;
    bench.window.Show(RubberLine(number), false);
    bench.window.SetLineStyle(RubberLine(number), RubberStyle::Solid);
}

void CancelPending(Workbench &bench) {
    bench.Prompt("");
    HideRubberLine(bench, 1);
    HideRubberLine(bench, 2);
    bench.HideLabel1();
    for (const std::string_view palette : {kTool1, kTool2, kTool3})
        if (bench.window.FormShown(palette))
            bench.window.HideForm(palette);
    if (SelectedPanel > 0) {
        SelectedPanel = 0;
        bench.DrawPlateView();
    }
    PickStage = 0;
}

// The four groups

// Sets what the row says, then runs it: a row may go on from the state and the prompt.
static void Arm(Workbench &bench, const ToolRow &tool) {
    if (tool.arms != kUnchanged)
        CommandState = tool.arms;
    if (*tool.prompt != '\0')
        bench.Prompt(tool.prompt);
    tool.run(bench);
}

// Rotating unchecks the tools and leaves what they armed: wanted.
static void OnViewCommand(Workbench &bench, const ToolRow &tool) {
    const bool zooms = tool.button == kZoomAllTool || tool.button == kZoomWinTool;
    if (!zooms) {
        UncheckMeshTools(bench);
        UncheckPlateTools(bench, kEdgeSupportTool);
    }
    Arm(bench, tool);
    if (tool.button != kZoomWinTool)
        bench.window.Focus(kScr);
}

// A second click ends the command, but for "nokta on/off", whose check mark only tells its state.
static void OnMeshTool(Workbench &bench, const ToolRow &tool) {
    if (tool.button != kHideNodesTool && !bench.window.Checked(tool.button)) {
        CommandState = kIdle;
        return;
    }
    Uncheck(bench, ToolGroup::Mesh, kHideNodesTool, tool.button);
    bench.window.Focus(kScr);
    Arm(bench, tool);
}

static void OnPlateTool(Workbench &bench, const ToolRow &tool) {
    if (!bench.window.Checked(tool.button)) {
        CommandState = kIdle;
        return;
    }
    Uncheck(bench, ToolGroup::Plate, kCutTool, tool.button);
    bench.window.Focus(kScr);
    Arm(bench, tool);
}

// The drawing tools of plates keep their check marks though nothing is armed any more: wanted. So is the second click
// on a tool whose job is done ("auto mesh"): it only clears the button.
static void OnMainTool(Workbench &bench, const ToolRow &tool) {
    if (!bench.window.Checked(tool.button)) {
        CommandState = kIdle;
        return;
    }
    Uncheck(bench, ToolGroup::Main, kStaadTool, tool.button);
    UncheckMeshTools(bench);
    UncheckPlateTools(bench, kEdgeSupportTool);
    Arm(bench, tool);
}

void OnTool(Workbench &bench, const ToolRow &tool) {
    CancelPending(bench);
    switch (tool.group) {
    case ToolGroup::View:
        return OnViewCommand(bench, tool);
    case ToolGroup::Mesh:
        return OnMeshTool(bench, tool);
    case ToolGroup::Plate:
        return OnPlateTool(bench, tool);
    case ToolGroup::Main:
        return OnMainTool(bench, tool);
    }
}

} // namespace havuz
