#include "app/script_player.h"

#include "app/cli.h"
#include "app/project.h"
#include "app/script_queries.h"
#include "model/failure.h"
#include "model/store.h"
#include "model/write_file.h"
#include "ui/window/acts.h"
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

// Acts of a person: each line is read by its row

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
    if (words.takeIf("node"))
        return NodePlace(words.takeWhole("N"));
    const bool inModel = words.takeIf("at");
    const double x = words.takeNumber("X"), y = words.takeNumber("Y");
    return inModel ? ModelPixels(x, y, words.empty() ? 0.0 : words.takeNumber("Z")) : ScreenPoint{x, y};
}

Key TakeKey(Words &words) {
    const std::string name = words.take("KEY");
    for (const KeyName &key : kKeyNames)
        if (key.name == name)
            return key.key;
    throw UsageError("there is no key " + name);
}

int TakeItem(const WindowState::ElementState &list, Words &words) {
    const std::string &item = words.peek("ITEM");
    const auto found = std::find(list.items.begin(), list.items.end(), item);
    if (found == list.items.end())
        return words.takeWhole("ITEM");
    words.take("ITEM");
    return static_cast<int>(found - list.items.begin());
}

std::string TakePath(Words &words) {
    const std::string path = words.take("PATH");
    return path.empty() ? "" : ScriptPath(path);
}

struct TakenAct {
    Act act;
    int times = 1;
};

void TakePart(const Stage &stage, ActPart part, Words &words, TakenAct &taken) {
    Act &act = taken.act;
    switch (part) {
    case ActPart::Element:
        act.element = TakeElement(stage, words);
        break;
    case ActPart::FocusOrElement:
        if (words.left() > 1)
            act.element = TakeElement(stage, words);
        break;
    case ActPart::Form:
        act.element = FormAlone(stage, TakeForm(stage, words));
        break;
    case ActPart::ScrollBar:
        act.element = OnlyElement(stage, TakeForm(stage, words), FieldKind::ScrollBar);
        break;
    case ActPart::Surface:
        act.element =
            IsForm(stage, words.peek("PLACE")) ? OnlyElement(stage, words.take("FORM"), FieldKind::Picture) : kScr;
        break;
    case ActPart::Buttons:
    case ActPart::MaybeButtons:
        act.first = TakeButtons(words);
        if (act.first == 0 && part == ActPart::Buttons)
            throw UsageError("left, right or middle is missing");
        break;
    case ActPart::Place: {
        const ScreenPoint place = TakePlace(words);
        act.x = place.x;
        act.y = place.y;
        break;
    }
    case ActPart::Offset:
        act.x = words.takeNumber("DX");
        act.y = words.takeNumber("DY");
        break;
    case ActPart::Text:
        act.text = words.take("TEXT");
        break;
    case ActPart::Path:
        act.text = TakePath(words);
        break;
    case ActPart::First:
        act.first = words.takeWhole("the number");
        break;
    case ActPart::Second:
        act.second = words.takeWhole("the second number");
        break;
    case ActPart::Item:
        act.first = TakeItem(stage.window.state(act.element), words);
        break;
    case ActPart::Key:
        act.key = TakeKey(words);
        break;
    case ActPart::Times:
        taken.times = words.empty() ? 1 : words.takeWhole("TIMES");
        break;
    case ActPart::None:
        break;
    }
}

std::string Refusal(const ActRow &row, const Act &act, const std::string &last) {
    std::string told;
    for (const char *c = row.refusal; *c != '\0'; ++c)
        told += *c == '%' ? Named(act.element) : *c == '@' ? last : std::string(1, *c);
    return told;
}

void DoAct(Stage &stage, const ActRow &row, Words words) {
    TakenAct taken{.act = {.kind = row.kind}};
    const std::string last = words.last();
    for (const ActPart part : row.parts)
        TakePart(stage, part, words, taken);
    words.done();
    const Act &act = taken.act;
    if (row.reach == ActReach::Element && !act.element.name.empty())
        RequireReach(stage, act.element);
    if (act.kind == Act::Press && !act.element.name.empty())
        stage.GoTo(act.element);
    for (int i = 0; i < taken.times; ++i)
        Require(stage.Do(act) || *row.refusal == '\0', Refusal(row, act, last));
}

// Words that stand for acts

void ClickReached(Stage &stage, Element element) {
    RequireReach(stage, element);
    Require(stage.Click(element), Refusal(RowOf(Act::Click), {.element = element}, ""));
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

void TypePoint(Stage &stage, Words words) {
    const std::string point = words.take("POINT");
    words.done();
    RequireReach(stage, kPointEntry);
    Require(stage.Type(kPointEntry, point) && stage.Press(Key::Enter), "no point is awaited");
}

void Undo(Stage &stage, Words words) {
    words.done();
    ClickReached(stage, kUndoButton);
}

void Redo(Stage &stage, Words words) {
    words.done();
    ClickReached(stage, kRedoButton);
}

// The rest

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

// Those that are no act of a person.
constexpr VerbRow kVerbs[] = {
    {"check", "[FORM] NAME [INDEX] on|off", Check, false},
    {"option", "[FORM] NAME [INDEX]", Option, false},
    {"page", "FORM PAGE", Page, false},
    {"row", "FORM ROW", PickRow, false},
    {"type", "POINT", TypePoint, false},
    {"undo", "", Undo, false},
    {"redo", "", Redo, false},
    {"picture", "PATH", SavePicture, true},
    {"save", "FILE.POL", Save, false},
    {"print", "QUERY", PrintQuery, true},
    {"expect", "QUERY VALUE", ExpectQuery, true},
};

// One of the two is there.
struct Verb {
    const ActRow *act = nullptr;
    const VerbRow *other = nullptr;

    const char *arguments() const { return act != nullptr ? act->arguments : other->arguments; }
    bool asks() const { return other != nullptr && other->asks; }
    void run(Stage &stage, Words words) const {
        act != nullptr ? DoAct(stage, *act, std::move(words)) : other->run(stage, std::move(words));
    }
};

Verb VerbOf(const std::string &word) {
    for (const ActRow &row : kActs)
        if (row.word == word)
            return {&row, nullptr};
    for (const VerbRow &row : kVerbs)
        if (row.word == word)
            return {nullptr, &row};
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
        const Verb verb = VerbOf(line.words[0]);
        Require(endLine_ == 0 || (endTold_ && verb.asks()),
                "not reached: the program ended in line " + std::to_string(endLine_));
        stage_.main.steps().takeFailure();
        try {
            run(verb, line);
            failure_ = stage_.main.steps().takeFailure();
            failureLine_ = line.number;
        } catch (const ProgramEnd &end) {
            endLine_ = line.number;
            Require(end.status == 0, "the program ended: " + lastError());
        }
    }

    void run(const Verb &verb, const ScriptLine &line) {
        try {
            verb.run(stage_, Words({line.words.begin() + 1, line.words.end()}));
        } catch (const UsageError &error) {
            throw UsageError(std::string(error.what()) + "; " + line.words[0] + " " + verb.arguments());
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
