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

Element WindowState::ownNames(Element element) const {
    if (!element.name.empty())
        return own(element);
    const auto form = forms_.find(element.form);
    return {form == forms_.end() ? std::string_view() : std::string_view(form->first), {}, 0};
}

bool WindowState::possible(const Act &act) const {
    const ActRow &row = RowOf(act.kind);
    if (row.reach == ActReach::Element && !reachable(act.element))
        return false;
    if (row.reach == ActReach::Form && !formReachable(act.element.form))
        return false;
    if (row.reach == ActReach::MainForm && !formReachable(kMain))
        return false;
    if (row.on && state(act.element).kind != *row.on)
        return false;
    switch (act.kind) {
    case Act::GoTo:
        return focus_ != act.element;
    case Act::Choose:
        return act.first >= 0 && act.first < static_cast<int>(state(act.element).items.size());
    case Act::Scroll:
        return act.first >= 0 && act.first <= state(act.element).maximum;
    case Act::Restore:
        return formState(act.element.form).minimised;
    default:
        return true;
    }
}

// The log hears of the end also when the program ends in the act.
bool WindowState::Do(const Act &asked) {
    Act act = asked;
    if (act.kind == Act::Press) {
        if (!focus_)
            return false;
        act.element = *focus_;
    }
    if (!possible(act))
        return false;
    act.element = ownNames(act.element);
    struct Ended {
        ActLog *log;
        ~Ended() {
            if (log != nullptr)
                log->After();
        }
    } ended{log_};
    if (log_ != nullptr)
        log_->Before(act);
    return carryOut(act);
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

bool WindowState::ClickTool(Element tool) {
    if (state(tool).checked && !Click(tool))
        return false;
    return Click(tool);
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

// What the act does, in the order of its events.
bool WindowState::carryOut(const Act &act) {
    const Element e = act.element;
    switch (act.kind) {
    case Act::Click:
        return clickNow(e);
    case Act::Type:
        Focus(e);
        SetText(e, act.text);
        SelectText(e, Characters(act.text), 0);
        break;
    case Act::Select:
        SelectText(e, act.first, act.second);
        break;
    case Act::GoTo:
        Focus(e);
        break;
    case Act::Press:
        if (!events_->OnKey(e, act.key))
            pressLeft(e, act.key);
        break;
    case Act::Choose:
        Focus(e);
        at(e).item = act.first;
        events_->OnClick(e);
        break;
    case Act::Scroll:
        at(e).value = act.first;
        events_->OnScroll(e);
        break;
    case Act::Hover:
        events_->OnHover(e);
        break;
    case Act::PointerPress:
        Focus(e);
        events_->OnPress(e, act.first, 0, act.x, act.y);
        break;
    case Act::PointerMove:
        events_->OnMove(e, act.first, 0, act.x, act.y);
        break;
    case Act::PointerRelease:
        events_->OnRelease(e, act.first, 0, act.x, act.y);
        break;
    case Act::Wheel:
        events_->OnWheel(e, act.first, act.x, act.y);
        break;
    case Act::Pan:
        events_->OnPan(e, act.x, act.y);
        break;
    case Act::Resize:
        events_->OnResize();
        break;
    case Act::Open:
        activate(kMain);
        events_->OnOpen(act.text);
        break;
    case Act::CloseForm:
        events_->OnClose(e.form);
        break;
    case Act::Restore:
        at(e.form).minimised = false;
        break;
    case Act::Leave:
        for (const std::string &form : std::vector(stack_))
            events_->OnDeactivate(forms_.find(form)->first);
        break;
    case Act::Tick:
        events_->OnTimer();
        break;
    case Act::Answer: // the question takes it
        break;
    }
    return true;
}

} // namespace havuz
