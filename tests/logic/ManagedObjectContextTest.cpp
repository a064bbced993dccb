// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ContentCache.h"
#include "Quillery_Mac/store/LiveFetch.h"
#include "tests/logic/StoreTestSupport.h"

#include <QSignalSpy>
#include <QTest>

namespace {

class ManagedObjectContextTest : public StoreTest
{
};

using Titles = std::vector<QString>;

} // namespace

TEST_F(ManagedObjectContextTest, everyAttributeOfASnippetSurvivesTheProcess)
{
    const QUuid id = QUuid::createUuid();
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(1700000000123, Qt::UTC);
    Snippet *snippet = addSnippet(QStringLiteral("Grüße 😀"), -7, "a\0b\xFFz");
    snippet->setContent(QByteArray("a\0b\xFFz", 5));
    snippet->setId(id);
    snippet->setInFolder(QStringLiteral("elsewhere"));
    snippet->setIsFolder(true);
    snippet->setExpanded(true);
    snippet->setTimestamp(time);
    ASSERT_TRUE(view().save());

    open();

    const auto snippets = view().fetch<Snippet>();
    ASSERT_EQ(snippets.size(), 1U);
    const Snippet &read = *snippets.front();
    EXPECT_EQ(read.title(), QStringLiteral("Grüße 😀"));
    EXPECT_EQ(read.content(), QByteArray("a\0b\xFFz", 5));
    EXPECT_EQ(read.id(), id);
    EXPECT_EQ(read.inFolder(), QStringLiteral("elsewhere"));
    EXPECT_TRUE(read.isFolder());
    EXPECT_TRUE(read.expanded());
    EXPECT_EQ(read.order(), -7);
    EXPECT_EQ(read.timestamp(), time);
}

TEST_F(ManagedObjectContextTest, everyAttributeOfAClipSurvivesTheProcess)
{
    const QUuid id = QUuid::createUuid();
    auto *clip = view().insert<Clip>();
    clip->setContent("copied");
    clip->setDevice(QStringLiteral("DEVICE"));
    clip->setId(id);
    clip->setPosition(1);
    ASSERT_TRUE(view().save());

    open();

    const auto clips = view().fetch<Clip>();
    ASSERT_EQ(clips.size(), 1U);
    EXPECT_EQ(clips.front()->content(), QByteArray("copied"));
    EXPECT_EQ(clips.front()->device(), QStringLiteral("DEVICE"));
    EXPECT_EQ(clips.front()->id(), id);
    EXPECT_EQ(clips.front()->position(), 1);
}

TEST_F(ManagedObjectContextTest, missingAttributesStayMissing)
{
    view().insert<Snippet>();
    ASSERT_TRUE(view().save());

    open();

    const auto snippets = view().fetch<Snippet>();
    ASSERT_EQ(snippets.size(), 1U);
    EXPECT_EQ(snippets.front()->content(), std::nullopt);
    EXPECT_EQ(snippets.front()->id(), std::nullopt);
    EXPECT_EQ(snippets.front()->inFolder(), std::nullopt);
    EXPECT_EQ(snippets.front()->timestamp(), std::nullopt);
    EXPECT_EQ(snippets.front()->title(), std::nullopt);
    EXPECT_FALSE(snippets.front()->isFolder());
    EXPECT_EQ(snippets.front()->order(), 0);
    EXPECT_EQ(snippets.front()->preview(), TextPreview());
}

TEST_F(ManagedObjectContextTest, theFileHoldsTheValuesAsOtherProgramsExpectThem)
{
    Snippet *snippet = addSnippet(QStringLiteral("T"), 3, "body");
    snippet->setId(QUuid(QStringLiteral("0a1b2c3d-1111-2222-3333-444455556666")));
    snippet->setTimestamp(QDateTime::fromMSecsSinceEpoch(1500, Qt::UTC));
    ASSERT_TRUE(view().save());
    close();

    EXPECT_EQ(answer(snippetsFile(), "SELECT typeof(content) || content || id || timestamp"
                                     " || isFolder || \"order\" FROM Snippet"),
              "textbody0A1B2C3D-1111-2222-3333-4444555566661.503");
}

TEST_F(ManagedObjectContextTest, fetchesSortByOrderAndThenByObjectId)
{
    addSnippet(QStringLiteral("b"), 5);
    addSnippet(QStringLiteral("c"), 5);
    addSnippet(QStringLiteral("a"), -3);
    ASSERT_TRUE(view().save());
    addSnippet(QStringLiteral("d"), 5);

    EXPECT_EQ(titles(view().fetch<Snippet>()), (Titles{QStringLiteral("a"), QStringLiteral("b"),
                                                       QStringLiteral("c"), QStringLiteral("d")}));
}

TEST_F(ManagedObjectContextTest, aRowHasOneObject)
{
    const Snippet *snippet = addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());

    EXPECT_EQ(view().fetch<Snippet>().front(), snippet);
    EXPECT_EQ(view().object<Snippet>(snippet->objectId()), snippet);
    EXPECT_EQ(view().count<Snippet>(), 1);
}

TEST_F(ManagedObjectContextTest, theLastingNumberComesWithTheFirstSaveAndIsNeverUsedAgain)
{
    Snippet *first = addSnippet(QStringLiteral("a"), 1);
    EXPECT_TRUE(first->isInserted());
    ASSERT_TRUE(view().save());
    const qint64 number = first->objectId();
    EXPECT_FALSE(first->isInserted());
    view().deleteObject(*first);
    ASSERT_TRUE(view().save());

    Snippet *second = addSnippet(QStringLiteral("b"), 1);
    ASSERT_TRUE(view().save());

    EXPECT_GT(second->objectId(), number);
}

TEST_F(ManagedObjectContextTest, savingClearsTheChanges)
{
    Snippet *snippet = addSnippet(QStringLiteral("a"), 1);
    EXPECT_TRUE(view().hasChanges());
    EXPECT_TRUE(snippet->hasChanges());

    ASSERT_TRUE(view().save());

    EXPECT_FALSE(view().hasChanges());
    EXPECT_FALSE(snippet->hasChanges());
}

TEST_F(ManagedObjectContextTest, settingTheSameValueIsNoChange)
{
    Snippet *snippet = addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());

    snippet->setTitle(QStringLiteral("a"));
    snippet->setOrder(1);

    EXPECT_FALSE(view().hasChanges());
}

TEST_F(ManagedObjectContextTest, onlyChangedAttributesAreWritten)
{
    Snippet *snippet = addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());
    execute(snippetsFile(), "UPDATE Snippet SET title = 'theirs', id = 'no uuid'");

    snippet->setOrder(2);
    ASSERT_TRUE(view().save());

    EXPECT_EQ(answer(snippetsFile(), "SELECT title || id || \"order\" FROM Snippet"),
              "theirsno uuid2");
}

TEST_F(ManagedObjectContextTest, aDeletedObjectLeavesTheFetchesAtOnceAndStaysReadable)
{
    Snippet *snippet = addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());

    view().deleteObject(*snippet);

    EXPECT_TRUE(view().fetch<Snippet>().empty());
    EXPECT_TRUE(snippet->isDeleted());
    EXPECT_EQ(snippet->title(), QStringLiteral("a"));
    EXPECT_EQ(snippet->content(), QByteArray("text"));
    ASSERT_TRUE(view().save());
    EXPECT_TRUE(snippet->isDeleted());
    EXPECT_EQ(snippet->title(), QStringLiteral("a"));
    EXPECT_EQ(answer(snippetsFile(), "SELECT count(*) FROM Snippet"), "0");
}

TEST_F(ManagedObjectContextTest, anObjectDeletedBeforeItsFirstSaveNeverReachesTheFile)
{
    Snippet *snippet = addSnippet(QStringLiteral("a"), 1);
    view().deleteObject(*snippet);
    view().deleteObject(*snippet);

    EXPECT_FALSE(view().hasChanges());
    ASSERT_TRUE(view().save());
    EXPECT_EQ(answer(snippetsFile(), "SELECT count(*) FROM Snippet"), "0");
}

TEST_F(ManagedObjectContextTest, changesAreAnnouncedOncePerTurnOfTheEventLoop)
{
    int notices = 0;
    std::size_t inserted = 0;
    QObject::connect(&view(), &ManagedObjectContext::objectsDidChange, &view(),
                     [&](const ObjectChanges &changes) {
                         ++notices;
                         inserted += changes.inserted.size();
                     });

    addSnippet(QStringLiteral("a"), 1)->setExpanded(true);
    addSnippet(QStringLiteral("b"), 2);
    EXPECT_EQ(notices, 0);
    QCoreApplication::processEvents();

    EXPECT_EQ(notices, 1);
    EXPECT_EQ(inserted, 2U);
}

TEST_F(ManagedObjectContextTest, anObjectThatCameAndWentIsNotAnnounced)
{
    const QSignalSpy spy(&view(), &ManagedObjectContext::objectsDidChange);

    view().deleteObject(*addSnippet(QStringLiteral("a"), 1));
    QCoreApplication::processEvents();

    EXPECT_EQ(spy.count(), 0);
}

TEST_F(ManagedObjectContextTest, aDeletedObjectIsReadableWhileItsDeletionIsAnnounced)
{
    Snippet *snippet = addSnippet(QStringLiteral("a"), 1);
    ASSERT_TRUE(view().save());
    QCoreApplication::processEvents();
    QString title;
    QObject::connect(&view(), &ManagedObjectContext::objectsDidChange, &view(),
                     [&](const ObjectChanges &changes) {
                         const auto *gone = static_cast<Snippet *>(changes.deleted.at(0));
                         title = gone->title().value_or(QString());
                     });

    view().deleteObject(*snippet);
    ASSERT_TRUE(view().save());
    QCoreApplication::processEvents();

    EXPECT_EQ(title, QStringLiteral("a"));
}

TEST_F(ManagedObjectContextTest, anAbsentStoreFailsTheSaveAndKeepsTheChanges)
{
    close();
    PersistentContainer none({});
    none.viewContext().insert<Snippet>()->setTitle(QStringLiteral("a"));

    const auto saved = none.viewContext().save();

    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, platform::Error::Kind::Unavailable);
    EXPECT_TRUE(none.viewContext().hasChanges());
    EXPECT_EQ(titles(none.viewContext().fetch<Snippet>()), Titles{QStringLiteral("a")});
}

TEST_F(ManagedObjectContextTest, aFolderFirstLeavesNoSnippetBeforeIt)
{
    Snippet *folderSnippet = addSnippet(QStringLiteral("folder"), 0);
    folderSnippet->setIsFolder(true);
    addSnippet(QStringLiteral("member"), 1);
    ASSERT_TRUE(view().save());

    open();

    const auto snippets = view().fetch<Snippet>();
    ASSERT_EQ(snippets.size(), 2U);
    EXPECT_TRUE(snippets.front()->isFolder());
}

TEST_F(ManagedObjectContextTest, aLiveFetchShowsUnsavedChangesAndTellsOfThem)
{
    LiveFetch<Snippet> items(view());
    EXPECT_TRUE(items.results().empty());
    const QSignalSpy spy(&items, &LiveFetchBase::changed);

    Snippet *late = addSnippet(QStringLiteral("late"), 2);
    addSnippet(QStringLiteral("early"), 1);
    EXPECT_EQ(titles(items.results()), (Titles{QStringLiteral("early"), QStringLiteral("late")}));
    late->setOrder(0);
    EXPECT_EQ(titles(items.results()), (Titles{QStringLiteral("late"), QStringLiteral("early")}));
    view().deleteObject(*late);
    EXPECT_EQ(titles(items.results()), Titles{QStringLiteral("early")});

    QCoreApplication::processEvents();
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(ManagedObjectContextTest, aLiveFetchIsSilentAboutOtherEntities)
{
    LiveFetch<Clip> items(view());
    const QSignalSpy spy(&items, &LiveFetchBase::changed);

    addSnippet(QStringLiteral("a"), 1);
    QCoreApplication::processEvents();

    EXPECT_EQ(spy.count(), 0);
}

TEST_F(ManagedObjectContextTest, aTextOf50MegabytesSurvivesByteByByte)
{
    QByteArray text(50 << 20, Qt::Uninitialized);
    for (qsizetype at = 0; at < text.size(); ++at)
        text[at] = static_cast<char>(at * 31 + at / 7919);
    const QUuid id = QUuid::createUuid();
    auto *clip = view().insert<Clip>();
    clip->setContent(text);
    clip->setId(id);
    clip->setPosition(1);
    ASSERT_TRUE(view().save());
    clip->setPosition(2);
    ASSERT_TRUE(view().save());

    open();

    const Clip *read = view().fetch<Clip>().at(0);
    EXPECT_TRUE(read->content() == text);
    EXPECT_EQ(read->id(), id);
    EXPECT_EQ(read->position(), 2);
}

TEST(ContentCache, theTextsUsedLastAreKeptWithinItsBounds)
{
    ContentCache cache;
    constexpr int kTexts = 20000;
    for (int text = 0; text < kTexts; ++text)
        cache.setContent(text, QByteArray(1000, 'x'));
    int kept = 0;
    for (int text = 0; text < kTexts; ++text)
        kept += cache.content(text) ? 1 : 0;

    EXPECT_TRUE(cache.content(kTexts - 1));
    EXPECT_FALSE(cache.content(0));
    EXPECT_GT(kept, 1000);
    EXPECT_LT(kept, 5000);
}

TEST(ContentCache, aTextThatWouldPushOutAllOthersIsNotKept)
{
    ContentCache cache;
    cache.setContent(1, "short");
    cache.setContent(2, QByteArray(3 << 20, 'x'));

    EXPECT_TRUE(cache.content(1));
    EXPECT_FALSE(cache.content(2));
}

TEST(ContentCache, aRemovedTextIsGoneWithItsPreview)
{
    ContentCache cache;
    cache.setContent(1, "text");
    cache.setPreview(1, makeTextPreview("text", 4));
    cache.remove(1);

    EXPECT_FALSE(cache.content(1));
    EXPECT_FALSE(cache.preview(1));
}
