// SPDX-License-Identifier: MIT
#include "platform/pasteboard/OutgoingText.h"

#include <gtest/gtest.h>

#include <vector>

using platform::OutgoingText;

namespace {

std::vector<QByteArray> parts(const QByteArray &utf8, OutgoingText::Encoding encoding,
                              qsizetype maxBytes)
{
    OutgoingText text(utf8, encoding);
    std::vector<QByteArray> all;
    while (text.remaining() > 0)
        all.push_back(text.next(maxBytes));
    return all;
}

} // namespace

TEST(OutgoingText, isCutBetweenCharactersOnly)
{
    const QByteArray text = "a\xE2\x82\xAC\xF0\x9F\x98\x80z";

    EXPECT_EQ(parts(text, OutgoingText::Encoding::Utf8, 4),
              (std::vector<QByteArray>{"a\xE2\x82\xAC", "\xF0\x9F\x98\x80", "z"}));
    EXPECT_EQ(parts(text, OutgoingText::Encoding::Utf8, 5),
              (std::vector<QByteArray>{"a\xE2\x82\xAC", "\xF0\x9F\x98\x80z"}));
}

TEST(OutgoingText, whatLatin1DoesNotHaveBecomesAQuestionMark)
{
    EXPECT_EQ(parts("\xC3\xBC\xE2\x82\xAC", OutgoingText::Encoding::Latin1, 100),
              std::vector<QByteArray>{"\xFC?"});
}

TEST(OutgoingText, endsWithAnEmptyPart)
{
    OutgoingText text("ab", OutgoingText::Encoding::Utf8);
    EXPECT_EQ(text.next(100), "ab");

    EXPECT_EQ(text.next(100), QByteArray());
    EXPECT_EQ(text.remaining(), 0);
}
