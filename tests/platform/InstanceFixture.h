// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/ChildProcess.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

#include <csignal>

/// Starts of a program of which one instance runs, with a bus of the test's own and without one.
class InstanceFixture : public ::testing::Test
{
protected:
    static constexpr int kPatience = 10000; // milliseconds

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
        process->setChildProcessModifier(ChildProcess::endWithParent);
        process->start(QStringLiteral(INSTANCE_PEER), {});
        return process;
    }

    /// A bus of the test's own, which no other start finds by itself.
    QString addressOfBus()
    {
        if (!m_address.isEmpty())
            return m_address;
        const QByteArray socket = folder.filePath(QStringLiteral("test-bus")).toLocal8Bit();
        busProcess = std::make_unique<ChildProcess>(
            QList<QByteArray>{"dbus-daemon", "--session", "--nofork", "--print-address=1",
                              "--address=unix:path=" + socket});
        m_address = QString::fromLocal8Bit(busProcess->readLine());
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

    /// Stops or continues a process that this fixture started.
    static void sendSignal(const QProcess &process, int number)
    {
        ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), number), 0);
    }

    QTemporaryDir folder;
    std::unique_ptr<ChildProcess> busProcess;

private:
    QString m_address;
};
