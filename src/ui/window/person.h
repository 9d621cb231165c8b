// A person at the window: everything that one can do there. False, with nothing done, when it cannot be reached:
// hidden, disabled, behind a modal form. Positions in pixels of the surface.
#pragma once

#include "ui/window/window.h"

#include <string>

namespace havuz {

class Person {
public:
    virtual ~Person() = default;
    virtual bool Click(Element element) = 0;                     // turns a toggle, a check box or an option first
    virtual bool Type(Element box, const std::string &text) = 0; // replaces what the box holds
    virtual bool Select(Element box, int start, int length) = 0; // by mouse or by a key that moves the caret
    virtual bool GoTo(Element element) = 0;                      // what takes the keyboard focus
    virtual bool Press(Key key) = 0;                             // to the element with the focus
    virtual bool Choose(Element list, int item) = 0;
    virtual bool Scroll(Element bar, int value) = 0;
    virtual bool Hover(Element element) = 0;
    virtual bool PressAt(Element surface, int button, double x, double y) = 0;
    virtual bool MoveTo(Element surface, int buttonsHeld, double x, double y) = 0;
    virtual bool ReleaseAt(Element surface, int button, double x, double y) = 0;
    virtual bool TurnWheel(Element surface, int steps, double x, double y) = 0;
    virtual bool PanBy(Element surface, double dx, double dy) = 0;
    virtual bool OpenFile(const std::string &path) = 0; // dropped on the main window, or one of the recent projects
    virtual bool CloseForm(std::string_view form) = 0;
    virtual bool Restore(std::string_view form) = 0; // shows it again after it was minimised
    virtual void Tick() = 0;                         // lets the 100 ms timer run
};

} // namespace havuz
