// SPDX-License-Identifier: MIT
#include "platform/keyboard/KeyCodes.h"

#include "KeyboardShortcuts/Key.h"

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

#include <ostream>

using KeyboardShortcuts::Key;
using platform::carbonFromEvdev;
using platform::carbonFromX11Keycode;
using platform::evdevFromCarbon;
using platform::x11KeycodeFromCarbon;

namespace {

struct Row
{
    Key key;
    int evdev;

    friend void PrintTo(const Row &row, std::ostream *out)
    {
        *out << "key code " << row.key.rawValue << ", evdev " << row.evdev;
    }
};

class KeyCodesTest : public ::testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(KeyCodesTest, aPositionIsFoundByBothOfItsNumbers)
{
    const Row row = GetParam();
    const int carbon = static_cast<int>(row.key.rawValue);

    EXPECT_EQ(evdevFromCarbon(carbon), row.evdev);
    EXPECT_EQ(carbonFromEvdev(row.evdev), carbon);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKey, KeyCodesTest,
    ::testing::Values(
        Row{Key::a, KEY_A}, Row{Key::b, KEY_B}, Row{Key::c, KEY_C}, Row{Key::d, KEY_D},
        Row{Key::e, KEY_E}, Row{Key::f, KEY_F}, Row{Key::g, KEY_G}, Row{Key::h, KEY_H},
        Row{Key::i, KEY_I}, Row{Key::j, KEY_J}, Row{Key::k, KEY_K}, Row{Key::l, KEY_L},
        Row{Key::m, KEY_M}, Row{Key::n, KEY_N}, Row{Key::o, KEY_O}, Row{Key::p, KEY_P},
        Row{Key::q, KEY_Q}, Row{Key::r, KEY_R}, Row{Key::s, KEY_S}, Row{Key::t, KEY_T},
        Row{Key::u, KEY_U}, Row{Key::v, KEY_V}, Row{Key::w, KEY_W}, Row{Key::x, KEY_X},
        Row{Key::y, KEY_Y}, Row{Key::z, KEY_Z}, Row{Key::zero, KEY_0}, Row{Key::one, KEY_1},
        Row{Key::two, KEY_2}, Row{Key::three, KEY_3}, Row{Key::four, KEY_4}, Row{Key::five, KEY_5},
        Row{Key::six, KEY_6}, Row{Key::seven, KEY_7}, Row{Key::eight, KEY_8}, Row{Key::nine, KEY_9},
        Row{Key::return_, KEY_ENTER}, Row{Key::backslash, KEY_BACKSLASH},
        Row{Key::grave, KEY_GRAVE}, Row{Key::comma, KEY_COMMA}, Row{Key::equal, KEY_EQUAL},
        Row{Key::minus, KEY_MINUS}, Row{Key::period, KEY_DOT}, Row{Key::quote, KEY_APOSTROPHE},
        Row{Key::semicolon, KEY_SEMICOLON}, Row{Key::slash, KEY_SLASH}, Row{Key::space, KEY_SPACE},
        Row{Key::tab, KEY_TAB}, Row{Key::leftBracket, KEY_LEFTBRACE},
        Row{Key::rightBracket, KEY_RIGHTBRACE}, Row{Key::pageUp, KEY_PAGEUP},
        Row{Key::pageDown, KEY_PAGEDOWN}, Row{Key::home, KEY_HOME}, Row{Key::end, KEY_END},
        Row{Key::upArrow, KEY_UP}, Row{Key::rightArrow, KEY_RIGHT}, Row{Key::downArrow, KEY_DOWN},
        Row{Key::leftArrow, KEY_LEFT}, Row{Key::escape, KEY_ESC}, Row{Key::delete_, KEY_BACKSPACE},
        Row{Key::forwardDelete, KEY_DELETE}, Row{Key::help, KEY_INSERT}, Row{Key::mute, KEY_MUTE},
        Row{Key::volumeUp, KEY_VOLUMEUP}, Row{Key::volumeDown, KEY_VOLUMEDOWN},
        Row{Key::capsLock, KEY_CAPSLOCK}, Row{Key::shift, KEY_LEFTSHIFT},
        Row{Key::function, KEY_FN}, Row{Key::control, KEY_LEFTCTRL}, Row{Key::option, KEY_LEFTALT},
        Row{Key::command, KEY_LEFTMETA}, Row{Key::rightCommand, KEY_RIGHTMETA},
        Row{Key::rightOption, KEY_RIGHTALT}, Row{Key::rightControl, KEY_RIGHTCTRL},
        Row{Key::rightShift, KEY_RIGHTSHIFT}, Row{Key::f1, KEY_F1}, Row{Key::f2, KEY_F2},
        Row{Key::f3, KEY_F3}, Row{Key::f4, KEY_F4}, Row{Key::f5, KEY_F5}, Row{Key::f6, KEY_F6},
        Row{Key::f7, KEY_F7}, Row{Key::f8, KEY_F8}, Row{Key::f9, KEY_F9}, Row{Key::f10, KEY_F10},
        Row{Key::f11, KEY_F11}, Row{Key::f12, KEY_F12}, Row{Key::f13, KEY_F13},
        Row{Key::f14, KEY_F14}, Row{Key::f15, KEY_F15}, Row{Key::f16, KEY_F16},
        Row{Key::f17, KEY_F17}, Row{Key::f18, KEY_F18}, Row{Key::f19, KEY_F19},
        Row{Key::f20, KEY_F20}, Row{Key::keypad0, KEY_KP0}, Row{Key::keypad1, KEY_KP1},
        Row{Key::keypad2, KEY_KP2}, Row{Key::keypad3, KEY_KP3}, Row{Key::keypad4, KEY_KP4},
        Row{Key::keypad5, KEY_KP5}, Row{Key::keypad6, KEY_KP6}, Row{Key::keypad7, KEY_KP7},
        Row{Key::keypad8, KEY_KP8}, Row{Key::keypad9, KEY_KP9}, Row{Key::keypadClear, KEY_NUMLOCK},
        Row{Key::keypadDecimal, KEY_KPDOT}, Row{Key::keypadDivide, KEY_KPSLASH},
        Row{Key::keypadEnter, KEY_KPENTER}, Row{Key::keypadEquals, KEY_KPEQUAL},
        Row{Key::keypadMinus, KEY_KPMINUS}, Row{Key::keypadMultiply, KEY_KPASTERISK},
        Row{Key::keypadPlus, KEY_KPPLUS}));

TEST(KeyCodes, x11KeycodesAreEvdevCodesPlusEight)
{
    EXPECT_EQ(x11KeycodeFromCarbon(9), 55);
    EXPECT_EQ(carbonFromX11Keycode(55), 9);
    EXPECT_EQ(x11KeycodeFromCarbon(36), 36);
    EXPECT_EQ(carbonFromX11Keycode(36), 36);
}

TEST(KeyCodes, aPositionBeyondTheProtocolHasNoX11Keycode)
{
    EXPECT_EQ(evdevFromCarbon(63), KEY_FN);
    EXPECT_EQ(x11KeycodeFromCarbon(63), std::nullopt);
}

TEST(KeyCodes, unknownNumbersHaveNoCounterpart)
{
    for (const int carbon : {-1, 52, 66, 127, 128, 0xFFFF, 1 << 20})
        EXPECT_EQ(evdevFromCarbon(carbon), std::nullopt) << carbon;
    for (const int evdev : {-1, 0, KEY_POWER, KEY_MICMUTE, 1 << 20})
        EXPECT_EQ(carbonFromEvdev(evdev), std::nullopt) << evdev;
    for (const quint32 keycode : {0U, 7U, 8U, 255U, 0xFFFFFFFFU})
        EXPECT_EQ(carbonFromX11Keycode(keycode), std::nullopt) << keycode;
}

TEST(KeyCodes, keysOfOtherKeyboardsHaveTheirPosition)
{
    EXPECT_EQ(evdevFromCarbon(10), KEY_102ND);
    EXPECT_EQ(evdevFromCarbon(110), KEY_COMPOSE);
    EXPECT_EQ(evdevFromCarbon(93), KEY_YEN);
    EXPECT_EQ(evdevFromCarbon(94), KEY_RO);
    EXPECT_EQ(evdevFromCarbon(95), KEY_KPCOMMA);
    EXPECT_EQ(evdevFromCarbon(102), KEY_HANJA);
    EXPECT_EQ(evdevFromCarbon(104), KEY_HANGEUL);
}
