// The base of every dialog, palette and table: logic over window operations. What its boxes hold is kept by the window;
// a form has no second copy. A form lives as long as its main window.
#pragma once

#include "ui/window/window.h"

#include <string>
#include <vector>

namespace havuz {

class MainWindow;

class Form {
public:
    Form(MainWindow &mainWindow, std::string name, std::string caption);
    virtual ~Form() = default;
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    const std::string &name() const { return name_; }
    const std::string &caption() const { return caption_; }

    // Every element of the form, for the window to make it from.
    virtual std::vector<Field> fields() const = 0;

    // Events of its elements: see WindowEvents. The base takes no notice.
    virtual void OnClick(Element /*element*/) {}
    virtual void OnFocus(Element /*element*/) {}
    virtual void OnLostFocus(Element /*element*/) {}
    virtual bool OnKey(Element /*element*/, Key /*key*/) { return false; }
    virtual void OnScroll(Element /*element*/) {}
    virtual void OnHover(Element /*element*/) {}
    virtual void OnDeactivate() {}
    // Closed by other means than its buttons. The base hides it and enables the main window.
    virtual void OnClose();

protected:
    Element at(std::string_view element, int index = 0) const; // element: a literal
    std::string text(std::string_view element, int index = 0) const;
    void setText(std::string_view element, int index, const std::string &text);
    bool checked(std::string_view element, int index = 0) const;
    void setChecked(std::string_view element, int index, bool checked);
    double number(std::string_view element, int index) const; // through ParseNumber

    // Shows the form at a place in twips. A modeless form disables the main window when asked to.
    void open(Place place, Modality modality, bool disableMain);
    // Hides the form and enables the main window.
    void close();
    bool shown() const;

    MainWindow &main;
    Window &window;

private:
    std::string name_, caption_;
};

} // namespace havuz
