// SPDX-License-Identifier: MIT
#include "tests/platform/BusService.h"
#include "tests/platform/SystemShortcutsFixture.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QList>
#include <QSignalSpy>
#include <QTest>

namespace {

const QString kService = QStringLiteral("org.kde.kglobalaccel");

/// A program of KDE with one global shortcut, as KDE's library registers it.
class KdeProgram
{
public:
    explicit KdeProgram(const QString &name)
        : m_action({name, QStringLiteral("action"), name, QStringLiteral("Action")})
    {
        call("doRegister", {m_action});
    }

    void setShortcut(const QList<int> &keys)
    {
        constexpr uint kIsPresent = 2;
        constexpr uint kReplacesTheUsers = 4;
        call("setShortcut", {m_action, QVariant::fromValue(keys), kIsPresent | kReplacesTheUsers});
    }

    void quit() { call("setInactive", {m_action}); }

private:
    static void call(const char *method, const QVariantList &arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            kService, QStringLiteral("/kglobalaccel"), QStringLiteral("org.kde.KGlobalAccel"),
            QString::fromLatin1(method));
        message.setArguments(arguments);
        const QDBusMessage answer = QDBusConnection::sessionBus().call(message);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << qPrintable(answer.errorMessage());
    }

    QStringList m_action;
};

int combined(Qt::KeyboardModifiers modifiers, Qt::Key key)
{
    return QKeyCombination(modifiers, key).toCombined();
}

class KdeShortcuts : public SystemShortcutsFixture
{
};

} // namespace

TEST_F(KdeShortcuts, aServiceThatDoesNotRunIsNotStarted)
{
    beDesktop("KDE");

    refresh();

    EXPECT_TRUE(shortcuts->enabledShortcuts().empty());
    EXPECT_FALSE(BusService::isRunning(kService));
}

TEST_F(KdeShortcuts, thoseOfEveryRunningProgramAreReported)
{
    const BusService service(kService);
    KdeProgram windows(QStringLiteral("windows"));
    windows.setShortcut({combined(Qt::AltModifier, Qt::Key_F4)});
    KdeProgram volume(QStringLiteral("volume"));
    volume.setShortcut({Qt::Key_VolumeMute, combined(Qt::MetaModifier, Qt::Key_Plus)});

    refresh();

    EXPECT_TRUE(has(kKeyF4, kAlt));
    EXPECT_TRUE(has(kKeyMute, 0));
    EXPECT_TRUE(has(24, kSuper | kShift)) << "the plus sign stands above the equals sign";
    EXPECT_EQ(shortcuts->enabledShortcuts().size(), 3U);
}

TEST_F(KdeShortcuts, oneThatIsSwitchedOffIsNotReported)
{
    const BusService service(kService);
    KdeProgram program(QStringLiteral("program"));
    program.setShortcut({combined(Qt::MetaModifier, Qt::Key_V)});
    refresh();
    ASSERT_TRUE(has(kKeyV, kSuper));

    program.setShortcut({});

    refresh();
    EXPECT_TRUE(shortcuts->enabledShortcuts().empty());
}

TEST_F(KdeShortcuts, thoseOfAProgramThatDoesNotRunDoNotCount)
{
    const BusService service(kService);
    KdeProgram program(QStringLiteral("program"));
    program.setShortcut({combined(Qt::MetaModifier, Qt::Key_V)});

    program.quit();

    refresh();
    EXPECT_TRUE(shortcuts->enabledShortcuts().empty());
}

TEST_F(KdeShortcuts, aServiceThatHangsHoldsNothingUp)
{
    const BusService service(kService);
    KdeProgram program(QStringLiteral("program"));
    program.setShortcut({combined(Qt::MetaModifier, Qt::Key_T)});
    beDesktop("GNOME");
    service.hang();
    QSignalSpy refreshed(shortcuts.get(), &platform::SystemShortcuts::refreshed);

    QElapsedTimer time;
    time.start();
    shortcuts->refresh();
    EXPECT_LT(time.elapsed(), 1000);

    // What others answered is there before the hanging one is given up.
    EXPECT_TRUE(QTest::qWaitFor([this] { return has(kKeyV, kSuper); }));
    EXPECT_TRUE(refreshed.isEmpty());
    EXPECT_TRUE(refreshed.wait(10000));
    EXPECT_TRUE(has(kKeyV, kSuper));
    EXPECT_FALSE(has(kKeyT, kSuper));

    service.wake();
    refresh();
    EXPECT_TRUE(has(kKeyT, kSuper));
}
