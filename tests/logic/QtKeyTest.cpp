// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/QtKey.h"

#include "platform/hotkeys/HotkeyService.h"

#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

using platform::chordOfQtKey;
using platform::SymbolChord;

namespace {

constexpr quint32 kSuper = platform::HotkeyModifier::kCommand;
constexpr quint32 kShift = platform::HotkeyModifier::kShift;
constexpr quint32 kAlt = platform::HotkeyModifier::kOption;
constexpr quint32 kControl = platform::HotkeyModifier::kControl;
constexpr auto kTakesShift = SymbolChord::UpperSymbol::TakesShift;

void expectChord(int key, quint32 symbol, quint32 modifiers)
{
    const auto chord = chordOfQtKey(key);

    ASSERT_TRUE(chord.has_value()) << key;
    EXPECT_EQ(*chord, (SymbolChord{symbol, modifiers, kTakesShift})) << key;
}

int combined(Qt::KeyboardModifiers modifiers, Qt::Key key)
{
    return QKeyCombination(modifiers, key).toCombined();
}

} // namespace

TEST(QtKey, charactersAndNamedKeysAreSymbols)
{
    expectChord(combined(Qt::MetaModifier, Qt::Key_V), XKB_KEY_v, kSuper);
    expectChord(combined(Qt::AltModifier, Qt::Key_F4), XKB_KEY_F4, kAlt);
    expectChord(combined(Qt::ControlModifier | Qt::AltModifier, Qt::Key_Delete), XKB_KEY_Delete,
                kControl | kAlt);
    expectChord(combined(Qt::MetaModifier, Qt::Key_Space), XKB_KEY_space, kSuper);
    expectChord(combined(Qt::MetaModifier, Qt::Key_Plus), XKB_KEY_plus, kSuper);
    expectChord(Qt::Key_VolumeMute, XKB_KEY_XF86AudioMute, 0);
    expectChord(combined(Qt::MetaModifier, Qt::Key_Adiaeresis), XKB_KEY_adiaeresis, kSuper);
}

TEST(QtKey, aNumberFromABusReadsTheSame)
{
    expectChord(0x08000000 | 0x01000033, XKB_KEY_F4, kAlt);
    expectChord(0x10000000 | 0x57, XKB_KEY_w, kSuper);
}

TEST(QtKey, backtabIsTabWithShift)
{
    expectChord(combined(Qt::MetaModifier, Qt::Key_Backtab), XKB_KEY_Tab, kSuper | kShift);
}

TEST(QtKey, keysOfTheKeypadAreOthers)
{
    const auto chord = chordOfQtKey(combined(Qt::MetaModifier | Qt::KeypadModifier, Qt::Key_1));

    ASSERT_TRUE(chord.has_value());
    EXPECT_EQ(*chord, (SymbolChord{XKB_KEY_KP_1, kSuper}));
}

TEST(QtKey, whatNamesNoKeyIsNoChord)
{
    EXPECT_EQ(chordOfQtKey(0), std::nullopt);
    EXPECT_EQ(chordOfQtKey(-1), std::nullopt);
    EXPECT_EQ(chordOfQtKey(Qt::Key_unknown), std::nullopt);
    EXPECT_EQ(chordOfQtKey(static_cast<int>(Qt::MetaModifier)), std::nullopt);
    EXPECT_EQ(chordOfQtKey(combined(Qt::GroupSwitchModifier, Qt::Key_V)), std::nullopt);
    EXPECT_EQ(chordOfQtKey(combined(Qt::KeypadModifier, Qt::Key_V)), std::nullopt);
}
