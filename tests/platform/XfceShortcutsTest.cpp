// SPDX-License-Identifier: MIT
#include "tests/platform/BusService.h"
#include "tests/platform/SystemShortcutsFixture.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDir>

namespace {

const QString kService = QStringLiteral("org.xfce.Xfconf");

class XfceShortcuts : public SystemShortcutsFixture
{
protected:
    /// The service does not run, and keeps nothing of the user's.
    XfceShortcuts()
    {
        beDesktop("XFCE");
        if (BusService::isRunning(kService))
            const BusService ended(kService);
        QDir(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/xfce4"))
            .removeRecursively();
    }

    static void set(const char *property, const QVariant &value)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            kService, QStringLiteral("/org/xfce/Xfconf"), kService, QStringLiteral("SetProperty"));
        message << QStringLiteral("xfce4-keyboard-shortcuts") << QString::fromUtf8(property)
                << QVariant::fromValue(QDBusVariant(value));
        const QDBusMessage answer = QDBusConnection::sessionBus().call(message);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << qPrintable(answer.errorMessage());
    }
};

} // namespace

TEST_F(XfceShortcuts, aServiceThatDoesNotRunIsNotStarted)
{
    refresh();

    EXPECT_TRUE(shortcuts->enabledShortcuts().empty());
    EXPECT_FALSE(BusService::isRunning(kService));
}

TEST_F(XfceShortcuts, thoseOfCommandsAndWindowsAreReported)
{
    const BusService service(kService);

    refresh();

    EXPECT_TRUE(has(kKeyT, kControl | kAlt)) << "the terminal";
    EXPECT_TRUE(has(kKeyF4, kAlt)) << "closing of a window";
    EXPECT_TRUE(has(83, kControl | kAlt)) << "a workspace, by the keypad";
    EXPECT_FALSE(has(123, 0)) << "the left arrow acts only while a window is moved";
}

TEST_F(XfceShortcuts, theUsersCommandsReplaceTheDefaultOnes)
{
    const BusService service(kService);
    set("/commands/custom/<Super>v", QStringLiteral("xterm"));
    set("/commands/custom/<Super>z", QString());
    set("/commands/custom/<Super>y", 7);
    set("/commands/custom/<Super>v/startup-notify", true);
    refresh();
    EXPECT_FALSE(has(kKeyV, kSuper));
    EXPECT_TRUE(has(kKeyT, kControl | kAlt));

    set("/commands/custom/override", true);

    refresh();
    EXPECT_TRUE(has(kKeyV, kSuper));
    EXPECT_FALSE(has(kKeyZ, kSuper)) << "it does nothing";
    EXPECT_FALSE(has(kKeyY, kSuper)) << "a number is no command";
    EXPECT_FALSE(has(kKeyT, kControl | kAlt)) << "a default one";
    EXPECT_TRUE(has(kKeyF4, kAlt)) << "the window manager's are another list";
}

TEST_F(XfceShortcuts, theyDoNotCountOnAnotherDesktop)
{
    const BusService service(kService);
    beDesktop("GNOME-Classic");

    refresh();

    EXPECT_TRUE(shortcuts->enabledShortcuts().empty());
}
