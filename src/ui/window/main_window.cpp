#include "ui/window/main_window.h"

#include "model/failure.h"
#include "model/options.h"
#include "model/platform.h"
#include "ui/commands/point_entry.h"
#include "ui/commands/pointer.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "ui/window/recovery.h"
#include "ui/window/transactions.h"
#include "ui/window/view_habits.h"
#include "ui/window/window_title.h"
#include "view/overview.h"

namespace havuz {

static constexpr std::chrono::seconds kPause{1}, kBetweenCopies{20};

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
    steps().afterStep = [this](bool changed) { showSteps(changed); };
    steps().atEnd = [this](const std::string &command) { KeepForNextStart(command); };
}

void MainWindow::OpenAtStart(const std::string &path) {
    OnOpen(path);
    if (steps().history().canUndo() && !ProjeYolu.empty())
        steps().begin();
}

// Steps and copies

void MainWindow::showSteps(bool changed) {
    const ModelHistory &history = steps().history();
    const bool undo = history.canUndo(), redo = history.canRedo();
    window.Enable(kUndoButton, undo);
    window.SetText(kUndoButton, undo ? "geri al: " + history.undoName() : "");
    window.Enable(kRedoButton, redo);
    window.SetText(kRedoButton, redo ? "yinele: " + history.redoName() : "");
    window.SetCaption(kMain, WindowTitle(ProjeYolu, changed, platform::HomeDirectory()));
    uncopied_ = changed;
    lastStep_ = std::chrono::steady_clock::now();
    if (!changed && recovery != nullptr)
        recovery->drop();
}

// While the person pauses, and not too often.
void MainWindow::keepCopy() {
    if (recovery == nullptr)
        return;
    if (const std::string error = recovery->takeError(); !error.empty()) {
        Prompt("KURTARMA KOPYASI YAZILAMADI, " + error);
        uncopied_ = steps().changed(); // tried again
    }
    const auto now = std::chrono::steady_clock::now();
    if (!uncopied_ || now - lastStep_ < kPause || (copied_ && now - lastCopy_ < kBetweenCopies))
        return;
    uncopied_ = false;
    copied_ = true;
    lastCopy_ = now;
    recovery->keepLater();
}

void MainWindow::KeepForNextStart(const std::string &reason) {
    if (recovery == nullptr)
        return;
    if (!steps().changed())
        return recovery->drop();
    try {
        recovery->keep(reason);
    } catch (const RuntimeFailure &failure) {
        ReportFailure(std::string(failure.what()) + "; the model is lost");
    }
}

void MainWindow::EndFor(const std::string &reason, int status) {
    KeepForNextStart(reason);
    EndProgram(status);
}

MainWindow::~MainWindow() { window.SetEvents(nullptr); }

void MainWindow::Start(const std::string &commandLine) {
    havuz::StartProgram(commandLine, executable(), *this);
    steps().begin();
    OfferRecovery(*this);
}

// Events

static void ClickMain(Workbench &bench, Element element) {
    if (const ToolRow *tool = ToolOf(element))
        OnTool(bench, *tool);
    else if (element == TopBar(element.index))
        OnTopBar(bench, element);
    else if (element == kScr1)
        OpenOverview(bench.view);
    else if (element == kAltnot)
        ShowMeshWarnings(bench);
    else if (element == Option1(element.index))
        OnResultOption(bench, element);
}

static bool IsOwnForm(std::string_view form) { return form == kMain || form == kOverview || form == kDyuk; }

void MainWindow::OnClick(Element element) {
    if (element == kUndoButton)
        return steps().undo();
    if (element == kRedoButton)
        return steps().redo();
    steps().edit(element, [&] {
        if (element.form == kMain)
            ClickMain(*this, element);
        else if (!IsOwnForm(element.form))
            form(element.form).OnClick(element);
    });
}

void MainWindow::OnFocus(Element element) {
    if (!IsOwnForm(element.form))
        steps().edit(element, [&] { form(element.form).OnFocus(element); });
}

void MainWindow::OnLostFocus(Element element) {
    if (!IsOwnForm(element.form))
        steps().edit(element, [&] { form(element.form).OnLostFocus(element); });
}

bool MainWindow::OnKey(Element element, Key key) {
    bool kept = true; // also from a form whose handler fails
    if (element == kPointEntry)
        steps().edit(kScr, [&] { kept = OnEntryKey(*this, key); });
    else if (element == kScr)
        steps().edit(kScr, [&] { kept = OnSurfaceKey(*this, key); });
    else if (IsOwnForm(element.form))
        return false;
    else
        steps().edit(element, [&] { kept = form(element.form).OnKey(element, key); });
    return kept;
}

void MainWindow::OnScroll(Element element) {
    if (!IsOwnForm(element.form))
        steps().edit(element, [&] { form(element.form).OnScroll(element); });
}

void MainWindow::OnHover(Element element) {
    steps().look(element, [&] {
        if (const ToolRow *tool = ToolOf(element))
            OnToolHover(*this, *tool);
        else if (!IsOwnForm(element.form))
            form(element.form).OnHover(element);
    });
}

void MainWindow::OnPress(Element surface, int button, int shift, double x, double y) {
    steps().edit(surface, [&] {
        if (surface == kScr)
            OnSurfacePress(*this, button, shift, x, y);
        else if (surface == kOverviewPicture)
            OnOverviewPress(button, x, y, scr(), *this);
    });
}

void MainWindow::OnMove(Element surface, int button, int shift, double x, double y) {
    const auto move = [&] {
        if (surface == kScr)
            OnSurfaceMove(*this, button, shift, x, y);
        else if (surface == kOverviewPicture)
            OnOverviewMove(x, y, *this);
    };
    MovesEdit(surface == kScr ? button : 0) ? steps().edit(surface, move) : steps().look(surface, move);
}

void MainWindow::OnRelease(Element surface, int button, int shift, double x, double y) {
    steps().edit(surface, [&] {
        if (surface == kScr)
            OnSurfaceRelease(*this, button, shift, x, y);
        else if (surface == kOverviewPicture)
            OnOverviewRelease(button);
    });
}

void MainWindow::OnWheel(Element surface, int steps, double x, double y) {
    if (surface == kScr)
        this->steps().look(kScr1, [&] { ZoomAbout(*this, steps, x, y); });
}

void MainWindow::OnPan(Element surface, double dx, double dy) {
    if (surface == kScr)
        steps().look(kScr1, [&] { PanView(*this, dx, dy); });
}

void MainWindow::OnOpen(const std::string &path) {
    steps().edit(kOpenTool, [&] { OpenGivenProject(*this, path); });
}

void MainWindow::OnResize() {
    steps().look(kScr, [this] {
        TakeSurfaceSize(scr());
        RedrawView();
        SetUpDynamicView();
    });
}

// The end confirmation asks before the main window closes.
void MainWindow::OnClose(std::string_view name) {
    steps().edit({name, {}, 0}, [&] {
        if (name == kMain)
            ShowEndConfirm(*this);
        else if (name == kOverview)
            OnOverviewDeactivate(*this);
        else if (!IsOwnForm(name))
            form(name).OnClose();
    });
}

void MainWindow::OnDeactivate(std::string_view name) {
    steps().look({name, {}, 0}, [&] {
        if (name == kOverview)
            OnOverviewDeactivate(*this);
        else if (!IsOwnForm(name))
            form(name).OnDeactivate();
    });
}

void MainWindow::OnTimer() {
    steps().look(kScr, [this] {
        OnHoverTimer(*this);
        keepCopy();
    });
}

} // namespace havuz
