// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/Snippets.h"

#include "Quillery_Mac/store/SnippetMatcher.h"
#include "tests/logic/StoreTestSupport.h"

#include <QStringList>

#include <ctime>
#include <limits>

namespace {

class SnippetTreeTest : public StoreTest
{
protected:
    Snippet &snippet(const QString &title, const QByteArray &content = "-")
    {
        Snippet &added = *addSnippet(title, order++, content);
        added.setId(QUuid::createUuid());
        return added;
    }
    Snippet &folder(const QString &title)
    {
        Snippet &added = snippet(title);
        added.setIsFolder(true);
        return added;
    }

    std::vector<Snippets> tree(const QString &search = {})
    {
        matcher.setSearchText(search);
        return snippetTree(view().fetch<Snippet>(), matcher.isSearching(),
                           [this](const Snippet &item) { return matcher.matches(item); });
    }

    /// The titles of the top level, a folder with its members in brackets.
    QString text(const QString &search = {})
    {
        QStringList words;
        for (const Snippets &node : tree(search)) {
            QString word = node.snippet->title().value_or(QString());
            if (node.list) {
                QStringList members;
                for (const Snippets &member : *node.list)
                    members.append(member.snippet->title().value_or(QString()));
                word += u'[' + members.join(u' ') + u']';
            }
            words.append(word);
        }
        return words.join(u' ');
    }

    SnippetMatcher matcher{QLocale(QLocale::English)};
    qint16 order = 0;
};

} // namespace

TEST_F(SnippetTreeTest, anEmptyStoreYieldsAnEmptyList)
{
    EXPECT_TRUE(tree().empty());
    EXPECT_TRUE(tree(QStringLiteral("a")).empty());
}

TEST_F(SnippetTreeTest, aFolderOwnsWhatFollowsItUpToTheNextFolder)
{
    for (const char *title : {"a", "b"})
        snippet(QLatin1String(title));
    folder(QStringLiteral("F"));
    snippet(QStringLiteral("c"));
    snippet(QStringLiteral("d"));
    folder(QStringLiteral("G"));
    folder(QStringLiteral("H"));
    snippet(QStringLiteral("e"));

    EXPECT_EQ(text(), QStringLiteral("a b F[c d] G[] H[e]"));
}

TEST_F(SnippetTreeTest, aStoreThatBeginsWithAFolderHasNoTopLevelSnippets)
{
    folder(QStringLiteral("F"));
    snippet(QStringLiteral("a"));

    EXPECT_EQ(text(), QStringLiteral("F[a]"));
}

TEST_F(SnippetTreeTest, nodesAreClosedAndMembersHaveNoList)
{
    folder(QStringLiteral("F"));
    snippet(QStringLiteral("a")).setExpanded(true);

    const std::vector<Snippets> nodes = tree();

    EXPECT_FALSE(nodes.front().expanded);
    EXPECT_FALSE(nodes.front().list->front().expanded);
    EXPECT_FALSE(nodes.front().list->front().list.has_value());
}

TEST_F(SnippetTreeTest, nodesAreEqualByObjectMembersAndFlag)
{
    folder(QStringLiteral("F"));
    snippet(QStringLiteral("a"));
    const std::vector<Snippets> nodes = tree();
    Snippets other = nodes.front();
    EXPECT_EQ(other, nodes.front());

    other.expanded = true;
    EXPECT_NE(other, nodes.front());
    other = nodes.front();
    other.list->clear();
    EXPECT_NE(other, nodes.front());
    other = nodes.front();
    other.snippet = nodes.front().list->front().snippet;
    EXPECT_NE(other, nodes.front());
}

TEST_F(SnippetTreeTest, aNodeIsIdentifiedByItsObjectsId)
{
    Snippet &named = snippet(QStringLiteral("a"));
    snippet(QStringLiteral("b")).setId(std::nullopt);

    const std::vector<Snippets> nodes = tree();

    EXPECT_EQ(nodes[0].id(), named.id());
    EXPECT_FALSE(nodes[1].id().has_value());
}

TEST_F(SnippetTreeTest, aSnippetWhoseContentMatchesIsShown)
{
    snippet(QStringLiteral("Greeting"), "Kind regards");
    snippet(QStringLiteral("Other"), "text");

    EXPECT_EQ(text(QStringLiteral("regards")), QStringLiteral("Greeting"));
}

TEST_F(SnippetTreeTest, matchingIgnoresCaseAndAccents)
{
    snippet(QStringLiteral("Caf\u00e9"));

    EXPECT_EQ(text(QStringLiteral("cafe")), QStringLiteral("Caf\u00e9"));
    EXPECT_EQ(text(QStringLiteral("CAFE")), QStringLiteral("Caf\u00e9"));
}

TEST_F(SnippetTreeTest, missingTitleAndContentAreTheEmptyText)
{
    Snippet &bare = snippet(QStringLiteral("x"));
    bare.setTitle(std::nullopt);
    bare.setContent(std::nullopt);

    EXPECT_EQ(tree().size(), 1U);
    EXPECT_TRUE(tree(QStringLiteral("x")).empty());
}

TEST_F(SnippetTreeTest, aMemberOfADroppedFolderStandsAtTheTopLevelWithoutIt)
{
    folder(QStringLiteral("Replies"));
    snippet(QStringLiteral("zebra"));
    snippet(QStringLiteral("other"));

    EXPECT_EQ(text(QStringLiteral("zebra")), QStringLiteral("zebra"));
}

TEST_F(SnippetTreeTest, foundMembersStandBeforeTheFirstKeptFolder)
{
    folder(QStringLiteral("F1 k"));
    snippet(QStringLiteral("s1 k"));
    snippet(QStringLiteral("s2"));
    folder(QStringLiteral("F2"));
    snippet(QStringLiteral("s3 k"));

    EXPECT_EQ(text(QStringLiteral("k")), QStringLiteral("s1 k s3 k F1 k[s1 k s2]"));
}

TEST_F(SnippetTreeTest, aKeptFolderKeepsAllMembersAndShowsTheMatchingOnesTwice)
{
    folder(QStringLiteral("Code"));
    snippet(QStringLiteral("code one"));
    snippet(QStringLiteral("two"));

    EXPECT_EQ(text(QStringLiteral("code")), QStringLiteral("code one Code[code one two]"));
}

TEST_F(SnippetTreeTest, theMarkIsSetAtTheFirstKeptFolderAndOnlyMovesOnByInsertions)
{
    snippet(QStringLiteral("k1"));
    snippet(QStringLiteral("no"));
    folder(QStringLiteral("dropped"));
    snippet(QStringLiteral("k2"));
    folder(QStringLiteral("kA"));
    snippet(QStringLiteral("k3"));
    folder(QStringLiteral("kB"));
    snippet(QStringLiteral("k4"));
    snippet(QStringLiteral("m"));

    EXPECT_EQ(text(QStringLiteral("k")), QStringLiteral("k1 k2 k3 k4 kA[k3] kB[k4 m]"));
}

TEST_F(SnippetTreeTest, aDroppedFolderLeavesTheGroupBeforeItOpenButGivesItNothing)
{
    folder(QStringLiteral("kA"));
    snippet(QStringLiteral("a"));
    folder(QStringLiteral("dropped"));
    snippet(QStringLiteral("b"));
    folder(QStringLiteral("kC"));
    snippet(QStringLiteral("c"));

    EXPECT_EQ(text(QStringLiteral("k")), QStringLiteral("kA[a] kC[c]"));
}

TEST_F(SnippetTreeTest, negativeAndRepeatedOrdersAreShownInFetchOrder)
{
    snippet(QStringLiteral("b")).setOrder(0);
    snippet(QStringLiteral("a")).setOrder(-5);
    snippet(QStringLiteral("c")).setOrder(0);
    snippet(QStringLiteral("d")).setOrder(900);

    EXPECT_EQ(text(), QStringLiteral("a b c d"));
}

TEST_F(SnippetTreeTest, visibleRowsHoldTheMembersOfOpenFoldersOnly)
{
    snippet(QStringLiteral("a"));
    Snippet &open = folder(QStringLiteral("F"));
    snippet(QStringLiteral("b"));
    folder(QStringLiteral("G"));
    snippet(QStringLiteral("c"));

    const std::vector<SnippetRow> rows =
        visibleRows(tree(), [&open](const Snippets &node) { return node.snippet == &open; });

    QStringList shown;
    for (const SnippetRow &row : rows)
        shown.append(row.snippet->title().value_or(QString()) + (row.folder ? u"*" : u""));
    EXPECT_EQ(shown.join(u' '), QStringLiteral("a F b* G"));
}

namespace {

/// What this thread has worked so far, in nanoseconds; what others do meanwhile does not count.
qint64 threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

} // namespace

TEST_F(SnippetTreeTest, buildingIsLinearInTheNumberOfSnippets)
{
    const auto searchTime = [this](int count) {
        const std::vector<Snippet *> items(static_cast<std::size_t>(count),
                                           view().fetch<Snippet>().back());
        std::vector<Snippet *> all = items;
        all.front() = view().fetch<Snippet>().front();
        qint64 best = std::numeric_limits<qint64>::max();
        for (int round = 0; round < 10; ++round) {
            const qint64 began = threadTime();
            const auto nodes = snippetTree(all, true, [](const Snippet &) { return true; });
            best = std::min(best, threadTime() - began);
            EXPECT_EQ(nodes.size(), static_cast<std::size_t>(count));
        }
        return best;
    };
    folder(QStringLiteral("F"));
    snippet(QStringLiteral("a"));

    // Inserting one by one in the middle would take about 256 times as long.
    EXPECT_LT(searchTime(32000), 128 * searchTime(2000));
}
