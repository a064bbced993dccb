// SPDX-License-Identifier: MIT
#include "platform/pasteboard/TextAssembler.h"

#include <QString>

#include <gtest/gtest.h>

using platform::TextAssembler;

namespace {

/// The text put together from pieces of `pieceLength` bytes.
QByteArray assemble(QByteArrayView bytes, qsizetype pieceLength,
                    TextAssembler::Encoding encoding = TextAssembler::Encoding::Utf8)
{
    TextAssembler assembler(encoding);
    for (qsizetype start = 0; start < bytes.size(); start += pieceLength)
        assembler.append(bytes.sliced(start, std::min(pieceLength, bytes.size() - start)));
    return assembler.finish();
}

struct Repair
{
    QByteArray given;
    QByteArray expected;
};

const QByteArray kFffd = "\xEF\xBF\xBD";

} // namespace

class TextAssemblerRepair : public ::testing::TestWithParam<Repair>
{
};

TEST_P(TextAssemblerRepair, givesTheSameTextHoweverThePiecesAreCut)
{
    const Repair &row = GetParam();
    for (qsizetype length = 1; length <= row.given.size(); ++length)
        EXPECT_EQ(assemble(row.given, length), row.expected) << "pieces of " << length;
}

INSTANTIATE_TEST_SUITE_P(
    Utf8, TextAssemblerRepair,
    ::testing::Values(Repair{"plain", "plain"}, Repair{"gr\xC3\xBC\xC3\x9F", "gr\xC3\xBC\xC3\x9F"},
                      Repair{"\xF0\x9F\x98\x80 smile", "\xF0\x9F\x98\x80 smile"},
                      Repair{QByteArray("a\0b", 3), QByteArray("a\0b", 3)},
                      Repair{"\xEF\xBB\xBF"
                             "bom",
                             "\xEF\xBB\xBF"
                             "bom"},
                      Repair{"a\xFFz", "a" + kFffd + "z"},             // never a byte of UTF-8
                      Repair{"a\x80z", "a" + kFffd + "z"},             // continues nothing
                      Repair{"a\xC3(z", "a" + kFffd + "(z"},           // not continued
                      Repair{"a\xE2\x82z", "a" + kFffd + "z"},         // one for a maximal part
                      Repair{"a\xF0\x9F\x98z", "a" + kFffd + "z"},     // the same with four bytes
                      Repair{"a\xC0\x80z", "a" + kFffd + kFffd + "z"}, // overlong
                      Repair{"a\xE0\x80\x80z", "a" + kFffd + kFffd + kFffd + "z"},
                      Repair{"a\xED\xA0\x80z", "a" + kFffd + kFffd + kFffd + "z"}, // surrogate
                      Repair{"a\xF4\x90\x80\x80z",
                             "a" + kFffd + kFffd + kFffd + kFffd + "z"}, // too large
                      Repair{"cut\xF0\x9F", "cut" + kFffd}, Repair{"cut\xC3", "cut" + kFffd}));

TEST(TextAssembler, anythingItGivesIsValidUtf8)
{
    QByteArray everyPair;
    for (int first = 0x7F; first < 0x100; ++first) {
        for (int second = 0x7F; second < 0x100; ++second)
            everyPair.append(char(first)).append(char(second));
    }

    for (const qsizetype length : {1, 2, 3, 5, 4096})
        EXPECT_TRUE(assemble(everyPair, length).isValidUtf8());
}

TEST(TextAssembler, everyCharacterComesThroughUnchanged)
{
    QByteArray all;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character < 0xD800 || character > 0xDFFF)
            all += QString::fromUcs4(&character, 1).toUtf8();
    }

    EXPECT_EQ(assemble(all, 4099), all);
}

TEST(TextAssembler, latin1BecomesUtf8)
{
    EXPECT_EQ(assemble("gr\xFC\xDF", 1, TextAssembler::Encoding::Latin1), "gr\xC3\xBC\xC3\x9F");
}

TEST(TextAssembler, compoundTextIsReadAcrossItsSegments)
{
    const QByteArray given = "gr\xFC \x1B-F\xE1\x1B-A \x1B%G\xE2\x82\xAC\x1B%@ end";

    EXPECT_EQ(assemble(given, 3, TextAssembler::Encoding::CompoundText),
              "gr\xC3\xBC \xCE\xB1 \xE2\x82\xAC end");
}

TEST(TextAssembler, brokenCompoundTextIsReplacedNotDropped)
{
    const QByteArray given = assemble("a\x1B%Gb\xFF", 2, TextAssembler::Encoding::CompoundText);

    EXPECT_EQ(given, "ab" + kFffd);
}

TEST(TextAssembler, noPieceAtAllIsTheEmptyText)
{
    EXPECT_EQ(TextAssembler(TextAssembler::Encoding::Utf8).finish(), QByteArray());
}
