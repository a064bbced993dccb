// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/AcceleratorText.h"

#include "platform/hotkeys/HotkeyService.h"

#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

using platform::chordOfAccelerator;
using platform::SymbolChord;

namespace {

constexpr quint32 kSuper = platform::HotkeyModifier::kCommand;
constexpr quint32 kShift = platform::HotkeyModifier::kShift;
constexpr quint32 kAlt = platform::HotkeyModifier::kOption;
constexpr quint32 kControl = platform::HotkeyModifier::kControl;

void expectChord(const char *text, quint32 symbol, quint32 modifiers)
{
    const auto chord = chordOfAccelerator(QString::fromLatin1(text));

    ASSERT_TRUE(chord.has_value()) << text;
    EXPECT_EQ(*chord, (SymbolChord{symbol, modifiers})) << text;
}

void expectPosition(const char *text, quint32 keyCode, quint32 modifiers)
{
    const auto chord = chordOfAccelerator(QString::fromLatin1(text));

    ASSERT_TRUE(chord.has_value()) << text;
    EXPECT_EQ(chord->keyCode, keyCode) << text;
    EXPECT_EQ(chord->modifiers, modifiers) << text;
}

} // namespace

TEST(AcceleratorText, modifiersAndASymbolMakeAChord)
{
    expectChord("<Super>v", XKB_KEY_v, kSuper);
    expectChord("<Primary><Alt>t", XKB_KEY_t, kControl | kAlt);
    expectChord("<Shift><Super>Page_Down", XKB_KEY_Page_Down, kShift | kSuper);
    expectChord("<Alt>space", XKB_KEY_space, kAlt);
    expectChord("<Super>KP_End", XKB_KEY_KP_End, kSuper);
    expectChord("Print", XKB_KEY_Print, 0);
    expectChord("<Ctrl>XF86AudioMute", XKB_KEY_XF86AudioMute, kControl);
}

TEST(AcceleratorText, everyNameOfAModifierIsKnownInAnyCase)
{
    for (const char *text : {"<Shift>F1", "<Shft>F1", "<SHIFT>F1"})
        expectChord(text, XKB_KEY_F1, kShift);
    for (const char *text : {"<Primary>F1", "<Control>F1", "<Ctrl>F1", "<Ctl>F1", "<ctrl>F1"})
        expectChord(text, XKB_KEY_F1, kControl);
    for (const char *text : {"<Alt>F1", "<Mod1>F1"})
        expectChord(text, XKB_KEY_F1, kAlt);
    for (const char *text : {"<Super>F1", "<Mod4>F1"})
        expectChord(text, XKB_KEY_F1, kSuper);
    expectChord("<Release><Super>F1", XKB_KEY_F1, kSuper);
}

TEST(AcceleratorText, anUpperCaseLetterMeansTheSameKey)
{
    expectChord("<Super>V", XKB_KEY_v, kSuper);
    expectChord("<Ctrl><Shift><Alt>R", XKB_KEY_r, kControl | kShift | kAlt);
}

TEST(AcceleratorText, aKeyCanBeNamedByItsPosition)
{
    expectPosition("<Super>Above_Tab", 50, kSuper);
    expectPosition("<Alt>0x37", 9, kAlt);
}

TEST(AcceleratorText, whatIsSwitchedOffOrCannotBeReadIsNoChord)
{
    for (const char *text : {"", "disabled", "<Super>", "<Super", "<Super>nonsense", "<Hyper>v",
                             "<Meta>v", "<Mod5>v", "<>v", "0x", "0xzz", "0x1", "0xffffffffff"}) {
        EXPECT_EQ(chordOfAccelerator(QString::fromLatin1(text)), std::nullopt) << text;
    }
}
