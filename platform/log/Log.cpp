// SPDX-License-Identifier: MIT
#include "platform/log/Log.h"

#include <systemd/sd-journal.h>

#include <cstdio>
#include <unistd.h>

Q_LOGGING_CATEGORY(logHotkeys, "hotkeys")
Q_LOGGING_CATEGORY(logPasteboard, "pasteboard")
Q_LOGGING_CATEGORY(logWindows, "windows")
Q_LOGGING_CATEGORY(logKeyboard, "keyboard")
Q_LOGGING_CATEGORY(logStore, "store")
Q_LOGGING_CATEGORY(logApp, "app")
Q_LOGGING_CATEGORY(logLogin, "login")
Q_LOGGING_CATEGORY(logLaunchAtLogin, "com.tarnwick.LaunchAtLogin/main")

namespace platform {

namespace {

constexpr const char *kJournalSocket = "/run/systemd/journal/socket";

struct Origin
{
    QByteArray subsystem;
    QByteArray category;
};

Origin originOf(const char *category)
{
    const QByteArray name = category == nullptr ? QByteArray("default") : QByteArray(category);
    const qsizetype slash = name.lastIndexOf('/');
    if (slash < 0)
        return {"com.tarnwick.Quillery", name};
    return {name.left(slash), name.mid(slash + 1)};
}

/// syslog priorities, RFC 5424 section 6.2.1.
int priorityOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return 7;
    case QtInfoMsg:
        return 6;
    case QtWarningMsg:
        return 4;
    case QtCriticalMsg:
        return 3;
    case QtFatalMsg:
        return 2;
    }
    return 5;
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    static const bool hasJournal = access(kJournalSocket, F_OK) == 0;
    const Origin origin = originOf(context.category);
    const QByteArray line = text.toUtf8();
    if (hasJournal &&
        sd_journal_send("MESSAGE=%s", line.constData(), "PRIORITY=%d", priorityOf(type),
                        "SUBSYSTEM=%s", origin.subsystem.constData(), "CATEGORY=%s",
                        origin.category.constData(), nullptr) == 0) {
        return;
    }
    std::fprintf(stderr, "%s/%s: %s\n", origin.subsystem.constData(), origin.category.constData(),
                 line.constData());
}

} // namespace

void installLog()
{
    qInstallMessageHandler(handleMessage);
}

} // namespace platform
