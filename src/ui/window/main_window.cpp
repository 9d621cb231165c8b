#include "ui/window/main_window.h"

#include "model/failure.h"
#include "model/options.h"
#include "ui/commands/pointer.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "ui/window/recovery.h"
#include "ui/window/view_habits.h"
#include "view/mesh_drawing.h"
#include "view/overview.h"
#include "view/plate_drawing.h"
#include "view/redraw.h"

#include <optional>

namespace havuz {

// The forms that are no dialogs: the overview window, and the list of a mesh run.
static FormFields OverviewFields() {
    FormFields form{std::string(kOverview), "", {}};
    form.fields.push_back({.kind = FieldKind::Picture, .name = "SCR"});
    for (int i = 0; i < 4; ++i)
        form.fields.push_back({.kind = FieldKind::Line, .name = "Line", .index = i});
    return form;
}

static FormFields DiagnosticFields() { return {std::string(kDyuk), "", {{.kind = FieldKind::List, .name = "List"}}}; }

MainWindow::MainWindow(Window &platform, std::string executable)
    : window(platform), executable_(std::move(executable)) {
    window.SetEvents(this);
    window.MakeForm(MainFields());
    window.MakeForm(OverviewFields());
    window.MakeForm(DiagnosticFields());
    forms_ = MakeForms(*this);
    for (const auto &form : forms_)
        window.MakeForm({form->name(), form->caption(), form->fields()});
    window.ShowForm(kMain, {}, Modality::Modeless, false);
}

MainWindow::~MainWindow() { window.SetEvents(nullptr); }

void MainWindow::Start(const std::string &commandLine) {
    havuz::StartProgram(commandLine, executable_, *this);
    guard([this] { Prompt(RecoveryPrompt()); });
}

Form &MainWindow::form(std::string_view name) {
    for (const auto &form : forms_)
        if (form->name() == name)
            return *form;
    throw RuntimeFailure(Subscript, "no form " + std::string(name));
}

// Shared operations

void MainWindow::ShowLabel(const std::string &text, double left, double top) {
    window.SetText(kLabel1, text);
    window.Move(kLabel1, left, top);
    window.Show(kLabel1, true);
}

void MainWindow::RedrawView() {
    if (GorunusModu == 1)
        SettlePlateView(*this);
    Redraw(scr(), *this);
}
void MainWindow::DrawPlateView() {
    SettlePlateView(*this);
    havuz::DrawPlateView(scr(), *this);
}
void MainWindow::DrawMeshView() { havuz::DrawMeshView(scr(), *this); }
void MainWindow::RefreshBounds() { PlateBoundsAndDepth(scr()); }

void MainWindow::TakeRotated() {
    IsoView = 1;
    window.Enable(Check1(3), false);
    window.SetPicture(Command(2), 18);
}

void MainWindow::TakePlan() {
    IsoView = 0;
    TakePlanState();
}

// Failures

namespace {

// Tables and counts as they are before an edit.
struct ModelCopy {
    decltype(PlakTable) plak = PlakTable;
    decltype(PanelTable) panel = PanelTable;
    decltype(MeshTable) mesh = MeshTable;
    decltype(NoktaTable) nokta = NoktaTable;
    decltype(NokYukTable) yuk = NokYukTable;
    int plakCount = PlakCount, panelCount = PanelCount, meshCount = MeshCount, noktaCount = NoktaCount;
    int hamNoktaCount = HamNoktaCount, nodesHidden = NodesHidden;

    void restore() const {
        PlakTable = plak;
        PanelTable = panel;
        MeshTable = mesh;
        NoktaTable = nokta;
        NokYukTable = yuk;
        PlakCount = plakCount;
        PanelCount = panelCount;
        MeshCount = meshCount;
        NoktaCount = noktaCount;
        HamNoktaCount = hamNoktaCount;
        NodesHidden = nodesHidden;
    }
};

} // namespace

bool MainWindow::RunEdit(const std::string &name, const std::function<void()> &job) {
    const auto before = std::make_unique<ModelCopy>();
    try {
        job();
        return true;
    } catch (const RuntimeFailure &failure) {
        before->restore();
        endCommand(name, failure);
        return false;
    }
}

bool MainWindow::RunLook(const std::string &name, const std::function<void()> &job) {
    try {
        job();
        return true;
    } catch (const RuntimeFailure &failure) {
        endCommand(name, failure);
        return false;
    }
}

void MainWindow::endCommand(const std::string &name, const RuntimeFailure &failure) {
    AbandonCommand(*this);
    RedrawView();
    Prompt(name + " YAPILAMADI, " + FailureInTurkish(failure));
}

void MainWindow::endByFailure(const RuntimeFailure &failure) {
    std::string line = failure.what();
    try {
        line += "; the model is in " + WriteRecoveryFile();
    } catch (const RuntimeFailure &writing) {
        line += "; the model is lost: " + std::string(writing.what());
    }
    ReportFailure(line);
    EndProgram(1);
}

template <class Handler>
void MainWindow::guard(Handler handler) {
    try {
        handler();
    } catch (const RuntimeFailure &failure) {
        endByFailure(failure);
    }
}

// Events

static std::optional<ToolGroup> GroupOf(Element element) {
    if (element.form == kMain)
        for (const ToolGroup group : {ToolGroup::View, ToolGroup::Mesh, ToolGroup::Plate, ToolGroup::Main})
            if (ToolButton(group, element.index) == element)
                return group;
    return {};
}

static void ClickTool(MainWindow &main, ToolGroup group, int index) {
    switch (group) {
    case ToolGroup::View:
        return OnViewCommand(main, index);
    case ToolGroup::Mesh:
        return OnMeshTool(main, index);
    case ToolGroup::Plate:
        return OnPlateTool(main, index);
    case ToolGroup::Main:
        return OnMainTool(main, index);
    }
}

static void ClickMain(MainWindow &main, Element element) {
    if (const auto group = GroupOf(element))
        ClickTool(main, *group, element.index);
    else if (element == TopBar(element.index))
        OnTopBar(main, element.index);
    else if (element == kScr1)
        OpenOverview(main);
    else if (element == Option1(element.index))
        main.RedrawView();
}

static bool IsOwnForm(std::string_view form) { return form == kMain || form == kOverview || form == kDyuk; }

void MainWindow::OnClick(Element element) {
    guard([&] {
        if (element.form == kMain)
            ClickMain(*this, element);
        else if (!IsOwnForm(element.form))
            form(element.form).OnClick(element);
    });
}

void MainWindow::OnFocus(Element element) {
    if (!IsOwnForm(element.form))
        guard([&] { form(element.form).OnFocus(element); });
}

void MainWindow::OnLostFocus(Element element) {
    if (!IsOwnForm(element.form))
        guard([&] { form(element.form).OnLostFocus(element); });
}

bool MainWindow::OnKey(Element element, Key key) {
    bool kept = false;
    if (!IsOwnForm(element.form))
        guard([&] { kept = form(element.form).OnKey(element, key); });
    return kept;
}

void MainWindow::OnScroll(Element element) {
    if (!IsOwnForm(element.form))
        guard([&] { form(element.form).OnScroll(element); });
}

void MainWindow::OnHover(Element element) {
    guard([&] {
        if (const auto group = GroupOf(element))
            OnToolHover(*this, *group, element.index);
        else if (!IsOwnForm(element.form))
            form(element.form).OnHover(element);
    });
}

void MainWindow::OnPress(Element surface, int button, int shift, double x, double y) {
    guard([&] {
        if (surface == kScr)
            OnSurfacePress(*this, button, shift, x, y);
        else if (surface == kOverviewPicture)
            OnOverviewPress(button, x, y, scr(), *this);
    });
}

void MainWindow::OnMove(Element surface, int button, int shift, double x, double y) {
    guard([&] {
        if (surface == kScr)
            OnSurfaceMove(*this, button, shift, x, y);
        else if (surface == kOverviewPicture)
            OnOverviewMove(x, y, *this);
    });
}

void MainWindow::OnRelease(Element surface, int button, int shift, double x, double y) {
    guard([&] {
        if (surface == kScr)
            OnSurfaceRelease(*this, button, shift, x, y);
        else if (surface == kOverviewPicture)
            OnOverviewRelease(button);
    });
}

void MainWindow::OnWheel(Element surface, int steps, double x, double y) {
    if (surface == kScr)
        guard([&] { ZoomAbout(*this, steps, x, y); });
}

void MainWindow::OnPan(Element surface, double dx, double dy) {
    if (surface == kScr)
        guard([&] { PanView(*this, dx, dy); });
}

void MainWindow::OnOpen(const std::string &path) {
    guard([&] { OpenGivenProject(*this, path); });
}

void MainWindow::OnResize() {
    guard([this] {
        TakeSurfaceSize(scr());
        RedrawView();
        SetUpDynamicView();
    });
}

// The end confirmation asks before the main window closes.
void MainWindow::OnClose(std::string_view name) {
    guard([&] {
        if (name == kMain)
            ShowEndConfirm(*this);
        else if (name == kOverview)
            OnOverviewDeactivate(*this);
        else if (!IsOwnForm(name))
            form(name).OnClose();
    });
}

void MainWindow::OnDeactivate(std::string_view name) {
    guard([&] {
        if (name == kOverview)
            OnOverviewDeactivate(*this);
        else if (!IsOwnForm(name))
            form(name).OnDeactivate();
    });
}

void MainWindow::OnTimer() {
    guard([this] { OnHoverTimer(*this); });
}

} // namespace havuz
