// What the desktop remembers of the window between two runs: its place, its switch, and the projects opened last.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace havuz {

QByteArray RememberedPlace(); // empty: none
void RememberPlace(const QByteArray &place);

bool RememberedSound(); // the switch "Tutarlı"
void RememberSound(bool on);

constexpr int kRecentProjects = 10;
QStringList RecentProjects(); // the last first; only those that still exist
void RememberRecentProject(const QString &path);

} // namespace havuz
