// A person at the window, who can do every act of acts.h, and short calls for those who do them in C++.
#pragma once

#include "ui/window/acts.h"

namespace havuz {

class Person {
public:
    virtual ~Person() = default;

    // False, with nothing done, when what it is for cannot be reached - hidden, disabled, behind a modal form - or does
    // not take it.
    virtual bool Do(const Act &act) = 0;

    bool Click(Element element) { return Do({.kind = Act::Click, .element = element}); }
    bool Type(Element box, const std::string &text) { return Do({.kind = Act::Type, .element = box, .text = text}); }
    bool Select(Element box, int start, int length) {
        return Do({.kind = Act::Select, .element = box, .first = start, .second = length});
    }
    bool GoTo(Element element) { return Do({.kind = Act::GoTo, .element = element}); }
    bool Press(Key key) { return Do({.kind = Act::Press, .key = key}); }
    bool Choose(Element list, int item) { return Do({.kind = Act::Choose, .element = list, .first = item}); }
    bool Scroll(Element bar, int value) { return Do({.kind = Act::Scroll, .element = bar, .first = value}); }
    bool Hover(Element element) { return Do({.kind = Act::Hover, .element = element}); }
    bool PressAt(Element surface, int button, double x, double y) {
        return Do({.kind = Act::PointerPress, .element = surface, .first = button, .x = x, .y = y});
    }
    bool MoveTo(Element surface, int buttonsHeld, double x, double y) {
        return Do({.kind = Act::PointerMove, .element = surface, .first = buttonsHeld, .x = x, .y = y});
    }
    bool ReleaseAt(Element surface, int button, double x, double y) {
        return Do({.kind = Act::PointerRelease, .element = surface, .first = button, .x = x, .y = y});
    }
    bool TurnWheel(Element surface, int steps, double x, double y) {
        return Do({.kind = Act::Wheel, .element = surface, .first = steps, .x = x, .y = y});
    }
    bool PanBy(Element surface, double dx, double dy) {
        return Do({.kind = Act::Pan, .element = surface, .x = dx, .y = dy});
    }
    void TakeSize(int width, int height) {
        Do({.kind = Act::Resize, .element = kScr, .first = width, .second = height});
    }
    bool OpenFile(const std::string &path) { return Do({.kind = Act::Open, .text = path}); }
    bool CloseForm(std::string_view form) { return Do({.kind = Act::CloseForm, .element = {form, {}, 0}}); }
    bool Restore(std::string_view form) { return Do({.kind = Act::Restore, .element = {form, {}, 0}}); }
    void Leave() { Do({.kind = Act::Leave}); }
    void Tick() { Do({.kind = Act::Tick}); }
};

} // namespace havuz
