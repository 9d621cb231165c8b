#include "ui/window/main_window.h"

#include "model/failure.h"
#include "model/options.h"
#include "ui/commands/pointer.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "ui/window/recovery.h"
#include "ui/window/view_habits.h"
#include "view/overview.h"

namespace havuz {

// The forms that are no dialogs: the overview window, and the list of a mesh run.
static FormFields OverviewFields() {
    FormFields form{std::string(kOverview), "", {}, FormKind::Overview};
    form.fields.push_back({.kind = FieldKind::Picture, .name = "SCR"});
    for (int i = 0; i < 4; ++i)
        form.fields.push_back({.kind = FieldKind::Line, .name = "Line", .index = i});
    return form;
}

static FormFields DiagnosticFields() {
    return {std::string(kDyuk), "", {{.kind = FieldKind::List, .name = "List"}}, FormKind::Hidden};
}

MainWindow::MainWindow(Window &platform, std::string executable)
    : Workbench(platform, {*this, *this, *this, *this, *this, *this}, std::move(executable)) {
    window.SetEvents(this);
    window.MakeForm(MainFields());
    window.MakeForm(OverviewFields());
    window.MakeForm(DiagnosticFields());
    forms_ = MakeForms(*this);
    for (const auto &form : forms_)
        window.MakeForm({form->name(), form->row().caption, form->fields(), form->row().kind});
    window.ShowForm(kMain, {}, Modality::Modeless, false);
}

MainWindow::~MainWindow() { window.SetEvents(nullptr); }

void MainWindow::Start(const std::string &commandLine) {
    havuz::StartProgram(commandLine, executable(), *this);
    guard([this] { Prompt(RecoveryPrompt()); });
}

// Failures

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

static void ClickMain(Workbench &bench, Element element) {
    if (const ToolRow *tool = ToolOf(element))
        OnTool(bench, *tool);
    else if (element == TopBar(element.index))
        OnTopBar(bench, element);
    else if (element == kScr1)
        OpenOverview(bench.view);
    else if (element == Option1(element.index))
        bench.RedrawView();
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
        if (const ToolRow *tool = ToolOf(element))
            OnToolHover(*this, *tool);
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
