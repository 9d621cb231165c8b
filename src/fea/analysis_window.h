// What the analysis asks of the program around it: progress, the picture of the profile, text lines, the output
// program and the end. The base does nothing, for runs without a screen.
#pragma once

#include "model/failure.h"

#include <string>

namespace havuz {

// The progress picture that ProgressBar paints. Sizes in pixels.
class ProgressPicture {
public:
    virtual ~ProgressPicture() = default;
    virtual int Width() const { return 0; }
    virtual int Height() const { return 0; }
    virtual void Clear() {}
    virtual void Line(int /*y*/, int /*width*/, int /*red*/, int /*green*/, int /*blue*/) {} // from the left edge
    virtual void Label(const std::string & /*text*/, bool /*white*/) {}                      // centred, else black
    virtual void ServeEvents() {} // the only place where a run lets pending events through
};

class AnalysisWindow : public ProgressPicture {
public:
    virtual void ClearSurface() {}
    virtual void ShowProgressPicture(bool /*shown*/) {}
    virtual void MoveProgLab(int /*left*/, int /*top*/) {}
    virtual void ShowProgLab(bool /*shown*/) {}
    virtual void SetProgLab(const std::string & /*text*/) {}
    // the picture of the profile on the surface, in the 16 standard colours
    virtual void FillBox(double /*x*/, double /*y*/, double /*side*/, int /*colour*/) {}
    virtual void OutlineBox(double /*x*/, double /*y*/, double /*side*/, int /*colour*/) {}
    virtual void Point(double /*x*/, double /*y*/, int /*colour*/) {}
    virtual bool DrawsProfile() const { return false; } // whether the points above are wanted at all
    // a line of text at the left margin of the surface, at this height
    virtual void TextLine(int /*height*/, const std::string & /*text*/) {}

    // without waiting for it
    virtual void StartProgram(const std::string & /*command*/, const std::string & /*projectPath*/) {}
    [[noreturn]] virtual void EndProgram() { throw ProgramEnd{0}; }
};

} // namespace havuz
