// SPDX-License-Identifier: MIT
#include "platform/keyboard/NullKeyEventPoster.h"
#include "tests/platform/KeyEventPosterFixture.h"

#include <QTimer>

namespace {

using Key = ForeignWindow::Key;

class KeyEventPoster : public KeyEventPosterFixture
{
};
INSTANTIATE_TEST_SUITE_P(On, KeyEventPoster, kAllWindowManagers,
                         ::testing::PrintToStringParamName());

TEST_P(KeyEventPoster, pasteIsControlV)
{
    ASSERT_TRUE(target.showFocused());

    postPaste();

    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(target, 1), (std::vector<Key>{{true, UserInput::kV, kControlDown}}));
    EXPECT_FALSE(isAnyKeyDown());
}

TEST_P(KeyEventPoster, copyIsControlC)
{
    ASSERT_TRUE(target.showFocused());

    postCopy();

    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(target, 1), (std::vector<Key>{{true, UserInput::kC, kControlDown}}));
}

TEST_P(KeyEventPoster, shiftAndSuperThatAreHeldNeitherSpoilTheChordNorStick)
{
    ASSERT_TRUE(target.showFocused());
    hold(UserInput::kShift);
    hold(UserInput::kSuper);
    target.forgetKeys();

    postPaste();

    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(target, 1), (std::vector<Key>{{true, UserInput::kV, kControlDown}}));
    // The user still holds both, and programs see that.
    EXPECT_TRUE(waitFor([this] { return isDown(UserInput::kShift) && isDown(UserInput::kSuper); }));
    user.tap(UserInput::kA);
    EXPECT_EQ(typedInto(target, 2).back(), (Key{true, UserInput::kA, kShiftDown | kSuperDown}));
    letGo(UserInput::kShift);
    letGo(UserInput::kSuper);
    user.tap(UserInput::kA);
    EXPECT_EQ(typedInto(target, 3).back(), (Key{true, UserInput::kA, 0}));
}

TEST_P(KeyEventPoster, aModifierReleasedAfterThePasteCanBeTypedByProgramsAgain)
{
    ASSERT_TRUE(target.showFocused());
    hold(UserInput::kShift);
    postPaste();
    ASSERT_TRUE(isSent());
    ASSERT_TRUE(waitFor([this] { return isDown(UserInput::kShift); }));
    letGo(UserInput::kShift);

    // A second chord, of another kind, needs Shift from the same device that pressed it again.
    ForeignWindow terminal("Xfce4-terminal");
    ASSERT_TRUE(terminal.showFocused());
    postPaste();

    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(terminal, 1),
              (std::vector<Key>{{true, UserInput::kV, kControlDown | kShiftDown}}));
    EXPECT_TRUE(waitFor([this] { return !isAnyKeyDown(); }));
}

TEST_P(KeyEventPoster, aModifierThatIsHeldDoesNotStickWhenTheProgramEndsBeforeItIsLetGo)
{
    ASSERT_TRUE(target.showFocused());
    hold(UserInput::kShift);
    postPaste();
    ASSERT_TRUE(isSent());
    ASSERT_TRUE(waitFor([this] { return isDown(UserInput::kShift); }));

    poster.reset();
    letGo(UserInput::kShift);

    // A key that XTEST holds already cannot be typed by it: Shift would be missing.
    typeAsAnotherProgram({UserInput::kShift, UserInput::kA});
    EXPECT_EQ(typedInto(target, 2).back(), (Key{true, UserInput::kA, kShiftDown}));
    EXPECT_TRUE(waitFor([this] { return !isAnyKeyDown(); }));
    user.tap(UserInput::kA);
    EXPECT_EQ(typedInto(target, 3).back(), (Key{true, UserInput::kA, 0}));
}

TEST_P(KeyEventPoster, theChordWaitsUntilTheKeyThatPickedIsUp)
{
    ASSERT_TRUE(target.showFocused());
    hold(UserInput::kA);
    target.forgetKeys();

    postPaste();
    EXPECT_FALSE(finished.wait(100));
    user.release(UserInput::kA);

    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(target, 1), (std::vector<Key>{{true, UserInput::kV, kControlDown}}));
    EXPECT_EQ(target.keys().front(), (Key{false, UserInput::kA, 0}));
}

TEST_P(KeyEventPoster, aKeyThatStaysDownDoesNotHoldTheChordBackForEver)
{
    ASSERT_TRUE(target.showFocused());
    hold(UserInput::kV);
    target.forgetKeys();

    postPaste();

    EXPECT_TRUE(isSent());
    EXPECT_TRUE(waitFor([this] {
        const auto typed = target.typed();
        return std::count(typed.begin(), typed.end(), Key{true, UserInput::kV, kControlDown}) == 1;
    }));
    letGo(UserInput::kV);
}

TEST_P(KeyEventPoster, locksAreLeftAlone)
{
    ASSERT_TRUE(target.showFocused());
    toggleLock(UserInput::kCapsLock);
    toggleLock(UserInput::kNumLock);
    user.tap(UserInput::kA);
    ASSERT_EQ(typedInto(target, 1), (std::vector<Key>{{true, UserInput::kA, kLocks}}));
    hold(UserInput::kCapsLock); // unlocks when it is let go

    postPaste();

    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(target, 2).back(), (Key{true, UserInput::kV, kControlDown | kLocks}));
    letGo(UserInput::kCapsLock);
    user.tap(UserInput::kA);
    EXPECT_EQ(typedInto(target, 3).back(), (Key{true, UserInput::kA, XCB_MOD_MASK_2}));
    toggleLock(UserInput::kNumLock);
    user.tap(UserInput::kA);
    EXPECT_EQ(typedInto(target, 4).back(), (Key{true, UserInput::kA, 0}));
}

TEST_P(KeyEventPoster, nothingIsTypedWhileOurOwnWindowHasTheKeyboard)
{
    presentOverTarget();

    postPaste();

    EXPECT_FALSE(isSent());
    EXPECT_EQ(menu.presses, 0);
    EXPECT_TRUE(target.typed().empty());
}

TEST_P(KeyEventPoster, nothingIsTypedIfNoWindowTakesTheKeyboard)
{
    ASSERT_TRUE(target.showFocused());
    target.setFocus(XCB_INPUT_FOCUS_NONE);

    postPaste();

    // Some window managers give it back by themselves, sooner or later.
    const bool hasBeenSent = isSent();
    EXPECT_EQ(hasBeenSent, target.hasFocus());
    EXPECT_EQ(typedInto(target, hasBeenSent ? 1 : 0).size(), hasBeenSent ? 1U : 0U);
}

TEST_P(KeyEventPoster, theChordGoesOutAsSoonAsTheTargetHasTheKeyboard)
{
    presentOverTarget();

    postPaste();
    EXPECT_FALSE(finished.wait(100));
    windows->dismiss();

    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(target, 1), (std::vector<Key>{{true, UserInput::kV, kControlDown}}));
}

TEST_P(KeyEventPoster, twoChordsGoOutOneAfterTheOther)
{
    ASSERT_TRUE(target.showFocused());

    postCopy();
    postPaste();

    EXPECT_TRUE(isSent());
    EXPECT_TRUE(isSent());
    EXPECT_EQ(typedInto(target, 2), (std::vector<Key>{{true, UserInput::kC, kControlDown},
                                                      {true, UserInput::kV, kControlDown}}));
}

TEST_P(KeyEventPoster, aKeyUpAloneTypesNothing)
{
    ASSERT_TRUE(target.showFocused());

    EXPECT_TRUE(poster->post({9, false, 0}));

    EXPECT_FALSE(finished.wait(kQuiet));
    EXPECT_TRUE(target.typed().empty());
}

TEST_P(KeyEventPoster, otherKeysAreRefused)
{
    const auto posted = poster->post({0, true, platform::KeyEvent::kCommandMask});
    const auto withoutCommand = poster->post({9, true, 0});

    ASSERT_FALSE(posted);
    EXPECT_EQ(posted.error().kind, platform::Error::Kind::Refused);
    EXPECT_FALSE(withoutCommand);
}

TEST(NullKeyEventPoster, neverReportsSuccess)
{
    platform::NullKeyEventPoster poster;

    const auto posted = poster.post({9, true, platform::KeyEvent::kCommandMask});

    ASSERT_FALSE(posted);
    EXPECT_EQ(posted.error().kind, platform::Error::Kind::Unavailable);
    EXPECT_FALSE(poster.availability().isAvailable);
}

/// One summons, pick and paste after the other, as fast as fingers can be: the chord's modifiers
/// stay down, and the key that picks is let go while the menu closes.
TEST_P(KeyEventPoster, everyPasteOfManyArrivesOnce)
{
    constexpr int kUsualRounds = 20;
    const int asked = qEnvironmentVariableIntValue("QUILLERY_TEST_PASTES");
    const int rounds = asked > 0 ? asked : kUsualRounds;
    ASSERT_TRUE(target.showFocused());
    hold(UserInput::kShift);
    hold(UserInput::kSuper);

    for (int round = 0; round < rounds; ++round) {
        target.forgetKeys();
        menu.presses = 0;
        windows->present(menu);
        user.press(UserInput::kReturn);
        ASSERT_TRUE(waitFor([this] { return menu.presses > 0; })) << "round " << round;
        QTimer::singleShot(round % 40, &menu, [this] { user.release(UserInput::kReturn); });
        windows->dismiss();
        postPaste();

        ASSERT_TRUE(isSent()) << "round " << round;
        ASSERT_TRUE(waitFor([this] { return !isDown(UserInput::kReturn); }));
        ASSERT_EQ(typedInto(target, 1), (std::vector<Key>{{true, UserInput::kV, kControlDown}}))
            << "round " << round;
    }
    letGo(UserInput::kShift);
    letGo(UserInput::kSuper);
    EXPECT_FALSE(isAnyKeyDown());
}

} // namespace
