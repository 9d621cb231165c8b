#include "ui/commands/tools.h"

#include "model/failure.h"
#include "ui/forms/dialogs.h"

#include <array>

namespace havuz {

static void NoMore(MainWindow & /*main*/) {}

// clang-format off
static constexpr ToolRow kTools[] = {
    {ToolGroup::View,  0, "zoom all",          kUnchanged, "", ZoomAll},
    {ToolGroup::View,  1, "zoom win",          kUnchanged, "ZOOM WINDOW ICIN 1. NOKTAYI SECIN", ZoomWin},
    {ToolGroup::View,  2, "izometrik gorunus", kIdle,      "", TurnIsometric},
    {ToolGroup::View,  3, "sola dondurme",     kUnchanged, "", RotateLeft},
    {ToolGroup::View,  4, "saga dondurme",     kUnchanged, "", RotateRight},
    {ToolGroup::View,  5, "plak/mesh",         kUnchanged, "", SwitchView},

    {ToolGroup::Mesh,  0, "nokta dis yuku",    kPointLoad, "YUK DUZENLEME ICIN NOKTA SECIN < ESC : IPTAL >", ShowResultOptions},
    {ToolGroup::Mesh,  1, "mesnet on/off",     kSupport,   "MESNET DUZENLEME ICIN NOKTA SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Mesh,  2, "mesh on/off",       kMeshOnOff, "MESH ON/OFF ICIN MESH SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Mesh,  3, "nokta kaydirma",    kNodeMove,  "NOKTA KAYDIRMA ICIN NOKTA SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Mesh,  4, "nokta on/off",      kUnchanged, "", HideNodes},

    {ToolGroup::Plate, 0, "plak kopyalama",      kPanelCopy,     "KOPYELENECEK PLAK SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Plate, 1, "plak kaydirma",       kPanelMove,     "KAYDIRILACAK PLAK SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Plate, 2, "plak silme",          kPanelDelete,   "SILINECEK PLAK SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Plate, 3, "nokta kaydirma",      kEdgeMove,      kMovePrompt, StartEdgeMove},
    {ToolGroup::Plate, 4, "mesnet on/off",       kEdgeSupport,   "PLAK MESNETLI KENARINI SECIN < ESC : IPTAL >", NoMore},
    {ToolGroup::Plate, 5, "dusey plak cizimi",   kVerticalPlate, "DUSEY PLAK HATTINI CIZIN < ESC : IPTAL >", StartVerticalPlate},
    {ToolGroup::Plate, 6, "polygon plak cizimi", kPolygon,       "POLIGON PLAK NOKTALARINI CIZIN < ESC : IPTAL >", StartPolygon},
    {ToolGroup::Plate, 7, "polygon plak kes",    kPolygonCut,    "POLIGON PLAK KESIM NOKTASINI CIZIN < ESC : IPTAL >", StartPolygonCut},

    {ToolGroup::Main,  0, "genel havuz bilgisi", kIdle, "", ShowGeneralData},
    {ToolGroup::Main,  1, "malzeme bilgisi",     kIdle, "", ShowMaterialOptions},
    {ToolGroup::Main,  2, "havuz kutuphanesi",   kIdle, "", ShowPoolLibrary},
    {ToolGroup::Main,  3, "panel bilgisi",       kIdle, "", ShowPanelTable},
    {ToolGroup::Main,  4, "auto mesh",           kIdle, "", AutoMeshTool},
    {ToolGroup::Main,  5, "mesh bilgisi",        kIdle, "", ShowMeshTable},
    {ToolGroup::Main,  6, "koordinat bilgisi",   kIdle, "", ShowNodeTable},
    {ToolGroup::Main,  7, "FEA analizi",         kIdle, "", RunAnalysis},
    {ToolGroup::Main,  8, "analiz sonuclari",    kIdle, "", ShowResults},
    {ToolGroup::Main,  9, "yeni proje",          kIdle, "", NewProject},
    {ToolGroup::Main, 10, "FEA bilgisi okuma",   kIdle, "", ShowOpenProject},
    {ToolGroup::Main, 11, "FEA bilgisi saklama", kIdle, "", SaveProjectAs},
    {ToolGroup::Main, 12, "sap90 konvertor",     kIdle, "", ExportSapTool},
    {ToolGroup::Main, 13, "staadIII-konvertor",  kIdle, "", ExportStaadTool},
};
// clang-format on

std::span<const ToolRow> Tools() { return kTools; }

const ToolRow &Tool(ToolGroup group, int index) {
    for (const ToolRow &row : kTools)
        if (row.group == group && row.index == index)
            return row;
    throw RuntimeFailure(Subscript, "no tool " + std::to_string(index));
}

Element ToolButton(ToolGroup group, int index) {
    switch (group) {
    case ToolGroup::View:
        return Command(index);
    case ToolGroup::Mesh:
        return Check1(index);
    case ToolGroup::Plate:
        return Check2(index);
    case ToolGroup::Main:
        break;
    }
    return ChkButton(index);
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
    return tool.index <= 6 ? 4 : tool.index <= 8 ? 5 : 6;
}

// Unchecking

static void Uncheck(MainWindow &main, ToolGroup group, int last, int except) {
    for (int i = 0; i <= last; ++i)
        if (i != except)
            main.window.SetChecked(ToolButton(group, i), false);
}

void UncheckMeshTools(MainWindow &main) { Uncheck(main, ToolGroup::Mesh, 4, -1); }
void UncheckPlateTools(MainWindow &main, int last) { Uncheck(main, ToolGroup::Plate, last, -1); }

static void HideRubberLine(MainWindow &main, int number) {
    if (!main.window.Shown(RubberLine(number)))
        return;
    main.window.Show(RubberLine(number), false);
    main.window.SetLineStyle(RubberLine(number), RubberStyle::Solid);
}

void CancelPending(MainWindow &main) {
    main.Prompt("");
    HideRubberLine(main, 1);
    HideRubberLine(main, 2);
    main.HideLabel1();
    for (const std::string_view palette : {kTool1, kTool2, kTool3})
        if (main.window.FormShown(palette))
            main.window.HideForm(palette);
    if (SelectedPanel > 0) {
        SelectedPanel = 0;
        main.DrawPlateView();
    }
    PickStage = 0;
}

// The four groups

// Sets what the row says, then runs it: a row may go on from the state and the prompt.
static void Arm(MainWindow &main, const ToolRow &tool) {
    if (tool.arms != kUnchanged)
        CommandState = tool.arms;
    if (*tool.prompt != '\0')
        main.Prompt(tool.prompt);
    tool.run(main);
}

// Rotating unchecks the tools and leaves what they armed: wanted.
void OnViewCommand(MainWindow &main, int index) {
    CancelPending(main);
    if (index > 1) {
        UncheckMeshTools(main);
        UncheckPlateTools(main, 4);
    }
    Arm(main, Tool(ToolGroup::View, index));
    if (index != 1)
        main.window.Focus(kScr);
}

// A second click ends the command, but for "nokta on/off", whose check mark only tells its state.
void OnMeshTool(MainWindow &main, int index) {
    CancelPending(main);
    if (index < 4 && !main.window.Checked(Check1(index))) {
        CommandState = kIdle;
        return;
    }
    Uncheck(main, ToolGroup::Mesh, 4, index);
    main.window.Focus(kScr);
    Arm(main, Tool(ToolGroup::Mesh, index));
}

void OnPlateTool(MainWindow &main, int index) {
    CancelPending(main);
    if (!main.window.Checked(Check2(index))) {
        CommandState = kIdle;
        return;
    }
    Uncheck(main, ToolGroup::Plate, 7, index);
    main.window.Focus(kScr);
    Arm(main, Tool(ToolGroup::Plate, index));
}

// Check2 (5..7) keep their check marks though nothing is armed any more: wanted. So is the second click on a tool whose
// job is done ("auto mesh"): it only clears the button.
void OnMainTool(MainWindow &main, int index) {
    CancelPending(main);
    if (!main.window.Checked(ChkButton(index))) {
        CommandState = kIdle;
        return;
    }
    Uncheck(main, ToolGroup::Main, 13, index);
    UncheckMeshTools(main);
    UncheckPlateTools(main, 4);
    Arm(main, Tool(ToolGroup::Main, index));
}

} // namespace havuz
