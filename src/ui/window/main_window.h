// The main window as logic: it takes the window's events to the handlers of the tools, the pointer, the dialogs; it
// answers what the lower folders ask of a window.
#pragma once

#include "model/startup.h"
#include "ui/forms/form.h"
#include "ui/window/workbench.h"

#include <chrono>
#include <map>
#include <string>

namespace havuz {

class MainWindow final : public Workbench,
                         public WindowEvents,
                         public StartWindow,
                         public ViewWindow,
                         public MeshWindow,
                         public AnalysisWindow,
                         public PoolWindow,
                         public FileDialog {
public:
    // Makes the main form and every dialog in the window, all hidden but the main form. executable: path of the
    // program, as StartProgram wants it.
    MainWindow(Window &window, std::string executable);
    ~MainWindow() override;

    // The start sequence, then what earlier sessions left unsaved is offered. A failure ends the program (ProgramEnd).
    void Start(const std::string &commandLine);
    // Reads a project as the open dialog does; there is no step behind it.
    void OpenAtStart(const std::string &path);
    // Unsaved work into this session's recovery copy, with the reason, at once.
    void KeepForNextStart(const std::string &reason);
    // Ends the program: unsaved work is kept for the next start, with the reason.
    [[noreturn]] void EndFor(const std::string &reason, int status);

    // WindowEvents. Each handler is a transaction (transactions.h).
    void OnClick(Element element) override;
    void OnFocus(Element element) override;
    void OnLostFocus(Element element) override;
    bool OnKey(Element element, Key key) override;
    void OnScroll(Element element) override;
    void OnHover(Element element) override;
    void OnPress(Element surface, int button, int shift, double x, double y) override;
    void OnMove(Element surface, int button, int shift, double x, double y) override;
    void OnRelease(Element surface, int button, int shift, double x, double y) override;
    void OnWheel(Element surface, int steps, double x, double y) override;
    void OnPan(Element surface, double dx, double dy) override;
    void OnResize() override;
    void OnOpen(const std::string &path) override;
    void OnClose(std::string_view form) override;
    void OnDeactivate(std::string_view form) override;
    void OnTimer() override;

    // What the start, project files, views, meshing, analysis, pool library and exports ask of a window.
    bool AnotherInstanceRuns() override;
    void ResetViews() override;
    void SizeSurface() override;
    void PutFirstState() override;
    void TakePlanState() override;
    void ComputeExtents() override; // bounds, depth order and the fits
    void DrawMeshes() override;
    void DrawPlates() override;
    void SetUpDynamicView() override;
    void EnableMainWindow() override;
    void ReportFailure(const std::string &what) override;
    [[noreturn]] void EndProgram(int status) override;
    void EnableAnalysis() override;
    void EnableResults(bool enabled) override;
    void ShowViewPicture(int gorunusModu) override;
    void TellTitle(const std::optional<std::string> &asRead) override;
    void ShowFrame(int index, bool visible) override;
    void EnablePlanTools(bool enabled) override;
    bool ResultChosen(int index) override;
    void TellOlderResults() override;
    void ShowPol(int index, double x1, double y1, double x2, double y2) override;
    void ShowOverview(bool visible) override;
    void ShowOverviewButton(bool visible) override;
    void CopySurfaceToOverview() override;
    double OverviewWidth() override;
    double OverviewHeight() override;
    double OverviewLeft() override;
    double OverviewTop() override;
    void PlaceOverview(double left, double top) override;
    void PlaceOverviewRectangle(double left, double top, double right, double bottom) override;
    void RefreshDrawing() override;
    void RebuildPlateList() override;
    void ListDiagnostic(const std::string &line) override;
    void ShowIteration(int pass) override;
    void HideLabel() override;
    int Width() const override;
    int Height() const override;
    void Clear() override;
    void Line(int y, int width, int red, int green, int blue) override;
    void Label(const std::string &text, bool white) override;
    void ServeEvents() override;
    void ClearSurface() override;
    void ShowProgressPicture(bool shown) override;
    void MoveProgLab(int left, int top) override;
    void ShowProgLab(bool shown) override;
    void SetProgLab(const std::string &text) override;
    void FillBox(double x, double y, double side, int colour) override;
    void OutlineBox(double x, double y, double side, int colour) override;
    void Point(double x, double y, int colour) override;
    bool DrawsProfile() const override { return true; }
    void TextLine(int height, const std::string &text) override;
    void StartProgram(const std::string &command, const std::string &projectPath) override;
    [[noreturn]] void EndProgram() override;
    void ReadPoolForm() override; // the boxes of POOLlib into the parameters
    std::string AskSaveName(const std::string &title, const std::string &directory, const std::string &name) override;

private:
    void showSteps(bool changed);
    void keepCopy();

    std::chrono::steady_clock::time_point lastStep_{}, lastCopy_{};
    bool uncopied_ = false, copied_ = false;        // steps that no copy has yet; one was made
    std::map<int, Colour> progressRows_;            // of the bar, as it was painted whole
    double overviewLeft_ = 0.0, overviewTop_ = 0.0; // where the overview opens next, twips
};

} // namespace havuz
