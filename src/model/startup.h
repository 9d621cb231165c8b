// The start of the program: from the creation of its main window to the state in which it waits for the first command.
#pragma once

#include "model/project_window.h"

#include <string>

namespace havuz {

// What the start sequence asks of the main window and the views. The base does nothing, for programs without a window;
// an operation may throw RuntimeFailure, which ends the program as any failure of the start does.
class StartWindow : public ProjectWindow {
public:
    // before anything is read
    virtual void AdjustStyle() {}
    virtual void LayOutChildFrame() {}
    virtual bool AnotherInstanceRuns() { return false; }
    // in the sequence
    virtual void ResetViews() {}    // drawing scale 1
    virtual void SizeSurface() {}   // the design size of 1024 x 768 pixels fitted to the screen
    virtual void PutFirstState() {} // title of the top bar, labels and buttons hidden, analysis and results off
    virtual void TakePlanState() {} // "Check1" (3) enabled, "Command" (2) with its plan picture
    virtual void ComputeExtents() {}
    virtual void DrawMeshes() {}
    virtual void DrawPlates() {}
    virtual void SetUpDynamicView() {}
    virtual void EnableMainWindow() {}
    virtual void ReportFailure(const std::string & /*what*/) {} // the line on standard error of a program that ends
    [[noreturn]] virtual void EndProgram(int status);           // throws ProgramEnd
};

// commandLine: one project path without extension, relative to the current directory, or empty. executable: path of the
// program itself. Any failure inside enables the main window again and ends the program with status 1; a second
// instance ends at once with status 0. ProgramEnd comes out of it then.
void StartProgram(const std::string &commandLine, const std::string &executable, StartWindow &window);

// The same steps for a program without a window: directories, option files, defaults, the model cleared. Failures come
// out as they are.
void StartModel(const std::string &executable);

} // namespace havuz
