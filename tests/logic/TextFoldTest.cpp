// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/TextFold.h"

#include <gtest/gtest.h>

namespace {

class TextFoldTest : public ::testing::Test
{
protected:
    bool contains(const char8_t *text, const char8_t *part)
    {
        return folded(text).contains(folded(part));
    }
    QByteArray folded(const char8_t *text) { return fold.folded(QString::fromUtf8(text)); }

    TextFold fold{QLocale(QLocale::English)};
};

} // namespace

TEST_F(TextFoldTest, caseIsIgnored)
{
    EXPECT_TRUE(contains(u8"Hello World", u8"O wOR"));
    EXPECT_TRUE(contains(u8"ΣΊΣΥΦΟΣ", u8"σίσυφος"));
    EXPECT_TRUE(contains(u8"Straße", u8"STRASSE"));
}

TEST_F(TextFoldTest, accentsAreIgnoredOnBothSides)
{
    EXPECT_TRUE(contains(u8"Café", u8"cafe"));
    EXPECT_TRUE(contains(u8"CAFE", u8"café"));
    EXPECT_TRUE(contains(u8"Tiếng Việt", u8"tieng viet"));
}

TEST_F(TextFoldTest, decomposedAccentsAreTheSameAsComposedOnes)
{
    EXPECT_EQ(folded(u8"e\u0301a\u0308"), folded(u8"éä"));
}

TEST_F(TextFoldTest, widthIsIgnored)
{
    EXPECT_TRUE(contains(u8"ＡＢＣ１２３", u8"abc123"));
    EXPECT_TRUE(contains(u8"ガギ", u8"ｶﾞｷﾞ"));
}

TEST_F(TextFoldTest, marksThatMakeAnotherLetterCount)
{
    EXPECT_FALSE(contains(u8"か", u8"が"));
    EXPECT_FALSE(contains(u8"한글", u8"하"));
}

TEST_F(TextFoldTest, decomposedHangulIsTheSameAsSyllables)
{
    EXPECT_EQ(folded(u8"\u1112\u1161\u11ab"), folded(u8"한"));
}

TEST_F(TextFoldTest, charactersThatAreNotSeenAreIgnored)
{
    EXPECT_EQ(folded(u8"❤\uFE0F"), folded(u8"❤"));
    EXPECT_EQ(folded(u8"co\u00ADop"), folded(u8"coop"));
}

TEST_F(TextFoldTest, theDottedAndTheDotlessIAreTwoLettersInTurkish)
{
    TextFold turkish{QLocale(QLocale::Turkish)};

    EXPECT_EQ(turkish.folded(QStringLiteral("I")), turkish.folded(QStringLiteral("ı")));
    EXPECT_EQ(turkish.folded(QStringLiteral("İ")), turkish.folded(QStringLiteral("i")));
    EXPECT_NE(turkish.folded(QStringLiteral("I")), turkish.folded(QStringLiteral("i")));
}

TEST_F(TextFoldTest, elsewhereBothCapitalsAreTheSameLetter)
{
    EXPECT_EQ(folded(u8"I"), folded(u8"i"));
    EXPECT_EQ(folded(u8"İ"), folded(u8"i"));
}

TEST_F(TextFoldTest, invalidBytesAreAReplacementCharacterAndZeroBytesStay)
{
    EXPECT_EQ(fold.foldedUtf8(QByteArrayView("A\xFF"
                                             "B")),
              QByteArray("a\xEF\xBF\xBD"
                         "b"));
    EXPECT_EQ(fold.foldedUtf8(QByteArrayView("A\0B", 3)), QByteArray("a\0b", 3));
}

TEST_F(TextFoldTest, aCharacterAcrossAPieceOfALongTextStaysWhole)
{
    const QByteArray text = QByteArray(64 * 1024 - 1, 'x') + QByteArray("\xC3\x89");

    EXPECT_TRUE(fold.foldedUtf8(text).endsWith("xe"));
}

TEST_F(TextFoldTest, charactersBeyondTheFirstPlaneAreFolded)
{
    EXPECT_EQ(folded(u8"𝐀😀"), folded(u8"a😀"));
    EXPECT_NE(folded(u8"😀"), folded(u8"😁"));
}
