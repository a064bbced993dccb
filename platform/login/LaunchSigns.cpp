// SPDX-License-Identifier: MIT
#include "platform/login/LaunchSigns.h"

#include <QFile>
#include <QList>

#include <algorithm>

#include <unistd.h>

namespace platform {

namespace {

/// Named after the entry's file by systemd-xdg-autostart-generator(8).
constexpr auto kUnit = "/app-com.tarnwick.Quillery@autostart.service";

QByteArray controlGroupsOfThisProcess()
{
    QFile file(QStringLiteral("/proc/self/cgroup"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isFirstOfTheUnit(const LaunchSigns &signs)
{
    if (signs.unitProcess != QByteArray::number(signs.process))
        return false;
    const QList<QByteArray> groups = signs.controlGroups.split('\n');
    return std::any_of(groups.begin(), groups.end(),
                       [](const QByteArray &group) { return group.endsWith(kUnit); });
}

/// The socket of a session manager, "local/host:@/tmp/.ICE-unix/1234", is named after its process
/// by libICE. There may be several, separated by commas.
bool isChildOfTheSessionManager(const LaunchSigns &signs)
{
    if (signs.autostartId.isEmpty())
        return false;
    const QByteArray parent = "/.ICE-unix/" + QByteArray::number(signs.parent);
    const QList<QByteArray> sockets = signs.sessionManager.split(',');
    return std::any_of(sockets.begin(), sockets.end(),
                       [&parent](const QByteArray &socket) { return socket.endsWith(parent); });
}

} // namespace

LaunchSigns LaunchSigns::ofThisProcess()
{
    return {controlGroupsOfThisProcess(),
            qgetenv("SYSTEMD_EXEC_PID"),
            qgetenv("DESKTOP_AUTOSTART_ID"),
            qgetenv("SESSION_MANAGER"),
            getpid(),
            getppid()};
}

bool isStartedFromEntry(const LaunchSigns &signs)
{
    return isFirstOfTheUnit(signs) || isChildOfTheSessionManager(signs);
}

} // namespace platform
