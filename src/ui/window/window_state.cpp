#include "ui/window/window_state.h"

#include "model/failure.h"

#include <algorithm>

namespace havuz {

namespace {

[[noreturn]] void FailUnknown(const std::string &name) {
    throw RuntimeFailure({.fault = Fault::Unknown, .thing = Thing::WindowElement, .text = name});
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

const WindowState::Row &WindowState::find(Element element) const {
    const auto row = elements_.find(Name{std::string(element.form), std::string(element.name), element.index});
    if (row == elements_.end())
        FailUnknown(std::string(element.form) + "." + std::string(element.name) + "(" + std::to_string(element.index) +
                    ")");
    return *row;
}

const WindowState::ElementState &WindowState::state(Element element) const { return find(element).second; }

const WindowState::FormState &WindowState::formState(std::string_view form) const {
    const auto row = forms_.find(form);
    if (row == forms_.end())
        FailUnknown(std::string(form));
    return row->second;
}

WindowState::FormState &WindowState::at(std::string_view form) { return const_cast<FormState &>(formState(form)); }

std::vector<Element> WindowState::elements() const { return {order_.begin(), order_.end()}; }

void WindowState::MakeForm(const FormFields &form) {
    forms_[form.name].caption = form.caption;
    for (const Field &field : form.fields) {
        ElementState made;
        made.kind = field.kind;
        made.look = field.look;
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

void WindowState::activate(std::string_view form) {
    const std::string top = stack_.empty() ? "" : stack_.back();
    if (top == form)
        return;
    std::erase(stack_, form);
    stack_.emplace_back(form);
    if (!top.empty() && events_ != nullptr && formState(top).shown)
        events_->OnDeactivate(forms_.find(top)->first);
}

void WindowState::ShowForm(std::string_view form, Place place, Modality modality, bool onTop) {
    FormState &state = at(form);
    state.shown = true;
    state.place = place;
    state.modality = modality;
    state.onTop = onTop;
    activate(form);
}

void WindowState::HideForm(std::string_view form) {
    at(form).shown = false;
    std::erase(stack_, form);
    if (focus_ && focus_->form == form)
        focus_.reset();
}

// Elements

void WindowState::Move(Element element, double left, double top) {
    ElementState &state = at(element);
    state.left = left;
    state.top = top;
}

void WindowState::SetText(Element element, const std::string &text) {
    ElementState &state = at(element);
    state.text = text;
    state.caret = state.selected = 0;
    changed(element);
}

void WindowState::SetChecked(Element element, bool checked) {
    ElementState &state = at(element);
    if (checked && state.kind == FieldKind::Option)
        for (auto &[name, other] : elements_)
            if (name.form == element.form && other.kind == FieldKind::Option && other.group == state.group)
                other.checked = false;
    state.checked = checked;
    changed(element);
}

void WindowState::Focus(Element element) {
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

void WindowState::SelectText(Element box, int start, int length) {
    ElementState &state = at(box);
    state.caret = start;
    state.selected = length;
}

void WindowState::SetItems(Element list, const std::vector<std::string> &items) {
    ElementState &state = at(list);
    state.items = items;
    state.item = -1;
    changed(list);
}

void WindowState::SetScroll(Element bar, int value, int maximum) {
    ElementState &state = at(bar);
    state.value = value;
    state.maximum = maximum;
    changed(bar);
}

// What a person does

bool WindowState::formReachable(std::string_view form) const {
    const FormState &state = formState(form);
    if (!state.shown || !state.enabled || state.minimised)
        return false;
    const auto isModal = [this](const std::string &name) { return formState(name).modality == Modality::Modal; };
    const auto modal = std::find_if(stack_.rbegin(), stack_.rend(), isModal); // the topmost
    const auto own = std::find(stack_.rbegin(), stack_.rend(), form);
    return modal == stack_.rend() || own <= modal;
}

bool WindowState::reachable(Element element) const {
    const ElementState &s = state(element);
    return s.shown && s.enabled && formReachable(element.form);
}

// A click changes the checked value before the handler runs.
void WindowState::turn(Element element) {
    const ElementState &s = state(element);
    if (s.kind == FieldKind::Option)
        SetChecked(element, true);
    else if (s.kind == FieldKind::Toggle || s.kind == FieldKind::CheckBox)
        SetChecked(element, !s.checked);
}

// The log hears of the end also when the program ends in the act.
template <class Tell>
void WindowState::act(const Act &act, Tell tell) {
    struct Ended {
        ActLog *log;
        ~Ended() {
            if (log != nullptr)
                log->After();
        }
    } ended{log_};
    if (log_ != nullptr)
        log_->Before(act);
    tell();
}

void WindowState::note(const Act &noted) {
    act(noted, [] {});
}

// A click on what is in reach.
bool WindowState::clickNow(Element clicked) {
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

bool WindowState::Click(Element element) {
    if (!reachable(element))
        return false;
    const Element clicked = own(element);
    bool done = false;
    act({.kind = Act::Click, .element = clicked}, [&] { done = clickNow(clicked); });
    return done;
}

bool WindowState::ClickTool(Element tool) {
    if (state(tool).checked && !Click(tool))
        return false;
    return Click(tool);
}

bool WindowState::Type(Element box, const std::string &text) {
    if (!reachable(box) || state(box).kind != FieldKind::TextBox)
        return false;
    act({.kind = Act::Type, .element = own(box), .text = text}, [&] {
        Focus(box);
        SetText(box, text);
        SelectText(box, Characters(text), 0);
    });
    return true;
}

bool WindowState::Select(Element box, int start, int length) {
    if (!reachable(box) || state(box).kind != FieldKind::TextBox)
        return false;
    act({.kind = Act::Select, .element = own(box), .first = start, .second = length},
        [&] { SelectText(box, start, length); });
    return true;
}

// What a key does that the form did not keep: Enter confirms the form, Escape closes it, the caret moves.
void WindowState::pressLeft(Element element, Key key) {
    const ElementState &s = state(element);
    const auto confirm = elements_.find(Name{std::string(element.form), std::string(kConfirmButton), 0});
    if (key == Key::Escape && element.form != kMain)
        events_->OnClose(element.form);
    else if (key == Key::Enter && s.kind == FieldKind::Button)
        clickNow(element);
    else if (key == Key::Enter && confirm != elements_.end() && reachable(confirm->first))
        clickNow(confirm->first);
    else if (key == Key::Right && s.kind == FieldKind::TextBox)
        SelectText(element, std::min(s.caret + s.selected + 1, Characters(s.text)), 0);
    else if (key == Key::Left && s.kind == FieldKind::TextBox)
        SelectText(element, std::max(s.caret - 1, 0), 0);
}

bool WindowState::GoTo(Element element) {
    if (!reachable(element) || focus_ == element)
        return false;
    const Element next = own(element);
    act({.kind = Act::GoTo, .element = next}, [&] { Focus(next); });
    return true;
}

bool WindowState::Press(Key key) {
    if (!focus_ || !reachable(*focus_))
        return false;
    const Element element = *focus_;
    act({.kind = Act::Press, .element = element, .key = key}, [&] {
        if (!events_->OnKey(element, key))
            pressLeft(element, key);
    });
    return true;
}

bool WindowState::Choose(Element list, int item) {
    if (!reachable(list) || item < 0 || item >= static_cast<int>(state(list).items.size()))
        return false;
    act({.kind = Act::Choose, .element = own(list), .first = item}, [&] {
        Focus(list);
        at(list).item = item;
        events_->OnClick(own(list));
    });
    return true;
}

bool WindowState::Scroll(Element bar, int value) {
    if (!reachable(bar) || value < 0 || value > state(bar).maximum)
        return false;
    act({.kind = Act::Scroll, .element = own(bar), .first = value}, [&] {
        at(bar).value = value;
        events_->OnScroll(own(bar));
    });
    return true;
}

bool WindowState::Hover(Element element) {
    if (!reachable(element))
        return false;
    const Element under = own(element);
    act({.kind = Act::Hover, .element = under}, [&] { events_->OnHover(under); });
    return true;
}

bool WindowState::PressAt(Element surface, int button, double x, double y) {
    if (!reachable(surface))
        return false;
    const Element at = own(surface);
    act({.kind = Act::PointerPress, .element = at, .first = button, .x = x, .y = y}, [&] {
        Focus(at);
        events_->OnPress(at, button, 0, x, y);
    });
    return true;
}

bool WindowState::MoveTo(Element surface, int buttonsHeld, double x, double y) {
    if (!reachable(surface))
        return false;
    const Element at = own(surface);
    act({.kind = Act::PointerMove, .element = at, .first = buttonsHeld, .x = x, .y = y},
        [&] { events_->OnMove(at, buttonsHeld, 0, x, y); });
    return true;
}

bool WindowState::ReleaseAt(Element surface, int button, double x, double y) {
    if (!reachable(surface))
        return false;
    const Element at = own(surface);
    act({.kind = Act::PointerRelease, .element = at, .first = button, .x = x, .y = y},
        [&] { events_->OnRelease(at, button, 0, x, y); });
    return true;
}

bool WindowState::TurnWheel(Element surface, int steps, double x, double y) {
    if (!reachable(surface))
        return false;
    const Element at = own(surface);
    act({.kind = Act::Wheel, .element = at, .first = steps, .x = x, .y = y},
        [&] { events_->OnWheel(at, steps, x, y); });
    return true;
}

bool WindowState::PanBy(Element surface, double dx, double dy) {
    if (!reachable(surface))
        return false;
    const Element at = own(surface);
    act({.kind = Act::Pan, .element = at, .x = dx, .y = dy}, [&] { events_->OnPan(at, dx, dy); });
    return true;
}

bool WindowState::OpenFile(const std::string &path) {
    if (!formReachable(kMain))
        return false;
    act({.kind = Act::Open, .element = {}, .text = path}, [&] {
        activate(kMain);
        events_->OnOpen(path);
    });
    return true;
}

bool WindowState::CloseForm(std::string_view form) {
    if (!formReachable(form))
        return false;
    const std::string_view name = forms_.find(form)->first;
    act({.kind = Act::CloseForm, .element = {name, {}, 0}}, [&] { events_->OnClose(name); });
    return true;
}

bool WindowState::Restore(std::string_view form) {
    if (!formState(form).minimised)
        return false;
    const std::string_view name = forms_.find(form)->first;
    act({.kind = Act::Restore, .element = {name, {}, 0}}, [&] { at(name).minimised = false; });
    return true;
}

void WindowState::TakeSize(int width, int height) {
    act({.kind = Act::Resize, .element = kScr, .first = width, .second = height}, [&] { events_->OnResize(); });
}

void WindowState::Leave() {
    act({.kind = Act::Leave, .element = {}}, [&] {
        for (const std::string &form : std::vector(stack_))
            events_->OnDeactivate(forms_.find(form)->first);
    });
}

void WindowState::Tick() {
    act({.kind = Act::Tick, .element = {}}, [&] { events_->OnTimer(); });
}

} // namespace havuz
