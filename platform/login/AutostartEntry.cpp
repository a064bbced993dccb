// SPDX-License-Identifier: MIT
#include "platform/login/AutostartEntry.h"

#include "platform/login/DesktopEntry.h"
#include "platform/login/ExecLine.h"

#include <QStandardPaths>

#include <optional>

namespace platform::autostart {

namespace {

/// Written by the tools of GNOME and its relatives; the session starts nothing if it is not true.
constexpr auto kSessionSwitch = "X-GNOME-Autostart-enabled";

/// What any desktop takes for true: KDE is the most generous.
bool mayBeTrue(const QString &value)
{
    const QString lower = value.toLower();
    return lower == QLatin1String("true") || lower == QLatin1String("1") ||
           lower == QLatin1String("yes") || lower == QLatin1String("on");
}

/// What every desktop takes for true.
bool isTrue(const QString &value)
{
    return value == QLatin1String("true") || value == QLatin1String("1");
}

bool isSwitchedOff(const DesktopEntry &entry)
{
    return mayBeTrue(entry.string("Hidden")) ||
           (entry.contains(kSessionSwitch) && !isTrue(entry.string(kSessionSwitch)));
}

/// By the Desktop Entry Specification, "OnlyShowIn, NotShowIn": the first name that stands in
/// either list decides.
bool isFor(const DesktopEntry &entry, const QStringList &desktops)
{
    const QStringList only = entry.list("OnlyShowIn");
    const QStringList never = entry.list("NotShowIn");
    for (const QString &desktop : desktops) {
        if (only.contains(desktop))
            return true;
        if (never.contains(desktop))
            return false;
    }
    return !entry.contains("OnlyShowIn");
}

bool isProgram(const QString &name)
{
    return !QStandardPaths::findExecutable(name).isEmpty();
}

bool hasProgram(const DesktopEntry &entry)
{
    const std::optional<QString> program = programOfExecLine(entry.string("Exec"));
    return program && isProgram(*program) &&
           (!entry.contains("TryExec") || isProgram(entry.string("TryExec")));
}

} // namespace

Result<QByteArray> entryStarting(const QString &program)
{
    const std::optional<QString> exec = execLine(program);
    if (!exec) {
        return failure(Error::Kind::Refused, QStringLiteral("no login item can name \"%1\", which "
                                                            "contains both \"%\" and \"=\"")
                                                 .arg(program));
    }
    return QByteArray("[Desktop Entry]\n"
                      "Type=Application\n"
                      "Name=Quillery\n"
                      "TryExec=") +
           DesktopEntry::escaped(program) + "\nExec=" + DesktopEntry::escaped(*exec) +
           "\nTerminal=false\n";
}

QByteArray entryHidingOthers()
{
    return QByteArrayLiteral("[Desktop Entry]\n"
                             "Type=Application\n"
                             "Name=Quillery\n"
                             "Hidden=true\n");
}

bool startsAtLogin(const QByteArray &text, const QStringList &desktops)
{
    const std::optional<DesktopEntry> entry = DesktopEntry::parse(text);
    return entry && entry->string("Type") == QLatin1String("Application") &&
           !isSwitchedOff(*entry) && isFor(*entry, desktops) && hasProgram(*entry);
}

} // namespace platform::autostart
