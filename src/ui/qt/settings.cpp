#include "ui/qt/settings.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace havuz {

static const QString kPlace = QStringLiteral("pencere"), kRecent = QStringLiteral("projeler"),
                     kSound = QStringLiteral("tutarli");

static QSettings Kept() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("havuz"), QStringLiteral("havuz"));
}

QByteArray RememberedPlace() { return Kept().value(kPlace).toByteArray(); }

void RememberPlace(const QByteArray &place) { Kept().setValue(kPlace, place); }

bool RememberedSound() { return Kept().value(kSound, false).toBool(); }

void RememberSound(bool on) { Kept().setValue(kSound, on); }

QStringList RecentProjects() {
    QStringList projects = Kept().value(kRecent).toStringList();
    projects.removeIf([](const QString &path) { return !QFile::exists(path); });
    return projects;
}

void RememberRecentProject(const QString &path) {
    const QString full = QFileInfo(path).absoluteFilePath();
    QStringList projects = Kept().value(kRecent).toStringList();
    projects.removeAll(full);
    projects.prepend(full);
    Kept().setValue(kRecent, projects.mid(0, kRecentProjects));
}

} // namespace havuz
