// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PersistentContainer.h"

#include "Quillery_Mac/store/LiveFetch.h"
#include "tests/logic/StoreTestSupport.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <future>
#include <random>
#include <set>
#include <thread>
#include <tuple>

namespace {

class PersistentContainerTest : public StoreTest
{
protected:
    // A change of another context, saved but not merged yet.
    void changeElsewhere(std::function<void(ManagedObjectContext &)> change)
    {
        container().performBackgroundTask([change](ManagedObjectContext &context) {
            change(context);
            EXPECT_TRUE(context.save());
        });
        std::promise<void> done;
        container().performBackgroundTask([&done](ManagedObjectContext &) { done.set_value(); });
        done.get_future().wait();
    }

    Snippet *addSavedSnippet()
    {
        Snippet *snippet = addSnippet(QStringLiteral("title"), 1, "content");
        EXPECT_TRUE(view().save());
        QCoreApplication::processEvents();
        return snippet;
    }

    static Snippet &only(ManagedObjectContext &context) { return *context.fetch<Snippet>().at(0); }

    using Titles = std::vector<QString>;
    const QString mine = QStringLiteral("mine");
    const QString theirs = QStringLiteral("theirs");
};

} // namespace

TEST_F(PersistentContainerTest, tasksRunInOrderOnOneOtherThread)
{
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    for (int task = 0; task < 5; ++task) {
        container().performBackgroundTask([&, task](ManagedObjectContext &) {
            order.push_back(task);
            threads.push_back(std::this_thread::get_id());
        });
    }
    container().waitForBackgroundTasks();

    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(std::set(threads.begin(), threads.end()).size(), 1U);
    EXPECT_NE(threads.front(), std::this_thread::get_id());
}

TEST_F(PersistentContainerTest, everyTaskHasAContextOfItsOwn)
{
    std::size_t seen = 99;
    container().performBackgroundTask(
        [](ManagedObjectContext &context) { context.insert<Snippet>(); });
    container().performBackgroundTask(
        [&seen](ManagedObjectContext &context) { seen = context.fetch<Snippet>().size(); });
    container().waitForBackgroundTasks();

    EXPECT_EQ(seen, 0U);
}

TEST_F(PersistentContainerTest, destroyingTheContainerWaitsForItsTasks)
{
    for (int task = 0; task < 20; ++task) {
        container().performBackgroundTask([](ManagedObjectContext &context) {
            context.insert<Clip>();
            EXPECT_TRUE(context.save());
        });
    }
    close();

    EXPECT_EQ(answer(clipsFile(), "SELECT count(*) FROM Clip"), "20");
}

TEST_F(PersistentContainerTest, aBackgroundTaskSeesWhatTheViewContextSaved)
{
    addSavedSnippet();
    Titles seen;
    container().performBackgroundTask(
        [&seen](ManagedObjectContext &context) { seen = titles(context.fetch<Snippet>()); });
    container().waitForBackgroundTasks();

    EXPECT_EQ(seen, Titles{QStringLiteral("title")});
}

TEST_F(PersistentContainerTest, whatATaskSavesAppearsInLiveFetchesByItselfOncePerMerge)
{
    LiveFetch<Clip> items(view());
    EXPECT_TRUE(items.results().empty());
    QSignalSpy spy(&items, &LiveFetchBase::changed);

    container().performBackgroundTask([](ManagedObjectContext &context) {
        for (qint16 position = 1; position <= 100; ++position)
            context.insert<Clip>()->setPosition(position);
        EXPECT_TRUE(context.save());
    });

    ASSERT_TRUE(spy.wait(5000));
    EXPECT_EQ(items.results().size(), 100U);
    QCoreApplication::processEvents();
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(PersistentContainerTest, anObjectKeepsItsIdentityThroughAMerge)
{
    Snippet *snippet = addSavedSnippet();

    changeElsewhere([this](ManagedObjectContext &context) { only(context).setTitle(theirs); });
    container().waitForBackgroundTasks();

    EXPECT_EQ(view().fetch<Snippet>(), std::vector{snippet});
    EXPECT_EQ(snippet->title(), theirs);
    EXPECT_FALSE(snippet->hasChanges());
}

TEST_F(PersistentContainerTest, aMergeReplacesLoadedContentsAndPreviews)
{
    const Snippet *snippet = addSavedSnippet();
    EXPECT_EQ(snippet->content(), QByteArray("content"));
    EXPECT_EQ(snippet->preview().start, QStringLiteral("content"));

    changeElsewhere([](ManagedObjectContext &context) { only(context).setContent("new"); });
    container().waitForBackgroundTasks();

    EXPECT_EQ(snippet->content(), QByteArray("new"));
    EXPECT_EQ(snippet->preview().start, QStringLiteral("new"));
}

TEST_F(PersistentContainerTest, aMergeLeavesChangedPropertiesAndTakesTheOthers)
{
    Snippet *snippet = addSavedSnippet();
    snippet->setTitle(mine);

    changeElsewhere([this](ManagedObjectContext &context) {
        only(context).setTitle(theirs);
        only(context).setOrder(9);
        only(context).setContent("theirs");
    });
    container().waitForBackgroundTasks();

    EXPECT_EQ(snippet->title(), mine);
    EXPECT_EQ(snippet->order(), 9);
    EXPECT_EQ(snippet->content(), QByteArray("theirs"));
}

TEST_F(PersistentContainerTest, savingAfterAnotherContextWinsPropertyByProperty)
{
    Snippet *snippet = addSavedSnippet();
    snippet->setTitle(mine);
    changeElsewhere([this](ManagedObjectContext &context) {
        only(context).setTitle(theirs);
        only(context).setOrder(9);
    });

    ASSERT_TRUE(view().save());

    EXPECT_EQ(answer(snippetsFile(), "SELECT title || \"order\" FROM Snippet"), "mine9");
    EXPECT_EQ(snippet->order(), 9);
    QCoreApplication::processEvents();
    EXPECT_EQ(snippet->title(), mine);
    EXPECT_EQ(snippet->order(), 9);
}

TEST_F(PersistentContainerTest, aMergeThatComesAfterOurSaveDoesNotBringOldValuesBack)
{
    Snippet *snippet = addSavedSnippet();
    changeElsewhere([](ManagedObjectContext &context) { only(context).setOrder(2); });
    snippet->setOrder(3);
    ASSERT_TRUE(view().save());

    container().waitForBackgroundTasks();
    QCoreApplication::processEvents();

    EXPECT_EQ(snippet->order(), 3);
    EXPECT_EQ(answer(snippetsFile(), "SELECT \"order\" FROM Snippet"), "3");
}

TEST_F(PersistentContainerTest, aFirstFetchAfterASaveThatIsNotMergedYetIsNotUndoneByTheMerge)
{
    changeElsewhere(
        [this](ManagedObjectContext &context) { context.insert<Snippet>()->setTitle(theirs); });
    changeElsewhere([](ManagedObjectContext &context) { only(context).setOrder(5); });
    EXPECT_EQ(only(view()).order(), 5);
    changeElsewhere([](ManagedObjectContext &context) { context.deleteObject(only(context)); });

    container().waitForBackgroundTasks();

    EXPECT_TRUE(view().fetch<Snippet>().empty());
}

TEST_F(PersistentContainerTest, aDeletionElsewhereTakesTheObjectAwayAndLeavesItReadable)
{
    LiveFetch<Snippet> items(view());
    Snippet *snippet = addSavedSnippet();
    snippet->setTitle(mine);
    bool wasReadable = false;
    QObject::connect(&items, &LiveFetchBase::changed, &items,
                     [&] { wasReadable = snippet->isDeleted() && snippet->title() == mine; });

    changeElsewhere([](ManagedObjectContext &context) { context.deleteObject(only(context)); });
    container().waitForBackgroundTasks();
    EXPECT_TRUE(snippet->isDeleted());
    EXPECT_TRUE(items.results().empty());
    EXPECT_FALSE(view().hasChanges());
    QCoreApplication::processEvents();

    EXPECT_TRUE(wasReadable);
}

TEST_F(PersistentContainerTest, deletingWhatAnotherContextDeletedIsNoError)
{
    Snippet *snippet = addSavedSnippet();
    view().deleteObject(*snippet);
    changeElsewhere([](ManagedObjectContext &context) { context.deleteObject(only(context)); });

    EXPECT_TRUE(view().save());
    EXPECT_FALSE(view().hasChanges());
}

TEST_F(PersistentContainerTest, changingWhatAnotherContextDeletedMeanwhileIsNoErrorAndAddsNoRow)
{
    Snippet *snippet = addSavedSnippet();
    bool isSaved = false;
    bool isGone = false;
    std::promise<void> fetched;
    std::promise<void> deleted;
    container().performBackgroundTask([&](ManagedObjectContext &context) {
        Snippet &same = only(context);
        fetched.set_value();
        deleted.get_future().wait();
        same.setTitle(theirs);
        isSaved = context.save().has_value();
        isGone = same.isDeleted();
    });
    fetched.get_future().wait();
    view().deleteObject(*snippet);
    ASSERT_TRUE(view().save());
    deleted.set_value();
    container().waitForBackgroundTasks();

    EXPECT_TRUE(isSaved);
    EXPECT_TRUE(isGone);
    EXPECT_TRUE(view().fetch<Snippet>().empty());
    EXPECT_EQ(answer(snippetsFile(), "SELECT count(*) FROM Snippet"), "0");
}

TEST_F(PersistentContainerTest, aReadingSeesWhatWasSavedCannotWriteAndIsToldWhenItIsDone)
{
    addSavedSnippet();
    Titles seen;
    bool isSaved = true;
    bool isDone = false;
    std::thread::id reader;
    container().performBackgroundReading(
        [&](ManagedObjectContext &context) {
            reader = std::this_thread::get_id();
            seen = titles(context.fetch<Snippet>());
            only(context).setTitle(theirs);
            isSaved = context.save().has_value();
        },
        [&isDone, main = std::this_thread::get_id()] {
            isDone = std::this_thread::get_id() == main;
        });
    container().waitForBackgroundTasks();

    EXPECT_NE(reader, std::this_thread::get_id());
    EXPECT_EQ(seen, Titles{QStringLiteral("title")});
    EXPECT_FALSE(isSaved);
    EXPECT_FALSE(isDone);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isDone);
    EXPECT_EQ(titles(view().fetch<Snippet>()), Titles{QStringLiteral("title")});
}

TEST_F(PersistentContainerTest, aSaveIsToldPerStore)
{
    QSignalSpy spy(&container(), &PersistentContainer::didSave);

    addSavedSnippet();
    QTRY_COMPARE(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).value<StoreKind>(), StoreKind::Snippets);
    changeElsewhere([](ManagedObjectContext &context) { context.insert<Clip>(); });

    QTRY_COMPARE(spy.count(), 2);
    EXPECT_EQ(spy.at(1).at(0).value<StoreKind>(), StoreKind::Clips);
}

TEST_F(PersistentContainerTest, manySavesLeaveABoundedFileAndLog)
{
    const QByteArray content(64 * 1024, 'x');
    for (int turn = 0; turn < 300; ++turn) {
        container().performBackgroundTask([&content](ManagedObjectContext &context) {
            for (Clip *clip : context.fetch<Clip>())
                context.deleteObject(*clip);
            context.insert<Clip>()->setContent(content);
            EXPECT_TRUE(context.save());
        });
    }
    container().waitForBackgroundTasks();

    const qint64 written = qint64{300} * content.size();
    EXPECT_LT(QFileInfo(clipsFile()).size(), 2 * 1024 * 1024);
    EXPECT_LT(QFileInfo(clipsFile() + QStringLiteral("-wal")).size(), 12 * 1024 * 1024);
    EXPECT_GT(written, 18 * 1024 * 1024);
}

TEST_F(PersistentContainerTest, saveAndMergeAgreeUnderRandomChangesFromBothSides)
{
    for (qint16 order = 0; order < 20; ++order)
        addSnippet(QString::number(order), order);
    ASSERT_TRUE(view().save());
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const auto seed = random();
        container().performBackgroundTask([seed](ManagedObjectContext &context) {
            std::mt19937 dice(seed);
            const auto snippets = context.fetch<Snippet>();
            for (int change = 0; change < 3 && !snippets.empty(); ++change)
                snippets[dice() % snippets.size()]->setOrder(static_cast<qint16>(dice() % 1000));
            if (dice() % 4 == 0)
                context.insert<Snippet>()->setTitle(QString::number(seed));
            if (dice() % 4 == 1 && !snippets.empty())
                context.deleteObject(*snippets[dice() % snippets.size()]);
            EXPECT_TRUE(context.save());
        });
        const auto snippets = view().fetch<Snippet>();
        if (!snippets.empty())
            snippets[random() % snippets.size()]->setOrder(static_cast<qint16>(random() % 1000));
        if (random() % 3 == 0) {
            EXPECT_TRUE(view().save());
        }
        if (random() % 5 == 0)
            QCoreApplication::processEvents();
    }
    ASSERT_TRUE(view().save());
    container().waitForBackgroundTasks();
    ASSERT_TRUE(view().save());
    const auto state = [](ManagedObjectContext &context) {
        std::vector<std::tuple<qint64, qint16, QString>> rows;
        for (const Snippet *snippet : context.fetch<Snippet>())
            rows.emplace_back(snippet->objectId(), snippet->order(), *snippet->title());
        return rows;
    };
    const auto inMemory = state(view());

    open();

    EXPECT_EQ(inMemory, state(view()));
}
