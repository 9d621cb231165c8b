// A window without a platform: it keeps everything that the operations set as state, and does what a person can do at
// one - click, type, press keys, move the pointer, close forms - with the same order of events. Tests and the script
// player work it; nothing is painted but SCR, on the surface given.
#pragma once

#include "ui/window.h"

#include <array>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace havuz {

class HeadlessWindow : public Window {
public:
    struct ElementState {
        FieldKind kind = FieldKind::Label;
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
    struct Started {
        std::string program, argument;
        bool operator==(const Started &) const = default;
    };

    explicit HeadlessWindow(Surface &scr) : scr_(scr) {}

    // What a person does. False, with nothing done, when it cannot be reached: hidden, disabled, behind a modal form.
    bool Click(Element element);                     // turns a toggle, a check box or an option first
    bool Type(Element box, const std::string &text); // replaces what the box holds
    bool Press(Key key);                             // to the element with the focus
    bool Choose(Element list, int item);
    bool Scroll(Element bar, int value);
    bool Hover(Element element);
    bool PressAt(Element surface, int button, double x, double y);
    bool MoveTo(Element surface, int buttonsHeld, double x, double y);
    bool ReleaseAt(Element surface, int button, double x, double y);
    bool CloseForm(std::string_view form);
    void Tick(); // the 100 ms timer

    // What it shows. An element that was never made is Subscript.
    const ElementState &state(Element element) const;
    const FormState &formState(std::string_view form) const;
    bool reachable(Element element) const;
    std::vector<Element> elements() const; // of all forms, in their order
    std::optional<Element> focused() const { return focus_; }

    // What it was asked for, and what it answers.
    std::deque<std::string> saveNames; // answers of the file dialog; none left: cancelled
    std::vector<SaveQuestion> questions;
    std::vector<Started> started;
    std::vector<std::string> helps, errors;
    PointerShape pointerShape = PointerShape::Default;
    bool confined = false;
    Place pointer;        // where the pointer is on the screen
    Element underPointer; // what lies under it
    int screenWidth = 1024, screenHeight = 768;
    bool otherInstance = false;
    bool programsStart = true;               // false: starting a program fails
    int surfaceWidth = 0, surfaceHeight = 0; // last size asked for SCR
    int copies = 0;                          // pictures copied
    int served = 0;                          // times that pending events were let through

    void SetEvents(WindowEvents *events) override { events_ = events; }
    void MakeForm(const FormFields &form) override;
    void ShowForm(std::string_view form, Place place, Modality modality, bool onTop) override;
    void HideForm(std::string_view form) override;
    bool FormShown(std::string_view form) override { return formState(form).shown; }
    Place FormPlace(std::string_view form) override { return formState(form).place; }
    double FormWidth(std::string_view form) override;
    void SetCaption(std::string_view form, const std::string &caption) override { at(form).caption = caption; }
    void EnableForm(std::string_view form, bool enabled) override { at(form).enabled = enabled; }
    void Minimise(std::string_view form) override { at(form).minimised = true; }

    void Show(Element element, bool shown) override { at(element).shown = shown; }
    bool Shown(Element element) override { return state(element).shown; }
    void Enable(Element element, bool enabled) override { at(element).enabled = enabled; }
    bool Enabled(Element element) override { return state(element).enabled; }
    void Move(Element element, double left, double top) override;
    void SetText(Element element, const std::string &text) override;
    std::string Text(Element element) override { return state(element).text; }
    void SetPicture(Element element, int picture) override { at(element).picture = picture; }
    void SetChecked(Element element, bool checked) override;
    bool Checked(Element element) override { return state(element).checked; }
    void SetColour(Element element, Colour back) override { at(element).colour = back; }
    void SetTextColour(Element element, Colour text) override { at(element).textColour = text; }
    void SetLine(Element line, LineEnds ends) override { at(line).line = ends; }
    LineEnds Line(Element line) override { return state(line).line; }
    void SetLineStyle(Element line, RubberStyle style) override { at(line).style = style; }

    void Focus(Element element) override;
    void SelectText(Element box, int start, int length) override;
    int SelectionStart(Element box) override { return state(box).caret; }
    int SelectionLength(Element box) override { return state(box).selected; }

    void SetItems(Element list, const std::vector<std::string> &items) override;
    void AddItem(Element list, const std::string &item) override { at(list).items.push_back(item); }
    std::vector<std::string> Items(Element list) override { return state(list).items; }
    void SelectItem(Element list, int item) override { at(list).item = item; }
    int SelectedItem(Element list) override { return state(list).item; }
    void SetScroll(Element bar, int value, int maximum) override;
    int ScrollValue(Element bar) override { return state(bar).value; }

    Surface &Canvas(Element picture) override;
    void ResizeSurface(int width, int height) override;
    void CopyPicture(Element /*from*/, Element /*to*/) override { ++copies; }

    void SetPointerShape(PointerShape shape) override { pointerShape = shape; }
    void ConfinePointer(bool on) override { confined = on; }
    Place PointerPosition() override { return pointer; }
    Element ElementAt(Place /*position*/) override { return underPointer; }

    int ScreenWidth() override { return screenWidth; }
    int ScreenHeight() override { return screenHeight; }
    double TwipsPerPixel() override { return 15.0; }
    bool AnotherInstanceRuns() override { return otherInstance; }
    std::string AskSaveName(const SaveQuestion &question) override;
    void StartProgram(const std::string &program, const std::string &argument) override;
    void OpenHelp(const std::string &path) override { helps.push_back(path); }
    void ServeEvents() override { ++served; }
    void ReportError(const std::string &line) override { errors.push_back(line); }
    [[noreturn]] void EndProgram(int status) override;

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
    Element own(Element element) const { return find(element).first; }
    ElementState &at(Element element) { return const_cast<ElementState &>(state(element)); }
    FormState &at(std::string_view form);
    bool formReachable(std::string_view form) const;
    void activate(std::string_view form);
    void turn(Element element);

    Surface &scr_;
    WindowEvents *events_ = nullptr;
    std::map<Name, ElementState> elements_;
    std::map<std::string, FormState, std::less<>> forms_;
    std::vector<Name> order_;        // elements as they were made
    std::vector<std::string> stack_; // forms shown, the last on top
    std::map<Name, std::unique_ptr<Surface>> canvases_;
    std::optional<Element> focus_;
};

} // namespace havuz
