// A hand at the display: mouse and keyboard events that the X server makes as if they came from the devices, so that
// they take the whole way to the program. Pixels of the screen; buttons 1 left, 2 middle, 3 right, 4 and 5 the wheel.
#pragma once

#include <string>

namespace havuz::hand {

void MoveTo(int x, int y);
void Press(int button);
int Presses(); // of buttons, so far
void Release(int button);
// A key by its X name ("Return", "Next", "a"), with the control and the shift key held or without.
void Key(const std::string &name, bool control = false, bool shift = false);
void Write(const std::string &text); // ASCII

// The window that the keyboard goes to, 0 when it goes to none.
unsigned long FocusWindow();

// What a window manager sends to a window whose close button was clicked.
void AskToClose(unsigned long window);

} // namespace havuz::hand
