// The program itself as a process on the display, with a program folder and a home of its own.
#pragma once

#include "program_folder.h"
#include "support.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <functional>
#include <memory>
#include <string>

namespace havuz {

inline constexpr int kPatience = 20000; // ms, on a busy machine

struct Machine {
    ProgramFolder program;
    TemporaryFolder home;

    std::unique_ptr<QProcess> start(const QStringList &arguments, const QStringList &without = {}) const {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "XDG_STATE_HOME"})
            environment.insert(name, QString::fromStdString(home.path()));
        for (const QString &name : without)
            environment.remove(name);
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(QString::fromStdString(home.path()));
        process->start(HAVUZ, arguments);
        return process;
    }
};

// Status of the end, -1 when it does not come.
inline int StatusOf(QProcess &process) {
    return process.waitForFinished(kPatience) && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

inline bool Comes(const std::function<bool()> &holds, unsigned long step = 20) {
    QElapsedTimer clock;
    clock.start();
    while (!holds()) {
        if (clock.elapsed() > kPatience)
            return false;
        QThread::msleep(step);
    }
    return true;
}

} // namespace havuz
