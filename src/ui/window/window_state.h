// The state of a window and the rules by which a person works it: everything that the operations set is kept here, and
// each act of a person - click, type, press keys, move the pointer, close forms - is checked for reach, takes its
// effect on the state and tells the events in their order. A platform shows the state; a test or a script reads it.
#pragma once

#include "ui/window/person.h"
#include "ui/window/window.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace havuz {

// One act of a person on an element or a form.
struct Act {
    enum Kind {
        Click,
        Type,   // text: what the box holds afterwards
        Select, // first, second: start and length of the selection
        GoTo,   // the keyboard focus, by mouse or by the tab key
        Press,  // key
        Choose, // first: item
        Scroll, // first: value
        Hover,
        PointerPress,   // first: button; x, y
        PointerMove,    // first: button held, 0 none
        PointerRelease, // first: button
        Wheel,          // first: steps, up above 0; x, y
        Pan,            // x, y: by how much
        Resize,         // of SCR; first, second: width, height
        Open,           // text: path of a project
        CloseForm,
        Restore, // a form that was minimised
        Leave,   // to another program
        Tick,
        Answer // text: what a file dialog gave
    };
    Kind kind = Click;
    Element element; // of CloseForm and Restore: the form alone
    std::string text = {};
    int first = 0, second = 0;
    double x = 0.0, y = 0.0;
    Key key = Key::Enter;
};

// Hears of each act that could be done.
class ActLog {
public:
    virtual ~ActLog() = default;
    virtual void Before(const Act &act) = 0; // its events are still to come
    virtual void After() = 0;                // its events are over, or the program has ended in one
};

class WindowState : public Window, public Person {
public:
    struct ElementState {
        FieldKind kind = FieldKind::Label;
        FieldLook look = FieldLook::Usual;
        std::string label, text;
        int group = 0;
        bool shown = true, enabled = true, checked = false;
        double left = 0.0, top = 0.0;
        int picture = 0;
        Colour colour = kButtonColour, textColour = QbColour(0);
        LineEnds line;
        RubberStyle style = RubberStyle::Solid;
        int caret = 0, selected = 0; // selection of a text box, in characters
        std::vector<std::string> items;
        int item = -1;
        int value = 0, maximum = 0; // scroll bar
    };
    struct FormState {
        std::string caption;
        bool shown = false, enabled = true, onTop = false, minimised = false;
        Modality modality = Modality::Modeless;
        Place place;
    };

    void SetLog(ActLog *log) { log_ = log; }

    // What a person does.
    bool Click(Element element) override;
    bool ClickTool(Element tool); // by its key: one that is still down comes up first
    bool Type(Element box, const std::string &text) override;
    bool Select(Element box, int start, int length) override;
    bool GoTo(Element element) override;
    bool Press(Key key) override;
    bool Choose(Element list, int item) override;
    bool Scroll(Element bar, int value) override;
    bool Hover(Element element) override;
    bool PressAt(Element surface, int button, double x, double y) override;
    bool MoveTo(Element surface, int buttonsHeld, double x, double y) override;
    bool ReleaseAt(Element surface, int button, double x, double y) override;
    bool TurnWheel(Element surface, int steps, double x, double y) override;
    bool PanBy(Element surface, double dx, double dy) override;
    bool OpenFile(const std::string &path) override;
    bool CloseForm(std::string_view form) override;
    bool Restore(std::string_view form) override;
    void Tick() override;
    void Leave();                         // every form loses its activation
    void TakeSize(int width, int height); // of SCR, after it changed

    // What it shows. An element that was never made is Subscript.
    const ElementState &state(Element element) const;
    const FormState &formState(std::string_view form) const;
    bool reachable(Element element) const;
    bool formReachable(std::string_view form) const;
    std::vector<Element> elements() const; // of all forms, in their order
    std::optional<Element> focused() const { return focus_; }

    void SetEvents(WindowEvents *events) override { events_ = events; }
    void MakeForm(const FormFields &form) override;
    void ShowForm(std::string_view form, Place place, Modality modality, bool onTop) override;
    void HideForm(std::string_view form) override;
    bool FormShown(std::string_view form) override { return formState(form).shown; }
    Place FormPlace(std::string_view form) override { return formState(form).place; }
    void SetCaption(std::string_view form, const std::string &caption) override { at(form).caption = caption; }
    void EnableForm(std::string_view form, bool enabled) override { at(form).enabled = enabled; }
    void Minimise(std::string_view form) override { at(form).minimised = true; }

    void Show(Element element, bool shown) override {
        at(element).shown = shown;
        changed(element);
    }
    bool Shown(Element element) override { return state(element).shown; }
    FieldKind Kind(Element element) override { return state(element).kind; }
    void Enable(Element element, bool enabled) override {
        at(element).enabled = enabled;
        changed(element);
    }
    bool Enabled(Element element) override { return state(element).enabled; }
    void Move(Element element, double left, double top) override;
    void SetText(Element element, const std::string &text) override;
    std::string Text(Element element) override { return state(element).text; }
    void SetPicture(Element element, int picture) override {
        at(element).picture = picture;
        changed(element);
    }
    void SetChecked(Element element, bool checked) override;
    bool Checked(Element element) override { return state(element).checked; }
    void SetColour(Element element, Colour back) override {
        at(element).colour = back;
        changed(element);
    }
    void SetTextColour(Element element, Colour text) override {
        at(element).textColour = text;
        changed(element);
    }
    void SetLine(Element line, LineEnds ends) override {
        at(line).line = ends;
        changed(line);
    }
    LineEnds Line(Element line) override { return state(line).line; }
    void SetLineStyle(Element line, RubberStyle style) override {
        at(line).style = style;
        changed(line);
    }

    void Focus(Element element) override;
    void SelectText(Element box, int start, int length) override;
    int SelectionStart(Element box) override { return state(box).caret; }
    int SelectionLength(Element box) override { return state(box).selected; }

    void SetItems(Element list, const std::vector<std::string> &items) override;
    void AddItem(Element list, const std::string &item) override {
        at(list).items.push_back(item);
        changed(list);
    }
    std::vector<std::string> Items(Element list) override { return state(list).items; }
    void SelectItem(Element list, int item) override {
        at(list).item = item;
        changed(list);
    }
    int SelectedItem(Element list) override { return state(list).item; }
    void SetScroll(Element bar, int value, int maximum) override;
    int ScrollValue(Element bar) override { return state(bar).value; }

protected:
    // The state of the element was set: a platform shows it.
    virtual void changed(Element /*element*/) {}
    // The name that stays valid for an event.
    Element own(Element element) const { return find(element).first; }
    // The form comes to the front: the one that was there loses its activation.
    void activate(std::string_view form);
    std::string_view front() const { return stack_.empty() ? std::string_view() : stack_.back(); }
    // Tells the log of something that is no event.
    void note(const Act &act);

private:
    // Owns the names, so that an element handed to an event stays valid.
    struct Name {
        std::string form, name;
        int index = 0;
        auto operator<=>(const Name &) const = default;
        operator Element() const { return {form, name, index}; }
    };
    using Row = std::pair<const Name, ElementState>;

    const Row &find(Element element) const;
    ElementState &at(Element element) { return const_cast<ElementState &>(state(element)); }
    FormState &at(std::string_view form);
    void turn(Element element);
    bool clickNow(Element clicked);
    void pressLeft(Element element, Key key);
    template <class Tell>
    void act(const Act &act, Tell tell);

    WindowEvents *events_ = nullptr;
    ActLog *log_ = nullptr;
    std::map<Name, ElementState> elements_;
    std::map<std::string, FormState, std::less<>> forms_;
    std::vector<Name> order_;        // elements as they were made
    std::vector<std::string> stack_; // forms shown, the last on top
    std::optional<Element> focus_;
};

} // namespace havuz
