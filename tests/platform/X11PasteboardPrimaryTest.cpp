// SPDX-License-Identifier: MIT
// The primary selection becomes the pasteboard's text when it is asked for, and only then.
#include "tests/platform/PasteboardFixture.h"

#include <QDeadlineTimer>

#include <algorithm>

using Request = xcb_selection_request_event_t;

class X11PasteboardPrimary : public PasteboardFixture
{
protected:
    X11PasteboardPrimary()
    {
        peer.offerText("copied");
        peer.own("CLIPBOARD");
        EXPECT_TRUE(waitForString("copied"));
        before = pasteboard->changeCount();
    }

    /// Copies, as another program, and waits until it is noticed: whatever came before is over.
    void expectOnlyTheNextCopyCounts()
    {
        SelectionPeer next(display.name());
        next.offerText("next");
        next.own("CLIPBOARD");
        ASSERT_TRUE(waitForString("next"));
        EXPECT_EQ(pasteboard->changeCount(), before + 1);
    }

    /// Waits until the selecting program was asked for this target.
    bool waitForAsked(const QByteArray &target)
    {
        return waitFor(
            [&] { return std::count(selecting.asked.begin(), selecting.asked.end(), target) > 0; });
    }

    void keepSilentAbout(const QByteArray &silent)
    {
        selecting.intercept = [this, silent](const Request &request, const QByteArray &target) {
            if (target == silent)
                kept = request;
            return target == silent;
        };
    }

    SelectionPeer selecting{display.name()};
    std::optional<Request> kept;
    qint64 before = 0;
};

TEST_F(X11PasteboardPrimary, adoptingTheSelectionIsOneChangeThatHasItsText)
{
    selecting.offerText("selected \xE2\x82\xAC");
    selecting.own("PRIMARY");
    std::vector<std::pair<qint64, std::optional<QByteArray>>> seen;
    QObject::connect(pasteboard.get(), &platform::Pasteboard::changed, pasteboard.get(),
                     [&] { seen.emplace_back(pasteboard->changeCount(), pasteboard->string()); });

    pasteboard->adoptPrimary();

    ASSERT_TRUE(waitForChangeAfter(before));
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen.front().second, "selected \xE2\x82\xAC");
    ASSERT_TRUE(waitForOurs("CLIPBOARD"));
    EXPECT_EQ(selecting.fetchText(), "selected \xE2\x82\xAC");
    // The selection itself stays where it is.
    EXPECT_EQ(selecting.ownerOf("PRIMARY"), selecting.window());
}

TEST_F(X11PasteboardPrimary, aLongSelectionIsAdoptedWhole)
{
    const QByteArray text = QByteArray("0123456789abcdef").repeated(10000);
    selecting.offerText(text);
    selecting.own("PRIMARY");

    pasteboard->adoptPrimary();

    EXPECT_TRUE(waitForString(text));
}

TEST_F(X11PasteboardPrimary, withoutASelectionNothingChanges)
{
    ASSERT_EQ(selecting.ownerOf("PRIMARY"), XCB_NONE);

    pasteboard->adoptPrimary();

    expectOnlyTheNextCopyCounts();
}

TEST_F(X11PasteboardPrimary, aSelectedImageChangesNothing)
{
    selecting.offer({{"image/png", {"image/png", 8, "\x89PNG"}}});
    selecting.own("PRIMARY");

    pasteboard->adoptPrimary();

    ASSERT_TRUE(waitForAsked("TARGETS"));
    expectOnlyTheNextCopyCounts();
}

TEST_F(X11PasteboardPrimary, anEmptySelectionChangesNothing)
{
    selecting.offerText("");
    selecting.own("PRIMARY");

    pasteboard->adoptPrimary();

    ASSERT_TRUE(waitForAsked("UTF8_STRING"));
    expectOnlyTheNextCopyCounts();
}

TEST_F(X11PasteboardPrimary, aConcealedSelectionIsNeverAskedForItsText)
{
    selecting.offer({{"UTF8_STRING", {"UTF8_STRING", 8, "hunter2"}},
                     {"x-kde-passwordManagerHint", {"x-kde-passwordManagerHint", 8, "secret"}}});
    selecting.own("PRIMARY");

    pasteboard->adoptPrimary();

    ASSERT_TRUE(waitForAsked("x-kde-passwordManagerHint"));
    expectOnlyTheNextCopyCounts();
    EXPECT_EQ(std::count(selecting.asked.begin(), selecting.asked.end(), "UTF8_STRING"), 0);
}

TEST_F(X11PasteboardPrimary, aSelectionThatIsDeliveredAfterTheDeadlineIsNotAdopted)
{
    selecting.offerText("late");
    selecting.own("PRIMARY");
    keepSilentAbout("UTF8_STRING");
    pasteboard->adoptPrimary();
    ASSERT_TRUE(waitFor([this] { return kept.has_value(); }));
    const QDeadlineTimer deadline(2 * kStep);
    ASSERT_TRUE(waitFor([&] { return deadline.hasExpired(); }));

    selecting.answer(*kept, {"UTF8_STRING", 8, "late"});

    expectOnlyTheNextCopyCounts();
}

TEST_F(X11PasteboardPrimary, aCopyWhileTheSelectionIsReadWins)
{
    selecting.offerText("selected");
    selecting.own("PRIMARY");
    keepSilentAbout("UTF8_STRING");
    pasteboard->adoptPrimary();
    ASSERT_TRUE(waitFor([this] { return kept.has_value(); }));

    SelectionPeer copying(display.name());
    copying.offerText("newer");
    copying.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("newer"));
    selecting.answer(*kept, {"UTF8_STRING", 8, "selected"});

    copying.offerText("last");
    copying.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("last"));
    EXPECT_EQ(pasteboard->changeCount(), before + 2);
}

TEST_F(X11PasteboardPrimary, ourOwnCopyWhileTheSelectionIsReadWins)
{
    selecting.offerText("selected");
    selecting.own("PRIMARY");
    keepSilentAbout("UTF8_STRING");
    pasteboard->adoptPrimary();
    ASSERT_TRUE(waitFor([this] { return kept.has_value(); }));

    write("ours");
    selecting.answer(*kept, {"UTF8_STRING", 8, "selected"});

    before = pasteboard->changeCount();
    expectOnlyTheNextCopyCounts();
}

TEST_F(X11PasteboardPrimary, anUnreadableCopyDoesNotKeepTheSelectionFromBeingAdopted)
{
    peer.intercept = [](const Request &, const QByteArray &) { return true; };
    peer.asked.clear();
    peer.own("CLIPBOARD");
    ASSERT_TRUE(waitFor([this] { return !peer.asked.empty(); }));
    selecting.offerText("selected");
    selecting.own("PRIMARY");

    pasteboard->adoptPrimary();

    EXPECT_TRUE(waitForString("selected"));
}

TEST_F(X11PasteboardPrimary, whatWeOfferAsTheSelectionCanBeAdoptedToo)
{
    pasteboard->offerAsPrimary();
    ASSERT_TRUE(waitForOurs("PRIMARY"));

    pasteboard->adoptPrimary();

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), "copied");
}

TEST_F(X11PasteboardPrimary, aSelectionByXclipIsAdopted)
{
    display.run(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("primary")},
                "from xclip \xE2\x82\xAC");

    pasteboard->adoptPrimary();

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), "from xclip \xE2\x82\xAC");
}
