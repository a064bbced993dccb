// SPDX-License-Identifier: MIT
#include "hotkey/KeyCombo.h"
#include "tests/fakes/FakeKeyboardLayout.h"

#include <gtest/gtest.h>

#include <utility>

using hotkey::Key;
using hotkey::KeyCombo;
using platform::Modifier;

TEST(HotKeyNames, thereAreAHundredAndThirteenKeys)
{
    int count = 0;
    for (quint32 code = 0; code <= 0x10000; ++code)
        count += Key::fromCarbonKeyCode(code) ? 1 : 0;

    EXPECT_EQ(count, 113);
    EXPECT_EQ(Key::fromCarbonKeyCode(0xFFFFFFFF), std::nullopt);
}

TEST(HotKeyNames, synonymsNameTheirKeys)
{
    for (const auto &[text, key] :
         {std::pair(u"0", Key(Key::zero)), std::pair(u"7", Key(Key::seven)),
          std::pair(u"`", Key(Key::grave)), std::pair(u" ", Key(Key::space)),
          std::pair(u"\\", Key(Key::backslash)), std::pair(u"enter", Key(Key::return_)),
          std::pair(u"Esc", Key(Key::escape)), std::pair(u"backspace", Key(Key::delete_)),
          std::pair(u"del", Key(Key::forwardDelete)), std::pair(u"insert", Key(Key::help)),
          std::pair(u"left", Key(Key::leftArrow)), std::pair(u"PgUp", Key(Key::pageUp)),
          std::pair(u"numlock", Key(Key::keypadClear)), std::pair(u"fn", Key(Key::function)),
          std::pair(u"cmd", Key(Key::command)), std::pair(u"super", Key(Key::command)),
          std::pair(u"alt", Key(Key::option)), std::pair(u"ctrl", Key(Key::control))}) {
        EXPECT_EQ(Key::fromString(text), key) << qPrintable(QString::fromUtf16(text));
    }
}

TEST(HotKeyNames, everyOtherTextNamesNoKey)
{
    for (const char16_t *text : {u"", u"  ", u"v ", u"keypad10", u"f21", u"f0", u"return_", u"ß",
                                 u"⌘", u"page up", u"10"}) {
        EXPECT_EQ(Key::fromString(text), std::nullopt) << qPrintable(QString::fromUtf16(text));
    }
}

TEST(HotKeyNames, aComboIsMadeOfAKeyAndModifiers)
{
    const KeyCombo combo(Key::v, Modifier::Shift | Modifier::Command | Modifier::CapsLock);

    EXPECT_EQ(combo, KeyCombo(9, 0x300));
    EXPECT_EQ(combo.key(), Key(Key::v));
    EXPECT_EQ(combo.modifiers(), Modifier::Shift | Modifier::Command);
}

TEST(HotKeyNames, aComboOfAnUnknownCodeHasNoKey)
{
    EXPECT_EQ(KeyCombo(200, 0x100).key(), std::nullopt);
    EXPECT_EQ(KeyCombo(0xFFFFFFFF, 0xFFFFFFFF).key(), std::nullopt);
}

TEST(HotKeyNames, aComboIsDescribedByItsModifiersInTheirOrderAndItsKey)
{
    FakeKeyboardLayout layout;

    EXPECT_EQ(KeyCombo(9, 0x1B00).description(&layout), QStringLiteral("⌃⌥⇧⌘V"));
    EXPECT_EQ(KeyCombo(9, 0x300).description(&layout), QStringLiteral("⇧⌘V"));
    EXPECT_EQ(KeyCombo(Key::return_, Modifier::Control).description(nullptr), QStringLiteral("⌃↩"));
    EXPECT_EQ(KeyCombo(9, 0x100).description(nullptr), QStringLiteral("⌘\uFFFD"));
    EXPECT_EQ(KeyCombo(0xFFFFFFFF, 0x100).description(&layout), QStringLiteral("⌘\uFFFD"));
}
