#include "raporcu_desk.h"

#include "app/project.h"
#include "ui/qt/text.h"
#include "x_hand.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <cstdlib>

namespace havuz {

static constexpr int kWhile = 20000; // ms

RaporcuDesk::RaporcuDesk() {
    services.open = [](const std::string &path) { OpenProject(path); };
    services.edit = [](const std::string &) { return false; };
    services.analyse = [](const std::string &) { return "no"; };
    services.cli = HAVUZ_CLI;
}

void RaporcuDesk::open(const std::string &stem) {
    window = std::make_unique<RaporcuWindow>(services);
    window->setGeometry(0, 0, 1020, 764); // the display of the tests
    window->show();
    window->activateWindow();
    load(stem);
}

void RaporcuDesk::load(const std::string &stem) {
    window->load(stem);
    wait([this] { return !window->busy(); });
}

ResultView &RaporcuDesk::view() const { return static_cast<ResultView &>(*find<QWidget>("picture")); }

int RaporcuDesk::page() const { return find<QTabWidget>("tabs")->currentIndex(); }

bool RaporcuDesk::wait(const std::function<bool()> &holds) {
    QElapsedTimer clock;
    clock.start();
    while (!holds() && clock.elapsed() < kWhile)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return holds();
}

void RaporcuDesk::click(QWidget *widget, QPoint at) const {
    QCoreApplication::processEvents();
    const QPoint there = widget->mapToGlobal(at);
    hand::MoveTo(there.x(), there.y());
    hand::Press(1);
    hand::Release(1);
}

void RaporcuDesk::click(QWidget *widget) const { click(widget, widget->rect().center()); }

bool RaporcuDesk::turnTo(int page) const {
    QTabBar *bar = find<QTabWidget>("tabs")->tabBar();
    click(bar, bar->tabRect(page).center());
    return wait([&] { return this->page() == page; });
}

void RaporcuDesk::clickCell(const QAbstractItemView &table, int row, int column) const {
    QCoreApplication::processEvents();
    click(table.viewport(), table.visualRect(table.model()->index(row, column)).center());
}

bool RaporcuDesk::pick(const char *name, const QVariant &data) const {
    auto *list = find<QComboBox>(name);
    const int wanted = list->findData(data);
    if (wanted < 0)
        return false;
    click(list);
    if (!wait([&] { return list->view()->isVisible(); }))
        return false;
    hand::Key("Home");
    for (int i = 0; i < wanted; ++i)
        hand::Key("Down");
    hand::Key("Return");
    return wait([&] { return list->currentIndex() == wanted && !list->view()->isVisible(); });
}

bool RaporcuDesk::type(const char *name, const std::string &text) const {
    auto *box = find<QLineEdit>(name);
    click(box);
    if (!wait([&] { return box->hasFocus(); }))
        return false;
    hand::Key("a", true);
    hand::Write(text);
    if (!wait([&] { return FromQt(box->text()) == text; }))
        return false;
    hand::Key("Tab");
    return wait([&] { return !box->hasFocus(); });
}

void RaporcuDesk::save(const char *button, const std::string &path) const {
    QTimer answer; // beside the dialog, which serves its own events
    answer.setInterval(50);
    bool written = false;
    QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        auto *name = dialog == nullptr ? nullptr : dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (name == nullptr || !name->hasFocus())
            return;
        if (!std::exchange(written, true)) {
            hand::Key("a", true);
            hand::Write(path);
        } else if (FromQt(name->text()) == path) {
            hand::Key("Return");
            answer.stop();
        }
    });
    answer.start();
    click(find<QPushButton>(button));
    wait([&] { return !answer.isActive() && QApplication::activeModalWidget() == nullptr; });
}

void RaporcuDesk::shot(const std::string &name) const {
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    if (const char *folder = std::getenv("HAVUZ_SHOTS"))
        window->grab().save(QString::fromStdString(std::string(folder) + "/" + name + ".png"));
}

} // namespace havuz
