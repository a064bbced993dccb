// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/LibraryImport.h"
#include "Quillery_Mac/editor/exchange/LibraryReader.h"
#include "tests/logic/StoreTestSupport.h"

namespace {

const QUuid kTakenId(QStringLiteral("0a1b2c3d-1111-2222-3333-444455556666"));
const QUuid kFreeId(QStringLiteral("0a1b2c3d-1111-2222-3333-444455556667"));

ParsedItem parsed(const char *title, const std::optional<QUuid> &id = std::nullopt)
{
    ParsedItem item;
    item.title = QString::fromLatin1(title);
    item.id = id;
    item.isFolder = *title == '[';
    return item;
}

class LibraryImportTest : public StoreTest
{
protected:
    // The library that the tests import into: gaps and equal numbers, as deletions and other
    // machines leave them.
    void SetUp() override
    {
        StoreTest::SetUp();
        addSnippet(QStringLiteral("a"), -3)->setId(kTakenId);
        addSnippet(QStringLiteral("[F]"), 4)->setIsFolder(true);
        addSnippet(QStringLiteral("b"), 9);
        addSnippet(QStringLiteral("c"), 9);
        ASSERT_TRUE(view().save());
    }

    const ParsedLibrary library{{parsed("1"), parsed("[X]"), parsed("2")}};

    // All titles in their order, and with their numbers.
    std::string list(bool hasNumbers = false) const
    {
        std::string result;
        for (const Snippet *item : view().fetch<Snippet>()) {
            result += result.empty() ? "" : " ";
            result += item->title()->toStdString();
            result += hasNumbers ? ':' + std::to_string(item->order()) : "";
        }
        return result;
    }
    std::string numbers() const { return list(true); }

    Snippet *find(const QString &title) const
    {
        for (Snippet *item : view().fetch<Snippet>()) {
            if (item->title() == title)
                return item;
        }
        return nullptr;
    }

    // What is in the file, as another program sees it.
    std::string rows() const
    {
        return answer(snippetsFile(), "SELECT group_concat(quote(title) || \"order\" || quote(id)) "
                                      "FROM (SELECT * FROM Snippet ORDER BY \"order\", pk)");
    }
    int transactions() const
    {
        return std::stoi(answer(snippetsFile(), "SELECT number FROM HistoryCounter"));
    }

    // From now on rows of this title cannot be written or deleted.
    void refuse(const std::string &title) const
    {
        execute(snippetsFile(),
                "CREATE TRIGGER refuseInsert BEFORE INSERT ON Snippet WHEN new.title = '" + title +
                    "' BEGIN SELECT RAISE(ABORT, 'refused'); END;"
                    "CREATE TRIGGER refuseDelete BEFORE DELETE ON Snippet WHEN old.title = '" +
                    title + "' BEGIN SELECT RAISE(ABORT, 'refused'); END");
    }
    void refuseNothing() const
    {
        execute(snippetsFile(), "DROP TRIGGER refuseInsert; DROP TRIGGER refuseDelete");
    }
};

const std::string kBefore = "a:-3 [F]:4 b:9 c:9";

} // namespace

TEST_F(LibraryImportTest, foldersComeLastAndSnippetsOfNoFolderBeforeTheFirst)
{
    const auto undo = importLibrary(view(), library);

    ASSERT_TRUE(undo);
    EXPECT_EQ(undo->count(), 3);
    EXPECT_EQ(numbers(), "a:0 1:1 [F]:2 b:3 c:4 [X]:5 2:6");
    close();
    open();
    EXPECT_EQ(numbers(), "a:0 1:1 [F]:2 b:3 c:4 [X]:5 2:6");
}

TEST_F(LibraryImportTest, anImportIsOneTransaction)
{
    const int before = transactions();

    const auto undo = importLibrary(view(), library);
    EXPECT_EQ(transactions(), before + 1);
    EXPECT_FALSE(view().hasChanges());

    ASSERT_TRUE(undo->undo(view()));
    EXPECT_EQ(transactions(), before + 2);
    EXPECT_FALSE(view().hasChanges());
}

TEST_F(LibraryImportTest, nothingIsImportedFromAnEmptyFile)
{
    const std::string before = rows();
    const int saved = transactions();

    const auto undo = importLibrary(view(), {});

    ASSERT_TRUE(undo);
    EXPECT_EQ(undo->count(), 0);
    EXPECT_TRUE(undo->undo(view()));
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(transactions(), saved);
}

TEST_F(LibraryImportTest, idsAreKeptUnlessTheyAreTaken)
{
    ASSERT_TRUE(importLibrary(
        view(), {{parsed("free", kFreeId), parsed("again", kFreeId), parsed("taken", kTakenId),
                  parsed("none"), parsed("null", QUuid())}}));

    EXPECT_EQ(find(QStringLiteral("free"))->id(), kFreeId);
    EXPECT_EQ(find(QStringLiteral("a"))->id(), kTakenId);
    QSet<QUuid> ids;
    for (const char *title : {"free", "again", "taken", "none", "null", "a"}) {
        const auto id = find(QString::fromLatin1(title))->id();
        ASSERT_TRUE(id && !id->isNull()) << title;
        ids.insert(*id);
    }
    EXPECT_EQ(ids.size(), 6);
}

TEST_F(LibraryImportTest, allAttributesAreTaken)
{
    const QDateTime timestamp = QDateTime::fromMSecsSinceEpoch(5, Qt::UTC);
    ASSERT_TRUE(importLibrary(
        view(), {{{kFreeId, QStringLiteral("t"), QByteArray("\xFF"), timestamp, true, true}, {}}}));
    close();
    open();

    const Snippet *full = view().fetch<Snippet>().at(4);
    EXPECT_EQ(full->id(), kFreeId);
    EXPECT_EQ(full->title(), QStringLiteral("t"));
    EXPECT_EQ(full->content(), QByteArray("\xFF"));
    EXPECT_EQ(full->timestamp(), timestamp);
    EXPECT_TRUE(full->expanded());
    EXPECT_TRUE(full->isFolder());
    const Snippet *empty = view().fetch<Snippet>().at(5);
    EXPECT_EQ(empty->title(), std::nullopt);
    EXPECT_EQ(empty->content(), std::nullopt);
    EXPECT_EQ(empty->timestamp(), std::nullopt);
    EXPECT_FALSE(empty->isFolder());
}

TEST_F(LibraryImportTest, undoGivesBackTheLibraryAsItWas)
{
    const std::string before = rows();
    const auto undo = importLibrary(view(), library);

    ASSERT_TRUE(undo->undo(view()));

    EXPECT_EQ(numbers(), kBefore);
    EXPECT_EQ(rows(), before);
}

TEST_F(LibraryImportTest, undoPassesOverWhatIsGone)
{
    const auto undo = importLibrary(view(), library);
    view().deleteObject(*find(QStringLiteral("[X]")));
    view().deleteObject(*find(QStringLiteral("b")));
    ASSERT_TRUE(view().save());
    QCoreApplication::processEvents();

    ASSERT_TRUE(undo->undo(view()));

    EXPECT_EQ(numbers(), "a:-3 [F]:4 c:9");
    EXPECT_TRUE(undo->undo(view()));
    EXPECT_EQ(numbers(), "a:-3 [F]:4 c:9");
}

TEST_F(LibraryImportTest, undoLeavesWhatWasMovedMeanwhileWhereItIs)
{
    const auto undo = importLibrary(view(), library);
    find(QStringLiteral("c"))->setOrder(0);
    find(QStringLiteral("a"))->setOrder(4);

    ASSERT_TRUE(undo->undo(view()));

    EXPECT_EQ(list(), "c [F] b a");
}

TEST_F(LibraryImportTest, undoLeavesWhatWasAddedMeanwhileWhereItIs)
{
    const auto undo = importLibrary(view(), library);
    addSnippet(QStringLiteral("new"), 7);

    ASSERT_TRUE(undo->undo(view()));

    EXPECT_EQ(list(), "a [F] b c new");
}

TEST_F(LibraryImportTest, anImportThatCannotBeSavedChangesNothing)
{
    const std::string before = rows();
    refuse("2");

    const auto undo = importLibrary(view(), library);

    ASSERT_FALSE(undo);
    EXPECT_EQ(undo.error().kind, platform::Error::Kind::Io);
    EXPECT_EQ(numbers(), kBefore);
    EXPECT_EQ(rows(), before);
    // And nothing is left that a later save would write.
    refuseNothing();
    ASSERT_TRUE(view().save());
    EXPECT_EQ(rows(), before);
}

TEST_F(LibraryImportTest, anImportThatCannotBeSavedKeepsWhatWasChangedBefore)
{
    find(QStringLiteral("a"))->setTitle(QStringLiteral("A"));
    find(QStringLiteral("b"))->setOrder(20);
    refuse("2");
    ASSERT_FALSE(importLibrary(view(), library));
    refuseNothing();

    ASSERT_TRUE(view().save());

    EXPECT_EQ(numbers(), "A:-3 [F]:4 c:9 b:20");
}

TEST_F(LibraryImportTest, aClipThatCannotBeSavedStopsNeitherAnImportNorItsUndo)
{
    execute(clipsFile(), "CREATE TRIGGER refuse BEFORE INSERT ON Clip"
                         " BEGIN SELECT RAISE(ABORT, 'refused'); END");
    view().insert<Clip>();

    const auto undo = importLibrary(view(), library);

    ASSERT_TRUE(undo);
    EXPECT_EQ(answer(snippetsFile(), "SELECT count(*) FROM Snippet"), "7");
    EXPECT_TRUE(undo->undo(view()));
    EXPECT_EQ(answer(snippetsFile(), "SELECT count(*) FROM Snippet"), "4");
    EXPECT_TRUE(view().hasChanges());
}

TEST_F(LibraryImportTest, anUndoThatCannotBeSavedIsWrittenByALaterSave)
{
    const std::string before = rows();
    const auto undo = importLibrary(view(), library);
    refuse("2");

    EXPECT_FALSE(undo->undo(view()));
    EXPECT_EQ(numbers(), kBefore);
    refuseNothing();
    ASSERT_TRUE(view().save());

    EXPECT_EQ(rows(), before);
}

TEST_F(LibraryImportTest, moreItemsThanALibraryHoldsAreRefusedBeforeAnythingChanges)
{
    const std::string before = rows();
    ParsedLibrary large;
    large.items.resize(static_cast<std::size_t>(kMaxLibraryItems) - 3);

    const auto undo = importLibrary(view(), large);

    ASSERT_FALSE(undo);
    EXPECT_EQ(undo.error().text.toStdString(),
              "A library holds at most 32,767 snippets and folders. There are 4 already, and the "
              "file holds 32764.");
    EXPECT_FALSE(view().hasChanges());
    EXPECT_EQ(rows(), before);
    large.items.pop_back();
    ASSERT_TRUE(importLibrary(view(), large));
    EXPECT_EQ(view().fetch<Snippet>().back()->order(), 32766);
}
