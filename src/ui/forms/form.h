// The base of every dialog, palette and table: logic over window operations. What its boxes hold is kept by the window;
// a form has no second copy. A form lives as long as its main window. What the table of forms says of a form - its
// tool, its place, the colours of its boxes, what closes it - is done here.
#pragma once

#include "ui/forms/form_table.h"
#include "ui/window/window.h"

#include <string>
#include <vector>

namespace havuz {

class Workbench;

inline constexpr Colour kLeftColour = Rgb(224, 224, 224); // a box that has lost the focus

class Form {
public:
    Form(Workbench &workbench, std::string_view name); // a name of the table of forms
    virtual ~Form() = default;
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    const std::string &name() const { return name_; }
    const FormRow &row() const { return row_; }

    // Every element of the form, for the window to make it from.
    virtual std::vector<Field> fields() const = 0;

    // Events of its elements: see WindowEvents. The base takes TAMAM and IPTAL, and colours the boxes.
    virtual void OnClick(Element element);
    virtual void OnFocus(Element element);
    virtual void OnLostFocus(Element element);
    virtual bool OnKey(Element /*element*/, Key /*key*/) { return false; }
    virtual void OnScroll(Element /*element*/) {}
    virtual void OnHover(Element /*element*/) {}
    virtual void OnDeactivate() {}
    // A handler of the element failed, and the model is as it was before: shows what the model holds.
    virtual void OnFailed(Element /*element*/) {}
    // Closed by other means than TAMAM.
    virtual void OnClose() { close(); }

protected:
    virtual void confirm() { OnClose(); } // TAMAM

    Element at(std::string_view element, int index = 0) const; // element: a literal
    std::string text(std::string_view element, int index = 0) const;
    void setText(std::string_view element, int index, const std::string &text);
    bool checked(std::string_view element, int index = 0) const;
    void setChecked(std::string_view element, int index, bool checked);
    double number(std::string_view element, int index) const; // through ParseNumber

    // Shows the form, its boxes without the focus; at a place of its own, in twips, where the table has none.
    void open() { open(row_.place); }
    void open(Place place);
    // Hides the form and enables the main window; its tool comes up.
    void close();
    bool shown() const;

    Workbench &bench;
    Window &window;

private:
    bool greys(Element element) const;

    const FormRow &row_;
    std::string name_;
};

} // namespace havuz
