// SPDX-License-Identifier: MIT
// One instance per session, however its starts reach each other.
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int kPatience = 10000; // milliseconds

class SingleInstance : public ::testing::Test
{
protected:
    enum class Bus { With, Without };

    /// Starts the program on a display of that name; it opens none.
    std::unique_ptr<QProcess> start(Bus bus, const QString &display = QStringLiteral(":7"))
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DISPLAY"), display);
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.path());
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
        if (bus == Bus::With)
            environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), addressOfBus());
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QStringLiteral(INSTANCE_PEER), {});
        return process;
    }

    /// A bus of the test's own, which no other start finds by itself.
    QString addressOfBus()
    {
        if (!m_address.isEmpty())
            return m_address;
        m_bus.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"),
             QStringLiteral("--print-address=1"),
             QStringLiteral("--address=unix:path=") + folder.filePath(QStringLiteral("test-bus"))});
        m_address = QString::fromLocal8Bit(lineOf(m_bus));
        EXPECT_FALSE(m_address.isEmpty()) << "no bus";
        return m_address;
    }

    /// Waits for the next line that the program writes.
    static QByteArray lineOf(QProcess &process)
    {
        while (!process.canReadLine() && process.waitForReadyRead(kPatience)) {
        }
        return process.readLine().trimmed();
    }

    static void expectSecond(QProcess &second, QProcess &first)
    {
        EXPECT_EQ(lineOf(second), "second");
        EXPECT_TRUE(second.waitForFinished(kPatience));
        EXPECT_EQ(second.exitCode(), 0);
        EXPECT_EQ(lineOf(first), "activated");
    }

    ~SingleInstance() override
    {
        m_bus.kill();
        m_bus.waitForFinished();
    }

    QTemporaryDir folder;

private:
    QProcess m_bus;
    QString m_address;
};

TEST_F(SingleInstance, aSecondStartOnTheBusActivatesTheFirst)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::With);

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, aSecondStartWithoutABusActivatesTheFirst)
{
    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::Without);

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, aStartWithoutTheBusActivatesTheFirstThatHasIt)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::Without);

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, aStartWithTheBusActivatesTheFirstThatLacksIt)
{
    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::With);

    expectSecond(*second, *first);
    // The one that left has not kept the name.
    const auto onOtherDisplay = start(Bus::With, QStringLiteral(":8"));
    EXPECT_EQ(lineOf(*onOtherDisplay), "first");
}

TEST_F(SingleInstance, theBusMakesOneSessionOfTwoDisplays)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::With, QStringLiteral(":8"));

    expectSecond(*second, *first);
    // The one that left has not kept the lock of its display.
    const auto withoutBus = start(Bus::Without, QStringLiteral(":8"));
    EXPECT_EQ(lineOf(*withoutBus), "first");
}

TEST_F(SingleInstance, withoutABusEachDisplayIsASession)
{
    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");

    const auto onOtherDisplay = start(Bus::Without, QStringLiteral(":8"));

    EXPECT_EQ(lineOf(*onOtherDisplay), "first");
}

TEST_F(SingleInstance, theScreensOfADisplayAreOneSession)
{
    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");

    const auto second = start(Bus::Without, QStringLiteral(":7.0"));

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, afterAFirstThatWasKilledTheNextStartIsTheFirst)
{
    const auto killed = start(Bus::With);
    ASSERT_EQ(lineOf(*killed), "first");
    killed->kill();
    ASSERT_TRUE(killed->waitForFinished(kPatience));

    const auto first = start(Bus::Without);
    ASSERT_EQ(lineOf(*first), "first");
    const auto second = start(Bus::Without);

    expectSecond(*second, *first);
}

TEST_F(SingleInstance, everyStartActivatesTheFirstOnce)
{
    const auto first = start(Bus::With);
    ASSERT_EQ(lineOf(*first), "first");
    const auto second = start(Bus::With);
    expectSecond(*second, *first);
    const auto third = start(Bus::Without);
    expectSecond(*third, *first);

    first->closeWriteChannel();

    ASSERT_TRUE(first->waitForFinished(kPatience));
    EXPECT_EQ(first->readAll(), "");
}

} // namespace
