// VekForm: a top-level window of the program: the main window, a dialog, a table, a palette, a popup. It never closes
// by itself: that a person wants to close it is only reported.
#pragma once

#include <QWidget>
#include <functional>

namespace havuz {

class VekForm : public QWidget {
public:
    // owner: the main window, none for itself. flags: what kind of window it is.
    VekForm(const QString &name, QWidget *owner, Qt::WindowFlags flags);

    bool leavesWithActivation = false; // goes when another window is activated
    std::function<void()> closeAsked;
    std::function<void()> activated;
    std::function<void()> restored;                   // no longer minimised
    std::function<void(const QString &path)> dropped; // a file; none: takes no drops

private:
    void takeUsualSize();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};

} // namespace havuz
