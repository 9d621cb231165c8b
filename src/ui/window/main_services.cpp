// What the main window answers to the lower folders: the start, project files, views, meshing, analysis, the pool
// library and the exports ask it through interfaces of their own.
#include "model/analysed_project.h"
#include "model/files.h"
#include "model/options.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "ui/window/main_window.h"
#include "ui/window/sound_switch.h"
#include "view/overview.h"
#include "view/plate_drawing.h"
#include "view/projection.h"

#include <filesystem>

namespace havuz {

// Start

// The sizes that the window was designed for, pixels.
static constexpr int kScreenWidth = 1024, kScreenHeight = 768;
static constexpr int kSurfaceWidth = 1010, kSurfaceHeight = 600;

bool MainWindow::AnotherInstanceRuns() { return window.AnotherInstanceRuns(); }

void MainWindow::ResetViews() {
    ResetView();
    ResetCommandState();
    TakeSurfaceSize(scr());
}

// A larger screen makes the surface larger, by the same rule.
void MainWindow::SizeSurface() {
    const int width = window.ScreenWidth(), height = window.ScreenHeight();
    if (width != kScreenWidth || window.TwipsPerPixel() != 15.0)
        window.ResizeSurface(kSurfaceWidth - (kScreenWidth - width),
                             kSurfaceHeight - (kScreenHeight - height) + (width < 800 ? 24 : 0));
    TakeSurfaceSize(scr());
}

void MainWindow::PutFirstState() {
    window.SetText(kTopBarText, "HAVUZ  ANALIZI^ve TASARIMI");
    for (const Field &field : MainFields().fields)
        if (!field.shown)
            window.Show({kMain, field.name, field.index}, false);
    window.Enable(kAnalysisTool, false);
    window.Enable(kResultsTool, false);
    TakeRotated();
}

void MainWindow::TakePlanState() { TakePlan(); }

void MainWindow::ComputeExtents() { FitViews(); }

void MainWindow::DrawMeshes() { DrawMeshView(); }
void MainWindow::DrawPlates() { DrawPlateView(); }
void MainWindow::SetUpDynamicView() { RefreshOverview(*this); }
void MainWindow::EnableMainWindow() { window.EnableForm(kMain, true); }
void MainWindow::ReportFailure(const std::string &what) { window.ReportError("havuz: " + what); }
void MainWindow::EndProgram(int status) {
    window.EndProgram(status);
    throw ProgramEnd{status}; // it does not return
}

// Project files

// A project that was read or written has a file.
void MainWindow::EnableAnalysis() {
    window.Enable(kAnalysisTool, true);
    const std::string file = FindFile(ProjeYolu + ".POL");
    if (ProjeYolu.empty() || !FileExists(file))
        return;
    std::error_code error; // a working directory that is gone
    const std::filesystem::path whole = std::filesystem::absolute(file, error);
    window.RememberProject(error ? file : whole.generic_string());
}

// Results of an older model can still be looked at, and it is said.
void MainWindow::EnableResults(bool enabled) {
    window.Enable(kResultsTool, enabled);
    if (enabled && ResultsBeside(ProjeYolu) == ResultState::Older)
        TellOlderResults();
}

void MainWindow::TellOlderResults() { Prompt("SONUCLAR ESKI BIR MODELIN: FEA ANALIZI YENILER"); }

void MainWindow::TellTitle(const std::optional<std::string> &asRead) {
    Prompt(asRead ? "PROJE ISMI BOYLE OKUNACAK: " + *asRead
                  : "PROJE ISMINDEKI VIRGUL YA DA TIRNAK YUZUNDEN DOSYA GERI OKUNAMAZ");
}

void MainWindow::ShowViewPicture(int gorunusModu) { window.SetPicture(kPlateMeshTool, gorunusModu == 1 ? 4 : 5); }

// Views

void MainWindow::ShowFrame(int index, bool visible) { window.Show(Frame(index), visible); }
void MainWindow::EnablePlanTools(bool enabled) {
    for (const ToolRow &tool : Tools())
        if (tool.planOnly)
            window.Enable(tool.button, enabled);
}
bool MainWindow::ResultChosen(int index) { return window.Checked(Option1(index)); }

void MainWindow::ShowPol(int index, double x1, double y1, double x2, double y2) {
    window.SetLine(Pol(index), {x1, y1, x2, y2});
    window.Show(Pol(index), true);
}

void MainWindow::ShowOverview(bool visible) {
    if (visible)
        window.ShowForm(kOverview, {overviewLeft_, overviewTop_}, Modality::Modeless, false);
    else if (window.FormShown(kOverview))
        window.HideForm(kOverview);
}

void MainWindow::ShowOverviewButton(bool visible) { window.Show(kScr1, visible); }
void MainWindow::CopySurfaceToOverview() { window.CopyPicture(kScr, kOverviewPicture); }
double MainWindow::OverviewWidth() { return window.Canvas(kOverviewPicture).width(); }
double MainWindow::OverviewHeight() { return window.Canvas(kOverviewPicture).height(); }
double MainWindow::OverviewLeft() { return window.FormPlace(kOverview).left; }
double MainWindow::OverviewTop() { return window.FormPlace(kOverview).top; }

void MainWindow::PlaceOverview(double left, double top) {
    overviewLeft_ = left;
    overviewTop_ = top;
}

void MainWindow::PlaceOverviewRectangle(double left, double top, double right, double bottom) {
    window.SetLine(OverviewLine(0), {left, top, right, top});
    window.SetLine(OverviewLine(1), {left, bottom, right, bottom});
    window.SetLine(OverviewLine(2), {left, top, left, bottom});
    window.SetLine(OverviewLine(3), {right, top, right, bottom});
}

// Meshing and plate editing

void MainWindow::RefreshDrawing() { RedrawView(); }
void MainWindow::RebuildPlateList() { DrawPlateView(); }
void MainWindow::ListDiagnostic(const std::string &line) { window.AddItem(kDyukList, line); }
void MainWindow::ShowIteration(int pass) { ShowLabel("Iterasyon:" + std::to_string(pass), 10, 10); }
void MainWindow::HideLabel() { HideLabel1(); }

// Analysis

int MainWindow::Width() const { return window.Canvas(kVekProgBar).width(); }
int MainWindow::Height() const { return window.Canvas(kVekProgBar).height(); }
void MainWindow::Clear() { window.Canvas(kVekProgBar).Clear(); }

// A row that stops short of the end is laid over the last whole one, so that the label of before is gone.
void MainWindow::Line(int y, int width, int red, int green, int blue) {
    Surface &bar = window.Canvas(kVekProgBar);
    const Colour colour = Rgb(static_cast<unsigned>(red), static_cast<unsigned>(green), static_cast<unsigned>(blue));
    Colour &whole = progressRows_[y];
    if (width >= bar.width())
        whole = colour;
    else
        bar.Line(0, y, bar.width(), y, whole);
    bar.Line(0, y, width, y, colour);
}

void MainWindow::Label(const std::string &text, bool white) {
    constexpr int kLetterWidth = 6, kLetterHeight = 13; // about, at 8 points
    Surface &bar = window.Canvas(kVekProgBar);
    bar.pen.colour = QbColour(white ? 15 : 0);
    bar.Text((bar.width() - kLetterWidth * static_cast<int>(text.size())) / 2, (bar.height() - kLetterHeight) / 2,
             text);
    bar.Refresh();
}

void MainWindow::ServeEvents() { window.ServeEvents(); }
void MainWindow::ClearSurface() { scr().Clear(); }
void MainWindow::ShowProgressPicture(bool shown) { window.Show(kVekProgBar, shown); }
void MainWindow::MoveProgLab(int left, int top) { window.Move(kProgLab, left, top); }
void MainWindow::ShowProgLab(bool shown) { window.Show(kProgLab, shown); }
void MainWindow::SetProgLab(const std::string &text) { window.SetText(kProgLab, text); }

void MainWindow::FillBox(double x, double y, double side, int colour) {
    scr().FillBox(ToPixel(x), ToPixel(y), ToPixel(x + side), ToPixel(y + side), QbColour(colour));
}

void MainWindow::OutlineBox(double x, double y, double side, int colour) {
    scr().Box(ToPixel(x), ToPixel(y), ToPixel(x + side), ToPixel(y + side), QbColour(colour));
}

void MainWindow::Point(double x, double y, int colour) { scr().Point(ToPixel(x), ToPixel(y), QbColour(colour)); }

void MainWindow::TextLine(int height, const std::string &text) {
    PenState &pen = scr().pen;
    pen.font = "MS Sans Serif";
    pen.fontSize = 8;
    pen.colour = QbColour(15);
    scr().Text(0, height, text);
    scr().Refresh();
}

void MainWindow::StartProgram(const std::string &command, const std::string &projectPath) {
    window.StartProgram(command, projectPath);
}

void MainWindow::EndProgram() {
    window.EndProgram(0);
    throw ProgramEnd{0}; // it does not return
}

// Pool library, exports

void MainWindow::ReadPoolForm() { ReadPoolLibraryForm(*this); }

std::string MainWindow::AskSaveName(const std::string &title, const std::string &directory, const std::string &name) {
    return window.AskSaveName({title, directory, name});
}

// The main form

static void AddMany(FormFields &form, Field field, int last) {
    for (field.index = 0; field.index <= last; ++field.index)
        form.fields.push_back(field);
}

static void AddTools(FormFields &form) {
    for (const ToolRow &tool : Tools())
        form.fields.push_back({.kind = tool.group == ToolGroup::View ? FieldKind::Button : FieldKind::Toggle,
                               .name = std::string(tool.button.name),
                               .index = tool.button.index,
                               .label = tool.tooltip,
                               .group = ToolFrame(tool),
                               .look = FieldLook::Tool,
                               .picture = {28, 28}});
}

static void AddFrames(FormFields &form) {
    for (int i = 0; i <= 6; ++i)
        form.fields.push_back({.kind = FieldKind::Frame,
                               .name = "Frame",
                               .index = i,
                               .shown = i != 1 && i != 3,
                               .look = FieldLook::ToolPanel});
    for (int i = 0; i < kResultOptions; ++i)
        form.fields.push_back({.kind = FieldKind::Option,
                               .name = "Option1",
                               .index = i,
                               .label = "sonuç sütunu " + std::to_string(i + 1) + ": yer değiştirmeler, mm",
                               .text = std::to_string(i + 1),
                               .group = 3,
                               .look = FieldLook::Tool});
}

FormFields MainFields() {
    FormFields form{std::string(kMain), "HAVUZ", {}, FormKind::Main};
    form.fields = {
        {.kind = FieldKind::Picture, .name = "SCR", .look = FieldLook::Surface},
        {.kind = FieldKind::Button,
         .name = "SCR1",
         .label = "dinamik zoom",
         .look = FieldLook::Overview,
         .picture = {28, 28}},
        {.kind = FieldKind::Label, .name = "VekTopBar", .look = FieldLook::TopBar},
        {.kind = FieldKind::Label, .name = "ALTNOT", .look = FieldLook::Prompt},
        {.kind = FieldKind::TextBox, .name = "NOKTA", .label = "nokta X;Y", .shown = false, .look = FieldLook::Entry},
        {.kind = FieldKind::Label, .name = "Label1", .shown = false, .look = FieldLook::Floating},
        {.kind = FieldKind::Label, .name = "KOSE", .shown = false, .look = FieldLook::Floating},
        {.kind = FieldKind::Label, .name = "ProgLab", .shown = false, .look = FieldLook::Floating},
        {.kind = FieldKind::Picture, .name = "VekProgBar", .shown = false, .look = FieldLook::Progress}};
    AddMany(form, {.kind = FieldKind::Button, .name = "TopBar", .look = FieldLook::Corner, .picture = {22, 22}},
            kUndoButton.index);
    form.fields.push_back({.kind = FieldKind::CheckBox,
                           .name = std::string(kSoundSwitch.name),
                           .label = "Tutarlı",
                           .look = FieldLook::Remembered});
    AddTools(form);
    AddFrames(form);
    AddMany(form, {.kind = FieldKind::Line, .name = "pol", .shown = false}, kPolLast);
    for (const char *name : {"Line1", "Line2", "Line3", "Line4"})
        form.fields.push_back({.kind = FieldKind::Line, .name = name, .shown = false});
    return form;
}

} // namespace havuz
