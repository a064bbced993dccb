// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/ShortcutText.h"

#include "tests/fakes/FakeKeyboardLayout.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace KeyboardShortcuts;

namespace {

struct Row
{
    qint64 keyCode;
    const char16_t *text;

    friend void PrintTo(const Row &row, std::ostream *out) { *out << "key code " << row.keyCode; }
};

class SpecialKeyTest : public ::testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(SpecialKeyTest, hasItsText)
{
    EXPECT_EQ(displayedKeyText(GetParam().keyCode, nullptr), QString::fromUtf16(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    EveryRow, SpecialKeyTest,
    ::testing::Values(
        Row{36, u"\u21A9"}, Row{51, u"\u232B"}, Row{117, u"\u2326"}, Row{119, u"\u2198"},
        Row{53, u"\u238B"}, Row{114, u"?\u20DD"}, Row{115, u"\u2196"}, Row{49, u"Space"},
        Row{48, u"\u21E5"}, Row{116, u"\u21DE"}, Row{121, u"\u21DF"}, Row{126, u"\u2191"},
        Row{124, u"\u2192"}, Row{125, u"\u2193"}, Row{123, u"\u2190"}, Row{122, u"F1"},
        Row{120, u"F2"}, Row{99, u"F3"}, Row{118, u"F4"}, Row{96, u"F5"}, Row{97, u"F6"},
        Row{98, u"F7"}, Row{100, u"F8"}, Row{101, u"F9"}, Row{109, u"F10"}, Row{103, u"F11"},
        Row{111, u"F12"}, Row{105, u"F13"}, Row{107, u"F14"}, Row{113, u"F15"}, Row{106, u"F16"},
        Row{64, u"F17"}, Row{79, u"F18"}, Row{80, u"F19"}, Row{90, u"F20"}, Row{82, u"0\u20E3"},
        Row{83, u"1\u20E3"}, Row{84, u"2\u20E3"}, Row{85, u"3\u20E3"}, Row{86, u"4\u20E3"},
        Row{87, u"5\u20E3"}, Row{88, u"6\u20E3"}, Row{89, u"7\u20E3"}, Row{91, u"8\u20E3"},
        Row{92, u"9\u20E3"}, Row{71, u"\u2612\u20E3"}, Row{65, u".\u20E3"}, Row{75, u"/\u20E3"},
        Row{76, u"\u21A9\u20E3"}, Row{81, u"=\u20E3"}, Row{78, u"-\u20E3"}, Row{67, u"*\u20E3"},
        Row{69, u"+\u20E3"}));

TEST(ShortcutText, theTableHasFiftyThreeRows)
{
    EXPECT_EQ(kSpecialKeys.size(), 53U);
}

TEST(ShortcutText, modifierSymbolsHaveAFixedOrder)
{
    const Modifiers all = Modifier::Function | Modifier::Command | Modifier::Shift |
                          Modifier::Option | Modifier::Control | Modifier::CapsLock |
                          Modifier::NumericPad | Modifier::Help;

    EXPECT_EQ(modifierSymbols(all),
              QString::fromUtf16(u"\u2303\u2325\u21E7\u2318\U0001F310\uFE0E"));
}

TEST(ShortcutText, eachModifierHasItsOwnSymbol)
{
    EXPECT_EQ(modifierSymbols(Modifier::Control), QString::fromUtf16(u"\u2303"));
    EXPECT_EQ(modifierSymbols(Modifier::Option), QString::fromUtf16(u"\u2325"));
    EXPECT_EQ(modifierSymbols(Modifier::Shift), QString::fromUtf16(u"\u21E7"));
    EXPECT_EQ(modifierSymbols(Modifier::Command), QString::fromUtf16(u"\u2318"));
    EXPECT_EQ(modifierSymbols(Modifier::Function), QString::fromUtf16(u"\U0001F310\uFE0E"));
    EXPECT_EQ(modifierSymbols({}), QString());
}

TEST(ShortcutText, aSpecialKeyDoesNotAskTheLayout)
{
    FakeKeyboardLayout layout;
    layout.texts.insert(49, QStringLiteral("wrong"));

    EXPECT_EQ(displayedKeyText(49, &layout), QStringLiteral("Space"));
}

TEST(ShortcutText, theLayoutNamesTheOtherKeys)
{
    FakeKeyboardLayout layout;

    EXPECT_EQ(keyText(9, &layout), QStringLiteral("v"));
    EXPECT_EQ(displayedKeyText(9, &layout), QStringLiteral("V"));
}

TEST(ShortcutText, aKeyWithoutLayoutTextShowsTheReplacementCharacter)
{
    FakeKeyboardLayout layout;

    EXPECT_EQ(keyText(200, &layout), std::nullopt);
    EXPECT_EQ(displayedKeyText(200, &layout), QString(QChar(0xFFFD)));
    EXPECT_EQ(displayedKeyText(9, nullptr), QString(QChar(0xFFFD)));
}

TEST(ShortcutText, aNumberThatIsNoKeyCodeNeverReachesTheLayout)
{
    FakeKeyboardLayout layout;
    layout.texts.insert(0, QStringLiteral("a"));
    layout.texts.insert(-1, QStringLiteral("minus"));

    for (const qint64 code :
         {qint64(-1), qint64(0x10000), qint64(1) << 32, std::numeric_limits<qint64>::min()}) {
        EXPECT_EQ(displayedKeyText(code, &layout), QString(QChar(0xFFFD))) << code;
    }
}

TEST(ShortcutText, capitalisingChangesTheFirstLetterOfEachWordOnly)
{
    EXPECT_EQ(capitalised(QStringLiteral("v")), QStringLiteral("V"));
    EXPECT_EQ(capitalised(QStringLiteral("mcDonald page up")), QStringLiteral("McDonald Page Up"));
    EXPECT_EQ(capitalised(QStringLiteral("öl")), QStringLiteral("Öl"));
    EXPECT_EQ(capitalised(QStringLiteral("F12")), QStringLiteral("F12"));
    EXPECT_EQ(capitalised(QStringLiteral("^")), QStringLiteral("^"));
    EXPECT_EQ(capitalised(QString()), QString());
}

TEST(ShortcutText, lettersOutsideTheBasicPlaneAreCapitalisedToo)
{
    const char32_t small = 0x10428;
    const char32_t capital = 0x10400;

    EXPECT_EQ(capitalised(QString::fromUcs4(&small, 1)), QString::fromUcs4(&capital, 1));
}
