// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/PasteAction.h"

#include "tests/fakes/FakeKeyEventPoster.h"

#include <gtest/gtest.h>

using platform::KeyEvent;

namespace {

class PasteActionTest : public ::testing::Test
{
protected:
    FakeKeyEventPoster poster;
    QProperty<bool> pasteNow{false};
    PasteAction action{poster, pasteNow};
};

} // namespace

TEST_F(PasteActionTest, onlyTheKeyDownCarriesTheCommandFlag)
{
    pasteNow = true;

    action.windowDidResignKey();

    const std::vector<KeyEvent> expected{{9, true, 0x100000}, {9, false, 0}};
    EXPECT_EQ(poster.events, expected);
    EXPECT_FALSE(pasteNow.value());
}

TEST_F(PasteActionTest, aWindowThatResignsKeyForAnotherReasonSendsNothing)
{
    action.windowDidResignKey();

    EXPECT_TRUE(poster.events.empty());
}

TEST_F(PasteActionTest, withTwoObserversOnlyTheFirstSendsTheKeystroke)
{
    pasteNow = true;

    action.windowDidResignKey();
    action.windowDidResignKey();

    EXPECT_EQ(poster.events.size(), 2U);
}

TEST_F(PasteActionTest, theFlagIsClearedEvenIfNothingCanBeTyped)
{
    poster.isRefusing = true;
    pasteNow = true;

    action.windowDidResignKey();

    EXPECT_TRUE(poster.events.empty());
    EXPECT_FALSE(pasteNow.value());
}

TEST_F(PasteActionTest, copyingTheSelectionSendsCommandC)
{
    action.copySelection();

    const std::vector<KeyEvent> expected{{8, true, 0x100000}, {8, false, 0}};
    EXPECT_EQ(poster.events, expected);
}
