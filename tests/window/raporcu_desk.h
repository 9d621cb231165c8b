// The window of the output program under the hand: the program's own code around it, worked by mouse and keyboard.
#pragma once

#include "ui/raporcu/raporcu_window.h"

#include <QAbstractItemView>
#include <QLabel>
#include <functional>
#include <memory>
#include <string>

class QComboBox;
class QPushButton;
class QTableView;

namespace havuz {

class RaporcuDesk {
public:
    RaporcuServices services; // opens as the program does, edits and analyses nothing, unless a test says otherwise
    std::unique_ptr<RaporcuWindow> window;

    RaporcuDesk();
    void open(const std::string &stem); // a window, and the project in it, analysed
    void load(const std::string &stem);

    template <class Widget>
    Widget *find(const char *name) const {
        return window->findChild<Widget *>(QLatin1String(name));
    }
    QString words(const char *name) const { return find<QLabel>(name)->text(); }
    ResultView &view() const;
    int page() const;

    // By hand. False when nothing came of it within a while.
    bool turnTo(int page) const;
    void click(QWidget *widget) const; // in its middle
    void click(QWidget *widget, QPoint at) const;
    void clickCell(const QAbstractItemView &table, int row, int column) const;
    bool pick(const char *list, const QVariant &data) const; // an entry of a list, by the keys
    bool type(const char *box, const std::string &text) const;
    // What a person does in the file dialog that the button opens: types the path, then Enter.
    void save(const char *button, const std::string &path) const;

    static bool wait(const std::function<bool()> &holds);
    // Saves a picture of the window when HAVUZ_SHOTS names a folder for it.
    void shot(const std::string &name) const;
};

} // namespace havuz
