// SPDX-License-Identifier: MIT
#include "tests/editor/LibraryFixture.h"

namespace {

class LibraryStateTest : public LibraryFixture
{
};

TEST_F(LibraryStateTest, anEmptyStoreShowsNoRowsAndAddSnippetMakesTheFirst)
{
    EXPECT_EQ(rows(), Names());

    library().addSnippet();

    EXPECT_EQ(rows(), Names{"New Snippet"});
    EXPECT_EQ(orders(), std::vector<int>{0});
    EXPECT_EQ(selectedTitle(), "New Snippet");
    const Snippet *made = library().selected();
    EXPECT_FALSE(made->isFolder());
    EXPECT_FALSE(made->content().has_value());
    EXPECT_LT(made->timestamp()->secsTo(QDateTime::currentDateTimeUtc()), 60);
    EXPECT_FALSE(view().hasChanges());
}

TEST_F(LibraryStateTest, addFolderInAStoreOfFiveGivesItOrderSix)
{
    for (const char *title : {"a", "b", "c", "d", "e"})
        snippet(title);

    library().addFolder();

    EXPECT_EQ(orders(), (std::vector<int>{0, 1, 2, 3, 4, 6}));
    EXPECT_EQ(selectedTitle(), "Folder");
    EXPECT_TRUE(library().selected()->isFolder());
    EXPECT_TRUE(library().selected()->expanded());
    EXPECT_FALSE(view().hasChanges());
}

TEST_F(LibraryStateTest, addFolderCountsItemsWhateverNumbersTheyHave)
{
    snippet("a").setOrder(40);

    library().addFolder();

    EXPECT_EQ(sequence(), (Names{"Folder:", "a"}));
    EXPECT_EQ(orders(), (std::vector<int>{2, 40}));
}

TEST_F(LibraryStateTest, aSnippetAddedWithAFolderSelectedIsItsFirstMember)
{
    Snippet &office = folder("Office");
    snippet("a");
    select(office);

    library().addSnippet();

    EXPECT_EQ(sequence(), (Names{"Office:", "New Snippet", "a"}));
    EXPECT_EQ(orders(), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(rows(), (Names{"Office", "  New Snippet", "  a"}));
}

TEST_F(LibraryStateTest, aSnippetAddedWithAFoldersLastMemberSelectedIsItsLast)
{
    folder("Office");
    Snippet &last = snippet("a");
    folder("Home");
    select(last);

    library().addSnippet();

    EXPECT_EQ(sequence(), (Names{"Office:", "a", "New Snippet", "Home:"}));
}

TEST_F(LibraryStateTest, aSnippetAddedWithNothingSelectedIsTheFirst)
{
    snippet("a");

    library().addSnippet();

    EXPECT_EQ(sequence(), (Names{"New Snippet", "a"}));
    EXPECT_EQ(orders(), (std::vector<int>{0, 1}));
}

TEST_F(LibraryStateTest, aSelectionThatIsGoneCountsAsNone)
{
    snippet("a");
    library().selectedItem = QUuid::createUuid();

    library().addSnippet();

    EXPECT_EQ(sequence(), (Names{"New Snippet", "a"}));
}

TEST_F(LibraryStateTest, deletingASelectionThatIsGoneOnlyClearsIt)
{
    snippet("a");
    library().selectedItem = QUuid::createUuid();

    library().deleteSelected();

    EXPECT_EQ(sequence(), Names{"a"});
    EXPECT_FALSE(library().selectedItem.value().has_value());
    EXPECT_FALSE(library().doDelete.value());
}

TEST_F(LibraryStateTest, withNothingSelectedDeleteDoesNothing)
{
    snippet("a");

    library().deleteSelected();

    EXPECT_EQ(sequence(), Names{"a"});
}

TEST_F(LibraryStateTest, deletingAFolderLeavesItsSnippetsToTheFolderAbove)
{
    folder("Office");
    snippet("a");
    Snippet &home = folder("Home");
    snippet("b");
    select(home);

    library().deleteSelected();

    EXPECT_EQ(rows(), (Names{"Office", "  a", "  b"}));
    EXPECT_FALSE(library().selectedItem.value().has_value());
    EXPECT_FALSE(library().doDelete.value());
    EXPECT_FALSE(view().hasChanges());
}

TEST_F(LibraryStateTest, membersOfADeletedFirstFolderBecomeTopLevel)
{
    Snippet &office = folder("Office");
    snippet("a");
    select(office);

    library().deleteSelected();

    EXPECT_EQ(rows(), Names{"a"});
}

TEST_F(LibraryStateTest, searchIgnoresCaseAndAccents)
{
    snippet("Order", "zwei CAFE bitte");
    snippet("Other", "tea");

    library().searchText = QStringLiteral("caf\u00e9");

    EXPECT_TRUE(library().doSearch.value());
    EXPECT_EQ(rows(), Names{"Order"});
    library().searchText = QString();
    EXPECT_FALSE(library().doSearch.value());
    EXPECT_EQ(rows(), (Names{"Order", "Other"}));
}

TEST_F(LibraryStateTest, aFolderIsShownForAMatchingMemberWithThatMemberOnly)
{
    snippet("top");
    folder("Office");
    snippet("yes", "needle");
    snippet("no", "hay");
    folder("Home");
    snippet("other", "hay");

    library().searchText = QStringLiteral("needle");

    EXPECT_EQ(rows(), (Names{"Office", "  yes"}));
}

TEST_F(LibraryStateTest, aFolderThatMatchesByItselfStandsAloneWithoutTheOthers)
{
    folder("Needles");
    snippet("no", "hay");

    library().searchText = QStringLiteral("needle");

    EXPECT_EQ(rows(), Names{"Needles"});
}

TEST_F(LibraryStateTest, aMissingTitleAndContentCountAsEmpty)
{
    Snippet &bare = snippet("x", std::nullopt);
    bare.setTitle(std::nullopt);

    library().searchText = QStringLiteral("a");

    EXPECT_EQ(rows(), Names());
}

TEST_F(LibraryStateTest, rowsComeAndGoWithTheNextRebuildOnly)
{
    snippet("a");
    EXPECT_EQ(rows(), Names{"a"});
    snippet("b");
    EXPECT_TRUE(view().save());
    EXPECT_EQ(rows(), Names{"a"});

    library().rebuild();

    EXPECT_EQ(rows(), (Names{"a", "b"}));
}

TEST_F(LibraryStateTest, aRowWhoseObjectIsGoneKeepsItsTitleAndActsOnNothing)
{
    Snippet &doomed = snippet("a");
    snippet("b");
    library();
    QSignalSpy faded(&library(), &LibraryState::rowsFaded);

    view().deleteObject(doomed);
    EXPECT_TRUE(view().save());
    ASSERT_TRUE(faded.wait());

    EXPECT_EQ(rows(), (Names{"(gone)", "b"}));
    EXPECT_EQ(library().rows()[0].row->goneTitle, QStringLiteral("a"));
    library().startDrag(*row("b").row->item);
    EXPECT_TRUE(library().drop(library().rows()[0], Strip::Above));
    EXPECT_EQ(rows(), Names{"b"});
}

TEST_F(LibraryStateTest, openingAFolderIsStoredAndRebuildsTheRows)
{
    Snippet &office = folder("Office", false);
    snippet("a");
    EXPECT_EQ(rows(), Names{"Office"});
    QSignalSpy slides(&library(), &LibraryState::rowsSlide);

    library().setExpanded(office, true);

    EXPECT_EQ(rows(), (Names{"Office", "  a"}));
    EXPECT_TRUE(office.expanded());
    EXPECT_FALSE(view().hasChanges());
    ASSERT_EQ(slides.size(), 1);
    EXPECT_EQ(slides[0], (QVariantList{0, 1}));
}

TEST_F(LibraryStateTest, aSearchShowsAClosedFolderClosedAndItsMatchesWhenItIsOpened)
{
    Snippet &office = folder("Office", false);
    snippet("a", "needle");
    snippet("b");
    folder("Home", false);
    snippet("c");

    library().searchText = QStringLiteral("needle");

    EXPECT_EQ(rows(), Names{"Office"});
    ASSERT_EQ(row("Office").row->children.size(), 1U);
    EXPECT_FALSE(office.expanded());
    library().setExpanded(office, true);
    EXPECT_EQ(rows(), (Names{"Office", "  a"}));
    library().searchText = QString();
    EXPECT_EQ(rows(), (Names{"Office", "  a", "  b", "Home"}));
}

TEST_F(LibraryStateTest, whatIsAddedSlidesIntoItsPlace)
{
    Snippet &a = snippet("a");
    snippet("b");
    QSignalSpy slides(&library(), &LibraryState::rowsSlide);

    library().addSnippet();
    select(a);
    library().addSnippet();
    library().addFolder();

    EXPECT_EQ(rows(), (Names{"New Snippet", "a", "New Snippet", "b", "Folder"}));
    EXPECT_EQ(QList<QVariantList>(slides), (QList<QVariantList>{{-1, 1}, {1, 1}, {3, 1}}));
}

TEST_F(LibraryStateTest, whatIsAddedToAClosedFolderMovesNothing)
{
    Snippet &office = folder("Office", false);
    QSignalSpy slides(&library(), &LibraryState::rowsSlide);
    select(office);

    library().addSnippet();

    EXPECT_EQ(rows(), Names{"Office"});
    EXPECT_EQ(slides.size(), 0);
}

TEST_F(LibraryStateTest, duringADragNoFolderOpensOrCloses)
{
    Snippet &office = folder("Office", false);
    snippet("a");
    Snippet &home = folder("Home");
    library();
    library().startDrag(home);

    library().setExpanded(office, true);

    EXPECT_FALSE(office.expanded());
    library().dropOutside();
    EXPECT_FALSE(library().isDragging());
    library().setExpanded(office, true);
    EXPECT_TRUE(office.expanded());
}

// -- drops ----------------------------------------------------------------------------------------

TEST_F(LibraryStateTest, aSnippetDroppedAboveARowLandsBeforeIt)
{
    snippet("a");
    snippet("b");
    Snippet &c = snippet("c");

    EXPECT_TRUE(drag(c, "a", Strip::Above));

    EXPECT_EQ(sequence(), (Names{"c", "a", "b"}));
    EXPECT_EQ(orders(), (std::vector<int>{0, 1, 2}));
}

TEST_F(LibraryStateTest, aSnippetDroppedBelowASnippetLandsAfterIt)
{
    Snippet &a = snippet("a");
    snippet("b");
    snippet("c");

    EXPECT_TRUE(drag(a, "b", Strip::Below));

    EXPECT_EQ(sequence(), (Names{"b", "a", "c"}));
}

TEST_F(LibraryStateTest, aSnippetDroppedBelowAFolderIsItsFirstMemberAndOpensIt)
{
    Snippet &a = snippet("a");
    Snippet &office = folder("Office", false);
    snippet("b");

    EXPECT_TRUE(drag(a, "Office", Strip::Below));

    EXPECT_EQ(rows(), (Names{"Office", "  a", "  b"}));
    EXPECT_TRUE(office.expanded());
    EXPECT_EQ(orders(), (std::vector<int>{0, 1, 2}));
}

TEST_F(LibraryStateTest, aFolderDroppedBelowASnippetTakesItsMembersAlong)
{
    snippet("a");
    Snippet &office = folder("Office");
    snippet("b");
    folder("Home");
    snippet("c");

    library();
    library().startDrag(office);
    EXPECT_EQ(library().moveIndexes, (std::set<int>{1, 2}));
    EXPECT_EQ(library().draggedCount(), 2);
    EXPECT_TRUE(library().drop(row("c"), Strip::Below));

    EXPECT_EQ(sequence(), (Names{"a", "Home:", "c", "Office:", "b"}));
    EXPECT_EQ(orders(), (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(LibraryStateTest, aFolderDroppedBelowAFolderLandsBehindItsMembers)
{
    Snippet &office = folder("Office");
    snippet("b");
    Snippet &home = folder("Home", false);
    snippet("c");
    snippet("d");

    EXPECT_TRUE(drag(office, "Home", Strip::Below));

    EXPECT_EQ(sequence(), (Names{"Home:", "c", "d", "Office:", "b"}));
    EXPECT_TRUE(home.expanded());
}

TEST_F(LibraryStateTest, aFolderDroppedBelowAnEmptyFolderLandsRightAfterIt)
{
    Snippet &office = folder("Office");
    snippet("b");
    folder("Home");

    EXPECT_TRUE(drag(office, "Home", Strip::Below));

    EXPECT_EQ(sequence(), (Names{"Home:", "Office:", "b"}));
}

TEST_F(LibraryStateTest, aFolderIsRefusedAboveAMember)
{
    folder("Office");
    snippet("b");
    Snippet &home = folder("Home");
    library();
    library().startDrag(home);

    EXPECT_FALSE(library().accepts(row("b"), Strip::Above));
    EXPECT_FALSE(library().drop(row("b"), Strip::Above));

    EXPECT_EQ(sequence(), (Names{"Office:", "b", "Home:"}));
    EXPECT_FALSE(library().isDragging());
    EXPECT_EQ(library().dragging.value(), nullptr);
}

TEST_F(LibraryStateTest, aFolderIsTakenBelowAMemberAndAboveTopLevelRows)
{
    snippet("a");
    folder("Office");
    snippet("b");
    snippet("c");
    Snippet &home = folder("Home");

    EXPECT_TRUE(drag(home, "b", Strip::Below));
    EXPECT_EQ(sequence(), (Names{"a", "Office:", "b", "Home:", "c"}));
    EXPECT_TRUE(drag(home, "a", Strip::Above));
    EXPECT_EQ(sequence(), (Names{"Home:", "c", "a", "Office:", "b"}));
    EXPECT_TRUE(drag(home, "Office", Strip::Above));
    EXPECT_EQ(sequence(), (Names{"Home:", "c", "a", "Office:", "b"}));
}

TEST_F(LibraryStateTest, aDropOfAnItemThatHasVanishedMovesTheRecordedPlaces)
{
    Snippet &a = snippet("a");
    snippet("b");
    snippet("c");
    library();
    QSignalSpy faded(&library(), &LibraryState::rowsFaded);
    library().startDrag(a);
    view().deleteObject(a);
    ASSERT_TRUE(faded.wait());
    EXPECT_EQ(library().dragging.value(), nullptr);
    EXPECT_TRUE(library().isDragging());

    EXPECT_TRUE(library().drop(row("c"), Strip::Below));

    EXPECT_EQ(sequence(), (Names{"c", "b"}));
}

TEST_F(LibraryStateTest, aDragThatEndsOutsideMovesNothing)
{
    Snippet &a = snippet("a");
    snippet("b");
    library();
    library().startDrag(a);
    QSignalSpy rebuilt(&library(), &LibraryState::rowsChanged);

    library().dropOutside();

    EXPECT_EQ(rebuilt.size(), 1);
    EXPECT_EQ(sequence(), (Names{"a", "b"}));
    EXPECT_FALSE(library().isDragging());
}

TEST_F(LibraryStateTest, whileSearchingAFolderMovesWithMembersThatAreNotShown)
{
    Snippet &office = folder("Office");
    snippet("needle 1");
    snippet("hay 1");
    folder("Home");
    snippet("needle 2");
    snippet("hay 2");
    library().searchText = QStringLiteral("needle");

    EXPECT_TRUE(drag(office, "Home", Strip::Below));

    EXPECT_EQ(sequence(), (Names{"Home:", "needle 2", "hay 2", "Office:", "needle 1", "hay 1"}));
}

TEST_F(LibraryStateTest, duplicatesOfOrderDoNoHarmAndTheNextMoveClearsThem)
{
    Snippet &a = snippet("a");
    snippet("b").setOrder(0);
    snippet("c").setOrder(0);
    snippet("d").setOrder(-7);
    EXPECT_EQ(sequence(), (Names{"d", "a", "b", "c"}));

    EXPECT_TRUE(drag(a, "c", Strip::Below));

    EXPECT_EQ(sequence(), (Names{"d", "b", "c", "a"}));
    EXPECT_EQ(orders(), (std::vector<int>{0, 1, 2, 3}));
}

// -- texts from other programs --------------------------------------------------------------------

TEST_F(LibraryStateTest, aTextDroppedOnAStripIsASnippetThere)
{
    snippet("a");
    snippet("b");
    library();

    library().dropText("dropped", row("b"), Strip::Above);

    EXPECT_EQ(sequence(), (Names{"a", "", "b"}));
    EXPECT_EQ(library().selected()->content(), "dropped");
    EXPECT_FALSE(view().hasChanges());
}

TEST_F(LibraryStateTest, aTextDroppedBelowAFolderIsItsFirstMember)
{
    folder("Office", false);
    snippet("a");
    library();

    library().dropText("dropped", row("Office"), Strip::Below);

    EXPECT_EQ(rows(), (Names{"Office", "  ", "  a"}));
}

TEST_F(LibraryStateTest, aTextDroppedOutsideEveryRowIsTheLast)
{
    library().dropText("first", std::nullopt, Strip::Above);
    EXPECT_EQ(orders(), std::vector<int>{0});
    library().dropText("second", std::nullopt, Strip::Above);

    EXPECT_EQ(orders(), (std::vector<int>{0, 1}));
    EXPECT_EQ(library().selected()->content(), "second");
}

// -- moves by keys --------------------------------------------------------------------------------

TEST_F(LibraryStateTest, aSnippetMovesUpAndDownAndIntoAndOutOfFolders)
{
    Snippet &a = snippet("a");
    snippet("b");
    folder("Office", false);
    snippet("c");
    select(a);

    EXPECT_FALSE(library().moveSelected(Strip::Above));
    EXPECT_TRUE(library().moveSelected(Strip::Below));
    EXPECT_EQ(rows(), (Names{"b", "a", "Office"}));
    EXPECT_TRUE(library().moveSelected(Strip::Below));
    EXPECT_EQ(rows(), (Names{"b", "Office", "  a", "  c"}));
    EXPECT_TRUE(library().moveSelected(Strip::Below));
    EXPECT_EQ(rows(), (Names{"b", "Office", "  c", "  a"}));
    EXPECT_FALSE(library().moveSelected(Strip::Below));
    EXPECT_TRUE(library().moveSelected(Strip::Above));
    EXPECT_TRUE(library().moveSelected(Strip::Above));
    EXPECT_EQ(rows(), (Names{"b", "a", "Office", "  c"}));
    EXPECT_EQ(orders(), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(selectedTitle(), "a");
}

TEST_F(LibraryStateTest, aMemberThatMovesUpIntoAClosedFolderStaysInView)
{
    folder("Office", false);
    snippet("a");
    folder("Home");
    Snippet &b = snippet("b");
    select(b);

    EXPECT_TRUE(library().moveSelected(Strip::Above));

    EXPECT_EQ(rows(), (Names{"Office", "  a", "  b", "Home"}));
}

TEST_F(LibraryStateTest, aFolderMovesPastWholeGroups)
{
    folder("Office");
    snippet("a");
    Snippet &home = folder("Home");
    snippet("b");
    select(home);

    EXPECT_TRUE(library().moveSelected(Strip::Above));
    EXPECT_EQ(sequence(), (Names{"Home:", "b", "Office:", "a"}));
    EXPECT_TRUE(library().moveSelected(Strip::Below));
    EXPECT_EQ(sequence(), (Names{"Office:", "a", "Home:", "b"}));
    EXPECT_FALSE(library().moveSelected(Strip::Below));
}

TEST_F(LibraryStateTest, whereAnItemWentIsTold)
{
    snippet("a");
    Snippet &b = snippet("b");
    select(b);
    QSignalSpy moved(&library(), &LibraryState::moved);

    library().moveSelected(Strip::Above);

    ASSERT_EQ(moved.size(), 1);
    EXPECT_EQ(moved[0][0].toString(), QStringLiteral("Moved above a"));
}

// -- faults ---------------------------------------------------------------------------------------

TEST_F(LibraryStateTest, aFailedSaveIsDroppedAndTheRowsStay)
{
    snippet("a");
    EXPECT_EQ(rows(), Names{"a"});
    execute(snippetsFile(), "CREATE TRIGGER refuse BEFORE INSERT ON Snippet "
                            "BEGIN SELECT RAISE(ABORT, 'full'); END");

    library().addSnippet();

    EXPECT_EQ(rows(), Names{"a"});
    EXPECT_EQ(selectedTitle(), "New Snippet");
    EXPECT_TRUE(view().hasChanges());
    execute(snippetsFile(), "DROP TRIGGER refuse");
    library().save();
    EXPECT_EQ(rows(), (Names{"New Snippet", "a"}));
}

TEST_F(LibraryStateTest, aFolderThatCouldNotBeSavedOpensWhenItCan)
{
    Snippet &office = folder("Office", false);
    snippet("a");
    library();
    execute(snippetsFile(), "CREATE TRIGGER refuse BEFORE UPDATE ON Snippet "
                            "BEGIN SELECT RAISE(ABORT, 'full'); END");
    library().setExpanded(office, true);
    EXPECT_EQ(rows(), Names{"Office"});
    execute(snippetsFile(), "DROP TRIGGER refuse");

    library().setExpanded(office, true);

    EXPECT_EQ(rows(), (Names{"Office", "  a"}));
}

using FatalLibrary = LibraryStateTest;

TEST_F(FatalLibrary, aPlaceBeyondSixteenBitsEndsTheProgram)
{
    Snippet &last = snippet("a");
    last.setOrder(32767);
    select(last);

    EXPECT_DEATH(library().addSnippet(), "Fatal error: .*order.*32768");
    library().selectedItem = std::nullopt;
    EXPECT_DEATH(library().addSnippet(), "Fatal error: .*order.*32768");
}

} // namespace
