#include "app/script_queries.h"

#include "app/cli.h"
#include "app/model_names.h"
#include "model/files.h"
#include "model/number_text.h"
#include "ui/window/command_state.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <span>

namespace havuz {

namespace {

std::string YesNo(bool yes) { return yes ? "yes" : "no"; }

struct NamedInt {
    const char *name;
    const int *value;
};

constexpr NamedInt kCounts[] = {
    {"panels", &PanelCount}, {"plates", &PlakCount}, {"meshes", &MeshCount}, {"nodes", &NoktaCount}};

constexpr NamedInt kStates[] = {
    {"CommandState", &CommandState},   {"PickStage", &PickStage},     {"ZoomPending", &ZoomPending},
    {"SelectedPanel", &SelectedPanel}, {"SeciliNo", &SeciliNo},       {"IsoView", &IsoView},
    {"GorunusModu", &GorunusModu},     {"NodesHidden", &NodesHidden}, {"PolyCount", &PolyCount},
    {"EdgeHitCount", &EdgeHitCount},   {"TabloUst", &TabloUst},       {"TabloSatir", &TabloSatir}};

// One value, or without a name all of them.
std::string Listed(std::span<const NamedInt> rows, Words &words) {
    std::string all;
    if (words.empty()) {
        for (const NamedInt &row : rows)
            all += (all.empty() ? "" : " ") + std::string(row.name) + " " + std::to_string(*row.value);
        return all;
    }
    const std::string name = words.take("NAME");
    for (const NamedInt &row : rows)
        if (row.name == name)
            return std::to_string(*row.value);
    throw UsageError("\"" + name + "\" is none of these values");
}

std::string AskCount(Stage & /*stage*/, Words &words) { return Listed(kCounts, words); }
std::string AskState(Stage & /*stage*/, Words &words) { return Listed(kStates, words); }

std::string AskPrompt(Stage &stage, Words & /*words*/) { return stage.window.Text(kAltnot); }

std::string AskLabel(Stage &stage, Words & /*words*/) {
    return stage.window.Shown(kLabel1) ? stage.window.Text(kLabel1) : "";
}

std::string AskField(Stage &stage, Words &words) { return stage.window.Text(TakeElement(stage, words)); }

std::string AskItem(Stage &stage, Words &words) {
    const WindowState::ElementState &list = stage.window.state(TakeElement(stage, words));
    return list.item < 0 ? "" : CheckedElement(list.items, Thing::WindowElement, list.item);
}

std::string AskChecked(Stage &stage, Words &words) { return YesNo(stage.window.Checked(TakeElement(stage, words))); }

std::string AskEnabled(Stage &stage, Words &words) { return YesNo(stage.window.Enabled(TakeElement(stage, words))); }

std::string AskReachable(Stage &stage, Words &words) { return YesNo(Reachable(stage, TakeElement(stage, words))); }

// Of an element, or of a form named alone.
std::string AskShown(Stage &stage, Words &words) {
    Words form = words;
    if (IsForm(stage, form.take("NAME")) && form.empty())
        return YesNo(stage.window.FormShown(words.take("FORM")));
    return YesNo(stage.window.Shown(TakeElement(stage, words)));
}

std::string AskCaption(Stage &stage, Words &words) { return stage.window.formState(TakeForm(stage, words)).caption; }

std::string AskFocus(Stage &stage, Words & /*words*/) {
    const auto focused = stage.window.focused();
    return focused ? Named(*focused) : "";
}

std::string AskModel(Stage & /*stage*/, Words &words) { return ModelValueText(words.take("NAME")); }

std::string LastPart(const std::string &path) { return std::filesystem::path(path).filename().generic_string(); }

// The names alone: where the program stands and where the project lies is another matter on each machine.
std::string AskStarted(Stage &stage, Words & /*words*/) {
    const auto last = stage.LastStarted();
    return last ? LastPart(last->program) + " " + LastPart(last->argument) : "";
}

std::string AskFile(Stage & /*stage*/, Words &words) { return YesNo(FileExists(ScriptPath(words.take("PATH")))); }

struct QueryRow {
    const char *word;
    const char *arguments;
    std::string (*answer)(Stage &stage, Words &words);
    bool number; // a number is expected as a number, the same in six digits, and not as the same text
};

constexpr QueryRow kQueries[] = {
    {"prompt", "", AskPrompt, false},
    {"label", "", AskLabel, false},
    {"state", "[NAME]", AskState, true},
    {"count", "[panels|plates|meshes|nodes]", AskCount, true},
    {"field", "[FORM] NAME [INDEX]", AskField, false},
    {"item", "[FORM] NAME [INDEX]", AskItem, false},
    {"checked", "[FORM] NAME [INDEX]", AskChecked, false},
    {"enabled", "[FORM] NAME [INDEX]", AskEnabled, false},
    {"reachable", "[FORM] NAME [INDEX]", AskReachable, false},
    {"shown", "FORM | [FORM] NAME [INDEX]", AskShown, false},
    {"caption", "FORM", AskCaption, false},
    {"focus", "", AskFocus, false},
    {"model", "NAME", AskModel, true},
    {"started", "", AskStarted, false},
    {"file", "PATH", AskFile, false},
};

const QueryRow &TakeQuery(Words &words) {
    const std::string word = words.take("what is asked");
    for (const QueryRow &row : kQueries)
        if (row.word == word)
            return row;
    throw UsageError("\"" + word + "\" is nothing that can be asked");
}

std::string Answer(Stage &stage, const QueryRow &query, Words words) {
    try {
        std::string answer = query.answer(stage, words);
        words.done();
        return answer;
    } catch (const UsageError &error) {
        throw UsageError(std::string(error.what()) + "; " + query.word + " " + query.arguments);
    }
}

// Stored values have 32 bits: two numbers agree when six digits do.
bool SameNumber(double a, double b) { return std::abs(a - b) <= 5e-7 * std::max(std::abs(a), std::abs(b)); }

bool Agrees(const QueryRow &query, const std::string &got, const std::string &expected) {
    if (got == expected)
        return true;
    const auto a = ReadNumberField(got), b = ReadNumberField(expected);
    return query.number && a && b && SameNumber(*a, *b);
}

} // namespace

void PrintQuery(Stage &stage, Words words) {
    const QueryRow &query = TakeQuery(words);
    std::cout << Answer(stage, query, words) << "\n";
}

void ExpectQuery(Stage &stage, Words words) {
    const QueryRow &query = TakeQuery(words);
    const std::string expected = words.takeLast("the value");
    const std::string got = Answer(stage, query, words);
    if (!Agrees(query, got, expected))
        throw ScriptFailure("expected \"" + expected + "\", got \"" + got + "\"");
}

} // namespace havuz
