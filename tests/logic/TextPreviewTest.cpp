// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/TextPreview.h"

#include "tests/logic/StoreTestSupport.h"

namespace {

class TextPreviewTest : public StoreTest
{
};

TextPreview previewOf(const QByteArray &text)
{
    return makeTextPreview(text, text.size());
}

} // namespace

TEST_F(TextPreviewTest, aShortTextIsShownWhole)
{
    EXPECT_EQ(previewOf("one\ntwo"), (TextPreview{QStringLiteral("one\ntwo"), 2, true}));
    EXPECT_EQ(previewOf(""), (TextPreview{QString(), 0, true}));
}

TEST_F(TextPreviewTest, aLongTextIsCutAndItsLinesAreNotAllCounted)
{
    const TextPreview preview = previewOf(QByteArray(100000, '\n'));

    EXPECT_EQ(preview.start.size(), kPreviewBytes);
    EXPECT_EQ(preview.lineCount, kPreviewBytes + 1);
    EXPECT_FALSE(preview.isLineCountExact);
}

TEST_F(TextPreviewTest, theCutIsBetweenCharacters)
{
    for (const QByteArray &character :
         {QByteArray("\xC3\xA9"), QByteArray("\xE2\x82\xAC"), QByteArray("\xF0\x9F\x98\x80")}) {
        for (int shift = 0; shift < 4; ++shift) {
            const QByteArray text = QByteArray(shift, 'x') + character.repeated(3000);

            EXPECT_FALSE(previewOf(text).start.contains(QChar::ReplacementCharacter));
        }
    }
}

TEST_F(TextPreviewTest, invalidBytesShowAsReplacementCharacters)
{
    EXPECT_EQ(previewOf("a\xFF"
                        "b")
                  .start,
              QStringLiteral("a\uFFFDb"));
    EXPECT_TRUE(previewOf(QByteArray(5000, '\x80')).start.contains(QChar::ReplacementCharacter));
}

TEST_F(TextPreviewTest, anObjectShowsItsUnsavedAndItsSavedText)
{
    Snippet *snippet = addSnippet(QStringLiteral("a"), 1, "unsaved");
    EXPECT_EQ(snippet->preview().start, QStringLiteral("unsaved"));
    ASSERT_TRUE(view().save());
    EXPECT_EQ(snippet->preview().start, QStringLiteral("unsaved"));

    snippet->setContent("changed\n");
    EXPECT_EQ(snippet->preview(), (TextPreview{QStringLiteral("changed\n"), 2, true}));
    ASSERT_TRUE(view().save());
    EXPECT_EQ(snippet->preview(), (TextPreview{QStringLiteral("changed\n"), 2, true}));

    snippet->setContent(std::nullopt);
    EXPECT_EQ(snippet->preview(), TextPreview());
}

TEST_F(TextPreviewTest, aTextOf50MegabytesIsPreviewedByItsStart)
{
    view().insert<Clip>()->setContent(QByteArray(50 << 20, 'x'));
    ASSERT_TRUE(view().save());
    open();

    const TextPreview preview = view().fetch<Clip>().at(0)->preview();

    EXPECT_EQ(preview.start, QString(kPreviewBytes, u'x'));
    EXPECT_FALSE(preview.isLineCountExact);
}
