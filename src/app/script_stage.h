// What a script plays on: the whole program in a window, and a person at it. Elements of its forms are found from
// words.
#pragma once

#include "app/pictures.h"
#include "app/script_lines.h"
#include "ui/window/headless_window.h"
#include "ui/window/main_window.h"
#include "ui/window/recorder.h"

#include <optional>
#include <stdexcept>
#include <string>

namespace havuz {

// An action that cannot be done or an expectation that does not hold: ends the script with status 1.
class ScriptFailure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

class Stage : public Person {
public:
    struct Started {
        std::string program, argument;
    };
    Stage(WindowState &state, MainWindow &program) : window(state), main(program) {}

    WindowState &window;
    MainWindow &main;
    Recorder *recorder = nullptr; // where one listens

    // Person: a size of SCR is taken before it is told, an answer waits for the next file dialog.
    virtual std::string Png() = 0;                    // SCR as it is now
    virtual std::optional<Started> LastStarted() = 0; // program
    virtual std::string LastErrorLine() = 0;          // "" for none
};

// On a window without a platform.
struct HeadlessProgram {
    explicit HeadlessProgram(const std::string &executable) : program(headless, executable) {}

    std::unique_ptr<PictureSurface> scr = Pictures().surface(1010, 600); // pixels, on a screen of 1024 x 768
    HeadlessWindow headless{*scr};
    MainWindow program;
};

class HeadlessStage : private HeadlessProgram, public Stage {
public:
    explicit HeadlessStage(const std::string &executable) : HeadlessProgram(executable), Stage(headless, program) {}

    bool Do(const Act &act) override;
    std::string Png() override { return scr->png(); }
    std::optional<Started> LastStarted() override;
    std::string LastErrorLine() override { return headless.errors.empty() ? "" : headless.errors.back(); }
};

// [FORM] NAME [INDEX]: without a form the main one. NAME is the element's name, or what stands on or beside it, or its
// tooltip. A name that several elements share takes the index, and one that belongs to one element takes none. Of tools
// with the same tooltip, the one in sight. Nothing or more than one found is UsageError.
Element TakeElement(const Stage &stage, Words &words);

bool IsForm(const Stage &stage, const std::string &word);
std::string TakeForm(const Stage &stage, Words &words);
Element FormAlone(const Stage &stage, const std::string &form); // no name

// Whether a person can reach the element: also the panel of a tool is in sight.
bool Reachable(const Stage &stage, Element element);

// The form's only element of a kind. None or several is UsageError.
Element OnlyElement(const Stage &stage, const std::string &form, FieldKind kind);

// "FORM NAME INDEX" for messages; "FORM" of a form alone.
std::string Named(Element element);

// A path as a script means it: from the working directory.
std::string ScriptPath(const std::string &path);

} // namespace havuz
