// A desk with a real display: the whole program in its Qt window, worked by mouse and keyboard events of the X server.
// The model and the state of the window can be read at any time.
#pragma once

#include "program_folder.h"
#include "support.h"
#include "ui/qt/qt_window.h"
#include "ui/window/main_window.h"

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace havuz {

class WindowDesk : public ActLog {
public:
    explicit WindowDesk(const std::string &project = ""); // path without extension
    ~WindowDesk() override;

    struct Environment {
        explicit Environment(const std::string &home); // settings and the lock of the running instance
    };
    ProgramFolder program;
    TemporaryFolder home;
    Environment environment{home.path()};
    // A window that keeps what it starts and what it reports.
    struct ListeningWindow : QtWindow {
        std::string program, argument, error;
        void StartProgram(const std::string &started, const std::string &with) override {
            program = started;
            argument = with;
        }
        void ReportError(const std::string &line) override { error = line; }
        // Whether the keyboard is at the form in front; palettes leave it where it was.
        bool keyboardInFront() const {
            const QWidget *form = formWidget(front());
            return form == nullptr || form->isActiveWindow() || form->testAttribute(Qt::WA_ShowWithoutActivating);
        }
    } window;
    MainWindow main;

    // By hand. False when the program did not take it as such an act within a while.
    bool click(Element element);
    bool type(Element box, const std::string &text);
    bool key(const std::string &name, bool control = false);
    bool press(double x, double y, int button = 1, Element surface = kScr);
    bool move(double x, double y, Element surface = kScr);
    bool release(double x, double y, int button = 1, Element surface = kScr);
    bool clickAt(double x, double y);  // left, and lets go
    bool cancelAt(double x, double y); // the same with the right button
    bool wheel(int steps, double x, double y);
    bool choose(Element list, int item);
    bool scroll(Element bar, int value); // by pages and single steps
    bool close(std::string_view form);   // what a window manager sends when its button is clicked
    void hover(Element element);
    void openRecent(int entry); // of the menu of recent projects

    // Serves events until it holds, up to a while.
    bool waitFor(const std::function<bool()> &holds);
    void settle(); // until nothing more comes

    // Saves a picture of the whole screen, when HAVUZ_SHOTS names a folder for it.
    void shot(const std::string &name);

    const std::vector<Act> &acts() const { return acts_; }
    int ticks() const { return ticks_; } // of the 100 ms timer
    ActLog *also = nullptr;              // hears of the acts as well

private:
    void Before(const Act &act) override;
    void After() override;
    bool comes(Act::Kind kind, Element element, const std::function<void()> &hand);

    std::vector<Act> acts_; // but for the timer's
    int ticks_ = 0;
};

// Into whatever has the keyboard, and Enter behind each.
bool TypeAll(WindowDesk &desk, std::initializer_list<const char *> texts);

} // namespace havuz
