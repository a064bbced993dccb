// SPDX-License-Identifier: MIT
#include "tests/platform/OtherProgram.h"
#include "tests/platform/SystemShortcutsFixture.h"
#include "tests/support/WindowManager.h"

namespace {

constexpr xcb_keycode_t kKeycodeV = 55;

class HeldChords : public SystemShortcutsFixture,
                   public ::testing::WithParamInterface<WindowManager::Kind>
{
protected:
    HeldChords()
        : m_manager(GetParam())
    {
    }

private:
    WindowManager m_manager;
};

} // namespace

TEST_P(HeldChords, thoseOfAnotherProgramAreFound)
{
    OtherProgram other;
    EXPECT_FALSE(shortcuts->isHeldElsewhere(kKeyV, kSuper | kShift));

    ASSERT_TRUE(other.grab(kKeycodeV, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));

    EXPECT_TRUE(shortcuts->isHeldElsewhere(kKeyV, kSuper | kShift));
}

TEST_P(HeldChords, ourOwnAreNotCounted)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kSuper | kShift, {1, 1}).has_value());

    EXPECT_FALSE(shortcuts->isHeldElsewhere(kKeyV, kSuper | kShift));

    OtherProgram other;
    EXPECT_FALSE(other.grab(kKeycodeV, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));
}

TEST_P(HeldChords, thoseOfTheWindowManagerAreFound)
{
    // i3 has none in the configuration that tests give it.
    const bool hasSome =
        GetParam() == WindowManager::Kind::Openbox || GetParam() == WindowManager::Kind::Xfwm4;

    EXPECT_EQ(shortcuts->isHeldElsewhere(kKeyF4, kAlt), hasSome);
    EXPECT_FALSE(shortcuts->isHeldElsewhere(kKeyT, kSuper | kAlt));
}

INSTANTIATE_TEST_SUITE_P(Under, HeldChords,
                         ::testing::Values(WindowManager::Kind::None, WindowManager::Kind::Openbox,
                                           WindowManager::Kind::Xfwm4, WindowManager::Kind::I3),
                         ::testing::PrintToStringParamName());
