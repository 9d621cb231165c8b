#include "ui/raporcu/raporcu.h"

#include "ui/qt/desktop.h"
#include "ui/qt/text.h"

#include <QApplication>
#include <QIcon>
#include <clocale>

namespace havuz {

int RunRaporcu(int &argc, char **argv, const std::string &stem, const std::string &version,
               const RaporcuServices &services) {
    if (!HasDisplay("havuz-raporcu")) // Qt would abort the process
        return 1;
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // Qt takes the locale of the system
    QApplication::setApplicationName(QStringLiteral("havuz-raporcu"));
    QApplication::setDesktopFileName(QStringLiteral("havuz-raporcu"));
    QApplication::setApplicationVersion(ToQt(version));
    SpeakTurkish(application);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/havuz.svg")));
    RaporcuWindow window(services);
    window.show();
    if (services.noProject.empty())
        window.load(stem);
    else
        window.loadNothing(services.noProject);
    return QApplication::exec();
}

} // namespace havuz
