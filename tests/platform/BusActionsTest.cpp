// SPDX-License-Identifier: MIT
// What others can ask the running instance for on the bus, and buses that are of no use.
#include "platform/instance/SingleInstance.h"
#include "tests/platform/InstanceFixture.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>

namespace {

class BusActions : public InstanceFixture
{
protected:
    void SetUp() override
    {
        first = start(Bus::With);
        ASSERT_EQ(lineOf(*first), "first");
    }

    void TearDown() override { QDBusConnection::disconnectFromBus(kConnection); }

    /// Calls a method of org.freedesktop.Application.
    QDBusMessage call(const QString &method, const QVariantList &arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("com.tarnwick.Quillery"), QStringLiteral("/com/tarnwick/Quillery"),
            QStringLiteral("org.freedesktop.Application"), method);
        message.setArguments(arguments);
        return QDBusConnection::connectToBus(addressOfBus(), kConnection)
            .call(message, QDBus::Block, kPatience);
    }

    QDBusMessage activateAction(const QString &name)
    {
        return call(QStringLiteral("ActivateAction"), {name, QVariantList(), QVariantMap()});
    }

    static bool isAnswered(const QDBusMessage &answer)
    {
        return answer.type() == QDBusMessage::ReplyMessage && answer.arguments().isEmpty();
    }

    const QString kConnection = QStringLiteral("asker");
    std::unique_ptr<QProcess> first;
};

TEST_F(BusActions, everyActionReachesTheRunningInstance)
{
    for (const QString &name : platform::SingleInstance::actionNames()) {
        EXPECT_TRUE(isAnswered(activateAction(name)));
        EXPECT_EQ(lineOf(*first), name.toUtf8());
    }
}

TEST_F(BusActions, theScenesAreAmongTheActions)
{
    const QStringList names = platform::SingleInstance::actionNames();

    for (const char *scene :
         {"welcome-view", "add-snippet", "add-snippet-copy", "quillery", "settings"})
        EXPECT_TRUE(names.contains(QString::fromLatin1(scene))) << scene;
}

TEST_F(BusActions, activateAndOpenActivate)
{
    EXPECT_TRUE(isAnswered(call(QStringLiteral("Activate"), {QVariantMap()})));
    EXPECT_EQ(lineOf(*first), "activated");

    const QStringList files{QStringLiteral("file:///etc/hostname")};
    EXPECT_TRUE(isAnswered(call(QStringLiteral("Open"), {files, QVariantMap()})));
    EXPECT_EQ(lineOf(*first), "activated");
}

TEST_F(BusActions, theTimeOfTheLaunchIsToldBeforeWhatItLedTo)
{
    const QVariantMap gtk{{QStringLiteral("desktop-startup-id"),
                           QStringLiteral("files-12-host-menu_TIME_TIME4000000000")}};
    EXPECT_TRUE(isAnswered(
        call(QStringLiteral("ActivateAction"), {QStringLiteral("settings"), QVariantList(), gtk})));
    EXPECT_EQ(lineOf(*first), "at 4000000000");
    EXPECT_EQ(lineOf(*first), "settings");

    const QVariantMap token{{QStringLiteral("activation-token"), QStringLiteral("menu_TIME77")}};
    EXPECT_TRUE(isAnswered(call(QStringLiteral("Activate"), {token})));
    EXPECT_EQ(lineOf(*first), "at 77");
    EXPECT_EQ(lineOf(*first), "activated");
}

TEST_F(BusActions, aTokenWithoutATimeTellsNone)
{
    for (const char *id : {"", "5f0c", "menu_TIME", "menu_TIMEx", "menu_TIME-1"}) {
        const QVariantMap token{{QStringLiteral("desktop-startup-id"), QString::fromLatin1(id)}};
        EXPECT_TRUE(isAnswered(call(QStringLiteral("Activate"), {token})));
        EXPECT_EQ(lineOf(*first), "activated") << id;
    }
}

TEST_F(BusActions, anUnknownActionIsAnErrorAndChangesNothing)
{
    EXPECT_EQ(activateAction(QStringLiteral("format-the-disk")).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));

    activateAction(QStringLiteral("settings"));
    EXPECT_EQ(lineOf(*first), "settings");
}

class UselessBus : public InstanceFixture
{
};

TEST_F(UselessBus, oneThatHangsIsNotWaitedFor)
{
    addressOfBus();
    busProcess->sendSignal(SIGSTOP);
    QElapsedTimer clock;
    clock.start();

    const auto first = start(Bus::With);

    EXPECT_EQ(lineOf(*first), "first");
    EXPECT_LT(clock.elapsed(), kPatience / 2);
    const auto second = start(Bus::With);
    expectSecond(*second, *first);
    busProcess->sendSignal(SIGCONT);
}

TEST_F(UselessBus, oneThatEndedIsNone)
{
    addressOfBus();
    busProcess.reset();

    const auto first = start(Bus::With);

    EXPECT_EQ(lineOf(*first), "first");
}

TEST_F(UselessBus, aRunningInstanceThatHangsIsNotWaitedForLong)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");
    sendSignal(*first, SIGSTOP);

    // On another display only the bus knows of the first one.
    const auto second = start(Bus::With, QStringLiteral(":8"));

    EXPECT_EQ(lineOf(*second), "second");
    EXPECT_TRUE(second->waitForFinished(kPatience));
    EXPECT_EQ(second->exitCode(), 0);
    sendSignal(*first, SIGCONT);
    EXPECT_EQ(lineOf(*first), "activated");
}

} // namespace
