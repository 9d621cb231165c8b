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
    bool Do(const Act &act) override;
    bool ClickTool(Element tool); // by its key: one that is still down comes up first

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
    Element ownNames(Element element) const; // of an element or of a form alone
    bool possible(const Act &act) const;
    bool carryOut(const Act &act);
    bool clickNow(Element clicked);
    void pressLeft(Element element, Key key);

    WindowEvents *events_ = nullptr;
    ActLog *log_ = nullptr;
    std::map<Name, ElementState> elements_;
    std::map<std::string, FormState, std::less<>> forms_;
    std::vector<Name> order_;        // elements as they were made
    std::vector<std::string> stack_; // forms shown, the last on top
    std::optional<Element> focus_;
};

} // namespace havuz
