// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/MenuView.h"

#include "Quillery_Mac/menu/ClearHistoryRow.h"
#include "Quillery_Mac/ui/Divider.h"
#include "Quillery_Mac/ui/TintedButton.h"
#include "tests/views/MenuViewFixture.h"

using namespace optionWords;
using Form = MenuBench::Form;

namespace {

class MenuViewTest : public MenuViewFixture
{
protected:
    QStringList shownRows() const
    {
        QStringList names;
        for (const MenuRow *shown : bench.menu->findChildren<MenuRow *>()) {
            if (shown->isVisible())
                names.append(shown->name());
        }
        return names;
    }
    int shownDividers() const
    {
        int count = 0;
        for (const Divider *divider : bench.menu->findChildren<Divider *>())
            count += divider->isVisible() ? 1 : 0;
        return count;
    }
    TintedButton *button(const QString &text) const
    {
        for (TintedButton *found : row(kClear).findChildren<TintedButton *>()) {
            if (found->text() == text)
                return found;
        }
        return nullptr;
    }
    void setHistory(bool on) { bench.defaults.setBoolean(SettingsKeys::kClipHistory.key(), on); }
};

} // namespace

TEST_F(MenuViewTest, theMenuBarWindowShowsEveryRowInOrder)
{
    bench.show(Form::MenuBar);

    EXPECT_EQ(shownRows(),
              list({"History", "Clear History", "Snippets", "Quick Add...", "Snippet Editor...",
                    "Settings...", "Check for Updates...", "Quit"}));
    EXPECT_EQ(shownDividers(), 3);
    EXPECT_EQ(bench.menu->options.value(),
              list({"history", "clear", "snippets", "Quick Add...", "Snippet Editor...",
                    "Settings...", "Check for Updates...", "Quit"}));
}

TEST_F(MenuViewTest, atThePointerTheMenuEndsAtQuickAdd)
{
    bench.show(Form::AtPointer);

    EXPECT_EQ(bench.menu->options.value(), list({"history", "clear", "snippets", "Quick Add..."}));
    EXPECT_EQ(shownDividers(), 1);
    press(Qt::Key_Up);
    EXPECT_EQ(active(), kQuickAdd);
    press(Qt::Key_Down);
    EXPECT_EQ(active(), kHistory);
}

TEST_F(MenuViewTest, withTheHistoryOffTheFirstRowIsSnippetsAndNoDividerStandsAboveIt)
{
    setHistory(false);
    bench.show(Form::AtPointer);

    EXPECT_EQ(shownRows(), list({"Snippets", "Quick Add..."}));
    EXPECT_EQ(shownDividers(), 0);
    EXPECT_EQ(row(kSnippets).geometry().top(), 0);
    EXPECT_EQ(bench.menu->options.value(), list({"snippets", "Quick Add..."}));
}

TEST_F(MenuViewTest, withoutAnUpdaterThereIsNoRowForIt)
{
    bench.hasUpdater = false;
    bench.show(Form::MenuBar);
    EXPECT_FALSE(bench.menu->options.value().contains(kCheckForUpdates));
    EXPECT_EQ(shownDividers(), 3);
}

TEST_F(MenuViewTest, theSizeFollowsTheFontAtAFixedWidth)
{
    bench.show(Form::AtPointer);
    const int line = bench.menu->fontMetrics().height();
    EXPECT_EQ(bench.panel.size(), QSize(250, 4 * line + 80 + 1));
}

TEST_F(MenuViewTest, switchingTheHistoryOffWhileOpenTakesItsRowsAway)
{
    addClips();
    bench.show(Form::MenuBar);
    press(Qt::Key_Down);
    ASSERT_EQ(open(), kHistory);
    const int before = bench.panel.height();

    setHistory(false);

    EXPECT_FALSE(open().has_value());
    EXPECT_FALSE(active().has_value());
    EXPECT_EQ(bench.menu->options.value().front(), kSnippets);
    EXPECT_TRUE(eventually([this, before] { return bench.panel.height() < before; }));
    setHistory(true);
    EXPECT_EQ(bench.menu->options.value().front(), kHistory);
    EXPECT_FALSE(bench.menu->isHighlighted(kHistory));
    EXPECT_TRUE(eventually([this, before] { return bench.panel.height() == before; }));
}

TEST_F(MenuViewTest, aFreshMenuHasNothingHighlighted)
{
    bench.show(Form::MenuBar);
    for (const MenuRow *shown : bench.menu->findChildren<MenuRow *>())
        EXPECT_FALSE(shown->isHighlighted());
    EXPECT_FALSE(gives());
}

TEST_F(MenuViewTest, upOnTheFirstRowHighlightsQuitAndDownOnQuitTheFirst)
{
    bench.show(Form::MenuBar);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    EXPECT_TRUE(row(kQuit).isHighlighted());
    press(Qt::Key_Down);
    EXPECT_TRUE(row(kHistory).isHighlighted());
}

TEST_F(MenuViewTest, arrowingOntoSnippetsOpensItsPopoverAndAFurtherDownClosesIt)
{
    setHistory(false);
    bench.show();

    press(Qt::Key_Down);
    EXPECT_NE(bench.snippets(), nullptr);
    EXPECT_TRUE(bench.panel.popover().isVisible());
    press(Qt::Key_Down);
    EXPECT_EQ(bench.snippets(), nullptr);
    EXPECT_FALSE(bench.panel.popover().isVisible());
    EXPECT_EQ(active(), kQuickAdd);
}

TEST_F(MenuViewTest, anEmptyPopoverOpensByArrow)
{
    bench.show();
    press(Qt::Key_Down);
    EXPECT_EQ(open(), kHistory);
    EXPECT_TRUE(bench.panel.popover().isVisible());
}

TEST_F(MenuViewTest, withTheSnippetsHoldingTheKeyboardTheArrowsActOnThem)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.addSnippet(QStringLiteral("b"));
    setHistory(false);
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("a"));

    press(Qt::Key_Down);

    EXPECT_EQ(highlightedSnippet(), QStringLiteral("b"));
    EXPECT_EQ(active(), kSnippets);
    press(Qt::Key_Left);
    EXPECT_FALSE(gives());
    EXPECT_FALSE(bench.panel.popover().isVisible());
    EXPECT_EQ(bench.windows.keyboardWindow, &bench.panel);
}

TEST_F(MenuViewTest, typingALetterOpensTheSnippetsSearchingForIt)
{
    bench.addSnippet(QStringLiteral("apple"), "fruit");
    bench.addSnippet(QStringLiteral("kiwi"), "fruit");
    bench.show();

    type(QStringLiteral("k"));

    ASSERT_NE(bench.snippets(), nullptr);
    EXPECT_EQ(bench.snippets()->searchField().text(), QStringLiteral("k"));
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("kiwi"));
    EXPECT_TRUE(gives());
    EXPECT_EQ(bench.windows.keyboardWindow, &bench.panel.popover());
    EXPECT_TRUE(row(kSnippets).isHighlighted());
}

TEST_F(MenuViewTest, hoveringHistoryWithoutAClipHighlightsTheRowAndOpensNothing)
{
    bench.show();
    moveOnto(row(kHistory));
    EXPECT_TRUE(row(kHistory).isHighlighted());
    EXPECT_FALSE(open().has_value());
    addClips();
    moveOnto(row(kClear));
    moveOnto(row(kHistory));
    EXPECT_EQ(open(), kHistory);
}

TEST_F(MenuViewTest, hoveringSnippetsOpensThemOnlyWhenThereAreSome)
{
    bench.show();
    moveOnto(row(kSnippets));
    EXPECT_FALSE(open().has_value());
    bench.addSnippet(QStringLiteral("a"));
    moveOnto(row(kQuickAdd));
    moveOnto(row(kSnippets));
    EXPECT_EQ(open(), kSnippets);
    EXPECT_FALSE(gives());
    moveOnto(row(kQuickAdd));
    EXPECT_FALSE(open().has_value());
    EXPECT_TRUE(row(kQuickAdd).isHighlighted());
    EXPECT_FALSE(row(kSnippets).isHighlighted());
}

TEST_F(MenuViewTest, aPointerThatRestsWhereTheMenuComesUpHighlightsNothing)
{
    bench.desktop.pointerPosition = {150, 110};
    bench.show();
    const QPoint inside = bench.panel.mapFromGlobal(bench.desktop.pointerPosition);

    moveTo(bench.panel, inside);
    EXPECT_FALSE(active().has_value());
    moveTo(bench.panel, inside + QPoint(1, 0));
    EXPECT_EQ(active(), kHistory);
}

TEST_F(MenuViewTest, aRestingPointerDoesNotTakeTheHighlightFromTheArrowKeys)
{
    bench.show();
    moveOnto(row(kClear));
    press(Qt::Key_Down);
    moveOnto(row(kClear));
    EXPECT_EQ(active(), kSnippets);
}

TEST_F(MenuViewTest, clickingAnActionRowRunsItAndClosesTheMenu)
{
    bench.show(Form::MenuBar);
    click(row(kSnippetEditor));
    EXPECT_EQ(bench.openedScenes, QStringList(QStringLiteral("quillery")));
    EXPECT_EQ(bench.dismissals, 1);
}

TEST_F(MenuViewTest, returnOnAnActionRowRunsItAndClosesTheMenu)
{
    bench.show(Form::MenuBar);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(bench.terminations, 1);
    EXPECT_EQ(bench.dismissals, 1);
    EXPECT_FALSE(bench.menu->isSelected.value().has_value());
}

TEST_F(MenuViewTest, aPressThatEndsElsewhereRunsNothing)
{
    bench.show(Form::MenuBar);
    QWindow *window = bench.panel.windowHandle();
    const QPoint quit = row(kQuit).mapTo(&bench.panel, row(kQuit).rect().center());
    QTest::mousePress(window, Qt::LeftButton, {}, quit);
    QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(bench.terminations, 0);
}

TEST_F(MenuViewTest, settingsAndQuickAddAskTheirOwner)
{
    bench.show(Form::MenuBar);
    QStringList asked;
    const auto settings = bench.menu->showSettings.addNotifier(
        [&asked] { asked.append(QStringLiteral("settings")); });
    const auto add =
        bench.menu->showAdd.addNotifier([&asked] { asked.append(QStringLiteral("add")); });
    click(row(kSettings));
    bench.menu->rowOf(kQuickAdd)->activate();
    EXPECT_EQ(asked, list({"settings", "add"}));
    EXPECT_TRUE(bench.addWindows.isEmpty());
}

TEST_F(MenuViewTest, atThePointerQuickAddOpensTheAddWindowDirectly)
{
    bench.show(Form::AtPointer);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(bench.addWindows, QList<bool>{false});
    EXPECT_FALSE(bench.menu->showAdd.value());
    EXPECT_EQ(bench.dismissals, 1);
    delete bench.funcs.window;
}

TEST_F(MenuViewTest, checkForUpdatesAsksTheUpdater)
{
    bench.show(Form::MenuBar);
    click(row(kCheckForUpdates));
    EXPECT_EQ(bench.updater.checks, 1);
    EXPECT_EQ(bench.dismissals, 1);
}

TEST_F(MenuViewTest, whileNoCheckIsPossibleItsRowActsOnNothing)
{
    bench.updater.canCheck = false;
    bench.show(Form::MenuBar);
    EXPECT_FALSE(row(kCheckForUpdates).isEnabled());
    click(row(kCheckForUpdates));
    bench.menu->currentActive = kCheckForUpdates;
    press(Qt::Key_Return);
    EXPECT_EQ(bench.updater.checks, 0);
    EXPECT_EQ(bench.dismissals, 0);
    EXPECT_FALSE(bench.menu->isSelected.value().has_value());
}

TEST_F(MenuViewTest, theShortcutIsHintedInTheMenuBarWindowOnly)
{
    bench.show(Form::MenuBar);
    EXPECT_EQ(row(kQuickAdd).description(), QStringLiteral("\u21e7\u2318C"));
    bench.show(Form::AtPointer);
    EXPECT_EQ(row(kQuickAdd).description(), QString());
    bench.hint.clear();
    bench.show(Form::MenuBar);
    EXPECT_EQ(row(kQuickAdd).description(), QString());
}

TEST_F(MenuViewTest, clearHistoryAsksAndTheWindowStays)
{
    addClips();
    bench.show();
    click(row(kClear));
    EXPECT_TRUE(bench.menu->clearAlert.value());
    EXPECT_TRUE(button(QStringLiteral("Cancel"))->isVisible());
    EXPECT_TRUE(button(QStringLiteral("Confirm?"))->isVisible());
    EXPECT_EQ(bench.dismissals, 0);
    EXPECT_TRUE(bench.panel.isVisible());
}

TEST_F(MenuViewTest, cancelLeavesEveryClipInPlace)
{
    addClips();
    bench.show();
    click(row(kClear));
    click(*button(QStringLiteral("Cancel")));
    EXPECT_FALSE(bench.menu->clearAlert.value());
    EXPECT_EQ(clipTexts(), list({"one", "two", "three"}));
    EXPECT_FALSE(button(QStringLiteral("Cancel"))->isVisible());
}

TEST_F(MenuViewTest, confirmDeletesEveryClipSavesAndClearsTheFlag)
{
    addClips();
    ASSERT_TRUE(bench.context().save().has_value());
    bench.show();
    click(row(kClear));
    click(*button(QStringLiteral("Confirm?")));
    EXPECT_TRUE(clipTexts().isEmpty());
    EXPECT_FALSE(bench.context().hasChanges());
    EXPECT_FALSE(bench.menu->clearAlert.value());
    EXPECT_TRUE(bench.panel.isVisible());
    EXPECT_FALSE(bench.pasteNow.value());
}

TEST_F(MenuViewTest, openedByKeyCancelTakesTheKeyboardSoASecondReturnDeletesNothing)
{
    addClips();
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_TRUE(bench.menu->clearAlert.value());
    EXPECT_EQ(focus(), button(QStringLiteral("Cancel")));

    press(Qt::Key_Return);

    EXPECT_FALSE(bench.menu->clearAlert.value());
    EXPECT_EQ(clipTexts().size(), 3);
    EXPECT_EQ(focus(), bench.menu);
}

TEST_F(MenuViewTest, tabReachesConfirmAndSpacePressesIt)
{
    addClips();
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    EXPECT_EQ(focus(), button(QStringLiteral("Confirm?")));
    press(Qt::Key_Space);
    EXPECT_TRUE(clipTexts().isEmpty());
}

TEST_F(MenuViewTest, anArrowTakesTheKeyboardFromTheQuestion)
{
    addClips();
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    EXPECT_EQ(active(), kSnippets);
    EXPECT_NE(focus(), button(QStringLiteral("Cancel")));
}

TEST_F(MenuViewTest, aPressBesideTheButtonsOfTheQuestionDoesNothing)
{
    addClips();
    bench.show();
    click(row(kClear));
    bench.menu->clearAlert = true;
    const QRect cancel = button(QStringLiteral("Cancel"))->geometry();
    QTest::mouseClick(&row(kClear), Qt::LeftButton, {}, cancel.topLeft() - QPoint(2, 0));
    EXPECT_TRUE(bench.menu->clearAlert.value());
    EXPECT_EQ(clipTexts().size(), 3);
}

TEST_F(MenuViewTest, aPasteSetsTheFlagGivesTheKeyboardBackAndClosesThePanel)
{
    bench.addSnippet(QStringLiteral("apple"), "Boskoop");
    bench.show(Form::AtPointer);
    type(QStringLiteral("a"));
    press(Qt::Key_Return);
    EXPECT_TRUE(bench.pasteNow.value());
    EXPECT_FALSE(bench.menu->doPaste.value());
    EXPECT_FALSE(gives());
    EXPECT_FALSE(bench.panel.isVisible());
    EXPECT_FALSE(bench.panel.popover().isVisible());
    EXPECT_EQ(bench.dismissals, 0);
    EXPECT_EQ(bench.pasteboard.text, QByteArray("Boskoop"));
}

TEST_F(MenuViewTest, fromTheMenuBarWindowAPasteDismissesTheScene)
{
    bench.addSnippet(QStringLiteral("apple"), "Boskoop");
    bench.show(Form::MenuBar);
    type(QStringLiteral("a"));
    press(Qt::Key_Return);
    EXPECT_TRUE(bench.pasteNow.value());
    EXPECT_EQ(bench.dismissals, 1);
}

TEST_F(MenuViewTest, theFlagIsSetBeforeTheWindowCloses)
{
    bench.addSnippet(QStringLiteral("apple"));
    bench.show();
    bool wasSet = false;
    QObject::connect(&bench.windows, &platform::MenuWindows::resigned, bench.menu,
                     [this, &wasSet] { wasSet = bench.pasteNow.value(); });
    type(QStringLiteral("a"));
    press(Qt::Key_Return);
    EXPECT_TRUE(wasSet);
}

TEST_F(MenuViewTest, escapeClosesThePopoverFirstThenTheMenuAndPastesNothing)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    type(QStringLiteral("a"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(open().has_value());
    EXPECT_TRUE(bench.panel.isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(bench.panel.isVisible());
    EXPECT_FALSE(bench.pasteNow.value());
    EXPECT_TRUE(bench.pasteboard.writes.empty());
}

TEST_F(MenuViewTest, everyOpeningStartsFresh)
{
    bench.addFolder(QStringLiteral("Folder"));
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    type(QStringLiteral("F"));
    press(Qt::Key_Right);
    ASSERT_EQ(bench.snippets()->openItemsList.value().size(), 1U);

    bench.show();

    EXPECT_FALSE(active().has_value());
    EXPECT_FALSE(bench.panel.popover().isVisible());
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    ASSERT_NE(bench.snippets(), nullptr);
    EXPECT_TRUE(bench.snippets()->searchText.value().isEmpty());
    EXPECT_TRUE(bench.snippets()->openItemsList.value().empty());
}

TEST_F(MenuViewTest, thePopoverStandsBesideItsRowInsideTheWorkArea)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.show(Form::MenuBar, {1020, 500});
    type(QStringLiteral("a"));
    const QRect popover = bench.panel.popover().geometry();
    EXPECT_TRUE(bench.desktop.frames.front().contains(popover));
    EXPECT_EQ(popover.x() + popover.width(), 1020 - 4);
    EXPECT_EQ(popover.width(), 308);
}

TEST_F(MenuViewTest, thePopoverKeepsItsUpperEdgeWhileItsHeightFollowsTheRows)
{
    for (int i = 0; i < 8; ++i)
        bench.addSnippet(QStringLiteral("item %1").arg(i));
    bench.show();
    type(QStringLiteral("i"));
    const QRect before = bench.panel.popover().geometry();
    type(QStringLiteral("tem 7"));
    EXPECT_TRUE(
        eventually([this, before] { return bench.panel.popover().height() < before.height(); }));
    EXPECT_EQ(bench.panel.popover().pos(), before.topLeft());
}
