#include "app/script_stage.h"

#include "app/cli.h"
#include "model/options.h"
#include "ui/commands/tools.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <vector>

namespace havuz {

namespace {

std::string Trimmed(const std::string &text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// What stands on an element or beside it. The text of a box is its content and names nothing.
bool Says(const WindowState::ElementState &state, const std::string &words) {
    if (Trimmed(state.label) == words)
        return true;
    return state.kind != FieldKind::TextBox && state.kind != FieldKind::List && Trimmed(state.text) == words;
}

std::vector<Element> Where(const Stage &stage, const std::function<bool(Element)> &holds) {
    std::vector<Element> found;
    for (const Element element : stage.window.elements())
        if (holds(element))
            found.push_back(element);
    return found;
}

Element Only(std::vector<Element> found, const std::string &words) {
    if (found.empty())
        throw UsageError("there is no " + words);
    if (found.size() > 1)
        throw UsageError("more than one is called " + words + ": " + Named(found[0]) + ", " + Named(found[1]));
    return found[0];
}

// Tools and result options stand in a panel that may be hidden; their group is its index.
bool InSight(const Stage &stage, Element element) {
    const WindowState::ElementState &state = stage.window.state(element);
    return state.look != FieldLook::Tool || stage.window.Shown(Frame(state.group));
}

} // namespace

bool HeadlessStage::Do(const Act &act) {
    if (act.kind == Act::Answer)
        return headless.saveNames.push_back(act.text), true;
    if (act.kind == Act::Resize)
        scr->resize(act.first, act.second);
    return headless.Do(act);
}

std::optional<Stage::Started> HeadlessStage::LastStarted() {
    if (headless.started.empty())
        return {};
    return Started{headless.started.back().program, headless.started.back().argument};
}

std::string Named(Element element) {
    if (element.name.empty())
        return std::string(element.form);
    return std::string(element.form) + " " + std::string(element.name) + " " + std::to_string(element.index);
}

bool IsForm(const Stage &stage, const std::string &word) {
    const std::vector<Element> all = stage.window.elements();
    return std::any_of(all.begin(), all.end(), [&](Element e) { return e.form == word; });
}

std::string TakeForm(const Stage &stage, Words &words) {
    std::string word = words.take("FORM");
    if (!IsForm(stage, word))
        throw UsageError("there is no form " + word);
    return word;
}

Element FormAlone(const Stage &stage, const std::string &form) {
    return {Where(stage, [&](Element e) { return e.form == form; }).front().form, {}, 0};
}

bool Reachable(const Stage &stage, Element element) {
    return stage.window.reachable(element) && InSight(stage, element);
}

Element TakeElement(const Stage &stage, Words &words) {
    const std::string form = IsForm(stage, words.peek("NAME")) ? words.take("FORM") : std::string(kMain);
    const std::string name = words.take("NAME");
    std::vector<Element> found = Where(stage, [&](Element e) { return e.form == form && std::string(e.name) == name; });
    if (found.size() > 1) {
        const int index = words.takeWhole("INDEX");
        std::erase_if(found, [&](Element e) { return e.index != index; });
        return Only(found, form + " " + name + " " + std::to_string(index));
    }
    if (found.empty())
        found = Where(stage, [&](Element e) { return e.form == form && Says(stage.window.state(e), name); });
    if (found.size() > 1)
        std::erase_if(found, [&](Element e) { return !InSight(stage, e); });
    return Only(found, form + " \"" + name + "\"");
}

Element OnlyElement(const Stage &stage, const std::string &form, FieldKind kind) {
    return Only(Where(stage, [&](Element e) { return e.form == form && stage.window.state(e).kind == kind; }),
                "such element of " + form);
}

std::string ScriptPath(const std::string &path) {
    return (std::filesystem::path(CalismaDizini) / path).generic_string();
}

} // namespace havuz
