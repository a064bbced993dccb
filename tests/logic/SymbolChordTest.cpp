// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/SymbolChord.h"

#include "platform/hotkeys/HotkeyService.h"
#include "platform/keyboard/KeyPositions.h"
#include "tests/support/Keymaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

using platform::KeyPositions;
using platform::shortcutsOf;
using platform::SymbolChord;
using platform::SystemShortcut;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr quint32 kSuper = platform::HotkeyModifier::kCommand;
constexpr quint32 kShift = platform::HotkeyModifier::kShift;
constexpr auto kTakesShift = SymbolChord::UpperSymbol::TakesShift;

KeyPositions us()
{
    return KeyPositions(keymapOf("us").get(), 0);
}

KeyPositions german()
{
    return KeyPositions(keymapOf("de").get(), 0);
}

} // namespace

TEST(SymbolChord, theLayoutDecidesWhichKeyIsMeant)
{
    EXPECT_THAT(shortcutsOf({XKB_KEY_z, kSuper}, us()), ElementsAre(SystemShortcut{6, kSuper}));
    EXPECT_THAT(shortcutsOf({XKB_KEY_z, kSuper}, german()),
                ElementsAre(SystemShortcut{16, kSuper}));
}

TEST(SymbolChord, aPositionIsTheSameInEveryLayout)
{
    SymbolChord chord;
    chord.keyCode = 50;
    chord.modifiers = kSuper;

    EXPECT_THAT(shortcutsOf(chord, german()), ElementsAre(SystemShortcut{50, kSuper}));
    EXPECT_THAT(shortcutsOf(chord, KeyPositions()), ElementsAre(SystemShortcut{50, kSuper}));
}

TEST(SymbolChord, shiftIsAddedForAnUpperSymbolOnlyWhereTheChordTakesIt)
{
    EXPECT_THAT(shortcutsOf({XKB_KEY_plus, kSuper}, us()), ElementsAre(SystemShortcut{24, kSuper}));
    EXPECT_THAT(shortcutsOf({XKB_KEY_plus, kSuper, kTakesShift}, us()),
                ElementsAre(SystemShortcut{24, kSuper | kShift}));
    EXPECT_THAT(shortcutsOf({XKB_KEY_plus, kSuper, kTakesShift}, german()),
                ElementsAre(SystemShortcut{30, kSuper}));
}

TEST(SymbolChord, aSymbolOfNoKeyHereMeansNothing)
{
    EXPECT_THAT(shortcutsOf({XKB_KEY_XF86WWW, kSuper}, us()), IsEmpty());
}
