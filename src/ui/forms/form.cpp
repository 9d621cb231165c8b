#include "ui/forms/form.h"

#include "model/number_text.h"
#include "ui/window/workbench.h"

#include <algorithm>

namespace havuz {

Form::Form(Workbench &workbench, std::string_view name)
    : bench(workbench), window(workbench.window), row_(RowOfForm(name)), name_(name) {}

Element Form::at(std::string_view element, int index) const { return {name_, element, index}; }

std::string Form::text(std::string_view element, int index) const { return window.Text(at(element, index)); }

void Form::setText(std::string_view element, int index, const std::string &text) {
    window.SetText(at(element, index), text);
}

bool Form::checked(std::string_view element, int index) const { return window.Checked(at(element, index)); }

void Form::setChecked(std::string_view element, int index, bool checked) {
    window.SetChecked(at(element, index), checked);
}

double Form::number(std::string_view element, int index) const { return ParseNumber(text(element, index)); }

void Form::OnClick(Element element) {
    if (element == at(kConfirmButton))
        confirm();
    else if (element == at(kCancelButton))
        OnClose();
}

bool Form::greys(Element element) const { return row_.greysBoxes && window.Kind(element) == FieldKind::TextBox; }

// The text is selected, so that typing replaces it.
void Form::OnFocus(Element element) {
    if (window.Kind(element) == FieldKind::TextBox) {
        const std::string text = window.Text(element);
        const auto letters = std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
        window.SelectText(element, 0, static_cast<int>(letters));
    }
    if (greys(element))
        window.SetColour(element, kWindowColour);
}

void Form::OnLostFocus(Element element) {
    if (greys(element))
        window.SetColour(element, kLeftColour);
}

void Form::open(Place place) {
    if (row_.greysBoxes)
        for (const Field &field : fields())
            if (field.kind == FieldKind::TextBox)
                window.SetColour(at(field.name, field.index), kLeftColour);
    if (row_.disablesMain)
        window.EnableForm(kMain, false);
    window.ShowForm(name_, place, row_.modality, false);
}

void Form::close() {
    window.HideForm(name_);
    if (row_.kind != FormKind::Palette) // a palette has taken nothing of it
        window.EnableForm(kMain, true);
    if (row_.tool.name.empty())
        return;
    bench.ClearTool(row_.tool);
    bench.RefreshSurface();
}

bool Form::shown() const { return window.FormShown(name_); }

} // namespace havuz
