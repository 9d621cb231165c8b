// The window operations: everything the logic asks of a windowing platform, and everything a platform reports back.
// Whatever an element shows is kept by the window and read back from it: there is no second copy.
// Positions over the surface are pixels; places and sizes of forms are twips, 15 to a pixel on a usual screen.
#pragma once

#include "ui/window/element.h"
#include "view/surface.h"

#include <string>
#include <string_view>
#include <vector>

namespace havuz {

// Colours that the platform's own settings give.
inline constexpr Colour kWindowColour{0x80000005};
inline constexpr Colour kButtonColour{0x8000000F};

struct LineEnds {
    double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;
    bool operator==(const LineEnds &) const = default;
};
enum class RubberStyle { Solid = 1, Dashed = 2 };

struct Place {
    double left = 0.0, top = 0.0;
    bool operator==(const Place &) const = default;
};

enum class PointerShape { Default = 0, NorthSouth = 7, WestEast = 9, FourWay = 15 };

// A modal form takes all input until it is hidden. No showing waits for the end of the form.
enum class Modality { Modeless, Modal };

enum class Key { Enter, Down, Up, Left, Right, PageDown, PageUp, Escape };

struct KeyName {
    const char *name;
    Key key;
};
inline constexpr KeyName kKeyNames[] = {{"Enter", Key::Enter},   {"Down", Key::Down},    {"Up", Key::Up},
                                        {"Left", Key::Left},     {"Right", Key::Right},  {"PageDown", Key::PageDown},
                                        {"PageUp", Key::PageUp}, {"Escape", Key::Escape}};

enum class FieldKind {
    Label,
    TextBox,
    Button,
    Toggle, // a button that stays down
    CheckBox,
    Option, // one of the same name in the same group
    List,   // drop-down or plain
    ScrollBar,
    Picture, // a surface of its own
    Line,    // a line object over a surface
    Frame
};

// What an element is for, where its kind does not say it all: a hint for a platform that lays out.
enum class FieldLook {
    Usual,
    Name,      // a text box for words
    Point,     // a text box in which the comma key writes a point
    RowNumber, // tables
    Heading,   // over the columns of a table
    Marker,    // of the row with the focus
    MenuRow,   // of the popup
    Open,      // a list that shows its items without dropping down; the row that a key goes to is chosen
    Folders,   // the same, and only Enter or a click chooses
    Tab,       // an option that turns to a page
    Tool,      // a button in the frame of its group
    ToolPanel, // that frame
    Surface,   // the drawing surface
    Progress,  // the bar of a long job
    TopBar,    // the main form's parts
    Corner,
    Remembered, // a switch there, kept from one start to the next
    Overview,
    Prompt,
    Entry,    // beside the prompt
    Floating, // over the surface
};

// What a form is made of: a row an element. A windowing platform builds its widgets from these, a script finds fields
// by name or label, a headless window takes its first state from them.
struct Field {
    FieldKind kind = FieldKind::Label;
    std::string name = {};
    int index = 0;
    std::string label = {};  // caption of buttons and labels; what stands beside a text box; tooltip of a tool
    std::string text = {};   // what it shows at first
    int row = 0, column = 0; // place in a grid, a hint for a platform that lays out
    int group = 0;           // options exclude each other within a group; frame of a tool
    bool shown = true;
    bool checked = false;
    FieldLook look = FieldLook::Usual;
    int span = 1; // columns of a heading
    struct Picture {
        int width = 0, height = 0;
    } picture = {}; // the size of the one that stands on it, device-independent pixels; 0 for none
};

// The buttons that most dialogs end with. Enter presses the first where the form leaves the key alone.
inline constexpr std::string_view kConfirmButton = "Tamam", kCancelButton = "Iptal";

// What kind of window a form is.
enum class FormKind {
    Main,
    Overview,
    Hidden, // never shown
    Dialog,
    Table,   // rows of cells with a scroll bar
    Popup,   // without a frame, gone when it loses its activation
    Palette, // stays on top and leaves the keyboard where it was
};

struct FormFields {
    std::string name, caption;
    std::vector<Field> fields;
    FormKind kind = FormKind::Dialog;
};

// What happens in a window, told after the element took its new state. Positions in pixels of the element.
class WindowEvents {
public:
    virtual ~WindowEvents() = default;
    virtual void OnClick(Element element) = 0; // buttons, toggles, check boxes, options, labels, list items
    virtual void OnFocus(Element element) = 0;
    virtual void OnLostFocus(Element element) = 0;
    virtual bool OnKey(Element element, Key key) = 0; // before the element sees it; true keeps it from the element
    virtual void OnScroll(Element element) = 0;       // a scroll bar took a new value
    virtual void OnHover(Element element) = 0;        // the pointer moves over it
    virtual void OnPress(Element surface, int button, int shift, double x, double y) = 0;
    virtual void OnMove(Element surface, int button, int shift, double x, double y) = 0;
    virtual void OnRelease(Element surface, int button, int shift, double x, double y) = 0;
    // The wheel turned by steps, away from the person above 0; the view was drawn along with the middle button held.
    virtual void OnWheel(Element surface, int steps, double x, double y) = 0;
    virtual void OnPan(Element surface, double dx, double dy) = 0;
    virtual void OnResize() = 0;                      // SCR took another size
    virtual void OnOpen(const std::string &path) = 0; // a project dropped on the window, or chosen from the recent ones
    virtual void OnClose(std::string_view form) = 0;  // closed by other means than its buttons; it is still shown
    virtual void OnDeactivate(std::string_view form) = 0;
    virtual void OnTimer() = 0; // every 100 ms
};

struct SaveQuestion {
    std::string title, directory, name;
    bool operator==(const SaveQuestion &) const = default;
};

// A project that stands before the recent ones.
struct OfferedProject {
    std::string path, text;
    bool operator==(const OfferedProject &) const = default;
};

class Window {
public:
    virtual ~Window() = default;

    // forms: each is made once, hidden, before anything is asked of it
    virtual void SetEvents(WindowEvents *events) = 0;
    virtual void MakeForm(const FormFields &form) = 0;
    virtual void ShowForm(std::string_view form, Place place, Modality modality, bool onTop) = 0;
    virtual void HideForm(std::string_view form) = 0;
    virtual bool FormShown(std::string_view form) = 0;
    virtual Place FormPlace(std::string_view form) = 0;
    virtual double FormWidth(std::string_view form) = 0;
    virtual void SetCaption(std::string_view form, const std::string &caption) = 0;
    virtual void EnableForm(std::string_view form, bool enabled) = 0;
    virtual void Minimise(std::string_view form) = 0;

    // elements
    virtual void Show(Element element, bool shown) = 0;
    virtual bool Shown(Element element) = 0;
    virtual FieldKind Kind(Element element) = 0;
    virtual void Enable(Element element, bool enabled) = 0;
    virtual bool Enabled(Element element) = 0;
    virtual void Move(Element element, double left, double top) = 0;
    virtual void SetText(Element element, const std::string &text) = 0;
    virtual std::string Text(Element element) = 0;
    virtual void SetPicture(Element element, int picture) = 0;
    virtual void SetChecked(Element element, bool checked) = 0; // options exclude each other
    virtual bool Checked(Element element) = 0;
    virtual void SetColour(Element element, Colour back) = 0;
    virtual void SetTextColour(Element element, Colour text) = 0;
    virtual void SetLine(Element line, LineEnds ends) = 0;
    virtual LineEnds Line(Element line) = 0;
    virtual void SetLineStyle(Element line, RubberStyle style) = 0;

    // keyboard focus; a change tells OnLostFocus of the old element, then OnFocus of the new one
    virtual void Focus(Element element) = 0;
    virtual void SelectText(Element box, int start, int length) = 0; // caret and selection, in characters
    virtual int SelectionStart(Element box) = 0;
    virtual int SelectionLength(Element box) = 0;

    // lists and scroll bars; -1 is no item
    virtual void SetItems(Element list, const std::vector<std::string> &items) = 0;
    virtual void AddItem(Element list, const std::string &item) = 0;
    virtual std::vector<std::string> Items(Element list) = 0;
    virtual void SelectItem(Element list, int item) = 0; // tells no event
    virtual int SelectedItem(Element list) = 0;
    virtual void SetScroll(Element bar, int value, int maximum) = 0; // tells no event
    virtual int ScrollValue(Element bar) = 0;

    // drawing surfaces of SCR, of the progress bar and of the overview's picture
    virtual Surface &Canvas(Element picture) = 0;
    virtual void ResizeSurface(int width, int height) = 0;  // SCR
    virtual void CopyPicture(Element from, Element to) = 0; // the whole, scaled to the size of the other

    // pointer
    virtual void SetPointerShape(PointerShape shape) = 0;
    virtual void ConfinePointer(bool confined) = 0; // to SCR
    virtual Place PointerPosition() = 0;            // on the screen
    virtual Element ElementAt(Place position) = 0;  // no name when there is none of ours

    // the platform around
    virtual int ScreenWidth() = 0; // pixels
    virtual int ScreenHeight() = 0;
    virtual double TwipsPerPixel() = 0;
    virtual bool AnotherInstanceRuns() = 0;
    virtual std::string AskSaveName(const SaveQuestion &question) = 0; // "" when cancelled
    // Without waiting for it. One that cannot be started is reported on standard error and is no failure of this
    // program: the program ends all the same.
    virtual void StartProgram(const std::string &program, const std::string &argument) = 0;
    virtual void RememberProject(const std::string &path) = 0; // read or written just now: the first of the recent ones
    virtual void OfferProjects(const std::vector<OfferedProject> &projects) = 0; // all that are offered now
    virtual void OpenHelp(const std::string &path) = 0;                          // the viewer "hh", maximised
    virtual void ServeEvents() = 0;                                              // lets pending events through
    virtual void ReportError(const std::string &line) = 0;                       // standard error
    [[noreturn]] virtual void EndProgram(int status) = 0;                        // throws ProgramEnd
};

} // namespace havuz
