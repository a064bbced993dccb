// SPDX-License-Identifier: MIT
#include "tests/platform/SystemShortcutsFixture.h"

#include "platform/hotkeys/HotkeyFactory.h"
#include "platform/hotkeys/system_shortcuts/SystemShortcutsFactory.h"

#include <QDBusConnection>
#include <QProcess>
#include <QSignalSpy>

#include <algorithm>

SystemShortcutsFixture::SystemShortcutsFixture()
    : hotkeys(platform::makeHotkeyService())
    , shortcuts(platform::makeSystemShortcuts(*hotkeys))
{
    // As the program does it when it starts.
    EXPECT_TRUE(QDBusConnection::sessionBus().isConnected());
}

SystemShortcutsFixture::~SystemShortcutsFixture()
{
    qunsetenv("XDG_CURRENT_DESKTOP");
}

void SystemShortcutsFixture::beDesktop(const char *names)
{
    qputenv("XDG_CURRENT_DESKTOP", names);
}

void SystemShortcutsFixture::refresh()
{
    constexpr int kDeadline = 10000; // milliseconds
    QSignalSpy refreshed(shortcuts.get(), &platform::SystemShortcuts::refreshed);
    shortcuts->refresh();
    EXPECT_TRUE(refreshed.isEmpty());
    EXPECT_TRUE(refreshed.wait(kDeadline));
}

bool SystemShortcutsFixture::has(quint32 keyCode, quint32 modifiers) const
{
    const std::vector<platform::SystemShortcut> enabled = shortcuts->enabledShortcuts();
    return std::ranges::find(enabled, platform::SystemShortcut{keyCode, modifiers}) !=
           enabled.end();
}

void SystemShortcutsFixture::run(const QString &program, const QStringList &arguments)
{
    EXPECT_EQ(QProcess::execute(program, arguments), 0)
        << qPrintable(program + u' ' + arguments.join(u' '));
}
