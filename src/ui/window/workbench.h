// What tools, the pointer and the forms work at: the window, the small operations that they share, and the interfaces
// that they pass on to the lower folders. The main window is one; nobody who works here knows more of it.
#pragma once

#include "export/file_dialog.h"
#include "fea/analysis_window.h"
#include "mesh/mesh_window.h"
#include "model/project_window.h"
#include "pool/pool_library.h"
#include "ui/window/window.h"
#include "view/view_window.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace havuz {

class Form;

// What the lower folders ask, for the one who calls them.
struct LowerWindows {
    ViewWindow &view;
    MeshWindow &meshing;
    AnalysisWindow &analysis;
    PoolWindow &pool;
    ProjectWindow &project;
    FileDialog &files;
};

class Workbench : public LowerWindows {
public:
    // executable: path of the program, as StartProgram wants it.
    Workbench(Window &platform, LowerWindows lower, std::string executable);
    virtual ~Workbench();
    Workbench(const Workbench &) = delete;
    Workbench &operator=(const Workbench &) = delete;

    Window &window;
    Surface &scr() { return window.Canvas(kScr); }
    const std::string &executable() const { return executable_; }
    Form &form(std::string_view name); // Subscript when there is none

    void Prompt(const std::string &text) { window.SetText(kAltnot, text); }
    void ShowLabel(const std::string &text, double left, double top); // Label1
    void HideLabel1() { window.Show(kLabel1, false); }
    void RedrawView(); // whatever view is current
    void DrawPlateView();
    void DrawMeshView();
    void RefreshBounds(); // PlateBoundsAndDepth
    void FitViews();      // bounds, depth order and the fit of the mesh view
    void TakeRotated();   // IsoView 1, node moves disabled, the picture of the rotated view; draws nothing
    void TakePlan();      // IsoView 0, node moves enabled, the picture of the plan; draws nothing
    void RefreshSurface() { scr().Refresh(); }
    void ClearTool(Element tool) { window.SetChecked(tool, false); } // a main tool whose dialog has closed

    // Runs a meshing or plate editing job: a RuntimeFailure inside it ends the command, not the program. The tables and
    // counts are then as they were before, nothing is armed, the current view is drawn, and the prompt line says what
    // failed. name: what the command is called there. Returns whether the job came to its end.
    bool RunEdit(const std::string &name, const std::function<void()> &job);
    // The same for a job that looks at the model and writes nothing of it: no copy is taken.
    bool RunLook(const std::string &name, const std::function<void()> &job);

protected:
    std::vector<std::unique_ptr<Form>> forms_;

private:
    void endCommand(const std::string &name, const RuntimeFailure &failure);

    std::string executable_;
};

} // namespace havuz
