#include "ui/qt/desktop.h"

#include "model/failure.h"
#include "model/platform.h"
#include "model/working_directory.h"
#include "ui/qt/logout_watch.h"
#include "ui/qt/qt_window.h"
#include "ui/qt/settings.h"
#include "ui/qt/signal_watch.h"
#include "ui/qt/text.h"
#include "ui/window/main_window.h"
#include "ui/window/recorder.h"
#include "ui/window/recovery.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace havuz {

// The program takes a project by its name without the extension.
static std::string CommandLine(const std::string &project) {
    const QFileInfo file(ToQt(project));
    if (file.suffix().compare(QLatin1String("pol"), Qt::CaseInsensitive) != 0)
        return project;
    return project.substr(0, project.size() - 4);
}

static std::string FullPath(const std::string &path) { return FromQt(QFileInfo(ToQt(path)).absoluteFilePath()); }

void SpeakTurkish(QApplication &application) {
    QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
    auto *texts = new QTranslator(&application);
    const QString name = QStringLiteral("qtbase_tr");
    if (texts->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        texts->load(name, QCoreApplication::applicationDirPath()))
        QCoreApplication::installTranslator(texts);
}

// As the start does, a failure ends the program.
static bool MakeWorkingDirectory(const std::string &executable) {
    try {
        PrepareWorkingDirectory(executable);
        return true;
    } catch (const RuntimeFailure &failure) {
        std::fprintf(stderr, "havuz: %s\n", failure.what());
        return false;
    }
}

// A record that cannot be written is told before any work, or when it is over.
static int RunRecorded(QtWindow &window, const DesktopOptions &options) {
    std::ofstream out(std::filesystem::path(options.record), std::ios::binary);
    int status = 1;
    if (out) {
        Recorder recorder(window, out, options.open ? "" : options.project);
        if (options.open && !options.project.empty())
            recorder.WritePath("open", FullPath(options.project));
        status = window.run();
    }
    if (!out) {
        std::fprintf(stderr, "havuz: %s: cannot be written\n", options.record.c_str());
        return 1;
    }
    return status;
}

bool HasDisplay(const char *program) {
#ifdef Q_OS_WIN
    (void)program;
    return true;
#else
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    std::fprintf(stderr, "%s: no display: the window needs an X or Wayland session\n", program);
    return false;
#endif
}

int RunDesktop(int &argc, char **argv, const std::string &executable, const DesktopOptions &options) {
    if (!HasDisplay("havuz")) // Qt would abort the process
        return 1;
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // Qt takes the locale of the system
    QApplication::setApplicationName(QStringLiteral("havuz"));
    QApplication::setDesktopFileName(QStringLiteral("havuz"));
    QApplication::setQuitOnLastWindowClosed(false); // the program ends when it says so
    SpeakTurkish(application);
    QtWindow window;
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/havuz.svg")));
    MainWindow main(window, executable);
    if (!MakeWorkingDirectory(executable))
        return 1;
    main.recovery = std::make_unique<Recovery>(Recovery::UsualDirectory());
    const SignalWatch watch([&](int signal) {
        window.endSoon(
            [&main, signal] { main.EndFor("PROGRAM KAPATILDI (" + platform::SignalName(signal) + ")", 128 + signal); });
    });
    const LogoutWatch logout(
        application, [&] { main.KeepForNextStart("OTURUM SONU"); },
        [&] { window.endSoon([&main] { main.EndFor("OTURUM SONU", 0); }); });
    const bool opens = options.open && !options.project.empty();
    window.handle([&] {
        main.Start(opens ? "" : CommandLine(options.project));
        if (options.project.empty() && RecentProjects().isEmpty())
            main.Prompt("BASLAMAK ICIN havuz kutuphanesi, SONRA auto mesh - YARDIM F1");
    });
    if (opens)
        window.handle([&] { main.OpenAtStart(FullPath(options.project)); });
    return options.record.empty() ? window.run() : RunRecorded(window, options);
}

} // namespace havuz
