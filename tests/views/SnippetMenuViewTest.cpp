// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/SnippetMenuView.h"

#include "Quillery_Mac/menu/Folder.h"
#include "Quillery_Mac/menu/SnippetButton.h"
#include "Quillery_Mac/ui/ThinScrollBar.h"
#include "tests/views/MenuViewFixture.h"

#include <QAbstractButton>
#include <QElapsedTimer>

using namespace optionWords;

namespace {

class SnippetMenuViewTest : public MenuViewFixture
{
protected:
    SnippetMenuViewTest() { bench.defaults.setBoolean(SettingsKeys::kClipHistory.key(), false); }

    /// Opens the snippets by arrow and hands them the keyboard.
    void openSnippets()
    {
        bench.show();
        press(Qt::Key_Down);
        press(Qt::Key_Right);
    }
    QStringList rowNames()
    {
        QStringList names;
        for (const auto &[index, widget] : bench.snippets()->column().rowsInView())
            names.append(static_cast<Row *>(widget)->name());
        return names;
    }
    Folder &folderRow(int index) { return dynamic_cast<Folder &>(snippetRow(index)); }
    int highlightedRows()
    {
        int count = 0;
        for (const auto &[index, widget] : bench.snippets()->column().rowsInView())
            count += static_cast<Row *>(widget)->isHighlighted() ? 1 : 0;
        return count;
    }
};

} // namespace

TEST_F(SnippetMenuViewTest, everySnippetAndFolderIsARow)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.addFolder(QStringLiteral("F"));
    bench.addSnippet(QStringLiteral("b"));
    openSnippets();
    EXPECT_EQ(rowNames(), list({"a", "F"}));
    EXPECT_NE(dynamic_cast<SnippetButton *>(&snippetRow(0)), nullptr);
    EXPECT_FALSE(folderRow(1).isOpen.value());
}

TEST_F(SnippetMenuViewTest, theListIsBetweenItsLeastAndItsGreatestHeight)
{
    openSnippets();
    const auto listHeight = [this] { return bench.snippets()->column().height(); };
    EXPECT_EQ(listHeight(), 120);
    EXPECT_EQ(bench.snippets()->width(), 300);
    EXPECT_EQ(bench.snippets()->column().y(), bench.snippets()->searchField().height() + 4);
    for (int i = 0; i < 40; ++i)
        bench.addSnippet(QString::number(i));
    EXPECT_TRUE(eventually([&listHeight] { return listHeight() == 360; }));
}

TEST_F(SnippetMenuViewTest, theHeightOfOneRowIsALinePlusFourteen)
{
    bench.addSnippet(QStringLiteral("a"));
    openSnippets();
    EXPECT_EQ(snippetRow(0).height(), bench.snippets()->fontMetrics().height() + 14);
}

TEST_F(SnippetMenuViewTest, rowsThatASearchFindsLaterJoinTheOthersAndTheHighlightStays)
{
    for (int number = 0; number < 8; ++number)
        bench.addSnippet(QString::number(number), "needle");
    bench.matcher.setFoldingTime(std::chrono::milliseconds(0));
    openSnippets();
    bench.snippets()->searchField().setText(QStringLiteral("needle"));
    EXPECT_EQ(rowNames(), list({"0"}));

    EXPECT_TRUE(eventually([this] { return rowNames().size() == 8; }));

    EXPECT_EQ(highlightedRows(), 1);
    EXPECT_EQ(bench.snippets()->selectedRow(), 0);
}

TEST_F(SnippetMenuViewTest, aClickOnASnippetPastesIt)
{
    bench.addSnippet(QStringLiteral("a"), "1");
    bench.addSnippet(QStringLiteral("b"), "2");
    openSnippets();
    click(snippetRow(1));
    EXPECT_EQ(bench.pasteboard.text, QByteArray("2"));
    EXPECT_TRUE(bench.pasteNow.value());
    EXPECT_EQ(bench.context().count<Snippet>(), 2);
}

TEST_F(SnippetMenuViewTest, aClickOnAFolderOpensAndClosesIt)
{
    bench.addFolder(QStringLiteral("F"));
    bench.addSnippet(QStringLiteral("a"));
    openSnippets();
    click(snippetRow(0));
    EXPECT_EQ(rowNames(), list({"F", "a"}));
    EXPECT_TRUE(folderRow(0).isOpen.value());
    EXPECT_TRUE(folderRow(0).isExpanded());
    EXPECT_EQ(bench.snippets()->openItemsList.value().size(), 1U);
    click(snippetRow(0));
    EXPECT_EQ(rowNames(), list({"F"}));
    EXPECT_FALSE(folderRow(0).isOpen.value());
    EXPECT_FALSE(bench.pasteNow.value());
}

TEST_F(SnippetMenuViewTest, aClickAndAKeyFlipTheSameFlag)
{
    bench.addFolder(QStringLiteral("F"));
    bench.addSnippet(QStringLiteral("a"));
    openSnippets();
    click(snippetRow(0));
    press(Qt::Key_Right);
    EXPECT_EQ(rowNames(), list({"F"}));
    press(Qt::Key_Return);
    EXPECT_TRUE(folderRow(0).isOpen.value());
    click(snippetRow(0));
    EXPECT_TRUE(bench.snippets()->openItemsList.value().empty());
}

TEST_F(SnippetMenuViewTest, aHoveredSnippetTakesTheKeyboard)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.addSnippet(QStringLiteral("b"));
    bench.show();
    moveOnto(row(kSnippets));
    ASSERT_EQ(open(), kSnippets);
    EXPECT_FALSE(gives());
    moveOnto(snippetRow(1));
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("b"));
    EXPECT_TRUE(snippetRow(1).hover.value());
    EXPECT_TRUE(gives());
    press(Qt::Key_Up);
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("a"));
    EXPECT_EQ(highlightedRows(), 1);
}

TEST_F(SnippetMenuViewTest, aRowThatStandsTwiceIsHighlightedOnce)
{
    bench.addFolder(QStringLiteral("Code"));
    bench.addSnippet(QStringLiteral("code one"));
    openSnippets();
    type(QStringLiteral("code"));
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(rowNames(), list({"code one", "Code", "code one"}));
    press(Qt::Key_Down);
    EXPECT_TRUE(snippetRow(2).isHighlighted());
    EXPECT_FALSE(snippetRow(0).isHighlighted());
    EXPECT_EQ(highlightedRows(), 1);
}

TEST_F(SnippetMenuViewTest, clearingTheFieldShowsEverythingAgain)
{
    bench.addSnippet(QStringLiteral("apple"));
    bench.addSnippet(QStringLiteral("kiwi"));
    openSnippets();
    type(QStringLiteral("kiw"));
    EXPECT_EQ(rowNames(), list({"kiwi"}));
    auto *clear = bench.snippets()->searchField().findChild<QAbstractButton *>();
    ASSERT_TRUE(clear->isVisible());
    click(*clear);
    EXPECT_EQ(rowNames(), list({"apple", "kiwi"}));
    EXPECT_FALSE(clear->isVisible());
    EXPECT_FALSE(bench.snippets()->doSearch.value());
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("apple"));
}

TEST_F(SnippetMenuViewTest, changesOfTheStoreShowWhileTheMenuIsOpen)
{
    Snippet &apple = bench.addSnippet(QStringLiteral("apple"));
    openSnippets();
    bench.addSnippet(QStringLiteral("kiwi"));
    EXPECT_TRUE(eventually([this] { return rowNames() == list({"apple", "kiwi"}); }));
    apple.setTitle(QStringLiteral("Boskoop"));
    EXPECT_TRUE(eventually([this] { return rowNames() == list({"Boskoop", "kiwi"}); }));
    bench.context().deleteObject(apple);
    EXPECT_TRUE(eventually([this] { return rowNames() == list({"kiwi"}); }));
    EXPECT_TRUE(highlightedSnippet().isEmpty());
}

TEST_F(SnippetMenuViewTest, aSnippetThatBeginsToMatchAppearsInTheSearch)
{
    Snippet &apple = bench.addSnippet(QStringLiteral("apple"));
    openSnippets();
    type(QStringLiteral("kiwi"));
    EXPECT_TRUE(rowNames().isEmpty());
    apple.setContent(QByteArray("a kiwi"));
    EXPECT_TRUE(eventually([this] { return rowNames() == list({"apple"}); }));
}

TEST_F(SnippetMenuViewTest, openFoldersStayOpenWhenTheStoreChanges)
{
    bench.addFolder(QStringLiteral("F"));
    bench.addSnippet(QStringLiteral("a"));
    openSnippets();
    press(Qt::Key_Right);
    bench.addSnippet(QStringLiteral("b"));
    EXPECT_TRUE(eventually([this] { return rowNames() == list({"F", "a", "b"}); }));
    EXPECT_TRUE(folderRow(0).isOpen.value());
}

TEST_F(SnippetMenuViewTest, rowsWithoutTitleShowTheirText)
{
    bench.addSnippet(QString(), "First line\nSecond");
    bench.addSnippet(QString(), std::nullopt);
    bench.addSnippet(QString(), " \n ");
    openSnippets();
    EXPECT_EQ(rowNames(), list({"First line", "Untitled", "Blank text"}));
}

TEST_F(SnippetMenuViewTest, theHelpOfASnippetIsItsContentAndAFolderHasNone)
{
    bench.addFolder(QStringLiteral("F"));
    bench.addSnippet(QStringLiteral("a"), "the content");
    openSnippets();
    press(Qt::Key_Right);
    EXPECT_EQ(snippetRow(1).help(), QStringLiteral("the content"));
    EXPECT_EQ(snippetRow(0).help(), QString());
}

TEST_F(SnippetMenuViewTest, aFullStoreHasWidgetsForTheRowsInViewOnly)
{
    for (int i = 0; i < 32767; ++i)
        bench.addSnippet(QStringLiteral("snippet %1").arg(i), "text");
    openSnippets();
    EXPECT_EQ(bench.snippets()->rows().size(), 32767U);

    press(Qt::Key_Up);
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("snippet 32766"));
    EXPECT_TRUE(snippetRow(32766).isHighlighted());
    bench.snippets()->column().scrollBar().setValue(400000);
    bench.snippets()->column().scrollBar().setValue(0);
    press(Qt::Key_Down);
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("snippet 0"));
    EXPECT_LT(bench.snippets()->findChildren<SnippetButton *>().size(), 40);
}

TEST_F(SnippetMenuViewTest, theWheelScrolls)
{
    for (int i = 0; i < 100; ++i)
        bench.addSnippet(QString::number(i));
    openSnippets();
    LazyColumn &column = bench.snippets()->column();
    QWheelEvent wheel(QPointF(10, 10), column.mapToGlobal(QPointF(10, 10)), {}, {0, -120},
                      Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&column, &wheel);
    EXPECT_EQ(column.scrollBar().value(), 3 * snippetRow(10).height());
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("0"));
}
