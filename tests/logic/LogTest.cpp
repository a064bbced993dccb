// SPDX-License-Identifier: MIT
// What the journal is sent, and what is printed where there is none. The journal's socket has a
// fixed path; so the process that writes the log sees a folder of ours in the place of /run, and
// this process is the journal.
#include "tests/logic/JournalSocket.h"
#include "tests/support/ChildProcess.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

#include <unistd.h>

namespace {

class LogTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir().mkpath(run + QStringLiteral("/systemd/journal")));
        // What a logging rule of the one who runs the tests leaves out cannot be looked for.
        qunsetenv("QT_LOGGING_RULES");
        qunsetenv("QT_LOGGING_CONF");
        if (ChildProcess(inItsOwnRun("true")).waitForEnd() != 0)
            GTEST_SKIP() << "This system lets nobody see another /run.";
    }

    /// Lets a process write the log.
    /// @return what it printed
    QByteArray writeLog() const
    {
        ChildProcess writer(inItsOwnRun(LOG_WRITER));
        QByteArray printed = writer.readAll();
        EXPECT_EQ(writer.waitForEnd(), 0);
        return printed;
    }

    QTemporaryDir root;
    const QString run = root.filePath(QStringLiteral("run"));
    const QString socket = run + QStringLiteral("/systemd/journal/socket");
    const QByteArray printedLines =
        "com.tarnwick.LaunchAtLogin/main: Failed to enable launch at login: Rätsel\n"
        "com.tarnwick.Quillery/hotkeys: Another program holds 100% of it\n"
        "com.tarnwick.Quillery/default: one\ntwo\n";

private:
    /// Only root may mount anything; who is not becomes it, for this process and its own view.
    QList<QByteArray> inItsOwnRun(const QByteArray &program) const
    {
        QList<QByteArray> command{"unshare", "--mount"};
        if (::geteuid() != 0)
            command += "--map-root-user";
        return command + QList<QByteArray>{"sh", "-c",
                                           "mount --bind \"$0\" /run && exec \"$1\" 2>&1",
                                           QFile::encodeName(run), program};
    }
};

} // namespace

TEST_F(LogTest, aFailureOfLaunchAtLoginIsAnErrorUnderItsOwnSubsystemAndCategory)
{
    const JournalSocket journal(socket);

    const QByteArray printed = writeLog();

    const JournalEntry entry = journal.takeEntry();
    EXPECT_EQ(entry.value("MESSAGE"), "Failed to enable launch at login: Rätsel");
    EXPECT_EQ(entry.value("SUBSYSTEM"), "com.tarnwick.LaunchAtLogin");
    EXPECT_EQ(entry.value("CATEGORY"), "main");
    EXPECT_EQ(entry.value("PRIORITY"), "3");
    EXPECT_EQ(printed, "");
}

TEST_F(LogTest, whatIsLoggedOtherwiseIsOfTheProgramsOwnSubsystem)
{
    const JournalSocket journal(socket);

    writeLog();

    EXPECT_EQ(journal.takeEntry().value("CATEGORY"), "main");
    const JournalEntry warning = journal.takeEntry();
    EXPECT_EQ(warning.value("MESSAGE"), "Another program holds 100% of it");
    EXPECT_EQ(warning.value("SUBSYSTEM"), "com.tarnwick.Quillery");
    EXPECT_EQ(warning.value("CATEGORY"), "hotkeys");
    EXPECT_EQ(warning.value("PRIORITY"), "4");
    const JournalEntry lines = journal.takeEntry();
    EXPECT_EQ(lines.value("MESSAGE"), "one\ntwo");
    EXPECT_EQ(lines.value("SUBSYSTEM"), "com.tarnwick.Quillery");
    EXPECT_EQ(lines.value("CATEGORY"), "default");
    EXPECT_EQ(lines.value("PRIORITY"), "6");
    EXPECT_TRUE(journal.takeEntry().isEmpty());
}

TEST_F(LogTest, withoutAJournalEveryMessageIsPrintedOnce)
{
    EXPECT_EQ(writeLog(), printedLines);
}

TEST_F(LogTest, whereTheJournalHasEndedEveryMessageIsPrintedOnce)
{
    {
        const JournalSocket ended(socket);
    }
    ASSERT_TRUE(QFile::exists(socket));

    EXPECT_EQ(writeLog(), printedLines);
}
