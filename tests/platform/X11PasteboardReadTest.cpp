// SPDX-License-Identifier: MIT
// What the pasteboard makes of owners that behave.
#include "tests/platform/PasteboardFixture.h"

#include <QSignalSpy>

using X11PasteboardRead = PasteboardFixture;
using Value = SelectionPeer::Value;

TEST_F(X11PasteboardRead, aCopyIsPublishedTogetherWithItsCount)
{
    const qint64 before = pasteboard->changeCount();
    std::vector<std::pair<qint64, std::optional<QByteArray>>> seen;
    QObject::connect(pasteboard.get(), &platform::Pasteboard::changed, pasteboard.get(),
                     [&] { seen.emplace_back(pasteboard->changeCount(), pasteboard->string()); });

    peer.offerText("first");
    peer.own("CLIPBOARD");
    ASSERT_TRUE(waitForChangeAfter(before));

    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen.front().first, before + 1);
    EXPECT_EQ(seen.front().second, "first");
}

TEST_F(X11PasteboardRead, theSameTextAgainIsAnotherChange)
{
    const qint64 before = pasteboard->changeCount();
    peer.offerText("same");
    peer.own("CLIPBOARD");
    ASSERT_TRUE(waitForChangeAfter(before));

    peer.own("CLIPBOARD");

    ASSERT_TRUE(waitForChangeAfter(before + 1));
    EXPECT_EQ(pasteboard->string(), "same");
}

TEST_F(X11PasteboardRead, whatWasThereAtTheStartIsReadButNotCounted)
{
    pasteboard.reset();
    peer.offerText("from before");
    peer.own("CLIPBOARD");

    startPasteboard();

    ASSERT_TRUE(waitForString("from before"));
    EXPECT_EQ(pasteboard->changeCount(), 0);
}

TEST_F(X11PasteboardRead, anEmptyTextIsATextAndAChange)
{
    const qint64 before = pasteboard->changeCount();
    peer.offerText("");
    peer.own("CLIPBOARD");

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), QByteArray(""));
    EXPECT_TRUE(pasteboard->string().has_value());
}

TEST_F(X11PasteboardRead, anImageIsAChangeWithoutText)
{
    const qint64 before = pasteboard->changeCount();
    peer.offer({{"image/png", {"image/png", 8, "\x89PNG"}}});
    peer.own("CLIPBOARD");

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), std::nullopt);
    EXPECT_EQ(peer.asked, std::vector<QByteArray>{"TARGETS"});
}

TEST_F(X11PasteboardRead, aTextWithZeroBytesIsKeptWhole)
{
    const QByteArray text("a\0b\0", 4);
    peer.offerText(text);
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString(text));
}

TEST_F(X11PasteboardRead, bytesThatAreNoUtf8AreReplacedNotDropped)
{
    peer.offerText("a\xFF\xC3(\xE2\x82z\xF0\x9F");
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString("a\xEF\xBF\xBD\xEF\xBF\xBD(\xEF\xBF\xBDz\xEF\xBF\xBD"));
}

struct TextTarget
{
    const char *target;
    const char *type;
    const char *bytes;
    const char *expected;
};

class X11PasteboardTarget : public PasteboardFixture,
                            public ::testing::WithParamInterface<TextTarget>
{
};

TEST_P(X11PasteboardTarget, isReadWhenItIsTheOnlyOne)
{
    const TextTarget &row = GetParam();
    peer.offer({{row.target, {row.type, 8, row.bytes}}});
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString(row.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, X11PasteboardTarget,
    ::testing::Values(
        TextTarget{"UTF8_STRING", "UTF8_STRING", "gr\xC3\xBC\xC3\x9F", "gr\xC3\xBC\xC3\x9F"},
        TextTarget{"text/plain;charset=utf-8", "text/plain;charset=utf-8", "\xE2\x82\xAC",
                   "\xE2\x82\xAC"},
        TextTarget{"STRING", "STRING", "gr\xFC\xDF", "gr\xC3\xBC\xC3\x9F"},
        TextTarget{"COMPOUND_TEXT", "COMPOUND_TEXT", "gr\xFC \x1B%G\xE2\x82\xAC\x1B%@ \x1B-F\xE1",
                   "gr\xC3\xBC \xE2\x82\xAC \xCE\xB1"},
        TextTarget{"text/plain", "text/plain", "plain", "plain"},
        TextTarget{"TEXT", "UTF8_STRING", "any", "any"},
        // An owner may answer a text target with another text type: the type counts.
        TextTarget{"UTF8_STRING", "STRING", "\xFC", "\xC3\xBC"}));

TEST_F(X11PasteboardRead, theBestTargetIsPreferred)
{
    peer.offer({{"STRING", {"STRING", 8, "?"}}, {"UTF8_STRING", {"UTF8_STRING", 8, "\xCE\xB1"}}});
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString("\xCE\xB1"));
}

TEST_F(X11PasteboardRead, theNextTargetIsTriedWhenTheBestIsRefused)
{
    peer.offer({{"STRING", {"STRING", 8, "second"}}, {"UTF8_STRING", {"UTF8_STRING", 8, "first"}}});
    peer.intercept = [&](const auto &request, const QByteArray &target) {
        if (target != "UTF8_STRING")
            return false;
        peer.notify(request, false);
        return true;
    };
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString("second"));
}

TEST_F(X11PasteboardRead, anOwnerThatDoesNotListItsTargetsIsAskedForText)
{
    peer.offerText("unlisted");
    peer.intercept = [&](const auto &request, const QByteArray &target) {
        if (target != "TARGETS")
            return false;
        peer.notify(request, false);
        return true;
    };
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString("unlisted"));
}

TEST_F(X11PasteboardRead, anIncrementalTextIsPutTogether)
{
    QList<QByteArray> increments{"one ", "\xE2\x82", "\xAC two", QByteArray()};
    std::optional<xcb_selection_request_event_t> open;
    peer.offerText("");
    peer.intercept = [&](const auto &request, const QByteArray &target) {
        if (target != "UTF8_STRING")
            return false;
        open = request;
        peer.announceIncrements(request, 1);
        return true;
    };
    peer.incrementTaken = [&](xcb_atom_t property) {
        if (open && open->property == property && !increments.isEmpty())
            peer.put(*open, {"UTF8_STRING", 8, increments.takeFirst()});
    };
    peer.own("CLIPBOARD");

    // The euro sign is cut in two by the increments.
    EXPECT_TRUE(waitForString("one \xE2\x82\xAC two"));
}

TEST_F(X11PasteboardRead, aConcealedCopyIsAChangeWithoutTextThatWasNeverAskedFor)
{
    const qint64 before = pasteboard->changeCount();
    peer.offer({{"UTF8_STRING", {"UTF8_STRING", 8, "hunter2"}},
                {"x-kde-passwordManagerHint", {"x-kde-passwordManagerHint", 8, "secret"}}});
    peer.own("CLIPBOARD");

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), std::nullopt);
    EXPECT_EQ(peer.asked, (std::vector<QByteArray>{"TARGETS", "x-kde-passwordManagerHint"}));
}

TEST_F(X11PasteboardRead, aHintThatSaysSomethingElseDoesNotConceal)
{
    peer.offer({{"UTF8_STRING", {"UTF8_STRING", 8, "open"}},
                {"x-kde-passwordManagerHint", {"x-kde-passwordManagerHint", 8, "public"}}});
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString("open"));
}

TEST_F(X11PasteboardRead, aHintThatIsOfferedButRefusedConceals)
{
    const qint64 before = pasteboard->changeCount();
    peer.offer({{"UTF8_STRING", {"UTF8_STRING", 8, "hunter2"}},
                {"x-kde-passwordManagerHint", {"x-kde-passwordManagerHint", 8, "secret"}}});
    peer.intercept = [&](const auto &request, const QByteArray &target) {
        if (target != "x-kde-passwordManagerHint")
            return false;
        peer.notify(request, false);
        return true;
    };
    peer.own("CLIPBOARD");

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), std::nullopt);
    EXPECT_EQ(std::count(peer.asked.begin(), peer.asked.end(), "UTF8_STRING"), 0);
}

TEST_F(X11PasteboardRead, theConcealedCopyEndsTheTextBefore)
{
    peer.offerText("harmless");
    peer.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("harmless"));
    const qint64 before = pasteboard->changeCount();

    peer.offer({{"x-kde-passwordManagerHint", {"x-kde-passwordManagerHint", 8, "secret"}}});
    peer.own("CLIPBOARD");

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), std::nullopt);
}

TEST_F(X11PasteboardRead, aSelectionWithTheMouseAloneIsNoCopy)
{
    const qint64 before = pasteboard->changeCount();
    peer.offerText("selected");
    peer.own("PRIMARY");
    // The next copy is the proof that the one before was passed over.
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForChangeAfter(before));
}
