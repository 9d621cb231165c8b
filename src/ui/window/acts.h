// The acts of a person, a row each: its words in a script, what they hold, what has to be in reach. The window state
// carries acts out, the recorder writes them, the player reads them and a hand does them by the row; a new act is a
// row, with its name above it, and a case in WindowState::carryOut. Positions in pixels of the surface.
#pragma once

#include "ui/window/window.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>

namespace havuz {

// One act of a person on an element or a form.
struct Act {
    enum Kind {
        Click,  // turns a toggle, a check box or an option first
        Type,   // text: what the box holds afterwards
        Select, // first, second: start and length of the selection, by mouse or by a key that moves the caret
        GoTo,   // the keyboard focus, by mouse or by the tab key
        Press,  // key, to the element with the focus
        Choose, // first: item
        Scroll, // first: value
        Hover,
        PointerPress,   // first: button; x, y
        PointerMove,    // first: button held, 0 none
        PointerRelease, // first: button
        Wheel,          // first: steps, up above 0; x, y
        Pan,            // x, y: by how much
        Resize,         // of SCR, after it changed; first, second: width, height
        Open,           // text: path of a project, dropped on the main window or one of the recent ones
        CloseForm,
        Restore, // a form that was minimised
        Leave,   // to another program: every form loses its activation
        Tick,    // of the 100 ms timer
        Answer   // text: what a file dialog gave, "" when it was cancelled
    };
    Kind kind = Click;
    Element element = {}; // of CloseForm and Restore: the form alone
    std::string text = {};
    int first = 0, second = 0;
    double x = 0.0, y = 0.0;
    Key key = Key::Enter;
};

// What stands behind the verb, in its order, and where the act keeps it.
enum class ActPart {
    None,
    Element,        // element: [FORM] NAME [INDEX]
    FocusOrElement, // the same, or nothing: the element with the focus
    Form,           // element.form
    ScrollBar,      // element: FORM, whose only scroll bar it is
    Surface,        // element: [FORM], whose only picture it is; without one SCR
    Buttons,        // first: left|right|middle
    MaybeButtons,   // the same, or nothing
    Place,          // x, y: X Y | at X Y [Z] in m | node N
    Offset,         // x, y
    Text,           // text
    Path,           // text, below the working directory
    First,          // first
    Second,         // second
    Item,           // first: the item's text or its number
    Key,            // key
    Times           // how often; once when left out
};

enum class ActReach { Anything, Element, Form, MainForm };

struct ActRow {
    Act::Kind kind;
    const char *word;
    const char *arguments; // in the player's messages
    std::array<ActPart, 3> parts;
    ActReach reach;
    std::optional<FieldKind> on; // the only kind of element that takes it
    const char *refusal; // why it was not done: % is what it was for, @ the last word; "" where that is no failure
};

// clang-format off
inline constexpr ActRow kActs[] = {
    {Act::Click,          "click",   "[FORM] NAME [INDEX]",              {ActPart::Element},                                         ActReach::Element,  {},                   "% went out of reach as the last element lost the focus"},
    {Act::Type,           "field",   "[FORM] NAME [INDEX] TEXT",         {ActPart::Element, ActPart::Text},                          ActReach::Element,  FieldKind::TextBox,   "% is no text box"},
    {Act::Select,         "select",  "[FORM] NAME [INDEX] START LENGTH", {ActPart::Element, ActPart::First, ActPart::Second},        ActReach::Element,  FieldKind::TextBox,   "% is no text box"},
    {Act::GoTo,           "focus",   "[FORM] NAME [INDEX]",              {ActPart::Element},                                         ActReach::Element,  {},                   ""},
    {Act::Press,          "key",     "[[FORM] NAME [INDEX]] KEY",        {ActPart::FocusOrElement, ActPart::Key},                    ActReach::Element,  {},                   "no element has the focus"},
    {Act::Choose,         "choose",  "[FORM] NAME [INDEX] ITEM",         {ActPart::Element, ActPart::Item},                          ActReach::Element,  FieldKind::List,      "% has no item \"@\""},
    {Act::Scroll,         "scroll",  "FORM VALUE",                       {ActPart::ScrollBar, ActPart::First},                       ActReach::Element,  FieldKind::ScrollBar, "% does not go to @"},
    {Act::Hover,          "hover",   "[FORM] NAME [INDEX]",              {ActPart::Element},                                         ActReach::Element,  {},                   ""},
    {Act::PointerPress,   "press",   "[FORM] left|right|middle PLACE",   {ActPart::Surface, ActPart::Buttons, ActPart::Place},       ActReach::Element,  {},                   ""},
    {Act::PointerMove,    "move",    "[FORM] [left|right|middle] PLACE", {ActPart::Surface, ActPart::MaybeButtons, ActPart::Place},  ActReach::Element,  {},                   ""},
    {Act::PointerRelease, "release", "[FORM] left|right|middle PLACE",   {ActPart::Surface, ActPart::Buttons, ActPart::Place},       ActReach::Element,  {},                   ""},
    {Act::Wheel,          "wheel",   "[FORM] STEPS PLACE",               {ActPart::Surface, ActPart::First, ActPart::Place},         ActReach::Element,  {},                   ""},
    {Act::Pan,            "pan",     "[FORM] DX DY",                     {ActPart::Surface, ActPart::Offset},                        ActReach::Element,  {},                   ""},
    {Act::Resize,         "surface", "W H",                              {ActPart::First, ActPart::Second},                          ActReach::Anything, {},                   ""},
    {Act::Open,           "open",    "FILE.POL",                         {ActPart::Path},                                            ActReach::MainForm, {},                   "the main window cannot be reached"},
    {Act::CloseForm,      "close",   "FORM",                             {ActPart::Form},                                            ActReach::Form,     {},                   "% cannot be reached"},
    {Act::Restore,        "restore", "FORM",                             {ActPart::Form},                                            ActReach::Anything, {},                   "% is not minimised"},
    {Act::Leave,          "leave",   "",                                 {},                                                         ActReach::Anything, {},                   ""},
    {Act::Tick,           "timer",   "[TIMES]",                          {ActPart::Times},                                           ActReach::Anything, {},                   ""},
    {Act::Answer,         "answer",  "PATH",                             {ActPart::Path},                                            ActReach::Anything, {},                   ""},
};
// clang-format on

// Every kind has its row, in the order of their names.
static_assert([] {
    for (std::size_t k = 0; k < std::size(kActs); ++k)
        if (static_cast<std::size_t>(kActs[k].kind) != k)
            return false;
    return std::size(kActs) == static_cast<std::size_t>(Act::Answer) + 1;
}());

constexpr const ActRow &RowOf(Act::Kind kind) { return kActs[static_cast<std::size_t>(kind)]; }

// Hears of each act that could be done.
class ActLog {
public:
    virtual ~ActLog() = default;
    virtual void Before(const Act &act) = 0; // its events are still to come
    virtual void After() = 0;                // its events are over, or the program has ended in one
};

} // namespace havuz
