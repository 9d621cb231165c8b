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

#include <memory>
#include <string>
#include <vector>

namespace havuz {

class Form;
class Recovery;
class Transactions;

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
    void HideLabel1();                                                // and the note of the snap
    void RedrawView();                                                // whatever view is current
    void DrawPlateView();
    void DrawMeshView();
    void RefreshBounds(); // PlateBoundsAndDepth
    void FitViews();      // bounds, depth order and the fit of the mesh view
    void TakeRotated();   // IsoView 1, node moves disabled, the picture of the rotated view; draws nothing
    void TakePlan();      // IsoView 0, node moves enabled, the picture of the plan; draws nothing
    void RefreshSurface() { scr().Refresh(); }
    void ClearTool(Element tool) { window.SetChecked(tool, false); } // a main tool whose dialog has closed

    // The dialog or the table that a person works in, whose end ends a step; none: nullptr.
    Form *openForm();
    // The door that every command goes through.
    Transactions &steps() { return *steps_; }

    std::unique_ptr<Recovery> recovery; // none: no copies of unsaved work are kept

protected:
    std::vector<std::unique_ptr<Form>> forms_;

private:
    void tellUndrawn(); // a mesh that the drawing leaves out

    std::string executable_;
    std::unique_ptr<Transactions> steps_;
};

} // namespace havuz
