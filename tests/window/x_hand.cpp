#include "x_hand.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <stdexcept>

namespace havuz::hand {

namespace {

Display *TheDisplay() {
    static Display *display = XOpenDisplay(nullptr);
    if (display == nullptr)
        throw std::runtime_error("no X display");
    return display;
}

void Send() { XSync(TheDisplay(), False); }

// A key together with the shift key where the letter stands on that level.
void PressCode(KeySym symbol, bool control) {
    Display *display = TheDisplay();
    const KeyCode code = XKeysymToKeycode(display, symbol);
    if (code == 0)
        throw std::runtime_error("no key for " + std::to_string(symbol));
    const bool shift =
        XkbKeycodeToKeysym(display, code, 0, 0) != symbol && XkbKeycodeToKeysym(display, code, 0, 1) == symbol;
    const auto hold = [&](KeySym held, bool down) {
        XTestFakeKeyEvent(display, XKeysymToKeycode(display, held), down ? True : False, CurrentTime);
    };
    if (control)
        hold(XK_Control_L, true);
    if (shift)
        hold(XK_Shift_L, true);
    XTestFakeKeyEvent(display, code, True, CurrentTime);
    XTestFakeKeyEvent(display, code, False, CurrentTime);
    if (shift)
        hold(XK_Shift_L, false);
    if (control)
        hold(XK_Control_L, false);
    Send();
}

} // namespace

void MoveTo(int x, int y) {
    XTestFakeMotionEvent(TheDisplay(), -1, x, y, CurrentTime);
    Send();
}

static int presses = 0;

int Presses() { return presses; }

void Press(int button) {
    ++presses;
    XTestFakeButtonEvent(TheDisplay(), static_cast<unsigned>(button), True, CurrentTime);
    Send();
}

void Release(int button) {
    XTestFakeButtonEvent(TheDisplay(), static_cast<unsigned>(button), False, CurrentTime);
    Send();
}

void Key(const std::string &name, bool control, bool shift) {
    const KeySym symbol = XStringToKeysym(name.c_str());
    if (symbol == NoSymbol)
        throw std::runtime_error("no key " + name);
    const KeyCode held = shift ? XKeysymToKeycode(TheDisplay(), XK_Shift_L) : 0;
    if (shift)
        XTestFakeKeyEvent(TheDisplay(), held, True, CurrentTime);
    PressCode(symbol, control);
    if (shift)
        XTestFakeKeyEvent(TheDisplay(), held, False, CurrentTime);
    XFlush(TheDisplay());
}

void Write(const std::string &text) {
    for (const char c : text)
        PressCode(static_cast<KeySym>(static_cast<unsigned char>(c)), false);
}

unsigned long FocusWindow() {
    Window window = None;
    int revert = 0;
    XGetInputFocus(TheDisplay(), &window, &revert);
    return window == PointerRoot ? 0 : window;
}

void AskToClose(unsigned long window) {
    Display *display = TheDisplay();
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
    Send();
}

} // namespace havuz::hand
