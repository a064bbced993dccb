// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/MenuState.h"

#include <gtest/gtest.h>

using controls::kGive;
using optionWords::kClear;
using optionWords::kHistory;
using optionWords::kQuickAdd;
using optionWords::kQuit;
using optionWords::kSnippets;

namespace {

class MenuStateTest : public ::testing::Test
{
protected:
    MenuStateTest() { menu.setOptions({kHistory, kClear, kSnippets, kQuickAdd, kQuit}); }

    bool gives() const { return controls::isSet(menu.controls.value(), kGive); }
    bool isSet(const QString &word) const { return controls::isSet(menu.controls.value(), word); }
    static OptionFlags only(const QString &word) { return {{word, true}}; }

    MenuState menu;
};

} // namespace

TEST_F(MenuStateTest, theQuickKeysAreEightyTwoCharacters)
{
    EXPECT_EQ(MenuState::chars.size(), 82);
    EXPECT_TRUE(MenuState::chars.startsWith(u"abc"));
    EXPECT_EQ(MenuState::chars.mid(26, 10), QStringLiteral("1234567890"));
    EXPECT_EQ(MenuState::chars.mid(36, 20), QStringLiteral(",./?'\"-+!@#$%^&*()`~"));
    EXPECT_TRUE(MenuState::chars.endsWith(u"XYZ"));
}

TEST_F(MenuStateTest, itStartsWithNothingHighlightedAndTheKeyboard)
{
    EXPECT_FALSE(menu.currentActive.value().has_value());
    EXPECT_TRUE(menu.hoverOver.value().isEmpty());
    EXPECT_TRUE(menu.showPopover.value().isEmpty());
    EXPECT_TRUE(menu.controls.value().contains(kGive));
    EXPECT_FALSE(gives());
}

TEST_F(MenuStateTest, theFirstDownHighlightsTheFirstRowAndTheFirstUpTheLast)
{
    menu.down();
    EXPECT_EQ(menu.currentActive.value(), kHistory);
    menu.currentActive = std::nullopt;
    menu.up();
    EXPECT_EQ(menu.currentActive.value(), kQuit);
}

TEST_F(MenuStateTest, upOnTheFirstRowHighlightsQuitAndDownOnQuitTheFirstRow)
{
    menu.currentActive = kHistory;
    menu.up();
    EXPECT_EQ(menu.currentActive.value(), kQuit);
    menu.down();
    EXPECT_EQ(menu.currentActive.value(), kHistory);
}

TEST_F(MenuStateTest, withoutRowsNothingIsHighlighted)
{
    menu.setOptions({});
    menu.down();
    EXPECT_FALSE(menu.currentActive.value().has_value());
    menu.up();
    EXPECT_FALSE(menu.currentActive.value().has_value());
}

TEST_F(MenuStateTest, movingReplacesBothMaps)
{
    menu.hoverOver = OptionFlags{{kQuit, true}, {kClear, false}};
    menu.currentActive = kClear;

    menu.down();

    EXPECT_EQ(menu.hoverOver.value(), only(kSnippets));
    EXPECT_EQ(menu.showPopover.value(), only(kSnippets));
    EXPECT_EQ(menu.openPopover.value(), kSnippets);
    menu.down();
    EXPECT_EQ(menu.hoverOver.value(), only(kQuickAdd));
    EXPECT_FALSE(menu.openPopover.value().has_value());
}

TEST_F(MenuStateTest, rightHandsTheKeyboardToTheOpenPopover)
{
    menu.down();
    EXPECT_FALSE(gives());
    menu.right();
    EXPECT_TRUE(gives());
    EXPECT_EQ(menu.openPopover.value(), kHistory);
}

TEST_F(MenuStateTest, rightOnAnyOtherRowDoesNothing)
{
    menu.right();
    EXPECT_FALSE(gives());
    menu.currentActive = kClear;
    menu.right();
    EXPECT_FALSE(gives());
    EXPECT_TRUE(menu.showPopover.value().isEmpty());
}

TEST_F(MenuStateTest, withTheKeyboardGivenAwayTheKeysBecomeCommands)
{
    menu.down();
    menu.right();
    const std::optional<QString> active = menu.currentActive.value();

    menu.up();
    EXPECT_TRUE(isSet(controls::kUp));
    menu.down();
    EXPECT_TRUE(isSet(controls::kDown));
    menu.right();
    EXPECT_TRUE(isSet(controls::kRight));
    menu.select();
    EXPECT_TRUE(isSet(controls::kSelect));
    EXPECT_EQ(menu.currentActive.value(), active);
}

TEST_F(MenuStateTest, aCommandThatNobodyTookIsDroppedBeforeTheNextOne)
{
    menu.down();
    menu.right();
    menu.right();

    menu.down();

    EXPECT_FALSE(isSet(controls::kRight));
    EXPECT_TRUE(isSet(controls::kDown));
}

TEST_F(MenuStateTest, aCommandThatNobodyTookIsToldAgainWhenItIsPressedAgain)
{
    menu.down();
    menu.right();
    menu.select();
    int told = 0;
    const auto observer =
        menu.controls.addNotifier([this, &told] { told += isSet(controls::kSelect) ? 1 : 0; });

    menu.select();

    EXPECT_EQ(told, 1);
}

TEST_F(MenuStateTest, leftTakesTheKeyboardBackAndClosesThePopover)
{
    menu.down();
    menu.right();
    menu.right();

    menu.left();

    EXPECT_EQ(menu.controls.value(), (Controls{{kGive, false}}));
    EXPECT_FALSE(menu.openPopover.value().has_value());
    EXPECT_EQ(menu.currentActive.value(), kHistory);
}

TEST_F(MenuStateTest, selectOnClearRaisesTheQuestionOnly)
{
    menu.currentActive = kClear;
    menu.select();
    EXPECT_TRUE(menu.clearAlert.value());
    EXPECT_FALSE(menu.isSelected.value().has_value());
    menu.select();
    EXPECT_TRUE(menu.clearAlert.value());
}

TEST_F(MenuStateTest, selectOnAnActionRowNamesIt)
{
    menu.currentActive = kQuit;
    menu.select();
    EXPECT_EQ(menu.isSelected.value(), kQuit);
}

TEST_F(MenuStateTest, selectOnARowWithAPopoverKeepsItOpenAndKeepsTheKeyboard)
{
    menu.down();
    menu.select();
    EXPECT_EQ(menu.openPopover.value(), kHistory);
    EXPECT_FALSE(menu.isSelected.value().has_value());
    EXPECT_FALSE(gives());
}

TEST_F(MenuStateTest, selectWithoutAHighlightDoesNothing)
{
    menu.select();
    EXPECT_FALSE(menu.isSelected.value().has_value());
    EXPECT_FALSE(menu.clearAlert.value());
}

TEST_F(MenuStateTest, aQuickKeyOpensTheSnippetsWithItsCharacter)
{
    menu.quickKey(u'k');

    EXPECT_EQ(menu.passedSearch.value(), QStringLiteral("k"));
    EXPECT_EQ(menu.hoverOver.value(), only(kSnippets));
    EXPECT_EQ(menu.showPopover.value(), only(kSnippets));
    EXPECT_EQ(menu.currentActive.value(), kSnippets);
    EXPECT_EQ(menu.openPopover.value(), kSnippets);
    EXPECT_TRUE(gives());
}

TEST_F(MenuStateTest, aQuickKeyWhileTheHistoryIsOpenKeepsGive)
{
    menu.down();
    menu.right();
    menu.right();

    menu.quickKey(u'k');

    EXPECT_EQ(menu.openPopover.value(), kSnippets);
    EXPECT_EQ(menu.passedSearch.value(), QStringLiteral("k"));
    EXPECT_TRUE(gives());
    EXPECT_FALSE(isSet(controls::kRight));
}

TEST_F(MenuStateTest, thePassedSearchIsGoneWhenThePopoverCloses)
{
    menu.quickKey(u'k');
    menu.left();
    EXPECT_FALSE(menu.passedSearch.value().has_value());
    EXPECT_FALSE(menu.passedSearchNoEntry.value());
}

TEST_F(MenuStateTest, closingAPopoverGivesTheKeyboardBack)
{
    menu.quickKey(u'k');
    menu.showPopover = OptionFlags();
    EXPECT_FALSE(gives());
}

TEST_F(MenuStateTest, thePointerOnAnActionRowClosesThePopovers)
{
    menu.down();
    menu.right();

    menu.actionRowHovered(kQuickAdd, true);

    EXPECT_EQ(menu.hoverOver.value(), only(kQuickAdd));
    EXPECT_EQ(menu.currentActive.value(), kQuickAdd);
    EXPECT_TRUE(menu.showPopover.value().isEmpty());
    EXPECT_FALSE(gives());
    menu.actionRowHovered(kQuickAdd, false);
    EXPECT_EQ(menu.hoverOver.value(), (OptionFlags{{kQuickAdd, false}}));
    EXPECT_TRUE(menu.isHighlighted(kQuickAdd));
}

TEST_F(MenuStateTest, afterAQuickKeyThePointerOnAnActionRowChangesNothing)
{
    menu.quickKey(u'k');

    menu.actionRowHovered(kQuickAdd, true);

    EXPECT_EQ(menu.openPopover.value(), kSnippets);
    EXPECT_EQ(menu.currentActive.value(), kSnippets);
    EXPECT_EQ(menu.hoverOver.value(), only(kSnippets));
}

TEST_F(MenuStateTest, thePointerOnAPopoverRowOpensItOnlyWhenItHoldsSomething)
{
    menu.popoverRowEntered(kHistory, 0);
    EXPECT_TRUE(menu.isHighlighted(kHistory));
    EXPECT_FALSE(menu.openPopover.value().has_value());
    menu.popoverRowEntered(kSnippets, 3);
    EXPECT_EQ(menu.openPopover.value(), kSnippets);
    EXPECT_TRUE(menu.hoverOver.value().isEmpty());
}

TEST_F(MenuStateTest, enteringTheRowOfTheOpenPopoverAgainDoesNotReopenIt)
{
    menu.popoverRowEntered(kSnippets, 3);
    int changes = 0;
    const auto observer = menu.openPopover.addNotifier([&changes] { ++changes; });
    menu.popoverRowEntered(kSnippets, 3);
    EXPECT_EQ(changes, 0);
}

TEST_F(MenuStateTest, aRowIsHighlightedByEitherFlag)
{
    menu.hoverOver = only(kQuit);
    EXPECT_TRUE(menu.isHighlighted(kQuit));
    menu.hoverOver = OptionFlags{{kQuit, false}};
    EXPECT_FALSE(menu.isHighlighted(kQuit));
    menu.currentActive = kQuit;
    EXPECT_TRUE(menu.isHighlighted(kQuit));
}

TEST_F(MenuStateTest, rowsThatGoAwayTakeTheirHighlightAndTheirPopoverAlong)
{
    menu.down();
    menu.right();
    menu.clearAlert = true;

    menu.setOptions({kSnippets, kQuickAdd});

    EXPECT_FALSE(menu.currentActive.value().has_value());
    EXPECT_FALSE(menu.openPopover.value().has_value());
    EXPECT_FALSE(gives());
    EXPECT_FALSE(menu.clearAlert.value());
}
