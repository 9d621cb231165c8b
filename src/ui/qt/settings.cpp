#include "ui/qt/settings.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>

namespace havuz {

static const QString kPlace = QStringLiteral("pencere"), kRecent = QStringLiteral("projeler"),
                     kSound = QStringLiteral("tutarli");

// A program that is killed while it writes them may leave their lock without its name in it; QSettings would wait 30 s
// for that one to go stale. A lock that a living program holds stays.
static bool TakeOverLock(const QString &file) {
    QLockFile lock(file + QStringLiteral(".lock"));
    lock.setStaleLockTime(1000); // ms
    return lock.tryLock(3000);
}

static QSettings Kept() {
    QSettings kept(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("havuz"), QStringLiteral("havuz"));
    [[maybe_unused]] static const bool free = TakeOverLock(kept.fileName());
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
