// SPDX-License-Identifier: MIT
#include "Quillery_Mac/clipboard/ClipRecorder.h"

#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "tests/logic/FullDisk.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

#include <limits>
#include <ostream>
#include <string>

namespace {

constexpr double kLimitOfTwenty = 3;

// Set to 1 for the loop that takes minutes.
constexpr const char *kLongVariable = "QUILLERY_LONG";

qint64 residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    EXPECT_TRUE(statm.open(QIODevice::ReadOnly));
    return statm.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

class ClipRecorderTest : public ::testing::Test
{
protected:
    ManagedObjectContext &view() { return store.container->viewContext(); }

    /// Saves clips with the contents "1", "2" ... at those positions.
    void fill(int count)
    {
        for (int position = 1; position <= count; ++position)
            addClip(position);
        ASSERT_TRUE(view().save().has_value());
    }

    Clip *addClip(int position)
    {
        Clip *clip = view().insert<Clip>();
        clip->setContent(QByteArray::number(position));
        clip->setPosition(qint16(position));
        return clip;
    }

    void record(const QByteArray &text, double historySize = kLimitOfTwenty)
    {
        const ClipRecorder recorder(text, QStringLiteral("THIS-DEVICE"), historySize);
        store.container->performBackgroundTask(
            [recorder](ManagedObjectContext &context) { recorder.record(context); });
        store.container->waitForBackgroundTasks();
    }

    std::vector<QByteArray> contents()
    {
        std::vector<QByteArray> contents;
        for (Clip *clip : view().fetch<Clip>())
            contents.push_back(clip->content().value_or("(none)"));
        return contents;
    }

    /// How many clips there are, if their positions are dense from 1; -1 if they are not.
    qsizetype denseCount()
    {
        const std::vector<Clip *> clips = view().fetch<Clip>();
        for (std::size_t i = 0; i < clips.size(); ++i) {
            if (clips[i]->position() != qint16(i + 1))
                return -1;
        }
        return qsizetype(clips.size());
    }

    /// The clips' file and its log.
    qint64 fileBytes() const
    {
        const QString file = folder.filePath(QStringLiteral("clips.sqlite"));
        return QFileInfo(file).size() + QFileInfo(file + QStringLiteral("-wal")).size();
    }

    QTemporaryDir folder;
    PersistenceController store{folder.path()};
};

} // namespace

TEST_F(ClipRecorderTest, theNewClipIsCompleteAndStandsAtPositionOne)
{
    record("copied");

    const std::vector<Clip *> clips = view().fetch<Clip>();
    ASSERT_EQ(clips.size(), 1u);
    EXPECT_EQ(clips.front()->content(), "copied");
    EXPECT_EQ(clips.front()->position(), 1);
    EXPECT_EQ(clips.front()->device(), QStringLiteral("THIS-DEVICE"));
    EXPECT_TRUE(clips.front()->id().has_value());
}

TEST_F(ClipRecorderTest, everyClipHasAnIdOfItsOwn)
{
    record("one");
    record("two");

    const std::vector<Clip *> clips = view().fetch<Clip>();
    ASSERT_EQ(clips.size(), 2u);
    EXPECT_NE(clips.front()->id(), clips.back()->id());
}

TEST_F(ClipRecorderTest, theMostRecentClipIsAlwaysTheOneAtPositionOne)
{
    record("first");
    record("second");
    record("third");

    EXPECT_EQ(contents(), (std::vector<QByteArray>{"third", "second", "first"}));
    EXPECT_EQ(denseCount(), 3);
}

TEST_F(ClipRecorderTest, theSameTextTwiceIsTwoClips)
{
    record("same");
    record("same");

    EXPECT_EQ(contents(), (std::vector<QByteArray>{"same", "same"}));
}

TEST_F(ClipRecorderTest, theDefaultLimitLeavesEighteenOfTwentyFiveClips)
{
    fill(25);

    record("new");

    EXPECT_EQ(denseCount(), 18);
    const std::vector<QByteArray> left = contents();
    EXPECT_EQ(left.front(), "new");
    EXPECT_EQ(left.at(1), "1");
    EXPECT_EQ(left.back(), "17");
}

struct LimitRow
{
    double historySize;
    int limit;
    int left;
};

/// Names the row in the list of tests.
void PrintTo(const LimitRow &row, std::ostream *out)
{
    *out << row.historySize << " selects " << row.limit;
}

class ClipRecorderLimit : public ClipRecorderTest, public ::testing::WithParamInterface<LimitRow>
{
};

TEST_P(ClipRecorderLimit, leavesTwoLessThanTheLimit)
{
    const LimitRow &row = GetParam();
    fill(row.limit + 5);

    record("new", row.historySize);

    EXPECT_EQ(denseCount(), row.left);
    EXPECT_EQ(contents().front(), "new");
}

TEST_P(ClipRecorderLimit, isNeverExceededByFurtherCopies)
{
    const LimitRow &row = GetParam();
    fill(row.left);

    record("one more", row.historySize);
    record("and another", row.historySize);

    EXPECT_EQ(denseCount(), std::max(row.left, 1));
}

INSTANTIATE_TEST_SUITE_P(Limits, ClipRecorderLimit,
                         ::testing::Values(LimitRow{0, 1, 1}, LimitRow{1, 5, 3}, LimitRow{2, 10, 8},
                                           LimitRow{3, 20, 18}, LimitRow{3.9, 20, 18},
                                           LimitRow{9, 1000, 998}));

TEST_F(ClipRecorderTest, gapsAndDuplicatesOfPositionsAreClosed)
{
    for (const int position : {7, 7, -3, 0, 32767})
        addClip(position);
    ASSERT_TRUE(view().save().has_value());

    record("new");

    EXPECT_EQ(denseCount(), 6);
    EXPECT_EQ(contents(), (std::vector<QByteArray>{"new", "-3", "0", "7", "7", "32767"}));
}

TEST_F(ClipRecorderTest, clipsWithoutContentDeviceAndIdKeepTheirPlace)
{
    Clip *empty = view().insert<Clip>();
    empty->setPosition(1);
    addClip(2);
    ASSERT_TRUE(view().save().has_value());

    record("new");

    EXPECT_EQ(contents(), (std::vector<QByteArray>{"new", "(none)", "2"}));
    EXPECT_EQ(denseCount(), 3);
}

TEST_F(ClipRecorderTest, aTextWithZeroBytesIsKeptWhole)
{
    const QByteArray text("a\0b\0", 4);
    record(text);

    EXPECT_EQ(contents(), std::vector<QByteArray>{text});
}

TEST_F(ClipRecorderTest, recordingsQueueOneBehindTheOther)
{
    for (const char *text : {"first", "second", "third"}) {
        const ClipRecorder recorder(text, QString(), kLimitOfTwenty);
        store.container->performBackgroundTask(
            [recorder](ManagedObjectContext &context) { recorder.record(context); });
    }
    store.container->waitForBackgroundTasks();

    EXPECT_EQ(contents(), (std::vector<QByteArray>{"third", "second", "first"}));
    EXPECT_EQ(denseCount(), 3);
}

TEST_F(ClipRecorderTest, aFailedSaveIsDroppedAndTheNextCopyIsSavedAgain)
{
    record("before");
    {
        const FullDisk disk;
        record(QByteArray(1024 * 1024, 'x'));
    }
    EXPECT_EQ(contents(), std::vector<QByteArray>{"before"});

    record("after");

    EXPECT_EQ(contents(), (std::vector<QByteArray>{"after", "before"}));
    EXPECT_EQ(denseCount(), 2);
}

TEST_F(ClipRecorderTest, manyCopiesLeaveMemoryFilesAndHistoryAsTheyAre)
{
    const int copies = qEnvironmentVariableIntValue(kLongVariable) == 1 ? 100'000 : 2'000;
    const auto copy = [this](int number) {
        record(QByteArray::number(number) + QByteArray(number % 2048, 'x'));
        QCoreApplication::processEvents();
    };
    for (int number = 0; number < 500; ++number)
        copy(number);
    const qint64 before = residentBytes();

    for (int number = 0; number < copies; ++number)
        copy(number);

    const qint64 after = residentBytes();
    RecordProperty("residentBytesBefore", std::to_string(before));
    RecordProperty("residentBytesAfter", std::to_string(after));
#if !defined(__SANITIZE_ADDRESS__)
    // Address checks keep what was freed.
    EXPECT_LT(after, before + before / 20) << "before: " << before;
#endif
    EXPECT_EQ(denseCount(), 18);
    EXPECT_LT(fileBytes(), 12 << 20);
}

TEST_F(ClipRecorderTest, aHistoryOf32765ClipsIsStillCounted)
{
    for (int i = 0; i < 32765; ++i)
        addClip(1);

    ClipRecorder("new", QString(), kLimitOfTwenty).record(view());

    EXPECT_EQ(denseCount(), 18);
}

using ClipRecorderDeathTest = ClipRecorderTest;

TEST_F(ClipRecorderDeathTest, oneClipMoreIsFatal)
{
    EXPECT_EXIT(
        {
            for (int i = 0; i < 32766; ++i)
                addClip(1);
            ClipRecorder("new", QString(), kLimitOfTwenty).record(view());
        },
        ::testing::KilledBySignal(SIGABRT), "Fatal error: position 32768 .*-32768 to 32767");
}

TEST_F(ClipRecorderDeathTest, aLimitOutOfRangeIsFatalOnceItIsRead)
{
    for (const double historySize : {10.0, -1.0, std::numeric_limits<double>::infinity(),
                                     std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EXIT(
            {
                addClip(1);
                ClipRecorder("new", QString(), historySize).record(view());
            },
            ::testing::KilledBySignal(SIGABRT), "Fatal error: historySize .* 0 to 9");
    }
}

TEST_F(ClipRecorderTest, aLimitOutOfRangeIsNotReadForAnEmptyHistory)
{
    record("first", 10.0);

    EXPECT_EQ(contents(), std::vector<QByteArray>{"first"});
}
