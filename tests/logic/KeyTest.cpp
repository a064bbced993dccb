// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/Key.h"

#include "hotkey/Key.h"

#include <QString>

#include <gtest/gtest.h>

#include <ostream>

using KeyboardShortcuts::Key;

namespace {

struct Row
{
    const char *name;
    Key key;
    qint64 code;

    friend void PrintTo(const Row &row, std::ostream *out) { *out << row.name; }
};

class KeyTest : public ::testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(KeyTest, hasItsCode)
{
    EXPECT_EQ(GetParam().key.rawValue, GetParam().code);
}

TEST_P(KeyTest, isFoundByItsNameInAnyCase)
{
    const QString name = QString::fromLatin1(GetParam().name);

    for (const QString &text : {name, name.toLower(), name.toUpper()}) {
        const auto key = hotkey::Key::fromString(text);
        ASSERT_TRUE(key.has_value()) << qPrintable(text);
        EXPECT_EQ(key->carbonKeyCode(), GetParam().code);
    }
}

TEST_P(KeyTest, isFoundByItsCode)
{
    const auto key = hotkey::Key::fromCarbonKeyCode(static_cast<quint32>(GetParam().code));

    ASSERT_TRUE(key.has_value());
    EXPECT_EQ(key->carbonKeyCode(), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKey, KeyTest,
    ::testing::Values(
        Row{"a", Key::a, 0}, Row{"s", Key::s, 1}, Row{"d", Key::d, 2}, Row{"f", Key::f, 3},
        Row{"h", Key::h, 4}, Row{"g", Key::g, 5}, Row{"z", Key::z, 6}, Row{"x", Key::x, 7},
        Row{"c", Key::c, 8}, Row{"v", Key::v, 9}, Row{"b", Key::b, 11}, Row{"q", Key::q, 12},
        Row{"w", Key::w, 13}, Row{"e", Key::e, 14}, Row{"r", Key::r, 15}, Row{"y", Key::y, 16},
        Row{"t", Key::t, 17}, Row{"o", Key::o, 31}, Row{"u", Key::u, 32}, Row{"i", Key::i, 34},
        Row{"p", Key::p, 35}, Row{"l", Key::l, 37}, Row{"j", Key::j, 38}, Row{"k", Key::k, 40},
        Row{"n", Key::n, 45}, Row{"m", Key::m, 46}, Row{"zero", Key::zero, 29},
        Row{"one", Key::one, 18}, Row{"two", Key::two, 19}, Row{"three", Key::three, 20},
        Row{"four", Key::four, 21}, Row{"five", Key::five, 23}, Row{"six", Key::six, 22},
        Row{"seven", Key::seven, 26}, Row{"eight", Key::eight, 28}, Row{"nine", Key::nine, 25},
        Row{"return", Key::return_, 36}, Row{"backslash", Key::backslash, 42},
        Row{"grave", Key::grave, 50}, Row{"comma", Key::comma, 43}, Row{"equal", Key::equal, 24},
        Row{"minus", Key::minus, 27}, Row{"period", Key::period, 47}, Row{"quote", Key::quote, 39},
        Row{"semicolon", Key::semicolon, 41}, Row{"slash", Key::slash, 44},
        Row{"space", Key::space, 49}, Row{"tab", Key::tab, 48},
        Row{"leftBracket", Key::leftBracket, 33}, Row{"rightBracket", Key::rightBracket, 30},
        Row{"pageUp", Key::pageUp, 116}, Row{"pageDown", Key::pageDown, 121},
        Row{"home", Key::home, 115}, Row{"end", Key::end, 119}, Row{"upArrow", Key::upArrow, 126},
        Row{"rightArrow", Key::rightArrow, 124}, Row{"downArrow", Key::downArrow, 125},
        Row{"leftArrow", Key::leftArrow, 123}, Row{"escape", Key::escape, 53},
        Row{"delete", Key::delete_, 51}, Row{"forwardDelete", Key::forwardDelete, 117},
        Row{"help", Key::help, 114}, Row{"mute", Key::mute, 74}, Row{"volumeUp", Key::volumeUp, 72},
        Row{"volumeDown", Key::volumeDown, 73}, Row{"capsLock", Key::capsLock, 57},
        Row{"shift", Key::shift, 56}, Row{"function", Key::function, 63},
        Row{"control", Key::control, 59}, Row{"option", Key::option, 58},
        Row{"command", Key::command, 55}, Row{"rightCommand", Key::rightCommand, 54},
        Row{"rightOption", Key::rightOption, 61}, Row{"rightControl", Key::rightControl, 62},
        Row{"rightShift", Key::rightShift, 60}, Row{"f1", Key::f1, 122}, Row{"f2", Key::f2, 120},
        Row{"f3", Key::f3, 99}, Row{"f4", Key::f4, 118}, Row{"f5", Key::f5, 96},
        Row{"f6", Key::f6, 97}, Row{"f7", Key::f7, 98}, Row{"f8", Key::f8, 100},
        Row{"f9", Key::f9, 101}, Row{"f10", Key::f10, 109}, Row{"f11", Key::f11, 103},
        Row{"f12", Key::f12, 111}, Row{"f13", Key::f13, 105}, Row{"f14", Key::f14, 107},
        Row{"f15", Key::f15, 113}, Row{"f16", Key::f16, 106}, Row{"f17", Key::f17, 64},
        Row{"f18", Key::f18, 79}, Row{"f19", Key::f19, 80}, Row{"f20", Key::f20, 90},
        Row{"keypad0", Key::keypad0, 82}, Row{"keypad1", Key::keypad1, 83},
        Row{"keypad2", Key::keypad2, 84}, Row{"keypad3", Key::keypad3, 85},
        Row{"keypad4", Key::keypad4, 86}, Row{"keypad5", Key::keypad5, 87},
        Row{"keypad6", Key::keypad6, 88}, Row{"keypad7", Key::keypad7, 89},
        Row{"keypad8", Key::keypad8, 91}, Row{"keypad9", Key::keypad9, 92},
        Row{"keypadClear", Key::keypadClear, 71}, Row{"keypadDecimal", Key::keypadDecimal, 65},
        Row{"keypadDivide", Key::keypadDivide, 75}, Row{"keypadEnter", Key::keypadEnter, 76},
        Row{"keypadEquals", Key::keypadEquals, 81}, Row{"keypadMinus", Key::keypadMinus, 78},
        Row{"keypadMultiply", Key::keypadMultiply, 67}, Row{"keypadPlus", Key::keypadPlus, 69}));

TEST(Key, anyNumberIsAKey)
{
    const Key key{70000};

    EXPECT_EQ(key.rawValue, 70000);
    EXPECT_NE(key, Key::a);
    EXPECT_EQ(Key{0}, Key::a);
}
