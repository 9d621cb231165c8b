#include "ui/headless_window.h"

#include "model/failure.h"

#include <algorithm>

namespace havuz {

namespace {

// A surface that keeps nothing.
class BlankSurface : public Surface {
public:
    BlankSurface(int width, int height) : width_(width), height_(height) {}
    int width() const override { return width_; }
    int height() const override { return height_; }
    void Clear() override {}
    void Line(int, int, int, int, Colour) override {}
    void Box(int, int, int, int, Colour) override {}
    void FillBox(int, int, int, int, Colour) override {}
    void Point(int, int, Colour) override {}
    void Circle(int, int, int, Colour) override {}
    Colour ReadPoint(int, int) override { return kBackground; }
    void Polygon(std::span<const Pixel>) override {}
    void Text(int, int, const std::string &) override {}

private:
    int width_, height_;
};

constexpr double kFormWidth = 3000.0; // twips: every form is as wide
constexpr int kProgressWidth = 200, kProgressHeight = 20;

[[noreturn]] void FailUnknown(const std::string &name) {
    throw RuntimeFailure(Subscript, "no element " + name);
}

// What the keyboard can go to.
bool TakesFocus(FieldKind kind) {
    switch (kind) {
    case FieldKind::TextBox:
    case FieldKind::Button:
    case FieldKind::Toggle:
    case FieldKind::CheckBox:
    case FieldKind::Option:
    case FieldKind::List:
        return true;
    default:
        return false;
    }
}

int Characters(const std::string &text) {
    return static_cast<int>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

} // namespace

// State

const HeadlessWindow::Row &HeadlessWindow::find(Element element) const {
    const auto row = elements_.find(Name{std::string(element.form), std::string(element.name), element.index});
    if (row == elements_.end())
        FailUnknown(std::string(element.form) + "." + std::string(element.name) + "(" + std::to_string(element.index) +
                    ")");
    return *row;
}

const HeadlessWindow::ElementState &HeadlessWindow::state(Element element) const {
    return find(element).second;
}

const HeadlessWindow::FormState &HeadlessWindow::formState(std::string_view form) const {
    const auto row = forms_.find(form);
    if (row == forms_.end())
        FailUnknown(std::string(form));
    return row->second;
}

HeadlessWindow::FormState &HeadlessWindow::at(std::string_view form) {
    return const_cast<FormState &>(formState(form));
}

std::vector<Element> HeadlessWindow::elements() const {
    return {order_.begin(), order_.end()};
}

void HeadlessWindow::MakeForm(const FormFields &form) {
    forms_[form.name].caption = form.caption;
    for (const Field &field : form.fields) {
        ElementState made;
        made.kind = field.kind;
        made.label = field.label;
        made.text = field.text;
        made.group = field.group;
        made.shown = field.shown;
        made.checked = field.checked;
        const Name name{form.name, field.name, field.index};
        elements_[name] = made;
        order_.push_back(name);
    }
}

// Forms

void HeadlessWindow::activate(std::string_view form) {
    const std::string top = stack_.empty() ? "" : stack_.back();
    if (top == form)
        return;
    std::erase(stack_, form);
    stack_.emplace_back(form);
    if (!top.empty() && events_ != nullptr && formState(top).shown)
        events_->OnDeactivate(forms_.find(top)->first);
}

void HeadlessWindow::ShowForm(std::string_view form, Place place, Modality modality, bool onTop) {
    FormState &state = at(form);
    state.shown = true;
    state.place = place;
    state.modality = modality;
    state.onTop = onTop;
    activate(form);
}

void HeadlessWindow::HideForm(std::string_view form) {
    at(form).shown = false;
    std::erase(stack_, form);
    if (focus_ && focus_->form == form)
        focus_.reset();
}

double HeadlessWindow::FormWidth(std::string_view form) {
    formState(form);
    return kFormWidth;
}

// Elements

void HeadlessWindow::Move(Element element, double left, double top) {
    ElementState &state = at(element);
    state.left = left;
    state.top = top;
}

void HeadlessWindow::SetText(Element element, const std::string &text) {
    ElementState &state = at(element);
    state.text = text;
    state.caret = state.selected = 0;
}

void HeadlessWindow::SetChecked(Element element, bool checked) {
    ElementState &state = at(element);
    if (checked && state.kind == FieldKind::Option)
        for (auto &[name, other] : elements_)
            if (name.form == element.form && other.kind == FieldKind::Option && other.group == state.group)
                other.checked = false;
    state.checked = checked;
}

void HeadlessWindow::Focus(Element element) {
    const Element next = own(element);
    if (focus_ == next)
        return;
    const std::optional<Element> last = focus_;
    focus_ = next;
    activate(next.form);
    if (last && events_ != nullptr)
        events_->OnLostFocus(*last);
    if (focus_ == next && events_ != nullptr)
        events_->OnFocus(next);
}

void HeadlessWindow::SelectText(Element box, int start, int length) {
    ElementState &state = at(box);
    state.caret = start;
    state.selected = length;
}

void HeadlessWindow::SetItems(Element list, const std::vector<std::string> &items) {
    ElementState &state = at(list);
    state.items = items;
    state.item = -1;
}

void HeadlessWindow::SetScroll(Element bar, int value, int maximum) {
    ElementState &state = at(bar);
    state.value = value;
    state.maximum = maximum;
}

// Platform

Surface &HeadlessWindow::Canvas(Element picture) {
    if (picture == kScr)
        return scr_;
    const Name name = find(picture).first;
    std::unique_ptr<Surface> &canvas = canvases_[name];
    if (canvas == nullptr)
        canvas = picture == kOverviewPicture ? std::make_unique<BlankSurface>(scr_.width() / 5, scr_.height() / 5)
                                             : std::make_unique<BlankSurface>(kProgressWidth, kProgressHeight);
    return *canvas;
}

void HeadlessWindow::ResizeSurface(int width, int height) {
    surfaceWidth = width;
    surfaceHeight = height;
}

std::string HeadlessWindow::AskSaveName(const SaveQuestion &question) {
    questions.push_back(question);
    if (saveNames.empty())
        return "";
    std::string name = saveNames.front();
    saveNames.pop_front();
    return name;
}

void HeadlessWindow::StartProgram(const std::string &program, const std::string &argument) {
    if (!programsStart)
        throw RuntimeFailure(File, program + ": cannot be started");
    started.push_back({program, argument});
}

void HeadlessWindow::EndProgram(int status) {
    throw ProgramEnd{status};
}

// What a person does

bool HeadlessWindow::formReachable(std::string_view form) const {
    const FormState &state = formState(form);
    if (!state.shown || !state.enabled || state.minimised)
        return false;
    const auto isModal = [this](const std::string &name) { return formState(name).modality == Modality::Modal; };
    const auto modal = std::find_if(stack_.rbegin(), stack_.rend(), isModal); // the topmost
    const auto own = std::find(stack_.rbegin(), stack_.rend(), form);
    return modal == stack_.rend() || own <= modal;
}

bool HeadlessWindow::reachable(Element element) const {
    const ElementState &s = state(element);
    return s.shown && s.enabled && formReachable(element.form);
}

// A click changes the checked value before the handler runs.
void HeadlessWindow::turn(Element element) {
    const ElementState &s = state(element);
    if (s.kind == FieldKind::Option)
        SetChecked(element, true);
    else if (s.kind == FieldKind::Toggle || s.kind == FieldKind::CheckBox)
        SetChecked(element, !s.checked);
}

bool HeadlessWindow::Click(Element element) {
    if (!reachable(element))
        return false;
    const Element clicked = own(element);
    if (TakesFocus(state(clicked).kind))
        Focus(clicked);
    else
        activate(clicked.form);
    if (!reachable(clicked))
        return false; // what lost the focus has hidden it
    turn(clicked);
    events_->OnClick(clicked);
    return true;
}

bool HeadlessWindow::Type(Element box, const std::string &text) {
    if (!reachable(box) || state(box).kind != FieldKind::TextBox)
        return false;
    Focus(box);
    SetText(box, text);
    SelectText(box, Characters(text), 0);
    return true;
}

// The caret moves for a key that the form did not keep.
bool HeadlessWindow::Press(Key key) {
    if (!focus_ || !reachable(*focus_))
        return false;
    const Element element = *focus_;
    if (events_->OnKey(element, key) || state(element).kind != FieldKind::TextBox)
        return true;
    const ElementState &s = state(element);
    if (key == Key::Right)
        SelectText(element, std::min(s.caret + s.selected + 1, Characters(s.text)), 0);
    else if (key == Key::Left)
        SelectText(element, std::max(s.caret - 1, 0), 0);
    return true;
}

bool HeadlessWindow::Choose(Element list, int item) {
    if (!reachable(list) || item < 0 || item >= static_cast<int>(state(list).items.size()))
        return false;
    Focus(list);
    at(list).item = item;
    events_->OnClick(own(list));
    return true;
}

bool HeadlessWindow::Scroll(Element bar, int value) {
    if (!reachable(bar) || value < 0 || value > state(bar).maximum)
        return false;
    at(bar).value = value;
    events_->OnScroll(own(bar));
    return true;
}

bool HeadlessWindow::Hover(Element element) {
    if (!reachable(element))
        return false;
    underPointer = own(element);
    events_->OnHover(underPointer);
    return true;
}

bool HeadlessWindow::PressAt(Element surface, int button, double x, double y) {
    if (!reachable(surface))
        return false;
    Focus(surface);
    events_->OnPress(own(surface), button, 0, x, y);
    return true;
}

bool HeadlessWindow::MoveTo(Element surface, int buttonsHeld, double x, double y) {
    if (!reachable(surface))
        return false;
    events_->OnMove(own(surface), buttonsHeld, 0, x, y);
    return true;
}

bool HeadlessWindow::ReleaseAt(Element surface, int button, double x, double y) {
    if (!reachable(surface))
        return false;
    events_->OnRelease(own(surface), button, 0, x, y);
    return true;
}

bool HeadlessWindow::CloseForm(std::string_view form) {
    if (!formReachable(form))
        return false;
    events_->OnClose(forms_.find(form)->first);
    return true;
}

void HeadlessWindow::Tick() {
    events_->OnTimer();
}

} // namespace havuz
