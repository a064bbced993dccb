// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PersistentHistory.h"

#include "Quillery_Mac/store/LiveFetch.h"
#include "tests/logic/StoreTestSupport.h"

#include <QSignalSpy>

namespace {

class PersistentHistoryTest : public StoreTest
{
protected:
    PersistentHistory &history() { return container().history(StoreKind::Snippets); }

    std::vector<HistoryTransaction> after(qint64 number)
    {
        return history().transactionsAfter(number).value();
    }

    std::string storedTransactions()
    {
        return answer(snippetsFile(), "SELECT (SELECT count(*) FROM HistoryTransaction) || '/' ||"
                                      " (SELECT count(*) FROM HistoryChange)");
    }

    const QString consumer = QStringLiteral("mirror");
    const QString other = QStringLiteral("other");
};

} // namespace

TEST_F(PersistentHistoryTest, withoutAConsumerNothingIsKeptButTransactionsAreCounted)
{
    addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());

    EXPECT_EQ(history().currentTransaction(), 1);
    EXPECT_EQ(storedTransactions(), "0/0");
}

TEST_F(PersistentHistoryTest, anInsertionAnUpdateAndADeletionAreTold)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    const QUuid id = QUuid::createUuid();
    const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-1);
    Snippet *snippet = addSnippet(QStringLiteral("a"), 1);
    snippet->setId(id);
    ASSERT_TRUE(view().save());
    const qint64 number = snippet->objectId();
    view().setTransactionAuthor(other);
    snippet->setTitle(QStringLiteral("b"));
    snippet->setContent("c");
    ASSERT_TRUE(view().save());
    view().deleteObject(*snippet);
    ASSERT_TRUE(view().save());

    const auto told = after(0);
    ASSERT_EQ(told.size(), 3U);
    EXPECT_EQ(told[0].author, QString());
    EXPECT_GE(told[0].time, before);
    EXPECT_LE(told[0].time, QDateTime::currentDateTimeUtc());
    ASSERT_EQ(told[0].changes.size(), 1U);
    EXPECT_EQ(told[0].changes[0].kind, HistoryChange::Kind::Inserted);
    EXPECT_EQ(told[0].changes[0].objects, std::vector{number});
    EXPECT_EQ(told[1].author, other);
    EXPECT_EQ(told[1].changes[0].kind, HistoryChange::Kind::Updated);
    EXPECT_EQ(told[1].changes[0].attributes,
              (QStringList{QStringLiteral("title"), QStringLiteral("content")}));
    EXPECT_EQ(told[2].changes[0].kind, HistoryChange::Kind::Deleted);
    EXPECT_EQ(told[2].changes[0].objects, std::vector{number});
    EXPECT_EQ(told[2].changes[0].ids, std::vector{std::optional(id)});
}

TEST_F(PersistentHistoryTest, deletedObjectsWithoutIdAreToldWithoutId)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    Snippet *first = addSnippet(QStringLiteral("a"), 1);
    Snippet *second = addSnippet(QStringLiteral("b"), 2);
    second->setId(QUuid::createUuid());
    ASSERT_TRUE(view().save());
    view().deleteObject(*first);
    view().deleteObject(*second);
    ASSERT_TRUE(view().save());

    const auto told = after(1);
    ASSERT_EQ(told.size(), 1U);
    ASSERT_EQ(told[0].changes[0].ids.size(), 2U);
    EXPECT_EQ(told[0].changes[0].ids[0], std::nullopt);
    EXPECT_NE(told[0].changes[0].ids[1], std::nullopt);
}

TEST_F(PersistentHistoryTest, renumberingAWholeListIsOneChange)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    for (qint16 order = 0; order < 100; ++order)
        addSnippet(QString::number(order), order);
    ASSERT_TRUE(view().save());
    for (Snippet *snippet : view().fetch<Snippet>())
        snippet->setOrder(static_cast<qint16>(snippet->order() + 1));
    ASSERT_TRUE(view().save());

    const auto told = after(1);
    ASSERT_EQ(told.size(), 1U);
    ASSERT_EQ(told[0].changes.size(), 1U);
    EXPECT_EQ(told[0].changes[0].objects.size(), 100U);
    EXPECT_EQ(told[0].changes[0].attributes, QStringList{QStringLiteral("order")});
}

TEST_F(PersistentHistoryTest, aSaveOfABackgroundContextIsToldToo)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    container().performBackgroundTask([](ManagedObjectContext &context) {
        context.insert<Snippet>();
        EXPECT_TRUE(context.save());
    });
    container().waitForBackgroundTasks();

    EXPECT_EQ(after(0).size(), 1U);
}

TEST_F(PersistentHistoryTest, changesThatAreCarriedHereAppearInLiveFetchesUnderTheirAuthor)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    Snippet *known = addSnippet(QStringLiteral("known"), 1);
    Snippet *gone = addSnippet(QStringLiteral("gone"), 2);
    ASSERT_TRUE(view().save());
    const qint64 goneNumber = gone->objectId();
    LiveFetch<Snippet> items(view());
    ASSERT_EQ(items.results().size(), 2U);
    QCoreApplication::processEvents();
    QSignalSpy changed(&items, &LiveFetchBase::changed);

    container().performBackgroundTask([&](ManagedObjectContext &context) {
        context.setTransactionAuthor(consumer);
        context.object<Snippet>(known->objectId())->setTitle(QStringLiteral("changed"));
        context.deleteObject(*context.object<Snippet>(goneNumber));
        Snippet *added = context.insert<Snippet>();
        added->setTitle(QStringLiteral("added"));
        added->setOrder(3);
        EXPECT_TRUE(context.save());
    });

    ASSERT_TRUE(changed.wait());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(titles(items.results()),
              (std::vector<QString>{QStringLiteral("changed"), QStringLiteral("added")}));
    EXPECT_EQ(items.results().at(0), known);
    const auto told = after(1);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].author, consumer);
    EXPECT_EQ(told[0].changes.size(), 3U);
}

TEST_F(PersistentHistoryTest, aTransactionIsKeptUntilEveryConsumerHasReadIt)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    ASSERT_TRUE(history().addConsumer(other));
    addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());

    ASSERT_TRUE(history().setLastRead(consumer, 1));
    EXPECT_EQ(storedTransactions(), "1/1");
    ASSERT_TRUE(history().setLastRead(other, 1));
    EXPECT_EQ(storedTransactions(), "0/0");
}

TEST_F(PersistentHistoryTest, aConsumerReadsOnWhereItLeftOffAfterARestart)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());
    ASSERT_TRUE(history().setLastRead(consumer, 1));
    addSnippet(QStringLiteral("b"), 2);
    ASSERT_TRUE(view().save());

    open();

    ASSERT_TRUE(history().addConsumer(consumer));
    EXPECT_EQ(history().lastRead(consumer), 1);
    const auto told = after(1);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].number, 2);
}

TEST_F(PersistentHistoryTest, theReadMarkNeverGoesBack)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    ASSERT_TRUE(history().setLastRead(consumer, 5));
    ASSERT_TRUE(history().setLastRead(consumer, 2));

    EXPECT_EQ(history().lastRead(consumer), 5);
}

TEST_F(PersistentHistoryTest, aConsumerThatLeavesReleasesWhatItHasNotRead)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());
    ASSERT_TRUE(history().removeConsumer(consumer));

    EXPECT_EQ(storedTransactions(), "0/0");
    ASSERT_FALSE(history().lastRead(consumer));
    EXPECT_EQ(history().lastRead(consumer).error().kind, platform::Error::Kind::NotFound);
}

TEST_F(PersistentHistoryTest, transactionsCanBeReadInPortions)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    for (qint16 order = 0; order < 5; ++order) {
        addSnippet(QString::number(order), order);
        ASSERT_TRUE(view().save());
    }

    const auto portion = history().transactionsAfter(1, 2).value();
    ASSERT_EQ(portion.size(), 2U);
    EXPECT_EQ(portion[0].number, 2);
    EXPECT_EQ(portion[1].number, 3);
}

TEST_F(PersistentHistoryTest, aStoreThatIsNotLoadedHasNoHistory)
{
    PersistentContainer none({});

    const auto current = none.history(StoreKind::Clips).currentTransaction();

    ASSERT_FALSE(current);
    EXPECT_EQ(current.error().kind, platform::Error::Kind::Unavailable);
}

TEST_F(PersistentHistoryTest, aForeignIdWithCommasDoesNotShiftTheIdsOfOthers)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    const QUuid id = QUuid::createUuid();
    Snippet *first = addSnippet(QStringLiteral("a"), 1);
    Snippet *second = addSnippet(QStringLiteral("b"), 2);
    second->setId(id);
    ASSERT_TRUE(view().save());
    execute(snippetsFile(),
            "UPDATE Snippet SET id = 'x,y,z' WHERE pk = " + std::to_string(first->objectId()));
    view().deleteObject(*first);
    view().deleteObject(*second);
    ASSERT_TRUE(view().save());

    const auto told = after(1);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].changes[0].ids,
              (std::vector<std::optional<QUuid>>{std::nullopt, std::optional(id)}));
    EXPECT_EQ(answer(snippetsFile(), "SELECT ids FROM HistoryChange WHERE kind = 3"),
              "," + id.toString(QUuid::WithoutBraces).toUpper().toStdString());
}

TEST_F(PersistentHistoryTest, storedIdsThatDoNotFitTheObjectsAreNoIds)
{
    ASSERT_TRUE(history().addConsumer(consumer));
    Snippet *first = addSnippet(QStringLiteral("a"), 1);
    Snippet *second = addSnippet(QStringLiteral("b"), 2);
    second->setId(QUuid::createUuid());
    ASSERT_TRUE(view().save());
    view().deleteObject(*first);
    view().deleteObject(*second);
    ASSERT_TRUE(view().save());
    execute(snippetsFile(), "UPDATE HistoryChange SET ids = 'x,y' || ids WHERE kind = 3");

    const auto told = after(1);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].changes[0].ids,
              (std::vector<std::optional<QUuid>>{std::nullopt, std::nullopt}));
}
