// The widget of each kind of element. A widget shows the state that the window keeps and reports what a person does to
// it; it decides nothing.
#pragma once

#include "ui/window/window_state.h"

#include <functional>
#include <string>

class QWidget;
class QLabel;

namespace havuz {

// Where widgets report to.
class PersonInput {
public:
    virtual ~PersonInput() = default;
    virtual void clicked(Element element) = 0;
    virtual void hovered(Element element) = 0;
    virtual void typed(Element box, const std::string &text) = 0;
    virtual void chosen(Element list, int item) = 0;
    virtual void confirmed(Element list, int item) = 0; // by a double click
    virtual void scrolled(Element bar, int value) = 0;
};

struct ElementWidget {
    QWidget *widget = nullptr; // none: a line object
    QLabel *beside = nullptr;  // what stands beside a box or a list
    std::function<void(const WindowState::ElementState &)> show;
};

// element: names that stay valid as long as the widget. Pictures are made by the form's layout, lines by nobody.
ElementWidget MakeWidget(const Field &field, Element element, QWidget *form, PersonInput &input);

} // namespace havuz
