// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/SnippetMenuState.h"

#include "Quillery_Mac/store/SnippetMatcher.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/logic/StoreTestSupport.h"

#include <QTest>

using controls::kDown;
using controls::kGive;
using controls::kRight;
using controls::kSelect;
using controls::kUp;

namespace {

class SnippetMenuStateTest : public StoreTest
{
protected:
    Snippet &snippet(const QString &title, const std::optional<QByteArray> &content = "text")
    {
        Snippet &added = *addSnippet(title, order++);
        added.setContent(content);
        added.setId(QUuid::createUuid());
        return added;
    }
    Snippet &folder(const QString &title)
    {
        Snippet &added = snippet(title, std::nullopt);
        added.setIsFolder(true);
        return added;
    }

    /// The menu is shown over what the store holds now.
    void show(bool give = false)
    {
        flags = Controls{{kGive, give}};
        reload();
        menu.shown();
    }
    void reload() { menu.setItems(view().fetch<Snippet>()); }

    void press(const QString &word) { controls::set(flags, word, true); }
    bool isSet(const QString &word) const { return controls::isSet(flags.value(), word); }

    /// The highlighted row: its title, with the folder it stands in; empty for none.
    QString highlighted() const
    {
        const std::optional<SnippetRow> row = menu.isSelected.value();
        if (!row)
            return {};
        const QString title = row->snippet->title().value_or(QString());
        return row->folder ? row->folder->title().value_or(QString()) + u'/' + title : title;
    }

    QStringList rows() const
    {
        QStringList titles;
        for (const SnippetRow &row : menu.rows())
            titles.append(row.snippet->title().value_or(QString()));
        return titles;
    }

    /// Whether the open flags, the list of open nodes and the visible rows tell the same.
    bool agree() const
    {
        QList<QUuid> open;
        for (const Snippets &node : menu.openItemsList.value())
            open.append(*node.id());
        for (const SnippetRow &row : menu.rows()) {
            if (row.folder == nullptr && row.snippet->isFolder() && row.snippet->id() &&
                menu.isFolderOpen(*row.snippet) != open.contains(*row.snippet->id()))
                return false;
            if (row.folder != nullptr && !menu.isFolderOpen(*row.folder))
                return false;
        }
        return true;
    }

    FakePasteboard pasteboard;
    SnippetMatcher matcher{QLocale(QLocale::English)};
    QProperty<bool> doPaste{false};
    QProperty<Controls> flags{Controls{{kGive, false}}};
    SnippetMenuState menu{doPaste, flags, pasteboard, matcher};
    qint16 order = 0;
};

} // namespace

TEST_F(SnippetMenuStateTest, aNewMenuHasNoSearchNoOpenFolderAndNoHighlight)
{
    snippet(QStringLiteral("a"));
    folder(QStringLiteral("F")).setExpanded(true);
    snippet(QStringLiteral("b"));

    show();

    EXPECT_TRUE(menu.searchText.value().isEmpty());
    EXPECT_FALSE(menu.doSearch.value());
    EXPECT_EQ(rows(), QStringList({QStringLiteral("a"), QStringLiteral("F")}));
    EXPECT_TRUE(menu.openItemsList.value().empty());
    EXPECT_TRUE(highlighted().isEmpty());
}

TEST_F(SnippetMenuStateTest, inAnEmptyStoreTheCommandsChangeNothing)
{
    show(true);
    for (const QString &word : {kUp, kDown, kSelect, kRight})
        press(word);

    EXPECT_FALSE(menu.isSelected.value().has_value());
    EXPECT_FALSE(doPaste.value());
    EXPECT_TRUE(pasteboard.writes.empty());
    EXPECT_TRUE(menu.openItems.value().isEmpty());
}

TEST_F(SnippetMenuStateTest, shownWithTheKeyboardTheFirstRowIsHighlighted)
{
    snippet(QStringLiteral("a"));
    show(true);
    EXPECT_EQ(highlighted(), QStringLiteral("a"));
}

TEST_F(SnippetMenuStateTest, thePassedSearchBecomesTheSearchText)
{
    snippet(QStringLiteral("apple"));
    snippet(QStringLiteral("kiwi"), "fruit");
    menu.passedSearch = QStringLiteral("k");

    show();

    EXPECT_EQ(menu.searchText.value(), QStringLiteral("k"));
    EXPECT_TRUE(menu.doSearch.value());
    EXPECT_EQ(highlighted(), QStringLiteral("kiwi"));
}

TEST_F(SnippetMenuStateTest, typingHighlightsTheFirstRowWhichTakesTheKeyboard)
{
    snippet(QStringLiteral("apple"));
    snippet(QStringLiteral("kiwi"));
    show();

    menu.searchText = QStringLiteral("kiw");

    EXPECT_EQ(highlighted(), QStringLiteral("kiwi"));
    EXPECT_TRUE(isSet(kGive));
}

TEST_F(SnippetMenuStateTest, aSearchWithoutAResultHighlightsNothing)
{
    snippet(QStringLiteral("apple"));
    show(true);

    menu.searchText = QStringLiteral("qx");

    EXPECT_TRUE(menu.rows().empty());
    EXPECT_TRUE(highlighted().isEmpty());
}

TEST_F(SnippetMenuStateTest, afterASearchSelectPastesASnippet)
{
    snippet(QStringLiteral("apple"), "Boskoop");
    show();
    menu.searchText = QStringLiteral("app");

    press(kSelect);

    EXPECT_EQ(pasteboard.text, QByteArray("Boskoop"));
    EXPECT_TRUE(doPaste.value());
}

TEST_F(SnippetMenuStateTest, afterASearchSelectOpensAClosedFolder)
{
    folder(QStringLiteral("Fruit"));
    snippet(QStringLiteral("apple"));
    show();
    menu.searchText = QStringLiteral("fruit");

    press(kSelect);

    EXPECT_EQ(rows(), QStringList({QStringLiteral("Fruit"), QStringLiteral("apple")}));
    EXPECT_FALSE(doPaste.value());
    EXPECT_TRUE(agree());
}

TEST_F(SnippetMenuStateTest, aHighlightedRowTakesTheKeyboard)
{
    snippet(QStringLiteral("a"));
    show();

    menu.isSelected = menu.rows().front();

    EXPECT_TRUE(isSet(kGive));
}

TEST_F(SnippetMenuStateTest, upAndDownWrapRoundAndAreSetBack)
{
    for (const char *title : {"a", "b", "c"})
        snippet(QLatin1String(title));
    show(true);

    press(kUp);
    EXPECT_EQ(highlighted(), QStringLiteral("c"));
    EXPECT_FALSE(isSet(kUp));
    press(kDown);
    EXPECT_EQ(highlighted(), QStringLiteral("a"));
    EXPECT_FALSE(isSet(kDown));
    press(kDown);
    EXPECT_EQ(highlighted(), QStringLiteral("b"));
}

TEST_F(SnippetMenuStateTest, withNothingHighlightedTheFirstRowIsBeforeTheCommandActs)
{
    for (const char *title : {"a", "b", "c"})
        snippet(QLatin1String(title));
    show();

    flags = Controls{{kGive, true}, {kDown, true}};

    EXPECT_EQ(highlighted(), QStringLiteral("b"));
}

TEST_F(SnippetMenuStateTest, withoutTheKeyboardAFlagIsLeftSetAndNothingMoves)
{
    snippet(QStringLiteral("a"));
    show();

    for (const QString &word : {kUp, kDown, kSelect, kRight}) {
        press(word);
        EXPECT_TRUE(isSet(word));
    }
    EXPECT_TRUE(highlighted().isEmpty());
    EXPECT_FALSE(doPaste.value());
}

TEST_F(SnippetMenuStateTest, selectOnAMissingContentPastesTheEmptyText)
{
    snippet(QStringLiteral("a"), std::nullopt);
    show(true);

    press(kSelect);

    EXPECT_EQ(pasteboard.text, QByteArray(""));
    EXPECT_TRUE(doPaste.value());
    EXPECT_EQ(pasteboard.writes,
              std::vector({FakePasteboard::Write::Cleared, FakePasteboard::Write::StringSet}));
}

TEST_F(SnippetMenuStateTest, thePasteboardIsWrittenBeforeThePasteIsAskedFor)
{
    snippet(QStringLiteral("a"), "content");
    show(true);
    std::optional<QByteArray> seen;
    const auto observer = doPaste.addNotifier([this, &seen] { seen = pasteboard.text; });

    press(kSelect);

    EXPECT_EQ(seen, QByteArray("content"));
}

TEST_F(SnippetMenuStateTest, selectAndRightToggleAFolder)
{
    folder(QStringLiteral("F"));
    snippet(QStringLiteral("a"));
    show(true);

    press(kSelect);
    EXPECT_EQ(rows().size(), 2);
    EXPECT_TRUE(agree());
    press(kRight);
    EXPECT_EQ(rows().size(), 1);
    EXPECT_TRUE(agree());
    press(kRight);
    EXPECT_EQ(rows().size(), 2);
    EXPECT_EQ(menu.openItemsList.value().size(), 1U);
    press(kRight);
    EXPECT_EQ(rows().size(), 1);
    EXPECT_TRUE(menu.openItemsList.value().empty());
    EXPECT_FALSE(isSet(kRight));
}

TEST_F(SnippetMenuStateTest, rightTogglesTheEntryWhateverTheRowIs)
{
    const QUuid id = *snippet(QStringLiteral("a")).id();
    show(true);

    press(kRight);
    EXPECT_TRUE(menu.openItems.value().value(id));
    press(kRight);
    EXPECT_FALSE(menu.openItems.value().value(id));
    EXPECT_FALSE(doPaste.value());
    EXPECT_TRUE(menu.openItemsList.value().empty());
}

TEST_F(SnippetMenuStateTest, arrowsReachTheMembersOfAnOpenFolder)
{
    folder(QStringLiteral("F"));
    snippet(QStringLiteral("a"));
    snippet(QStringLiteral("b"));
    show(true);
    press(kRight);

    press(kDown);
    EXPECT_EQ(highlighted(), QStringLiteral("F/a"));
    press(kDown);
    press(kDown);
    EXPECT_EQ(highlighted(), QStringLiteral("F"));
}

TEST_F(SnippetMenuStateTest, aSnippetThatStandsInTwoRowsIsReachedInBoth)
{
    folder(QStringLiteral("Code"));
    snippet(QStringLiteral("code one"));
    snippet(QStringLiteral("two"));
    show();
    menu.searchText = QStringLiteral("code");
    press(kDown);
    press(kRight);

    QStringList seen{highlighted()};
    for (int step = 0; step < 3; ++step) {
        press(kDown);
        seen.append(highlighted());
    }

    EXPECT_EQ(seen, QStringList({QStringLiteral("Code"), QStringLiteral("Code/code one"),
                                 QStringLiteral("Code/two"), QStringLiteral("code one")}));
}

TEST_F(SnippetMenuStateTest, aFolderWithoutIdIsListedButDoesNotOpen)
{
    folder(QStringLiteral("F")).setId(std::nullopt);
    snippet(QStringLiteral("a"));
    show(true);

    press(kSelect);
    press(kRight);

    EXPECT_EQ(rows(), QStringList(QStringLiteral("F")));
    EXPECT_TRUE(menu.openItems.value().isEmpty());
}

TEST_F(SnippetMenuStateTest, aSnippetWithoutIdPastes)
{
    snippet(QStringLiteral("a"), "body").setId(std::nullopt);
    show(true);

    press(kSelect);

    EXPECT_EQ(pasteboard.text, QByteArray("body"));
    EXPECT_TRUE(doPaste.value());
}

TEST_F(SnippetMenuStateTest, openFoldersStayOpenWhenTheTreeIsRebuilt)
{
    Snippet &fruit = folder(QStringLiteral("Fruit"));
    snippet(QStringLiteral("apple"));
    folder(QStringLiteral("Tools"));
    snippet(QStringLiteral("saw"));
    show(true);
    menu.toggle(fruit);

    menu.searchText = QStringLiteral("tools");
    EXPECT_TRUE(menu.openItemsList.value().empty());
    EXPECT_TRUE(agree());
    menu.searchText = QString();
    EXPECT_EQ(rows(), QStringList({QStringLiteral("Fruit"), QStringLiteral("apple"),
                                   QStringLiteral("Tools")}));
    snippet(QStringLiteral("hammer"));
    reload();
    EXPECT_EQ(rows().size(), 3);
    EXPECT_TRUE(agree());
}

TEST_F(SnippetMenuStateTest, openFoldersAreListedInTheOrderInWhichTheyWereOpened)
{
    Snippet &first = folder(QStringLiteral("F"));
    Snippet &second = folder(QStringLiteral("G"));
    show();

    menu.toggle(second);
    menu.toggle(first);
    ASSERT_EQ(menu.openItemsList.value().size(), 2U);
    EXPECT_EQ(menu.openItemsList.value()[0].snippet, &second);
    EXPECT_EQ(menu.openItemsList.value()[1].snippet, &first);
    menu.toggle(second);
    menu.toggle(second);
    EXPECT_EQ(menu.openItemsList.value()[1].snippet, &second);
}

TEST_F(SnippetMenuStateTest, aChangeOfTheStoreKeepsTheHighlightedRow)
{
    snippet(QStringLiteral("a"));
    snippet(QStringLiteral("b"));
    show(true);
    press(kDown);

    snippet(QStringLiteral("first")).setOrder(-1);
    reload();

    EXPECT_EQ(highlighted(), QStringLiteral("b"));
    press(kDown);
    EXPECT_EQ(highlighted(), QStringLiteral("first"));
}

TEST_F(SnippetMenuStateTest, aHighlightedSnippetThatIsDeletedLeavesNoHighlight)
{
    Snippet &doomed = snippet(QStringLiteral("a"));
    snippet(QStringLiteral("b"));
    show(true);

    view().deleteObject(doomed);
    reload();
    EXPECT_TRUE(highlighted().isEmpty());
    press(kSelect);

    EXPECT_EQ(highlighted(), QStringLiteral("b"));
    EXPECT_TRUE(doPaste.value());
}

TEST_F(SnippetMenuStateTest, whenAFolderClosesOverTheHighlightItIsHighlightedItself)
{
    Snippet &fruit = folder(QStringLiteral("Fruit"));
    snippet(QStringLiteral("apple"));
    show(true);
    press(kRight);
    press(kDown);
    ASSERT_EQ(highlighted(), QStringLiteral("Fruit/apple"));

    menu.toggle(fruit);

    EXPECT_EQ(highlighted(), QStringLiteral("Fruit"));
}

TEST_F(SnippetMenuStateTest, afterItsEndTheMenuActsOnNothing)
{
    snippet(QStringLiteral("a"));
    show(true);

    menu.end();
    press(kSelect);

    EXPECT_FALSE(doPaste.value());
}

TEST_F(SnippetMenuStateTest, allSnippetsAStoreCanHoldAreRows)
{
    for (int i = 0; i < 32767; ++i)
        addSnippet(QString::number(i), static_cast<qint16>(i));
    show(true);

    EXPECT_EQ(menu.rows().size(), 32767U);
    press(kUp);
    EXPECT_EQ(highlighted(), QStringLiteral("32766"));
}

// -- searches that take longer than a key press ---------------------------------------------------

class SlowSearch : public SnippetMenuStateTest
{
protected:
    SlowSearch()
    {
        matcher.setFoldingTime(std::chrono::milliseconds(0));
        QObject::connect(&matcher, &SnippetMatcher::moreAnswers, &matcher,
                         [this] { menu.searchAgain(); });
    }
    bool waitForAll()
    {
        return QTest::qWaitFor([this] { return matcher.isComplete(); });
    }
};

TEST_F(SlowSearch, theFirstOfAllRowsIsHighlightedInTheEnd)
{
    folder(QStringLiteral("needles"));
    snippet(QStringLiteral("needle"));
    show(true);

    menu.searchText = QStringLiteral("need");
    EXPECT_EQ(highlighted(), QStringLiteral("needles"));

    ASSERT_TRUE(waitForAll());
    EXPECT_EQ(rows().front(), QStringLiteral("needle"));
    EXPECT_EQ(highlighted(), QStringLiteral("needle"));
}

TEST_F(SlowSearch, aHighlightThatWasMovedStays)
{
    folder(QStringLiteral("needles"));
    folder(QStringLiteral("hay"));
    snippet(QStringLiteral("needle"));
    show(true);
    menu.searchText = QStringLiteral("need");

    press(kDown);

    ASSERT_TRUE(waitForAll());
    EXPECT_EQ(highlighted(), QStringLiteral("needles"));
}

TEST_F(SlowSearch, returnBeforeTheRowIsFoundPastesItWhenItIs)
{
    for (int i = 0; i < 20; ++i)
        snippet(QStringLiteral("hay"));
    snippet(QStringLiteral("needle"), "found");
    show(true);
    menu.searchText = QStringLiteral("need");
    EXPECT_TRUE(rows().isEmpty());

    press(kSelect);

    EXPECT_FALSE(doPaste.value());
    ASSERT_TRUE(waitForAll());
    EXPECT_TRUE(doPaste.value());
    EXPECT_EQ(pasteboard.text, "found");
}

TEST_F(SlowSearch, aMoveAfterReturnTakesItBack)
{
    folder(QStringLiteral("needles"));
    folder(QStringLiteral("hay"));
    snippet(QStringLiteral("needle"), "found");
    show(true);
    menu.searchText = QStringLiteral("need");

    press(kSelect);
    press(kDown);

    ASSERT_TRUE(waitForAll());
    EXPECT_FALSE(doPaste.value());
    EXPECT_TRUE(menu.openItems.value().isEmpty());
}

TEST_F(SlowSearch, returnActsOnTheFirstOfAllRowsNotOfThoseFoundSoFar)
{
    folder(QStringLiteral("needles"));
    snippet(QStringLiteral("needle"), "found");
    show(true);
    menu.searchText = QStringLiteral("need");

    press(kSelect);

    ASSERT_TRUE(waitForAll());
    EXPECT_EQ(pasteboard.text, "found");
    EXPECT_TRUE(menu.openItems.value().isEmpty());
}

TEST_F(SlowSearch, aMenuThatHasClosedPastesNothingLate)
{
    for (int i = 0; i < 20; ++i)
        snippet(QStringLiteral("hay"));
    snippet(QStringLiteral("needle"));
    show(true);
    menu.searchText = QStringLiteral("need");
    press(kSelect);

    menu.end();

    std::size_t again = 0;
    QObject::connect(&matcher, &SnippetMatcher::moreAnswers, &matcher, [&again] { ++again; });
    ASSERT_TRUE(QTest::qWaitFor([&again] { return again > 0; }));
    EXPECT_FALSE(doPaste.value());
}
