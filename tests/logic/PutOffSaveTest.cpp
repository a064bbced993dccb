// SPDX-License-Identifier: MIT
// Saves of the main thread while somebody else writes. The other writer is a second connection that
// keeps the file's write lock, as the background thread does while it writes a long text.
#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/PersistentHistory.h"

#include "tests/logic/FullDisk.h"
#include "tests/logic/StoreTestSupport.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <future>
#include <mutex>
#include <thread>

namespace {

/// While it lives: the files that were brought to the disk, and by which thread.
class DiskWatch
{
public:
    DiskWatch() { s_current = this; }
    ~DiskWatch() { s_current = nullptr; }
    Q_DISABLE_COPY_MOVE(DiskWatch)

    static void noteFor(int file)
    {
        if (DiskWatch *watch = s_current)
            watch->note(file);
    }
    long byThisThread()
    {
        const std::lock_guard locked(m_lock);
        return std::ranges::count(m_syncs, std::this_thread::get_id(), &Sync::first);
    }
    long of(const std::string &file)
    {
        const std::lock_guard locked(m_lock);
        return std::ranges::count(m_syncs, file, &Sync::second);
    }

private:
    using Sync = std::pair<std::thread::id, std::string>;

    void note(int file)
    {
        const std::lock_guard locked(m_lock);
        std::error_code error;
        const auto path =
            std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file), error);
        m_syncs.emplace_back(std::this_thread::get_id(), path.filename().string());
    }

    static inline std::atomic<DiskWatch *> s_current = nullptr;

    std::mutex m_lock;
    std::vector<Sync> m_syncs;
};

} // namespace

// Stands before the system's own.
extern "C" int fdatasync(int file)
{
    DiskWatch::noteFor(file);
    return static_cast<int>(::syscall(SYS_fdatasync, file));
}

namespace {

// The main thread waits some 40 ms; the rest is for a machine that is busy.
constexpr qint64 kAtOnce = 1500;

class PutOffSaveTest : public StoreTest
{
protected:
    void beginOtherWrite()
    {
        other = std::make_unique<SQLite::Database>(snippetsFile().toStdString(),
                                                   SQLite::OPEN_READWRITE, 1000);
        other->exec("BEGIN IMMEDIATE");
    }
    void endOtherWrite() { other.reset(); }

    std::string titlesInFile() const
    {
        return answer(snippetsFile(), "SELECT coalesce(group_concat(title), '') FROM Snippet");
    }

    /// Saved; together they are long to delete, each by itself is not.
    std::vector<Snippet *> addLongSnippets() const
    {
        std::vector<Snippet *> snippets;
        for (qint16 order = 1; order <= 3; ++order) {
            snippets.push_back(
                addSnippet(QStringLiteral("long"), order, QByteArray(400 * 1024, 'x')));
        }
        EXPECT_EQ(view().save(), Saved::Now);
        container().waitForBackgroundTasks();
        return snippets;
    }

    std::unique_ptr<SQLite::Database> other;
    const QString mine = QStringLiteral("mine");
};

} // namespace

TEST_F(PutOffSaveTest, aSaveDoesNotWaitForALongWriteAndIsDoneAfterIt)
{
    beginOtherWrite();
    addSnippet(mine, 1);
    QSignalSpy didSave(&view(), &ManagedObjectContext::didSave);
    QElapsedTimer timer;
    timer.start();

    EXPECT_EQ(view().save(), Saved::Later);

    EXPECT_LT(timer.elapsed(), kAtOnce);
    EXPECT_TRUE(view().hasChanges());
    EXPECT_EQ(didSave.count(), 0);
    endOtherWrite();
    ASSERT_TRUE(didSave.wait());
    EXPECT_FALSE(view().hasChanges());
    EXPECT_EQ(titlesInFile(), "mine");
}

TEST_F(PutOffSaveTest, whatIsSavedWhileASaveIsPutOffIsSavedWithItAndDoesNotWaitAtAll)
{
    beginOtherWrite();
    Snippet *first = addSnippet(mine, 1);
    EXPECT_EQ(view().save(), Saved::Later);
    QElapsedTimer timer;
    timer.start();
    for (qint16 order = 2; order < 102; ++order) {
        addSnippet(QString::number(order), order);
        EXPECT_EQ(view().save(), Saved::Later);
    }
    view().deleteObject(*first);
    EXPECT_EQ(view().save(), Saved::Later);
    EXPECT_LT(timer.elapsed(), kAtOnce);
    QSignalSpy didSave(&view(), &ManagedObjectContext::didSave);
    endOtherWrite();

    ASSERT_TRUE(didSave.wait());
    EXPECT_EQ(didSave.count(), 1);
    EXPECT_EQ(answer(snippetsFile(), "SELECT count(*) FROM Snippet"), "100");
}

TEST_F(PutOffSaveTest, aDeletionIsInTheListsAtOnceAndInTheFileAfterTheWrite)
{
    Snippet *snippet = addSnippet(mine, 1);
    ASSERT_EQ(view().save(), Saved::Now);
    beginOtherWrite();

    view().deleteObject(*snippet);
    EXPECT_EQ(view().save(), Saved::Later);
    EXPECT_TRUE(view().fetch<Snippet>().empty());
    EXPECT_EQ(titlesInFile(), "mine");

    endOtherWrite();
    container().waitForBackgroundTasks();
    EXPECT_EQ(titlesInFile(), "");
}

TEST_F(PutOffSaveTest, theOtherStoreIsSavedNow)
{
    beginOtherWrite();
    addSnippet(mine, 1);
    view().insert<Clip>()->setContent("clip");

    EXPECT_EQ(view().save(), Saved::Later);

    EXPECT_EQ(answer(clipsFile(), "SELECT content FROM Clip"), "clip");
    endOtherWrite();
}

TEST_F(PutOffSaveTest, aTaskGivenMeanwhileSeesWhatWasPutOff)
{
    beginOtherWrite();
    addSnippet(mine, 1);
    EXPECT_EQ(view().save(), Saved::Later);
    std::vector<std::vector<QString>> seen;
    for (int task = 0; task < 2; ++task) {
        container().performBackgroundTask([&seen](ManagedObjectContext &context) {
            seen.push_back(titles(context.fetch<Snippet>()));
        });
    }
    endOtherWrite();
    container().waitForBackgroundTasks();

    EXPECT_EQ(seen, (std::vector<std::vector<QString>>{{mine}, {mine}}));
}

TEST_F(PutOffSaveTest, aTaskGivenMeanwhileRunsByItself)
{
    beginOtherWrite();
    addSnippet(mine, 1);
    EXPECT_EQ(view().save(), Saved::Later);
    container().performBackgroundTask([](ManagedObjectContext &context) {
        context.fetch<Snippet>().at(0)->setTitle(QStringLiteral("theirs"));
        EXPECT_TRUE(context.save());
    });
    endOtherWrite();

    EXPECT_TRUE(QTest::qWaitFor([this] { return titlesInFile() == "theirs"; }));
}

TEST_F(PutOffSaveTest, theEndOfTheProgramSavesWhatWasPutOff)
{
    beginOtherWrite();
    addSnippet(mine, 1);
    EXPECT_EQ(view().save(), Saved::Later);
    container().performBackgroundTask([](ManagedObjectContext &context) {
        context.fetch<Snippet>().at(0)->setOrder(7);
        EXPECT_TRUE(context.save());
    });
    endOtherWrite();

    close();

    EXPECT_EQ(answer(snippetsFile(), "SELECT title || \"order\" FROM Snippet"), "mine7");
}

TEST_F(PutOffSaveTest, aWriterThatDoesNotEndMakesTheSaveFailAndALaterOneWritesEverything)
{
    beginOtherWrite();
    addSnippet(mine, 1);
    platform::Error told{platform::Error::Kind::Taken, {}};
    QObject::connect(&view(), &ManagedObjectContext::putOffSaveFailed, &view(),
                     [&told](const platform::Error &error) { told = error; });
    EXPECT_EQ(view().save(), Saved::Later);

    ASSERT_TRUE(QTest::qWaitFor([&told] { return !told.text.isEmpty(); }, 30000));

    EXPECT_EQ(told.kind, platform::Error::Kind::TimedOut);
    EXPECT_TRUE(view().hasChanges());
    endOtherWrite();
    EXPECT_EQ(view().save(), Saved::Now);
    EXPECT_EQ(titlesInFile(), "mine");
}

TEST_F(PutOffSaveTest, aFileThatCannotBeWrittenAfterwardsIsToldOnceAndNotTriedAgain)
{
    beginOtherWrite();
    addSnippet(mine, 1);
    std::vector<platform::Error::Kind> told;
    QObject::connect(&view(), &ManagedObjectContext::putOffSaveFailed, &view(),
                     [&told](const platform::Error &error) { told.push_back(error.kind); });
    EXPECT_EQ(view().save(), Saved::Later);
    {
        const FullDisk disk;
        endOtherWrite();
        container().waitForBackgroundTasks();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(told, std::vector{platform::Error::Kind::Io});
    QCoreApplication::processEvents();
    container().waitForBackgroundTasks();
    EXPECT_EQ(titlesInFile(), "");

    EXPECT_EQ(view().save(), Saved::Now);
    EXPECT_EQ(titlesInFile(), "mine");
}

TEST_F(PutOffSaveTest, longTextsAreDeletedInTheBackground)
{
    const std::vector<Snippet *> snippets = addLongSnippets();
    PersistentHistory &history = container().history(StoreKind::Snippets);
    ASSERT_TRUE(history.addConsumer(QStringLiteral("test")));
    const qint64 before = *history.currentTransaction();
    QSignalSpy failed(&view(), &ManagedObjectContext::putOffSaveFailed);

    addSnippet(mine, 4);
    for (Snippet *snippet : snippets)
        view().deleteObject(*snippet);
    EXPECT_EQ(view().save(), Saved::Later);
    EXPECT_EQ(titlesInFile(), "long,long,long") << "not by the main thread";
    EXPECT_EQ(titles(view().fetch<Snippet>()), std::vector{mine});

    ASSERT_TRUE(QTest::qWaitFor([this] { return !view().hasChanges(); }));
    EXPECT_EQ(titlesInFile(), "mine");
    EXPECT_EQ(titles(view().fetch<Snippet>()), std::vector{mine});
    EXPECT_EQ(failed.count(), 0);
    std::size_t deleted = 0;
    const auto transactions = history.transactionsAfter(before);
    ASSERT_TRUE(transactions);
    for (const HistoryTransaction &transaction : *transactions) {
        for (const HistoryChange &change : transaction.changes)
            deleted += change.kind == HistoryChange::Kind::Deleted ? change.objects.size() : 0;
    }
    EXPECT_EQ(deleted, snippets.size());
}

TEST_F(PutOffSaveTest, aTextThatIsNotLongIsDeletedAtOnce)
{
    const std::vector<Snippet *> snippets = addLongSnippets();
    view().deleteObject(*snippets.at(0));

    EXPECT_EQ(view().save(), Saved::Now);
    EXPECT_EQ(titlesInFile(), "long,long");
}

TEST_F(PutOffSaveTest, theEndOfTheProgramDeletesLongTextsToo)
{
    for (Snippet *snippet : addLongSnippets())
        view().deleteObject(*snippet);
    EXPECT_EQ(view().save(), Saved::Later);

    close();

    EXPECT_EQ(titlesInFile(), "");
}

TEST_F(PutOffSaveTest, aFullDiskKeepsLongTextsAndALaterSaveDeletesThem)
{
    for (Snippet *snippet : addLongSnippets())
        view().deleteObject(*snippet);
    std::vector<platform::Error::Kind> told;
    QObject::connect(&view(), &ManagedObjectContext::putOffSaveFailed, &view(),
                     [&told](const platform::Error &error) { told.push_back(error.kind); });
    {
        const FullDisk disk;
        EXPECT_EQ(view().save(), Saved::Later);
        container().waitForBackgroundTasks();
    }
    EXPECT_EQ(told, std::vector{platform::Error::Kind::Io});
    EXPECT_EQ(titlesInFile(), "long,long,long");
    EXPECT_TRUE(view().hasChanges());

    EXPECT_EQ(view().save(), Saved::Later);
    container().waitForBackgroundTasks();
    EXPECT_EQ(titlesInFile(), "");
    EXPECT_FALSE(view().hasChanges());
}

TEST_F(PutOffSaveTest, aBackgroundSaveWaits)
{
    beginOtherWrite();
    platform::Result<Saved> saved = Saved::Later;
    container().performBackgroundTask([&](ManagedObjectContext &context) {
        context.insert<Snippet>()->setTitle(mine);
        saved = context.save();
    });
    // The time is what matters: longer than the main thread would wait.
    QTest::qWait(100);
    endOtherWrite();
    container().waitForBackgroundTasks();

    EXPECT_EQ(saved, Saved::Now);
    EXPECT_EQ(titlesInFile(), "mine");
}

TEST_F(PutOffSaveTest, theMainThreadDoesNotWaitForTheDisk)
{
    // The first save after the start begins a log.
    Snippet *snippet = addSnippet(mine, 1);
    ASSERT_EQ(view().save(), Saved::Now);
    container().waitForBackgroundTasks();
    DiskWatch watch;

    // Long enough for logs to be written back and begun anew on the way.
    for (int turn = 0; turn < 60; ++turn) {
        snippet->setContent(QByteArray(200 * 1024, static_cast<char>('a' + turn % 26)));
        EXPECT_EQ(view().save(), Saved::Now);
        container().waitForBackgroundTasks();
    }

    EXPECT_EQ(watch.byThisThread(), 0);
    EXPECT_GT(watch.of("snippets.sqlite"), 0);
}

TEST_F(PutOffSaveTest, aSaveIsToldOnceItIsOnTheDisk)
{
    addSnippet(QStringLiteral("begins a log"), 0);
    ASSERT_EQ(view().save(), Saved::Now);
    container().waitForBackgroundTasks();
    QCoreApplication::processEvents();
    DiskWatch watch;
    QSignalSpy didSave(&container(), &PersistentContainer::didSave);
    std::promise<void> mayGoOn;
    container().performBackgroundTask(
        [&mayGoOn](ManagedObjectContext &) { mayGoOn.get_future().wait(); });
    addSnippet(mine, 1);
    ASSERT_EQ(view().save(), Saved::Now);
    QCoreApplication::processEvents();
    EXPECT_EQ(didSave.count(), 0);

    mayGoOn.set_value();

    ASSERT_TRUE(didSave.wait());
    container().waitForBackgroundTasks();
    EXPECT_GE(watch.of("snippets.sqlite-wal"), 1);
}
