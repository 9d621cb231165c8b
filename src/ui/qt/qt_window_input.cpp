// What a person does, as acts of the state; the keyboard focus.
#include "model/failure.h"
#include "ui/kit/button.h"
#include "ui/kit/vek_form.h"
#include "ui/qt/qt_window.h"
#include "ui/qt/settings.h"
#include "ui/qt/text.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <optional>
#include <utility>

namespace havuz {

// One act at a time: what comes in while a job runs is not for us.
bool QtWindow::handle(const std::function<void()> &job) {
    if (busy_ || ended_)
        return !ended_;
    busy_ = true;
    try {
        job();
    } catch (const ProgramEnd &end) {
        ended_ = true;
        status_ = end.status;
        timer_.stop();
        if (running_)
            QCoreApplication::exit(end.status);
    }
    busy_ = false;
    if (!ended_ && end_)
        return handle(std::exchange(end_, {}));
    if (!ended_)
        settle();
    return !ended_;
}

void QtWindow::endSoon(std::function<void()> end) {
    end_ = std::move(end);
    if (!busy_)
        handle(std::exchange(end_, {}));
}

// Without a focus of the state's own the keyboard is the surface's.
void QtWindow::settle() {
    followFocus();
    const auto scr = views_.find(kScr);
    if (scr == views_.end())
        return;
    if (!focused() && main_->isActiveWindow())
        scr->second->setFocus(Qt::OtherFocusReason);
    scr->second->update();
}

// Widgets

void QtWindow::clicked(Element element) {
    lastClicked_ = widget(element);
    handle([&] { Click(element); });
}

void QtWindow::hovered(Element element) {
    handle([&] { Hover(element); });
}

// The caret stays where the person has it.
void QtWindow::typed(Element box, const std::string &text) {
    typing_ = box;
    handle([&] { Type(box, text); });
    typing_ = {};
}

void QtWindow::chosen(Element list, int item) {
    handle([&] { Choose(list, item); });
}

void QtWindow::confirmed(Element list, int item) {
    handle([&] {
        Choose(list, item);
        Press(Key::Enter);
    });
}

void QtWindow::scrolled(Element bar, int value) {
    handle([&] { Scroll(bar, value); });
}

void QtWindow::takePointer(Element picture, SurfaceView &view) {
    view.pointer.pressed = [this, picture](int button, double x, double y) {
        handle([&] { PressAt(picture, button, x, y); });
    };
    view.pointer.moved = [this, picture](int held, double x, double y) {
        handle([&] { MoveTo(picture, held, x, y); });
    };
    view.pointer.released = [this, picture](int button, double x, double y) {
        handle([&] { ReleaseAt(picture, button, x, y); });
    };
    view.pointer.wheel = [this, picture](int steps, double x, double y) {
        handle([&] { TurnWheel(picture, steps, x, y); });
    };
    view.pointer.panned = [this, picture](double dx, double dy) { handle([&] { PanBy(picture, dx, dy); }); };
    if (state(picture).look == FieldLook::Surface)
        view.pointer.resized = [this] { fit_.start(); };
}

void QtWindow::fitSurface() {
    SurfaceView &view = *views_[kScr];
    if (!started_ || view.fits() || !view.isVisible())
        return;
    view.takeSize(view.width(), view.height());
    TakeSize(view.width(), view.height());
}

void QtWindow::showRecent() {
    QMenu menu;
    for (const OfferedProject &project : offered_)
        menu.addAction(ToQt(project.text), [this, path = project.path] { handle([&] { OpenFile(path); }); });
    for (const QString &path : RecentProjects())
        menu.addAction(QFileInfo(path).fileName() + QLatin1String("   ") + QFileInfo(path).path(),
                       [this, path] { handle([&] { OpenFile(FromQt(path)); }); });
    if (menu.isEmpty())
        menu.addAction(QStringLiteral("daha önce açılmış proje yok"))->setEnabled(false);
    menu.exec(recent_->mapToGlobal(QPoint(0, recent_->height())));
}

// Focus

// The form comes to the front with it.
void QtWindow::Focus(Element element) {
    WindowState::Focus(element);
    QWidget *form = formWidget(element.form);
    if (focused() == element && form != nullptr && !form->isActiveWindow())
        form->activateWindow();
    followFocus();
}

void QtWindow::followFocus() {
    const std::optional<Element> element = focused();
    QWidget *shown = element ? widget(*element) : nullptr;
    if (shown == nullptr || following_ || !shown->isVisible())
        return;
    following_ = true;
    if (!shown->hasFocus())
        shown->setFocus(Qt::OtherFocusReason);
    following_ = false;
}

void QtWindow::SelectText(Element box, int start, int length) {
    WindowState::SelectText(box, start, length);
    auto *line = qobject_cast<QLineEdit *>(widget(box));
    if (line == nullptr || box == typing_)
        return;
    if (length > 0)
        line->setSelection(start, length);
    else
        line->setCursorPosition(start);
}

void QtWindow::focusTaken(Element element) {
    if (!following_ && !element.name.empty())
        handle([&] { GoTo(element); });
}

// A press brings the form to the front, also where no window manager does, and the focus to boxes and lists.
void QtWindow::pressed(const QWidget &at) {
    if (!at.window()->isActiveWindow() && dynamic_cast<const VekForm *>(at.window()) != nullptr)
        at.window()->activateWindow();
    const Element element = elementOf(&at);
    if (element.name.empty())
        return;
    const FieldKind kind = state(element).kind;
    if (kind == FieldKind::TextBox && !at.hasFocus())
        taken_ = &at;
    if (kind == FieldKind::TextBox || kind == FieldKind::List)
        focusTaken(element);
}

// The text of a box that took the focus by a click is selected, so that typing replaces it; one that a person marked or
// clicked into again is left.
void QtWindow::selectTaken(QWidget &at) {
    auto *line = qobject_cast<QLineEdit *>(&at);
    if (line != nullptr && line == taken_ && !line->hasSelectedText())
        line->selectAll();
    taken_ = nullptr;
}

Element QtWindow::elementOf(const QWidget *widget) const {
    for (; widget != nullptr; widget = widget->parentWidget())
        for (const auto &[element, placed] : made_)
            if (placed.made.widget == widget)
                return element;
    return {};
}

// Keys

static std::optional<Key> KeyOf(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::Enter;
    case Qt::Key_Down:
        return Key::Down;
    case Qt::Key_Up:
        return Key::Up;
    case Qt::Key_Left:
        return Key::Left;
    case Qt::Key_Right:
        return Key::Right;
    case Qt::Key_PageDown:
        return Key::PageDown;
    case Qt::Key_PageUp:
        return Key::PageUp;
    case Qt::Key_Escape:
        return Key::Escape;
    default:
        return {};
    }
}

// Cells and boxes take all of these keys, everything else leaves the arrows to its widget.
static bool TakesKey(FieldKind kind, Key key) {
    return kind == FieldKind::TextBox || kind == FieldKind::CheckBox || key == Key::Enter || key == Key::Escape;
}

bool QtWindow::keyPressed(Element element, int qtKey, bool plain) {
    const std::optional<Key> key = KeyOf(qtKey);
    if (!key || !plain || element.name.empty() || !TakesKey(state(element).kind, *key))
        return false;
    if (*key == Key::Enter && state(element).look == FieldLook::Folders)
        return false; // the list itself takes it
    handle([&] {
        GoTo(element);
        const auto *line = qobject_cast<QLineEdit *>(widget(element));
        if (line != nullptr && (*key == Key::Left || *key == Key::Right)) {
            const int start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
            const int length = static_cast<int>(line->selectedText().size());
            if (start != state(element).caret || length != state(element).selected)
                Select(element, start, length);
        }
        Press(*key);
    });
    return true;
}

// What a typed point begins with, while one is awaited.
bool QtWindow::startsPoint(const QString &text) const {
    return text.size() == 1 && QStringLiteral("0123456789@-.,").contains(text) && reachable(kPointEntry);
}

// Main tools by the standard keys; F1 is the help of the top bar.
static Element ShortcutOf(const QKeyEvent &key) {
    if (key.matches(QKeySequence::New))
        return kNewTool;
    if (key.matches(QKeySequence::Open))
        return kOpenTool;
    if (key.matches(QKeySequence::Save))
        return kSaveTool;
    if (key.matches(QKeySequence::HelpContents))
        return kHelpButton;
    if (key.matches(QKeySequence::Undo))
        return kUndoButton;
    if (key.matches(QKeySequence::Redo))
        return kRedoButton;
    return {};
}

static bool IsInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

// Keeps input from forms that cannot be reached, takes the keys and the focus of elements and the pointer over tools.
bool QtWindow::eventFilter(QObject *object, QEvent *event) {
    if (!object->isWidgetType())
        return false;
    auto *at = static_cast<QWidget *>(object);
    if (IsInput(event->type())) {
        const auto *form = dynamic_cast<VekForm *>(at->window());
        const std::string name = form == nullptr ? "" : FromQt(form->objectName());
        if (form != nullptr && formState(name).minimised)
            handle([&] { Restore(name); }); // without a window manager it never went
        if (form != nullptr && !formReachable(name))
            return true;
        if (event->type() == QEvent::KeyPress && form != nullptr && form->leavesWithActivation &&
            static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
            handle([&] { CloseForm(name); });
            return true;
        }
    }
    if (event->type() == QEvent::KeyPress && at == QApplication::focusWidget()) {
        const auto &key = static_cast<QKeyEvent &>(*event);
        const Element element = elementOf(at);
        const Element tool = ShortcutOf(key);
        const bool takesBack = key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
        const bool own = takesBack && !element.name.empty() &&
                         state(element).kind == FieldKind::TextBox; // a box takes back what was typed into it
        if (!tool.name.empty() && !own && formReachable(kMain)) {
            handle([&] { ClickTool(tool); });
            return true;
        }
        if (auto *line = qobject_cast<QLineEdit *>(at);
            line != nullptr && key.key() == Qt::Key_Comma && state(element).look == FieldLook::Point) {
            line->insert(QStringLiteral("."));
            typed(element, FromQt(line->text()));
            return true;
        }
        if (!element.name.empty() && state(element).look == FieldLook::Surface && startsPoint(key.text())) {
            auto *entry = qobject_cast<QLineEdit *>(widget(kPointEntry));
            handle([&] { GoTo(kPointEntry); });
            entry->setText(key.text());
            typed(kPointEntry, FromQt(key.text()));
            return true;
        }
        const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeypadModifier;
        return keyPressed(element, key.key(), held == Qt::NoModifier);
    }
    if (event->type() == QEvent::MouseButtonPress)
        pressed(*at);
    if (event->type() == QEvent::MouseButtonRelease)
        selectTaken(*at);
    if (event->type() == QEvent::FocusIn)
        if (const auto reason = static_cast<QFocusEvent *>(event)->reason();
            reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
            focusTaken(elementOf(at));
    if (event->type() == QEvent::HoverEnter)
        if (const Element element = elementOf(at); at->window() == main_.get() && !element.name.empty())
            hovered(element);
    return false;
}

} // namespace havuz
