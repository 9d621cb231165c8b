#include "ui/qt/programs.h"

#include "ui/qt/text.h"

#include <QProcess>

namespace havuz {

static QStringList List(const std::vector<std::string> &arguments) {
    QStringList list;
    for (const std::string &a : arguments)
        list.append(ToQt(a));
    return list;
}

bool StartDetached(const std::string &program, const std::vector<std::string> &arguments) {
    return QProcess::startDetached(ToQt(program), List(arguments));
}

std::string RunToItsEnd(const std::string &program, const std::vector<std::string> &arguments) {
    QProcess process;
    process.start(ToQt(program), List(arguments));
    if (!process.waitForFinished(-1))
        return program + ": cannot be started";
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    const std::string words = FromQt(QString::fromUtf8(process.readAllStandardError()).trimmed());
    return words.empty() ? program + ": ended with " + std::to_string(process.exitCode()) : words;
}

} // namespace havuz
