// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

namespace platform {

/// What a process can know about who started it.
struct LaunchSigns
{
    QByteArray controlGroups;  ///< /proc/self/cgroup
    QByteArray unitProcess;    ///< SYSTEMD_EXEC_PID: the process that systemd itself started
    QByteArray autostartId;    ///< DESKTOP_AUTOSTART_ID, from a session manager
    QByteArray sessionManager; ///< SESSION_MANAGER: where the session manager listens
    qint64 process = 0;
    qint64 parent = 0;

    static LaunchSigns ofThisProcess();
};

/// Whether these are the signs of a process that the desktop started from our autostart entry.
///
/// Two kinds of desktop leave signs. Where systemd runs the session (GNOME, Plasma), the process is
/// the first of the unit that systemd-xdg-autostart-generator made of the entry. Where a session
/// manager starts the entries itself (MATE 1.26, GNOME 43 without systemd), it is a child of that
/// manager and got an id from it. Both leave signs that children inherit, so that they count only
/// together with the number of the process. Other sessions, as Xfce or a bare one with dex, leave
/// none.
bool isStartedFromEntry(const LaunchSigns &signs);

} // namespace platform
