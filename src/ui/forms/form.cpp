#include "ui/forms/form.h"

#include "model/number_text.h"
#include "ui/window/main_window.h"

namespace havuz {

Form::Form(MainWindow &mainWindow, std::string name, std::string caption)
    : main(mainWindow), window(mainWindow.window), name_(std::move(name)), caption_(std::move(caption)) {}

void Form::OnClose() { close(); }

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

void Form::open(Place place, Modality modality, bool disableMain) {
    if (disableMain)
        window.EnableForm(kMain, false);
    window.ShowForm(name_, place, modality, false);
}

void Form::close() {
    window.HideForm(name_);
    window.EnableForm(kMain, true);
}

bool Form::shown() const { return window.FormShown(name_); }

} // namespace havuz
