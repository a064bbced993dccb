// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/RowText.h"

#include "Quillery_Mac/store/TextPreview.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace {

RowText history(const QByteArray &text)
{
    return historyRowText(makeTextPreview(text, text.size()));
}

RowText titled(const QString &title, const QByteArray &text)
{
    return titleRowText(title, makeTextPreview(text, text.size()));
}

} // namespace

TEST(RowText, everyLineBreakBecomesASign)
{
    EXPECT_EQ(history("SELECT id\nFROM snippet\r\nLIMIT 1").text,
              QStringLiteral("SELECT id \u21b5 FROM snippet \u21b5 LIMIT 1"));
    EXPECT_EQ(oneLine(QStringLiteral("a\u2028b\u2029c\rd")),
              QStringLiteral("a \u21b5 b \u21b5 c \u21b5 d"));
}

TEST(RowText, runsOfBlanksAndTabsBecomeOneBlank)
{
    EXPECT_EQ(history("a \t  b\n\t\tc  ").text, QStringLiteral("a b \u21b5 c"));
}

TEST(RowText, leadingBlankLinesGo)
{
    EXPECT_EQ(history("\n \t\n\r\n  a\nb").text, QStringLiteral("a \u21b5 b"));
}

TEST(RowText, aTextOfBlanksOnlyIsNamedSo)
{
    EXPECT_EQ(history(" \t\n ").text, QStringLiteral("Blank text"));
    EXPECT_TRUE(history(" \t\n ").isQuiet);
    EXPECT_EQ(history("").text, QStringLiteral("Blank text"));
    EXPECT_FALSE(history("a").isQuiet);
}

TEST(RowText, atMostTheFirstThreeHundredCharactersAreLaidOut)
{
    EXPECT_EQ(history(QByteArray(300, 'x')).text.size(), 300);
    EXPECT_EQ(history(QByteArray(301, 'x')).text.size(), 300);
    EXPECT_EQ(history(QByteArray(5000, 'x')).text.size(), 300);
}

TEST(RowText, aCharacterOfTwoHalvesIsNotCutInTwo)
{
    const QByteArray cake("\xf0\x9f\x8d\xb0");
    const QString text = history(QByteArray(299, 'x') + cake).text;
    EXPECT_EQ(text.size(), 299);
    EXPECT_FALSE(text.back().isHighSurrogate());
}

TEST(RowText, controlCharactersAreLeftOut)
{
    EXPECT_EQ(history(QByteArray("a\0b\x1b[0m", 7)).text, QStringLiteral("ab[0m"));
}

TEST(RowText, theTallyBeginsAtTwoLinesAndEndsAtNinetyNine)
{
    EXPECT_EQ(history("one").tally, QString());
    EXPECT_EQ(history("one\ntwo\nthree").tally, QStringLiteral("3 lines"));
    EXPECT_EQ(history(QByteArray("x\n").repeated(98) + "x").tally, QStringLiteral("99 lines"));
    EXPECT_EQ(history(QByteArray("x\n").repeated(99) + "x").tally, QStringLiteral("99+ lines"));
}

TEST(RowText, theTallyOfALongTextDoesNotPretendToBeExact)
{
    const QByteArray text = QByteArray(3000, 'x') + "\nb\n" + QByteArray(9000, 'x');
    EXPECT_EQ(history(text).tally, QStringLiteral("3+ lines"));
}

TEST(RowText, aRowWithoutTitleShowsTheFirstLineOfItsText)
{
    const RowText row = titled(QString(), " \nFirst line\nSecond");
    EXPECT_EQ(row.text, QStringLiteral("First line"));
    EXPECT_TRUE(row.isQuiet);
}

TEST(RowText, aRowWithoutTitleAndTextIsUntitled)
{
    EXPECT_EQ(titled(QString(), "").text, QStringLiteral("Untitled"));
    EXPECT_EQ(titled(QStringLiteral("  "), " \n").text, QStringLiteral("Blank text"));
}

TEST(RowText, aTitleIsShownAsItStands)
{
    const RowText row = titled(QStringLiteral("Signature"), "text");
    EXPECT_EQ(row.text, QStringLiteral("Signature"));
    EXPECT_FALSE(row.isQuiet);
    EXPECT_TRUE(row.tally.isEmpty());
}
