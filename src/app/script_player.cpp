#include "app/script_player.h"

#include "app/cli.h"
#include "app/project.h"
#include "app/script_queries.h"
#include "model/failure.h"
#include "model/store.h"
#include "model/write_file.h"
#include "ui/window/act_words.h"
#include "ui/window/transactions.h"
#include "view/projection.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <utility>

namespace havuz {

std::string LastError(Stage &stage, const std::string &otherwise) {
    const std::string head = "havuz: ", line = stage.LastErrorLine();
    if (line.empty())
        return otherwise;
    return line.rfind(head, 0) == 0 ? line.substr(head.size()) : line;
}

namespace {

void Require(bool done, const std::string &what) {
    if (!done)
        throw ScriptFailure(what);
}

void RequireReach(const Stage &stage, Element element) {
    Require(Reachable(stage, element), Named(element) + " cannot be reached");
}

// Elements

void ClickReached(Stage &stage, Element element) {
    RequireReach(stage, element);
    Require(stage.person.Click(element), Named(element) + " went out of reach as the last element lost the focus");
}

void Click(Stage &stage, Words words) {
    const Element element = TakeElement(stage, words);
    words.done();
    ClickReached(stage, element);
}

void Hover(Stage &stage, Words words) {
    const Element element = TakeElement(stage, words);
    words.done();
    RequireReach(stage, element);
    stage.person.Hover(element);
}

void TypeField(Stage &stage, Words words) {
    const Element element = TakeElement(stage, words);
    const std::string text = words.take("TEXT");
    words.done();
    RequireReach(stage, element);
    Require(stage.person.Type(element, text), Named(element) + " is no text box");
}

void SelectText(Stage &stage, Words words) {
    const Element element = TakeElement(stage, words);
    const int start = words.takeWhole("START"), length = words.takeWhole("LENGTH");
    words.done();
    RequireReach(stage, element);
    Require(stage.person.Select(element, start, length), Named(element) + " is no text box");
}

void FocusElement(Stage &stage, Words words) {
    const Element element = TakeElement(stage, words);
    words.done();
    RequireReach(stage, element);
    stage.person.GoTo(element);
}

void RestoreForm(Stage &stage, Words words) {
    const std::string form = TakeForm(stage, words);
    words.done();
    Require(stage.person.Restore(form), form + " is not minimised");
}

void Check(Stage &stage, Words words) {
    const Element element = TakeElement(stage, words);
    const std::string state = words.take("on|off");
    words.done();
    if (state != "on" && state != "off")
        throw UsageError("\"" + state + "\" is neither on nor off");
    RequireReach(stage, element);
    if (stage.window.Checked(element) != (state == "on"))
        ClickReached(stage, element);
}

Key KeyOf(const std::string &name) {
    for (const KeyName &key : kKeyNames)
        if (key.name == name)
            return key.key;
    throw UsageError("there is no key " + name);
}

void PressKey(Stage &stage, Words words) {
    const Key key = KeyOf(words.takeLast("KEY"));
    if (!words.empty()) {
        const Element element = TakeElement(stage, words);
        words.done();
        RequireReach(stage, element);
        stage.person.GoTo(element);
    }
    Require(stage.person.Press(key), "no element has the focus");
}

int ItemOf(const WindowState::ElementState &list, const std::string &item) {
    const auto found = std::find(list.items.begin(), list.items.end(), item);
    if (found != list.items.end())
        return static_cast<int>(found - list.items.begin());
    return Words({item}).takeWhole("ITEM");
}

void Choose(Stage &stage, Words words) {
    const Element list = TakeElement(stage, words);
    const std::string item = words.take("ITEM");
    words.done();
    RequireReach(stage, list);
    Require(stage.person.Choose(list, ItemOf(stage.window.state(list), item)),
            Named(list) + " has no item \"" + item + "\"");
}

void Scroll(Stage &stage, Words words) {
    const std::string form = TakeForm(stage, words);
    const int value = words.takeWhole("VALUE");
    words.done();
    const Element bar = OnlyElement(stage, form, FieldKind::ScrollBar);
    RequireReach(stage, bar);
    Require(stage.person.Scroll(bar, value), Named(bar) + " does not go to " + std::to_string(value));
}

void Option(Stage &stage, Words words) {
    const Element element = TakeElement(stage, words);
    words.done();
    if (stage.window.state(element).kind != FieldKind::Option)
        throw UsageError(Named(element) + " is no option");
    ClickReached(stage, element);
}

// Pages of a dialog are its options "Sayfa".
void Page(Stage &stage, Words words) {
    Words page({words.take("FORM"), "Sayfa", words.take("PAGE")});
    words.done();
    Option(stage, page);
}

// A row of a table on the screen, from 0: its first cell takes the focus.
void PickRow(Stage &stage, Words words) {
    const std::string form = TakeForm(stage, words);
    const int row = words.takeWhole("ROW");
    words.done();
    for (const Element element : stage.window.elements())
        if (element.form == form && element.index == row && stage.window.state(element).kind == FieldKind::TextBox)
            return ClickReached(stage, element);
    throw UsageError(form + " has no row " + std::to_string(row));
}

void Close(Stage &stage, Words words) {
    const std::string form = TakeForm(stage, words);
    words.done();
    Require(stage.person.CloseForm(form), form + " cannot be reached");
}

// Pointer

Element TakeSurface(const Stage &stage, Words &words) {
    if (!IsForm(stage, words.peek("PLACE")))
        return kScr;
    const std::string form = words.take("FORM");
    return OnlyElement(stage, form, FieldKind::Picture);
}

// Those named, together; 0 for none.
int TakeButtons(Words &words) {
    int buttons = 0;
    for (;;) {
        if (words.takeIf("left"))
            buttons |= kLeftButton;
        else if (words.takeIf("right"))
            buttons |= kRightButton;
        else if (words.takeIf("middle"))
            buttons |= kMiddleButton;
        else
            return buttons;
    }
}

ScreenPoint ModelPixels(double x, double y, double z) {
    return GorunusModu == 2 ? MeshScreen(x, y, z) : PlateScreen(x, y, z);
}

ScreenPoint NodePlace(int node) {
    Require(node >= 1 && node <= NoktaCount, "there is no node " + std::to_string(node));
    return NodePixels(node);
}

// X Y in pixels | at X Y [Z] in m, through the current view | node N
ScreenPoint TakePlace(Words &words) {
    ScreenPoint place;
    if (words.takeIf("node")) {
        place = NodePlace(words.takeWhole("N"));
    } else if (words.takeIf("at")) {
        const double x = words.takeNumber("X"), y = words.takeNumber("Y");
        place = ModelPixels(x, y, words.empty() ? 0.0 : words.takeNumber("Z"));
    } else {
        place.x = words.takeNumber("X");
        place.y = words.takeNumber("Y");
    }
    words.done();
    return place;
}

struct PointerWords {
    Element surface;
    int button = 0;
    ScreenPoint place;
};

PointerWords TakePointer(const Stage &stage, Words &words, bool needsButton) {
    PointerWords taken;
    taken.surface = TakeSurface(stage, words);
    taken.button = TakeButtons(words);
    if (needsButton && taken.button == 0)
        throw UsageError("left, right or middle is missing");
    taken.place = TakePlace(words);
    RequireReach(stage, taken.surface);
    return taken;
}

void PressPointer(Stage &stage, Words words) {
    const PointerWords p = TakePointer(stage, words, true);
    stage.person.PressAt(p.surface, p.button, p.place.x, p.place.y);
}

void MovePointer(Stage &stage, Words words) {
    const PointerWords p = TakePointer(stage, words, false);
    stage.person.MoveTo(p.surface, p.button, p.place.x, p.place.y);
}

void ReleasePointer(Stage &stage, Words words) {
    const PointerWords p = TakePointer(stage, words, true);
    stage.person.ReleaseAt(p.surface, p.button, p.place.x, p.place.y);
}

void TurnWheel(Stage &stage, Words words) {
    const Element surface = TakeSurface(stage, words);
    const int steps = words.takeWhole("STEPS");
    const ScreenPoint place = TakePlace(words);
    RequireReach(stage, surface);
    stage.person.TurnWheel(surface, steps, place.x, place.y);
}

void Pan(Stage &stage, Words words) {
    const Element surface = TakeSurface(stage, words);
    const double dx = words.takeNumber("DX"), dy = words.takeNumber("DY");
    words.done();
    RequireReach(stage, surface);
    stage.person.PanBy(surface, dx, dy);
}

void ResizeSurface(Stage &stage, Words words) {
    const int width = words.takeWhole("W"), height = words.takeWhole("H");
    words.done();
    stage.Resize(width, height);
}

// The rest

void Leave(Stage &stage, Words words) {
    words.done();
    stage.window.Leave();
}

void Timer(Stage &stage, Words words) {
    const int times = words.empty() ? 1 : words.takeWhole("TIMES");
    words.done();
    for (int i = 0; i < times; ++i)
        stage.person.Tick();
}

void AnswerDialog(Stage &stage, Words words) {
    const std::string path = words.take("PATH");
    words.done();
    stage.Answer(path.empty() ? "" : ScriptPath(path));
}

void OpenProject(Stage &stage, Words words) {
    const std::string path = ScriptPath(words.take("FILE.POL"));
    words.done();
    Require(stage.person.OpenFile(path), "the main window cannot be reached");
}

void TypePoint(Stage &stage, Words words) {
    const std::string point = words.take("POINT");
    words.done();
    RequireReach(stage, kPointEntry);
    Require(stage.person.Type(kPointEntry, point) && stage.person.Press(Key::Enter), "no point is awaited");
}

void Undo(Stage &stage, Words words) {
    words.done();
    ClickReached(stage, kUndoButton);
}

void Redo(Stage &stage, Words words) {
    words.done();
    ClickReached(stage, kRedoButton);
}

void SavePicture(Stage &stage, Words words) {
    const std::string path = ScriptPath(words.take("PATH"));
    words.done();
    WriteWholeFile(path, stage.Png());
}

void Save(Stage &stage, Words words) {
    const std::string path = ScriptPath(words.take("FILE.POL"));
    words.done();
    StoreProject(path, stage.main);
    if (stage.recorder != nullptr)
        stage.recorder->WritePath("save", path);
}

// Words of the language

struct VerbRow {
    const char *word;
    const char *arguments;
    void (*run)(Stage &stage, Words words);
    bool asks; // only asks: goes on when the program has ended
};

// A verb for an act of a person: its words stand in the table of acts.
constexpr VerbRow ActVerb(Act::Kind kind, void (*run)(Stage &, Words), bool asks) {
    return {WordsOf(kind).word, WordsOf(kind).arguments, run, asks};
}

constexpr VerbRow kVerbs[] = {
    ActVerb(Act::Click, Click, false),
    ActVerb(Act::Hover, Hover, false),
    ActVerb(Act::Type, TypeField, false),
    ActVerb(Act::Select, SelectText, false),
    ActVerb(Act::GoTo, FocusElement, false),
    {"check", "[FORM] NAME [INDEX] on|off", Check, false},
    {"option", "[FORM] NAME [INDEX]", Option, false},
    {"page", "FORM PAGE", Page, false},
    {"row", "FORM ROW", PickRow, false},
    ActVerb(Act::Choose, Choose, false),
    ActVerb(Act::Press, PressKey, false),
    ActVerb(Act::Scroll, Scroll, false),
    ActVerb(Act::CloseForm, Close, false),
    ActVerb(Act::Restore, RestoreForm, false),
    ActVerb(Act::PointerPress, PressPointer, false),
    ActVerb(Act::PointerMove, MovePointer, false),
    ActVerb(Act::PointerRelease, ReleasePointer, false),
    ActVerb(Act::Wheel, TurnWheel, false),
    ActVerb(Act::Pan, Pan, false),
    ActVerb(Act::Resize, ResizeSurface, false),
    ActVerb(Act::Leave, Leave, false),
    ActVerb(Act::Tick, Timer, false),
    ActVerb(Act::Answer, AnswerDialog, false),
    ActVerb(Act::Open, OpenProject, false),
    {"type", "POINT", TypePoint, false},
    {"undo", "", Undo, false},
    {"redo", "", Redo, false},
    {"picture", "PATH", SavePicture, true},
    {"save", "FILE.POL", Save, false},
    {"print", "QUERY", PrintQuery, true},
    {"expect", "QUERY VALUE", ExpectQuery, true},
};

const VerbRow &VerbOf(const std::string &word) {
    for (const VerbRow &row : kVerbs)
        if (row.word == word)
            return row;
    throw UsageError("\"" + word + "\" is no word of the language");
}

bool ExpectsEnd(const ScriptLine &line) { return line.words == std::vector<std::string>{"expect", "end"}; }

// expect failure [WORDS]: the command before it failed, with these words in what it said.
bool ExpectsFailure(const ScriptLine &line) {
    return line.words.size() >= 2 && line.words[0] == "expect" && line.words[1] == "failure";
}

class Player {
public:
    Player(Stage &stage, std::string file) : stage_(stage), file_(std::move(file)) {}

    void play(const std::vector<ScriptLine> &lines) {
        for (const ScriptLine &line : lines)
            at(line, [&] { VerbOf(line.words[0]); });
        const bool tells = std::any_of(lines.begin(), lines.end(), ExpectsEnd);
        for (const ScriptLine &line : lines) {
            if (endLine_ > 0 && !tells)
                break;
            at(line, [&] { step(line); });
        }
        tellFailure();
        if (failures_ > 0)
            throw ScriptFailure(file_ + ": " + std::to_string(failures_) + " of its commands failed");
    }

private:
    // Gives every message its place.
    template <class Action>
    void at(const ScriptLine &line, Action action) {
        const std::string place = ScriptPlace(file_, line.number);
        try {
            action();
        } catch (const UsageError &error) {
            throw UsageError(place + error.what());
        } catch (const std::runtime_error &failure) {
            throw ScriptFailure(place + failure.what());
        }
    }

    // A command that failed is a line on standard error, unless the next line expects it; the script goes on.
    void tellFailure() {
        if (failure_.empty())
            return;
        std::cerr << "havuz-cli: " << ScriptPlace(file_, failureLine_) << std::exchange(failure_, {}) << "\n";
        ++failures_;
    }

    void expectFailure(Words words) {
        words.take("expect");
        words.take("failure");
        const std::string wanted = words.empty() ? "" : words.take("WORDS");
        words.done();
        Require(!failure_.empty(), "the command before did not fail");
        const std::string said = std::exchange(failure_, {});
        Require(said.find(wanted) != std::string::npos, "expected a failure with \"" + wanted + "\", got " + said);
    }

    void step(const ScriptLine &line) {
        if (ExpectsFailure(line))
            return expectFailure(Words(line.words));
        tellFailure();
        if (ExpectsEnd(line)) {
            Require(endLine_ > 0, "the program has not ended");
            endTold_ = true;
            return;
        }
        const VerbRow &verb = VerbOf(line.words[0]);
        Require(endLine_ == 0 || (endTold_ && verb.asks),
                "not reached: the program ended in line " + std::to_string(endLine_));
        stage_.main.steps().takeFailure();
        try {
            run(verb, Words({line.words.begin() + 1, line.words.end()}));
            failure_ = stage_.main.steps().takeFailure();
            failureLine_ = line.number;
        } catch (const ProgramEnd &end) {
            endLine_ = line.number;
            Require(end.status == 0, "the program ended: " + lastError());
        }
    }

    void run(const VerbRow &verb, Words words) {
        try {
            verb.run(stage_, std::move(words));
        } catch (const UsageError &error) {
            throw UsageError(std::string(error.what()) + "; " + verb.word + " " + verb.arguments);
        }
    }

    std::string lastError() {
        const std::string line = stage_.LastErrorLine();
        return line.empty() ? "by itself" : line;
    }

    Stage &stage_;
    std::string file_;
    std::string failure_; // of the command before
    int failureLine_ = 0, failures_ = 0;
    int endLine_ = 0; // where the program ended
    bool endTold_ = false;
};

} // namespace

void PlayScript(Stage &stage, const std::string &file, const std::vector<ScriptLine> &lines) {
    Player(stage, file).play(lines);
}

} // namespace havuz
