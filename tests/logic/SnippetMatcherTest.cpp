// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/SnippetMatcher.h"

#include "Quillery_Mac/store/ByteSearch.h"
#include "Quillery_Mac/store/SearchIndex.h"
#include "tests/logic/StoreTestSupport.h"

#include <QSemaphore>
#include <QTest>

#include <algorithm>
#include <future>

namespace {

class SnippetMatcherTest : public StoreTest
{
protected:
    std::vector<QString> found(const QString &text)
    {
        matcher.setSearchText(text);
        std::vector<QString> result;
        for (const Snippet *snippet : view().fetch<Snippet>()) {
            if (matcher.matches(*snippet))
                result.push_back(snippet->title().value_or(QString()));
        }
        return result;
    }

    SnippetMatcher matcher{QLocale(QLocale::English)};
    using Titles = std::vector<QString>;
    const QString a = QStringLiteral("Café");
    const QString b = QStringLiteral("other");
};

} // namespace

TEST_F(SnippetMatcherTest, anEmptySearchMatchesEverything)
{
    addSnippet(a, 1);
    view().insert<Snippet>()->setOrder(2);

    EXPECT_EQ(found(QString()), (Titles{a, QString()}));
    EXPECT_FALSE(matcher.isSearching());
}

// Without what the comparison ignores it is the empty text, which every text contains.
TEST_F(SnippetMatcherTest, aSearchForNothingButAccentsAndJoinersMatchesEverything)
{
    addSnippet(a, 1);
    addSnippet(b, 2);
    view().insert<Snippet>()->setOrder(3);
    const Titles all{a, b, QString()};

    for (const char16_t *text : {u"\u0301", u"\u200D", u"\u0301\u200D\uFE0F"}) {
        EXPECT_EQ(found(QString::fromUtf16(text)), all);
        EXPECT_TRUE(matcher.isSearching());
    }
    EXPECT_EQ(found(QStringLiteral("cafe\u0301")), Titles{a});
    EXPECT_EQ(found(QStringLiteral("\u0301")), all);
}

TEST_F(SnippetMatcherTest, theTitleOrElseTheContentMatches)
{
    addSnippet(a, 1, "first text");
    addSnippet(b, 2, "THE CAFÉ AROUND THE CORNER");
    addSnippet(QStringLiteral("none"), 3, "nothing");

    EXPECT_EQ(found(QStringLiteral("café")), (Titles{a, b}));
    EXPECT_EQ(found(QStringLiteral("cafe")), (Titles{a, b}));
}

TEST_F(SnippetMatcherTest, nothingIsFoundAcrossTitleAndContent)
{
    addSnippet(QStringLiteral("ab"), 1, "cd");

    EXPECT_TRUE(found(QStringLiteral("bc")).empty());
}

TEST_F(SnippetMatcherTest, missingTextsAreEmptyTexts)
{
    view().insert<Snippet>();

    EXPECT_TRUE(found(QStringLiteral("x")).empty());
}

TEST_F(SnippetMatcherTest, aSearchTextMayGrowShrinkAndChange)
{
    addSnippet(QStringLiteral("abab"), 1, "");
    addSnippet(QStringLiteral("abcab"), 2, "");
    const Titles both{QStringLiteral("abab"), QStringLiteral("abcab")};

    EXPECT_EQ(found(QStringLiteral("a")), both);
    EXPECT_EQ(found(QStringLiteral("ab")), both);
    EXPECT_EQ(found(QStringLiteral("abc")), Titles{QStringLiteral("abcab")});
    EXPECT_TRUE(found(QStringLiteral("abcd")).empty());
    EXPECT_EQ(found(QStringLiteral("ab")), both);
    EXPECT_EQ(found(QStringLiteral("aba")), Titles{QStringLiteral("abab")});
    EXPECT_EQ(found(QStringLiteral("bab")), Titles{QStringLiteral("abab")});
    EXPECT_EQ(found(QStringLiteral("ca")), Titles{QStringLiteral("abcab")});
    EXPECT_EQ(found(QStringLiteral("b")), both);
}

TEST_F(SnippetMatcherTest, changesAreFoundAtOnceSavedOrNot)
{
    Snippet *snippet = addSnippet(a, 1, "old");
    ASSERT_TRUE(view().save());
    EXPECT_EQ(found(QStringLiteral("old")), Titles{a});

    snippet->setContent("new");

    EXPECT_TRUE(found(QStringLiteral("old")).empty());
    EXPECT_EQ(found(QStringLiteral("new")), Titles{a});
}

TEST_F(SnippetMatcherTest, changesOfAnotherContextAreFoundOnceTheyAreMerged)
{
    addSnippet(a, 1, "old");
    ASSERT_TRUE(view().save());
    EXPECT_TRUE(found(QStringLiteral("new")).empty());

    container().performBackgroundTask([](ManagedObjectContext &context) {
        context.fetch<Snippet>().front()->setContent("new");
        EXPECT_TRUE(context.save());
    });
    container().waitForBackgroundTasks();

    EXPECT_EQ(found(QStringLiteral("new")), Titles{a});
}

TEST_F(SnippetMatcherTest, preparedTextsGiveTheSameAnswers)
{
    addSnippet(a, 1, "one");
    Snippet *changed = addSnippet(b, 2, "two");
    ASSERT_TRUE(view().save());

    matcher.prepare(container());
    changed->setContent("three");
    container().waitForBackgroundTasks();

    EXPECT_EQ(found(QStringLiteral("one")), Titles{a});
    EXPECT_TRUE(found(QStringLiteral("two")).empty());
    EXPECT_EQ(found(QStringLiteral("three")), Titles{b});
}

TEST_F(SnippetMatcherTest, aSearchDuringThePreparationIsRight)
{
    for (qint16 order = 0; order < 500; ++order)
        addSnippet(QString::number(order), order, "content");
    ASSERT_TRUE(view().save());

    matcher.prepare(container());

    EXPECT_EQ(found(QStringLiteral("499")), Titles{QStringLiteral("499")});
    EXPECT_EQ(found(QStringLiteral("content")).size(), 500U);
}

TEST_F(SnippetMatcherTest, aListenedToSearchStopsInTimeAndIsCompletedLater)
{
    for (qint16 order = 0; order < 50; ++order)
        addSnippet(QString::number(order), order, "content");
    ASSERT_TRUE(view().save());
    matcher.setFoldingTime(std::chrono::milliseconds(0));
    std::vector<std::size_t> counts;
    QObject::connect(&matcher, &SnippetMatcher::moreAnswers, &matcher, [this, &counts] {
        counts.push_back(found(QStringLiteral("content")).size());
    });

    EXPECT_EQ(found(QStringLiteral("content")).size(), 1U);

    ASSERT_TRUE(QTest::qWaitFor([&counts] { return !counts.empty() && counts.back() == 50; }));
    EXPECT_EQ(counts.front(), 2U);
    EXPECT_TRUE(std::is_sorted(counts.begin(), counts.end()));
}

TEST_F(SnippetMatcherTest, aSearchDoesNotWaitForTextsThatArePrepared)
{
    for (qint16 order = 0; order < 50; ++order)
        addSnippet(QString::number(order), order, "content");
    ASSERT_TRUE(view().save());
    matcher.setFoldingTime(std::chrono::milliseconds(0));
    std::size_t count = 0;
    QObject::connect(&matcher, &SnippetMatcher::moreAnswers, &matcher,
                     [this, &count] { count = found(QStringLiteral("content")).size(); });
    // The thread may still have to do with it when the test has ended.
    const auto mayGoOn = std::make_shared<QSemaphore>();
    container().performBackgroundReading([mayGoOn](ManagedObjectContext &) { mayGoOn->acquire(); },
                                         [] {});
    matcher.prepare(container());

    EXPECT_EQ(found(QStringLiteral("content")).size(), 1U);

    mayGoOn->release();
    container().waitForBackgroundTasks();
    ASSERT_TRUE(QTest::qWaitFor([&count] { return count == 50; }));
}

TEST_F(SnippetMatcherTest, aVeryLongTextIsNotFoldedOnTheMainThreadSavedOrNot)
{
    std::size_t count = 0;
    QObject::connect(&matcher, &SnippetMatcher::moreAnswers, &matcher,
                     [this, &count] { count = found(QStringLiteral("needle")).size(); });
    matcher.prepare(container());
    const QByteArray content = QByteArray(3 << 20, 'x') + "NEEDLE";
    addSnippet(a, 1, content);
    ASSERT_TRUE(view().save());
    addSnippet(b, 2, content);
    // The thread may still have to do with it when the test has ended.
    const auto mayGoOn = std::make_shared<QSemaphore>();
    container().performBackgroundReading([mayGoOn](ManagedObjectContext &) { mayGoOn->acquire(); },
                                         [] {});

    EXPECT_TRUE(found(QStringLiteral("needle")).empty());

    mayGoOn->release();
    ASSERT_TRUE(QTest::qWaitFor([&count] { return count == 2; }));
    EXPECT_EQ(found(QStringLiteral("needle")), (Titles{a, b}));
}

TEST_F(SnippetMatcherTest, aVeryLongTextThatChangesWhileItIsFoldedIsFoundAsItIsInTheEnd)
{
    std::size_t count = 0;
    QObject::connect(&matcher, &SnippetMatcher::moreAnswers, &matcher,
                     [this, &count] { count = found(QStringLiteral("needle")).size(); });
    matcher.prepare(container());
    Snippet *snippet = addSnippet(a, 1, QByteArray(3 << 20, 'x'));
    EXPECT_TRUE(found(QStringLiteral("needle")).empty());

    snippet->setContent(QByteArray(3 << 20, 'x') + "NEEDLE");
    EXPECT_TRUE(found(QStringLiteral("needle")).empty());

    EXPECT_TRUE(QTest::qWaitFor([&count] { return count == 1; }));
}

TEST_F(SnippetMatcherTest, aRecordingDoesNotWaitForThePreparation)
{
    addSnippet(a, 1);
    ASSERT_TRUE(view().save());
    // The thread may still have to do with it when the test has ended.
    const auto mayGoOn = std::make_shared<QSemaphore>();
    container().performBackgroundReading([mayGoOn](ManagedObjectContext &) { mayGoOn->acquire(); },
                                         [] {});
    matcher.prepare(container());

    std::promise<void> recorded;
    container().performBackgroundTask([&recorded](ManagedObjectContext &context) {
        context.insert<Clip>();
        EXPECT_TRUE(context.save());
        recorded.set_value();
    });

    EXPECT_EQ(recorded.get_future().wait_for(std::chrono::seconds(20)), std::future_status::ready);
    mayGoOn->release();
}

TEST_F(SnippetMatcherTest, releasedTextsAreMadeAgain)
{
    addSnippet(a, 1, "one");
    EXPECT_EQ(found(QStringLiteral("one")), Titles{a});

    matcher.release();

    EXPECT_EQ(found(QStringLiteral("one")), Titles{a});
}

TEST(SearchIndex, onlyTheTextsOfPresentObjectsAreKept)
{
    SearchIndex index;
    index.setText("x");
    index.insert(1, 0, "x");
    index.insert(2, 0, "x");

    index.keepOnly({2});

    EXPECT_EQ(index.matches(1, 0), std::nullopt);
    EXPECT_EQ(index.matches(2, 0), true);
    EXPECT_EQ(index.matches(2, 1), std::nullopt);
}

TEST(ByteSearch, everyPlaceOfALongTextIsFoundAndNoOther)
{
    for (const qsizetype size : {1, 63, 64, 65, 130, 200}) {
        for (const QByteArray &needle :
             {QByteArray("a"), QByteArray("ab"), QByteArray("abc"), QByteArray("abcabcabcd")}) {
            for (qsizetype at = 0; at + needle.size() <= size; ++at) {
                QByteArray text(size, '.');
                text.replace(at, needle.size(), needle);
                EXPECT_EQ(findBytes(text, needle, 0), at);
                EXPECT_EQ(findBytes(text, needle, at), at);
                EXPECT_EQ(findBytes(text, needle, at + 1), -1);
            }
        }
    }
}
