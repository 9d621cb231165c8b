#include "ui/forms/form.h"

#include "model/number_text.h"
#include "ui/window/workbench.h"

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

void Form::OnFocus(Element element) {
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
    window.EnableForm(kMain, true);
    if (row_.tool.name.empty())
        return;
    bench.ClearTool(row_.tool);
    bench.RefreshSurface();
}

bool Form::shown() const { return window.FormShown(name_); }

} // namespace havuz
