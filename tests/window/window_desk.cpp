#include "window_desk.h"

#include "x_hand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <QStyleOptionSlider>
#include <QTimer>
#include <algorithm>
#include <cstdlib>

namespace havuz {

static constexpr int kWhile = 3000, kQuiet = 40; // ms

WindowDesk::Environment::Environment(const std::string &home) {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(home));
    setenv("XDG_RUNTIME_DIR", home.c_str(), 1);
    std::filesystem::permissions(home, std::filesystem::perms::owner_all);
    std::filesystem::current_path(home);
}

WindowDesk::WindowDesk(const std::string &project) : main(window, HAVUZ_CLI) {
    hand::MoveTo(0, 0);
    window.SetLog(this);
    window.handle([&] { main.Start(project); });
    window.begin();
    waitFor([&] { return window.ended() || window.keyboardInFront(); });
    settle();
}

WindowDesk::~WindowDesk() {
    window.SetLog(nullptr);
    std::filesystem::current_path("/");
}

void WindowDesk::Before(const Act &act) {
    if (act.kind == Act::Tick)
        ++ticks_;
    else
        acts_.push_back(act);
    if (also != nullptr)
        also->Before(act);
}

void WindowDesk::After() {
    if (also != nullptr)
        also->After();
}

bool WindowDesk::waitFor(const std::function<bool()> &holds) {
    QElapsedTimer clock;
    clock.start();
    while (!holds()) {
        if (clock.elapsed() > kWhile)
            return false;
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void WindowDesk::settle() {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < kQuiet)
        QApplication::processEvents(QEventLoop::AllEvents, 5);
}

// An act is taken when it comes for the element after the hand moved; what it does is over then.
bool WindowDesk::comes(Act::Kind kind, Element element, const std::function<void()> &hand) {
    const std::size_t before = acts_.size();
    hand();
    const bool came = waitFor([&] {
        return std::any_of(acts_.begin() + static_cast<std::ptrdiff_t>(before), acts_.end(),
                           [&](const Act &act) { return act.kind == kind && act.element == element; });
    });
    QApplication::processEvents();
    return came;
}

static QPoint Middle(const QWidget &widget) { return widget.mapToGlobal(widget.rect().center()); }

static void ClickOnScreen(QPoint at) {
    hand::MoveTo(at.x(), at.y());
    hand::Press(1);
    hand::Release(1);
}

bool WindowDesk::click(Element element) {
    const QWidget *widget = window.widget(element);
    if (widget == nullptr || !widget->isVisible())
        return false;
    settle(); // the layout of a form that was just shown
    const bool box = window.state(element).kind == FieldKind::TextBox;
    if (box && window.focused() == element)
        return true;
    return comes(box ? Act::GoTo : Act::Click, element, [&] { ClickOnScreen(Middle(*widget)); });
}

bool WindowDesk::type(Element box, const std::string &text) {
    if (!click(box))
        return false;
    if (!waitFor([&] { return window.widget(box)->hasFocus(); }))
        return false;
    hand::Key("a", true);
    if (text.empty())
        return comes(Act::Type, box, [&] { hand::Key("BackSpace"); });
    return comes(Act::Type, box, [&] { hand::Write(text); }) && waitFor([&] { return window.Text(box) == text; });
}

bool WindowDesk::key(const std::string &name, bool control) {
    if (!waitFor([&] { return window.keyboardInFront(); }))
        return false;
    const std::size_t before = acts_.size();
    hand::Key(name, control);
    return waitFor([&] {
        return std::any_of(acts_.begin() + static_cast<std::ptrdiff_t>(before), acts_.end(),
                           [](const Act &act) { return act.kind == Act::Press || act.kind == Act::Click; });
    });
}

static QPoint OnSurface(const WindowDesk &desk, Element surface, double x, double y) {
    return desk.window.widget(surface)->mapToGlobal(QPoint(qRound(x), qRound(y)));
}

bool WindowDesk::move(double x, double y, Element surface) {
    const QPoint at = OnSurface(*this, surface, x, y);
    return comes(Act::PointerMove, surface, [&] { hand::MoveTo(at.x(), at.y()); });
}

bool WindowDesk::press(double x, double y, int button, Element surface) {
    const QPoint at = OnSurface(*this, surface, x, y);
    return comes(Act::PointerPress, surface, [&] {
        hand::MoveTo(at.x(), at.y());
        hand::Press(button);
    });
}

bool WindowDesk::release(double x, double y, int button, Element surface) {
    const QPoint at = OnSurface(*this, surface, x, y);
    return comes(Act::PointerRelease, surface, [&] {
        hand::MoveTo(at.x(), at.y());
        hand::Release(button);
    });
}

// A press may open a dialog, which then keeps the release from the surface.
bool WindowDesk::clickAt(double x, double y) {
    const bool pressed = press(x, y);
    hand::Release(1);
    settle();
    return pressed;
}

bool WindowDesk::cancelAt(double x, double y) { return press(x, y, 3) && release(x, y, 3); }

bool WindowDesk::wheel(int steps, double x, double y) {
    const QPoint at = OnSurface(*this, kScr, x, y);
    return comes(Act::Wheel, kScr, [&] {
        hand::MoveTo(at.x(), at.y());
        for (int i = 0; i < std::abs(steps); ++i) {
            hand::Press(steps > 0 ? 4 : 5);
            hand::Release(steps > 0 ? 4 : 5);
        }
    });
}

bool WindowDesk::choose(Element list, int item) {
    QWidget *widget = window.widget(list);
    QAbstractItemView *view = qobject_cast<QListWidget *>(widget);
    if (auto *combo = qobject_cast<QComboBox *>(widget)) {
        ClickOnScreen(Middle(*combo));
        view = combo->view();
        if (!waitFor([&] { return view->isVisible(); }))
            return false;
        settle();
    }
    if (view == nullptr)
        return false;
    const QRect row = view->visualRect(view->model()->index(item, 0));
    const QPoint at = view->viewport()->mapToGlobal(row.center());
    return comes(Act::Choose, list, [&] { ClickOnScreen(at); });
}

bool WindowDesk::scroll(Element bar, int value) {
    const auto *widget = qobject_cast<QScrollBar *>(window.widget(bar));
    for (int left = value - window.ScrollValue(bar); left != 0; left = value - window.ScrollValue(bar)) {
        QStyleOptionSlider option;
        option.initFrom(widget);
        option.orientation = Qt::Vertical;
        option.maximum = widget->maximum();
        option.pageStep = widget->pageStep();
        option.sliderPosition = option.sliderValue = widget->value();
        option.subControls = QStyle::SC_All;
        const QStyle::SubControl part = left >= 10    ? QStyle::SC_ScrollBarAddPage
                                        : left > 0    ? QStyle::SC_ScrollBarAddLine
                                        : left <= -10 ? QStyle::SC_ScrollBarSubPage
                                                      : QStyle::SC_ScrollBarSubLine;
        const QRect at = widget->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, widget);
        const QPoint middle = widget->mapToGlobal(at.center());
        if (!comes(Act::Scroll, bar, [&] { ClickOnScreen(middle); }))
            return false;
    }
    return true;
}

bool WindowDesk::close(std::string_view form) {
    const QWidget *widget = window.formWidget(form);
    settle();
    return comes(Act::CloseForm, {form, {}, 0}, [&] { hand::AskToClose(static_cast<unsigned long>(widget->winId())); });
}

void WindowDesk::hover(Element element) {
    const QPoint at = Middle(*window.widget(element));
    hand::MoveTo(at.x(), at.y());
    settle();
}

// The menu serves events itself until an entry is chosen: the hand goes on from a timer.
void WindowDesk::openRecent(int entry) {
    QTimer::singleShot(200, [entry] {
        const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu != nullptr && entry < menu->actions().size())
            ClickOnScreen(menu->mapToGlobal(menu->actionGeometry(menu->actions().at(entry)).center()));
    });
    ClickOnScreen(Middle(*window.recentButton()));
    settle();
}

bool TypeAll(WindowDesk &desk, std::initializer_list<const char *> texts) {
    return std::all_of(texts.begin(), texts.end(), [&](const char *text) {
        if (!desk.waitFor([&] { return desk.window.keyboardInFront(); }))
            return false;
        hand::Write(text);
        const auto typed = [&] {
            const auto box = desk.window.focused();
            return box && desk.window.Text(*box) == text;
        };
        return desk.waitFor(typed) && desk.key("Return");
    });
}

void WindowDesk::shot(const std::string &name) {
    settle();
    if (const char *folder = std::getenv("HAVUZ_SHOTS"))
        QApplication::primaryScreen()->grabWindow(0).save(
            QString::fromStdString(std::string(folder) + "/" + name + ".png"));
}

} // namespace havuz
