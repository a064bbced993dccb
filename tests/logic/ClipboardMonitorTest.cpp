// SPDX-License-Identifier: MIT
#include "Quillery_Mac/clipboard/ClipboardMonitor.h"

#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "platform/defaults/Defaults.h"
#include "tests/fakes/FakePasteboard.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <limits>

#include <csignal>

class ClipboardMonitorTest : public ::testing::Test
{
protected:
    std::unique_ptr<ClipboardMonitor> startMonitor()
    {
        return ClipboardMonitor::start(pasteboard, defaults, *store.container);
    }

    /// What the next sleep of the monitor leads to.
    void poll(ClipboardMonitor &monitor)
    {
        monitor.poll();
        store.container->waitForBackgroundTasks();
    }

    std::vector<QByteArray> contents()
    {
        std::vector<QByteArray> contents;
        for (Clip *clip : store.container->viewContext().fetch<Clip>())
            contents.push_back(clip->content().value_or("(none)"));
        return contents;
    }

    QTemporaryDir folder;
    platform::Defaults defaults{folder.filePath(QStringLiteral("Quillery.conf"))};
    PersistenceController store{folder.path()};
    FakePasteboard pasteboard;
};

TEST_F(ClipboardMonitorTest, aCopyIsRecorded)
{
    const auto monitor = startMonitor();
    pasteboard.copyElsewhere("copied");
    poll(*monitor);

    EXPECT_EQ(contents(), std::vector<QByteArray>{"copied"});
}

TEST_F(ClipboardMonitorTest, whatIsThereAtTheStartIsNeverRecorded)
{
    pasteboard.copyElsewhere("from before");
    const auto monitor = startMonitor();
    poll(*monitor);

    EXPECT_TRUE(contents().empty());
}

TEST_F(ClipboardMonitorTest, aCopyIsRecordedOnceHoweverOftenThePasteboardIsPolled)
{
    const auto monitor = startMonitor();
    pasteboard.copyElsewhere("copied");
    poll(*monitor);
    poll(*monitor);

    EXPECT_EQ(contents(), std::vector<QByteArray>{"copied"});
}

TEST_F(ClipboardMonitorTest, theSameTextAgainIsRecordedAgain)
{
    const auto monitor = startMonitor();
    pasteboard.copyElsewhere("same");
    poll(*monitor);
    pasteboard.copyElsewhere("same");
    poll(*monitor);

    EXPECT_EQ(contents(), (std::vector<QByteArray>{"same", "same"}));
}

TEST_F(ClipboardMonitorTest, twoCopiesBetweenTwoPollsAreOneChange)
{
    const auto monitor = startMonitor();
    pasteboard.copyElsewhere("first");
    pasteboard.copyElsewhere("second");
    poll(*monitor);

    EXPECT_EQ(contents(), std::vector<QByteArray>{"second"});
}

TEST_F(ClipboardMonitorTest, aCopyOfAnImageAloneDoesNotAdvanceLastCount)
{
    const auto monitor = startMonitor();
    pasteboard.copyElsewhere(std::nullopt);
    poll(*monitor);
    EXPECT_TRUE(contents().empty());

    // The text of the very same copy arrives late: it is still to be recorded.
    pasteboard.text = "late text";
    poll(*monitor);

    EXPECT_EQ(contents(), std::vector<QByteArray>{"late text"});
}

TEST_F(ClipboardMonitorTest, aCopyOfTheEmptyTextAdvancesLastCountAndRecordsNothing)
{
    const auto monitor = startMonitor();
    pasteboard.copyElsewhere("");
    poll(*monitor);
    EXPECT_TRUE(contents().empty());

    // That copy is done with, whatever is said about it later.
    pasteboard.text = "not empty after all";
    poll(*monitor);

    EXPECT_TRUE(contents().empty());
}

TEST_F(ClipboardMonitorTest, textThatTheProgramPutsThereItselfIsRecordedLikeAnyOther)
{
    const auto monitor = startMonitor();
    pasteboard.clearContents();
    pasteboard.setString("ours");
    poll(*monitor);

    EXPECT_EQ(contents(), std::vector<QByteArray>{"ours"});
}

TEST_F(ClipboardMonitorTest, aTakenOverPasteboardWithoutTextIsNotRecorded)
{
    const auto monitor = startMonitor();
    pasteboard.clearContents();
    poll(*monitor);

    EXPECT_TRUE(contents().empty());
}

TEST_F(ClipboardMonitorTest, whatWasCopiedWhileTheMonitorWasOffIsNotRecorded)
{
    auto monitor = startMonitor();
    monitor->cancel();
    pasteboard.copyElsewhere("while off");
    poll(*monitor);

    monitor = startMonitor();
    poll(*monitor);
    EXPECT_TRUE(contents().empty());

    pasteboard.copyElsewhere("on again");
    poll(*monitor);
    EXPECT_EQ(contents(), std::vector<QByteArray>{"on again"});
}

TEST_F(ClipboardMonitorTest, aCancelledMonitorRecordsNothingMore)
{
    const auto monitor = startMonitor();
    monitor->cancel();
    pasteboard.copyElsewhere("too late");
    poll(*monitor);

    EXPECT_TRUE(monitor->isCancelled());
    EXPECT_TRUE(contents().empty());
}

TEST_F(ClipboardMonitorTest, aRecordingThatHasBegunIsCompletedAfterCancelling)
{
    auto monitor = startMonitor();
    pasteboard.copyElsewhere("just in time");
    monitor->poll();
    monitor->cancel();
    monitor.reset();
    store.container->waitForBackgroundTasks();

    EXPECT_EQ(contents(), std::vector<QByteArray>{"just in time"});
}

TEST_F(ClipboardMonitorTest, theSettingsAreReadWhenTheCopyIsRecorded)
{
    const auto monitor = startMonitor();
    defaults.setString(SettingsKeys::kDevice.key(), QStringLiteral("THIS-DEVICE"));
    defaults.setNumber(SettingsKeys::kHistorySize.key(), 0.0);
    pasteboard.copyElsewhere("first");
    poll(*monitor);
    pasteboard.copyElsewhere("second");
    poll(*monitor);

    EXPECT_EQ(contents(), std::vector<QByteArray>{"second"}); // the limit is 1
    const Clip *clip = store.container->viewContext().fetch<Clip>().front();
    EXPECT_EQ(clip->device(), QStringLiteral("THIS-DEVICE"));
}

TEST_F(ClipboardMonitorTest, withoutASettingTheLimitIsTwenty)
{
    const auto monitor = startMonitor();
    for (int i = 0; i < 25; ++i) {
        pasteboard.copyElsewhere(QByteArray::number(i));
        poll(*monitor);
    }

    const std::vector<QByteArray> left = contents();
    EXPECT_EQ(left.size(), 18u);
    EXPECT_EQ(left.front(), "24");
    EXPECT_EQ(left.back(), "7");
}

TEST_F(ClipboardMonitorTest, theTaskPollsBySleepingASecondAtATime)
{
    EXPECT_EQ(ClipboardMonitor::kSleep.count(), 1'000'000'000);
    QElapsedTimer sinceStart;
    sinceStart.start();
    const auto monitor = startMonitor();
    pasteboard.copyElsewhere("copied");

    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            store.container->waitForBackgroundTasks();
            return !contents().empty();
        },
        10000));

    // A coarse timer may be a twentieth early; never is the pasteboard polled at once.
    EXPECT_GE(sinceStart.elapsed(), 950);
}

using ClipboardMonitorDeathTest = ClipboardMonitorTest;

TEST_F(ClipboardMonitorDeathTest, aLimitOutOfRangeEndsTheProgramAtTheNextRecording)
{
    EXPECT_EXIT(
        {
            const auto monitor = startMonitor();
            pasteboard.copyElsewhere("first");
            poll(*monitor);
            defaults.setNumber(SettingsKeys::kHistorySize.key(), 10.0);
            pasteboard.copyElsewhere("second");
            poll(*monitor);
        },
        ::testing::KilledBySignal(SIGABRT), "Fatal error: historySize 10 .*\"historySize\"");
}
