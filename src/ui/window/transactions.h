// Every command that a person gives is a transaction, and this is its one door: what fails leaves the model and the
// window as they were, and the prompt line says what, where and why; what succeeds is a step of undo.
//
// A step ends with the event after which no dialog or table is open and no drag is under way, so that an accepted
// dialog, a closed table and a whole drag are one each.
#pragma once

#include "ui/window/model_history.h"
#include "ui/window/workbench.h"

#include <functional>
#include <string>

namespace havuz {

class Transactions {
public:
    explicit Transactions(Workbench &bench) : bench_(bench) {}

    // The model as it stands is the beginning, and what the project's file holds.
    void begin();

    // Runs the handler of an element's event, that may change the model. The element says what the command is called
    // in the prompt line and in the steps. A RuntimeFailure does not come out of it; ProgramEnd does. Inside a handler
    // that runs already, the inner one fails and is undone alone.
    void edit(Element element, const std::function<void()> &handler);
    // The same for a handler that only looks at the model: no copy is taken.
    void look(Element element, const std::function<void()> &handler);

    // The handler that runs has written the project's file, which is no step of its own; has read it; has read a model
    // that no file of a project holds.
    void saved() { file_ = File::Saved; }
    void opened() { file_ = File::Opened; }
    void openedUnnamed() { file_ = File::Unnamed; }

    void undo();
    void redo();

    bool changed() const; // against the project's file; a true comparison
    // A step has begun and not ended: a dialog or a table is open, a drag is under way.
    bool underWay() const;
    const ModelHistory &history() const { return history_; }
    // What failed since it was last asked for, in English; "" for nothing.
    std::string takeFailure();

    // The model, the steps or the project's names changed; changed says what changed() would.
    std::function<void(bool changed)> afterStep;
    std::function<void(const std::string &command)> atEnd; // a command ends the program

private:
    struct WindowMemory;
    struct Command {
        Element element;
        std::string name; // before the handler ran
    };
    bool attempt(const Command &command, const std::function<void()> &handler, const ModelState *before,
                 const WindowMemory *window);
    void fail(const Command &command, const std::string &turkish, const ModelState *before, const WindowMemory *window);
    void showFailed(Element element);
    void settle(const std::string &name);
    void showState();
    void showCrossed(const std::string &prompt);

    Workbench &bench_;
    ModelHistory history_;
    std::string failure_;
    int depth_ = 0;
    bool open_ = false; // a dialog, a table or a drag has begun a step and not ended it
    enum class File { Untouched, Saved, Opened, Unnamed } file_ = File::Untouched;
};

} // namespace havuz
