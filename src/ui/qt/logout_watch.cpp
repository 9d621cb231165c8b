#include "ui/qt/logout_watch.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

namespace havuz {

LogoutWatch::LogoutWatch(QGuiApplication &application, std::function<void()> keep, std::function<void()> go)
    : application_(&application), go_(std::move(go)) {
    // Called from within the manager's request: the copy is whole before the answer goes out.
    connect(
        &application, &QGuiApplication::commitDataRequest, this,
        [keep = std::move(keep)](QSessionManager &manager) {
            manager.setRestartHint(QSessionManager::RestartNever);
            keep();
        },
        Qt::DirectConnection);
    application.installEventFilter(this);
}

// Qt would close the windows one by one, and the main window asks for a confirmation then.
bool LogoutWatch::eventFilter(QObject *object, QEvent *event) {
    if (object != application_ || event->type() != QEvent::Quit)
        return false;
    go_();
    return true;
}

} // namespace havuz
