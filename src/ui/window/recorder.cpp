#include "ui/window/recorder.h"

#include "model/options.h"
#include "ui/window/command_state.h"
#include "ui/window/sound_switch.h"
#include "view/view_window.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <string_view>

namespace havuz {

namespace {

// Words

std::string Quoted(const std::string &text) {
    if (!text.empty() && text[0] != '#' && text.find_first_of(" \t\r\n\"") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? "\"\"" : c == '\n' ? " " : std::string(1, c); // a line of the script is one line
    return quoted + "\"";
}

// The shortest decimal that reads back as the same value.
std::string Number(double value) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

// Each with a blank before it.
std::string Spaced(std::initializer_list<std::string_view> words) {
    std::string line;
    for (const std::string_view word : words)
        line.append(1, ' ').append(word);
    return line;
}

// A button that no command knows counts as the middle one.
std::string Buttons(int held) {
    std::string words;
    if ((held & kLeftButton) != 0)
        words += " left";
    if ((held & kRightButton) != 0)
        words += " right";
    return words.empty() || (held & kMiddleButton) != 0 ? words + " middle" : words;
}

std::string KeyWord(Key key) {
    const auto named = std::find_if(std::begin(kKeyNames), std::end(kKeyNames),
                                    [key](const KeyName &name) { return name.key == key; });
    return named->name;
}

// A path below the working directory, from which scripts count theirs, is told from there.
std::string PathWord(const std::string &path) {
    const std::string directory = CalismaDizini + "/";
    return Quoted(directory.size() > 1 && path.rfind(directory, 0) == 0 ? path.substr(directory.size()) : path);
}

// The tools that ask for the name of a file.
bool AsksForFile(const Act &act) {
    return act.kind == Act::Click && (act.element == kSapTool || act.element == kStaadTool);
}

bool IsPlainMove(const Act &act) { return act.kind == Act::PointerMove && act.first == 0; }

} // namespace

Recorder::Recorder(WindowState &window, std::ostream &out, const std::string &project) : window_(window), out_(out) {
    for (const Element element : window.elements())
        ++sharing_[{std::string(element.form), std::string(element.name)}];
    write(project.empty() ? "# no project" : "# project " + project);
    const Surface &scr = window.Canvas(kScr);
    write("surface " + std::to_string(scr.width()) + " " + std::to_string(scr.height()));
    if (window.Checked(kSoundSwitch)) // a replay begins with the switch off
        write("check" + elementWords(kSoundSwitch) + " on");
    window.SetLog(this);
}

Recorder::~Recorder() {
    window_.SetLog(nullptr);
    writeWaiting();
}

// Lines

std::string Recorder::elementWords(Element element) const {
    const std::string form(element.form), name(element.name);
    const auto sharing = sharing_.find({form, name});
    const bool one = sharing == sharing_.end() || sharing->second == 1; // the language counts those that share a name
    return one ? Spaced({form, name}) : Spaced({form, name, std::to_string(element.index)});
}

// By its text where this finds it.
std::string Recorder::itemWord(Element list, int item) const {
    const std::vector<std::string> &items = window_.state(list).items;
    const auto own = items.begin() + item;
    return std::find(items.begin(), items.end(), *own) == own ? Quoted(*own) : std::to_string(item);
}

std::string Recorder::words(ActPart part, const Act &act) const {
    switch (part) {
    case ActPart::Element:
    case ActPart::FocusOrElement:
        return elementWords(act.element);
    case ActPart::Form:
    case ActPart::ScrollBar:
        return Spaced({act.element.form});
    case ActPart::Surface:
        return act.element == kScr ? "" : Spaced({act.element.form});
    case ActPart::Buttons:
        return Buttons(act.first);
    case ActPart::MaybeButtons:
        return act.first == 0 ? "" : Buttons(act.first);
    case ActPart::Place:
    case ActPart::Offset:
        return Spaced({Number(act.x), Number(act.y)});
    case ActPart::Text:
        return Spaced({Quoted(act.text)});
    case ActPart::Path:
        return Spaced({PathWord(act.text)});
    case ActPart::First:
        return Spaced({std::to_string(act.first)});
    case ActPart::Second:
        return Spaced({std::to_string(act.second)});
    case ActPart::Item:
        return Spaced({itemWord(act.element, act.first)});
    case ActPart::Key:
        return Spaced({KeyWord(act.key)});
    case ActPart::Times:
    case ActPart::None:
        break;
    }
    return "";
}

std::string Recorder::lineOf(const Act &act) const {
    const ActRow &row = RowOf(act.kind);
    std::string line = row.word;
    for (const ActPart part : row.parts)
        line += words(part, act);
    return line;
}

void Recorder::write(const std::string &line) {
    out_ << line << std::endl; // a crash behind it loses nothing
}

void Recorder::WritePath(const std::string &word, const std::string &path) {
    writeWaiting();
    write(word + " " + PathWord(path));
}

// What waits

void Recorder::writeWaiting() {
    const Waiting waiting = std::exchange(waiting_, {});
    for (const std::string &line : {waiting.line, waiting.selection})
        if (!line.empty())
            write(line);
}

bool Recorder::waitsForBox(Element box) const {
    return (waiting_.kind == Act::Type || waiting_.kind == Act::Select) && waiting_.element == box;
}

bool Recorder::takesPlace(const Act &act) const {
    if (act.kind == Act::Type)
        return waitsForBox(act.element);
    if (act.kind == Act::Hover)
        return waiting_.kind == Act::Hover;
    return waiting_.kind == act.kind && waiting_.element == act.element && waiting_.passes;
}

void Recorder::wait(const Act &act) {
    if (!takesPlace(act))
        writeWaiting();
    waiting_ = {.kind = act.kind, .element = act.element, .line = lineOf(act)};
}

void Recorder::waitWithSelection(const Act &act) {
    const WindowState::ElementState &box = window_.state(act.element);
    if (box.caret == act.first && box.selected == act.second)
        return; // as it is already
    if (!waitsForBox(act.element)) {
        writeWaiting();
        waiting_ = {.kind = Act::Select, .element = act.element};
    }
    waiting_.selection = lineOf(act);
}

// Acts

// The state behind a move that the next move over the same surface does not set again by itself. In the idle state it
// sets the anchor; an edge longer than the screen leaves the marker of the edge before.
Recorder::Trace Recorder::traceNow() {
    const bool idle = CommandState + ZoomPending == 0;
    return {.anchorX = idle ? 0.0 : AnchorX,
            .anchorY = idle ? 0.0 : AnchorY,
            .markerX = EdgeMarkerX,
            .markerY = EdgeMarkerY,
            .command = CommandState,
            .edgeDrag = EdgeDragActive};
}

void Recorder::Before(const Act &act) {
    running_.push_back({});
    if (act.kind == Act::Tick)
        return;
    if (act.kind == Act::Select)
        return waitWithSelection(act);
    if (act.kind == Act::Hover && std::exchange(hovered_, act.element) == act.element)
        return;
    if (act.kind == Act::Type || act.kind == Act::Hover || IsPlainMove(act)) {
        wait(act);
        running_.back().move = IsPlainMove(act);
        running_.back().before = traceNow();
        return;
    }
    writeWaiting();
    if (AsksForFile(act))
        running_.back().late = lineOf(act);
    else
        write(lineOf(act));
}

void Recorder::After() {
    const Running ended = std::move(running_.back());
    running_.pop_back();
    if (!ended.late.empty())
        write(ended.late);
    if (ended.move && waiting_.kind == Act::PointerMove)
        waiting_.passes = ZoomPending == 0 && traceNow() == ended.before; // a zoom window is not drawn twice at a place
}

} // namespace havuz
