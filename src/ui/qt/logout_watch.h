// The desktop's session manager: at logging out it asks every program to keep its work, then to go.
#pragma once

#include <QObject>
#include <functional>

class QGuiApplication;

namespace havuz {

class LogoutWatch : public QObject {
public:
    // Going may be called off after the work was kept; the program works on then.
    LogoutWatch(QGuiApplication &application, std::function<void()> keep, std::function<void()> go);

private:
    bool eventFilter(QObject *object, QEvent *event) override;

    QObject *application_;
    std::function<void()> go_;
};

} // namespace havuz
