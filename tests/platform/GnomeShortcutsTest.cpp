// SPDX-License-Identifier: MIT
#include "tests/platform/SystemShortcutsFixture.h"

namespace {

const QString kShell = QStringLiteral("org.gnome.shell.keybindings");
const QString kMediaKeys = QStringLiteral("org.gnome.settings-daemon.plugins.media-keys");
const QString kOwnPath =
    QStringLiteral("/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/custom0/");

class GnomeShortcuts : public SystemShortcutsFixture
{
protected:
    GnomeShortcuts() { beDesktop("ubuntu:GNOME"); }

    ~GnomeShortcuts() override
    {
        run(QStringLiteral("gsettings"), {QStringLiteral("reset-recursively"), kShell});
        run(QStringLiteral("gsettings"), {QStringLiteral("reset-recursively"), kMediaKeys});
        run(QStringLiteral("setxkbmap"), {QStringLiteral("us")});
    }

    static void set(const QString &schema, const char *key, const QString &value)
    {
        run(QStringLiteral("gsettings"),
            {QStringLiteral("set"), schema, QString::fromLatin1(key), value});
    }

    /// The user adds a shortcut of their own for a program.
    static void addOwn(const QString &accelerator)
    {
        const QString schema = kMediaKeys + QStringLiteral(".custom-keybinding:") + kOwnPath;
        set(kMediaKeys, "custom-keybindings", QStringLiteral("['%1']").arg(kOwnPath));
        set(schema, "command", QStringLiteral("xterm"));
        set(schema, "binding", accelerator);
    }
};

} // namespace

TEST_F(GnomeShortcuts, thoseOfEverySchemaAreReported)
{
    refresh();

    EXPECT_TRUE(has(kKeyV, kSuper)) << "the shell's message tray";
    EXPECT_TRUE(has(kKeyF4, kAlt)) << "the window manager's closing of a window";
    EXPECT_TRUE(has(kKeyAboveTab, kSuper)) << "the window manager's switching in a group";
    EXPECT_TRUE(has(kKeyMute, 0)) << "the settings daemon's fixed media keys";
    EXPECT_TRUE(has(kKeyMute, kAlt));
    EXPECT_TRUE(has(35, kSuper)) << "mutter's switching of monitors";
    EXPECT_TRUE(has(53, kSuper)) << "mutter's giving back of the shortcuts, on Wayland";
    EXPECT_FALSE(has(kKeyT, kControl | kAlt));
    EXPECT_FALSE(has(0, 0));
}

TEST_F(GnomeShortcuts, oneThatIsSwitchedOffIsNotReported)
{
    set(kShell, "toggle-message-tray", QStringLiteral("['<Super>m']"));
    refresh();
    EXPECT_FALSE(has(kKeyV, kSuper));
    EXPECT_TRUE(has(46, kSuper));

    set(kShell, "toggle-message-tray", QStringLiteral("[]"));
    refresh();
    EXPECT_FALSE(has(46, kSuper));

    set(kShell, "toggle-message-tray", QStringLiteral("['disabled', '']"));
    refresh();
    EXPECT_FALSE(has(46, kSuper));
    EXPECT_TRUE(has(kKeyF4, kAlt));
}

TEST_F(GnomeShortcuts, theUsersOwnAreReported)
{
    addOwn(QStringLiteral("<Primary><Alt>t"));
    refresh();
    EXPECT_TRUE(has(kKeyT, kControl | kAlt));

    addOwn(QString());
    refresh();
    EXPECT_FALSE(has(kKeyT, kControl | kAlt));
}

TEST_F(GnomeShortcuts, theLayoutInUseSaysWhichKeyIsMeant)
{
    addOwn(QStringLiteral("<Primary><Alt>z"));
    refresh();
    EXPECT_TRUE(has(kKeyZ, kControl | kAlt));
    EXPECT_FALSE(has(kKeyY, kControl | kAlt));

    run(QStringLiteral("setxkbmap"), {QStringLiteral("de")});
    refresh();
    EXPECT_FALSE(has(kKeyZ, kControl | kAlt));
    EXPECT_TRUE(has(kKeyY, kControl | kAlt));
}

TEST_F(GnomeShortcuts, theyDoNotCountOnAnotherDesktop)
{
    beDesktop("KDE");
    refresh();
    EXPECT_TRUE(shortcuts->enabledShortcuts().empty());

    qunsetenv("XDG_CURRENT_DESKTOP");
    refresh();
    EXPECT_TRUE(shortcuts->enabledShortcuts().empty());
}

TEST_F(GnomeShortcuts, withoutTheProgramThatReadsThemThereAreNone)
{
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nonexistent");

    refresh();

    qputenv("PATH", path);
    EXPECT_TRUE(shortcuts->enabledShortcuts().empty());
}

TEST_F(GnomeShortcuts, askingAnewBeforeTheAnswerCountsOnce)
{
    shortcuts->refresh();
    refresh();

    EXPECT_TRUE(has(kKeyV, kSuper));
}
