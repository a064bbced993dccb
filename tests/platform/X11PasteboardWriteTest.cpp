// SPDX-License-Identifier: MIT
// What other programs get from us.
#include "tests/platform/PasteboardFixture.h"

#include <cstring>

namespace {

std::vector<quint32> numbersIn(const QByteArray &bytes)
{
    std::vector<quint32> numbers(std::size_t(bytes.size()) / sizeof(quint32));
    if (!numbers.empty())
        std::memcpy(numbers.data(), bytes.constData(), std::size_t(bytes.size()));
    return numbers;
}

} // namespace

class X11PasteboardWrite : public PasteboardFixture
{
protected:
    std::vector<QByteArray> offeredTargets()
    {
        const auto value = peer.fetch("CLIPBOARD", "TARGETS");
        std::vector<QByteArray> names;
        if (value) {
            for (const quint32 atom : numbersIn(value->bytes))
                names.push_back(peer.nameOf(atom));
        }
        return names;
    }

    quint32 timestamp(const QByteArray &selection)
    {
        const auto value = peer.fetch(selection, "TIMESTAMP");
        return value && value->bytes.size() == 4 ? numbersIn(value->bytes).front() : 0;
    }
};

TEST_F(X11PasteboardWrite, ourOwnChangeIsPublishedAtOnce)
{
    const qint64 before = pasteboard->changeCount();

    pasteboard->clearContents();
    EXPECT_EQ(pasteboard->changeCount(), before + 1);
    EXPECT_EQ(pasteboard->string(), std::nullopt);

    EXPECT_TRUE(pasteboard->setString("ours"));
    EXPECT_EQ(pasteboard->changeCount(), before + 1);
    EXPECT_EQ(pasteboard->string(), "ours");
}

TEST_F(X11PasteboardWrite, ourOwnChangeIsCountedOnceOnly)
{
    const qint64 before = pasteboard->changeCount();
    write("ours");
    // The answer to a request comes after the server's notice of our own change.
    ASSERT_EQ(peer.fetchText(), "ours");

    EXPECT_EQ(pasteboard->changeCount(), before + 1);
    EXPECT_EQ(pasteboard->string(), "ours");
}

TEST_F(X11PasteboardWrite, everyTextTargetIsServed)
{
    write("gr\xC3\xBC\xE2\x82\xAC");

    EXPECT_EQ(peer.fetchText("UTF8_STRING"), "gr\xC3\xBC\xE2\x82\xAC");
    EXPECT_EQ(peer.fetchText("text/plain;charset=utf-8"), "gr\xC3\xBC\xE2\x82\xAC");
    EXPECT_EQ(peer.fetchText("text/plain"), "gr\xC3\xBC\xE2\x82\xAC");
    EXPECT_EQ(peer.fetchText("TEXT"), "gr\xC3\xBC\xE2\x82\xAC");
    EXPECT_EQ(peer.fetchText("STRING"), "gr\xFC?"); // Latin-1 has no euro sign
    EXPECT_EQ(peer.fetchText("image/png"), std::nullopt);
}

TEST_F(X11PasteboardWrite, targetsListsWhatIsServed)
{
    write("text");

    EXPECT_EQ(
        offeredTargets(),
        (std::vector<QByteArray>{"TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS", "UTF8_STRING",
                                 "text/plain;charset=utf-8", "text/plain", "STRING", "TEXT"}));
}

TEST_F(X11PasteboardWrite, aClearedPasteboardOffersNoText)
{
    write("text");
    pasteboard->clearContents();

    EXPECT_EQ(peer.fetchText(), std::nullopt);
    EXPECT_EQ(offeredTargets(),
              (std::vector<QByteArray>{"TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS"}));
}

TEST_F(X11PasteboardWrite, theEmptyTextIsServedAsEmptyText)
{
    write("");

    EXPECT_EQ(pasteboard->string(), QByteArray(""));
    EXPECT_EQ(peer.fetchText(), QByteArray(""));
}

TEST_F(X11PasteboardWrite, zeroBytesAreServedUnchanged)
{
    const QByteArray text("a\0b\0", 4);
    write(text);

    EXPECT_EQ(peer.fetchText(), text);
}

TEST_F(X11PasteboardWrite, aStringWithoutClearingTakesThePasteboardOverFirst)
{
    peer.offerText("theirs");
    peer.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("theirs"));
    const qint64 before = pasteboard->changeCount();

    EXPECT_TRUE(pasteboard->setString("ours"));

    EXPECT_EQ(pasteboard->changeCount(), before + 1);
    ASSERT_TRUE(waitForOurs("CLIPBOARD"));
    EXPECT_EQ(peer.fetchText(), "ours");
}

TEST_F(X11PasteboardWrite, severalTargetsAreServedInOneRequest)
{
    write("text");
    const auto pairs =
        SelectionPeer::atoms(peer, {"UTF8_STRING", "A", "image/png", "B", "STRING", "C"});
    const xcb_atom_t list = peer.atom("PAIRS");
    peer.setProperty(list, {"ATOM_PAIR", 32, pairs.bytes});

    xcb_convert_selection(peer.xcb(), peer.window(), peer.atom("CLIPBOARD"), peer.atom("MULTIPLE"),
                          list, XCB_CURRENT_TIME);
    xcb_flush(peer.xcb());
    ASSERT_TRUE(waitFor([&] {
        const auto answered = peer.property(list, false);
        return answered && numbersIn(answered->bytes).at(2) == XCB_NONE;
    }));

    EXPECT_EQ(peer.property(peer.atom("A"), true)->bytes, "text");
    EXPECT_EQ(peer.property(peer.atom("B"), true), std::nullopt);
    EXPECT_EQ(peer.property(peer.atom("C"), true)->type, "STRING");
    const auto answered = numbersIn(peer.property(list, true)->bytes);
    EXPECT_EQ(answered.at(0), peer.atom("UTF8_STRING"));
    EXPECT_EQ(answered.at(2), xcb_atom_t(XCB_NONE));
}

TEST_F(X11PasteboardWrite, theTimestampIsTheServersTimeOfTheAcquisition)
{
    write("first");
    const quint32 first = timestamp("CLIPBOARD");
    EXPECT_NE(first, 0u);
    ASSERT_TRUE(waitFor([&] {
        write("second");
        return timestamp("CLIPBOARD") != first;
    }));
    const quint32 second = timestamp("CLIPBOARD");

    EXPECT_GT(second, first);
    // Who asks for a time before that asks for what another owner had.
    const auto tooEarly = peer.ask("CLIPBOARD", "UTF8_STRING", first);
    ASSERT_TRUE(waitFor([&] { return tooEarly->isRefused || tooEarly->isFinished; }));
    EXPECT_TRUE(tooEarly->isRefused);
    const auto inTime = peer.ask("CLIPBOARD", "UTF8_STRING", second);
    ASSERT_TRUE(waitFor([&] { return inTime->isRefused || inTime->isFinished; }));
    EXPECT_EQ(inTime->bytes, "second");
}

TEST_F(X11PasteboardWrite, thePrimarySelectionIsOfferedOnlyWhenAskedTo)
{
    write("text");
    EXPECT_EQ(peer.ownerOf("PRIMARY"), xcb_window_t(XCB_NONE));

    pasteboard->offerAsPrimary();

    ASSERT_TRUE(waitForOurs("PRIMARY"));
    const auto primary = peer.fetch("PRIMARY", "UTF8_STRING");
    ASSERT_TRUE(primary.has_value());
    EXPECT_EQ(primary->bytes, "text");
    EXPECT_NE(timestamp("PRIMARY"), 0u);
}

TEST_F(X11PasteboardWrite, aLostPrimarySelectionLeavesThePasteboardAlone)
{
    write("text");
    pasteboard->offerAsPrimary();
    ASSERT_TRUE(waitForOurs("PRIMARY"));
    ASSERT_TRUE(peer.fetch("PRIMARY", "UTF8_STRING").has_value());
    const qint64 before = pasteboard->changeCount();

    SelectionPeer other(display.name());
    other.offerText("selected");
    other.own("PRIMARY");
    ASSERT_EQ(other.ownerOf("PRIMARY"), other.window());

    EXPECT_EQ(peer.fetch("PRIMARY", "UTF8_STRING")->bytes, "selected");
    EXPECT_EQ(peer.fetchText(), "text");
    EXPECT_EQ(pasteboard->changeCount(), before);
}

TEST_F(X11PasteboardWrite, theTextIsServedUntilAnotherOwnerComes)
{
    write("ours");
    SelectionPeer other(display.name());
    other.offerText("theirs");
    const qint64 before = pasteboard->changeCount();
    other.own("CLIPBOARD");

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), "theirs");
    EXPECT_EQ(peer.fetchText(), "theirs");
}

TEST_F(X11PasteboardWrite, aChangeOfOursRightAfterACopyByAnotherWins)
{
    peer.offerText("theirs");
    peer.own("CLIPBOARD");
    // Makes sure that the server has seen it, while our own notice of it still waits.
    ASSERT_EQ(peer.ownerOf("CLIPBOARD"), peer.window());
    const qint64 before = pasteboard->changeCount();

    write("ours");

    ASSERT_EQ(peer.fetchText(), "ours");
    EXPECT_EQ(pasteboard->string(), "ours");
    EXPECT_EQ(pasteboard->changeCount(), before + 1);
}

class X11PasteboardLongWrite : public X11PasteboardWrite
{
protected:
    X11PasteboardLongWrite()
    {
        // Characters of three bytes fall across every border of an increment somewhere.
        text = QByteArray("\xE2\x82\xAC").repeated(700000);
    }

    /// Whether somebody wants to know when this window of the peer's is destroyed.
    bool isWatchedByAnother(xcb_window_t window)
    {
        const platform::XcbPointer<xcb_get_window_attributes_reply_t> reply(
            xcb_get_window_attributes_reply(
                peer.xcb(), xcb_get_window_attributes(peer.xcb(), window), nullptr));
        return reply && (reply->all_event_masks & XCB_EVENT_MASK_STRUCTURE_NOTIFY) != 0;
    }

    QByteArray text;
};

TEST_F(X11PasteboardLongWrite, goesOutInIncrements)
{
    write(text);
    const auto request = peer.ask("CLIPBOARD", "UTF8_STRING");
    ASSERT_TRUE(waitFor([&] { return request->isFinished; }));

    EXPECT_TRUE(request->isIncremental);
    EXPECT_GT(request->increments, 2);
    EXPECT_EQ(request->type, "UTF8_STRING");
    EXPECT_EQ(request->bytes, text);
}

TEST_F(X11PasteboardLongWrite, goesOutAsLatin1InIncrements)
{
    write(QByteArray("\xC3\xBC").repeated(700000));

    EXPECT_EQ(peer.fetchText("STRING"), QByteArray("\xFC").repeated(700000));
}

TEST_F(X11PasteboardLongWrite, goesToSeveralRequestorsAtOnce)
{
    write(text);
    SelectionPeer other(display.name());
    const auto one = peer.ask("CLIPBOARD", "UTF8_STRING");
    const auto two = other.ask("CLIPBOARD", "text/plain;charset=utf-8");
    const auto three = peer.ask("CLIPBOARD", "text/plain");

    ASSERT_TRUE(waitFor([&] { return one->isFinished && two->isFinished && three->isFinished; }));
    EXPECT_EQ(one->bytes, text);
    EXPECT_EQ(two->bytes, text);
    EXPECT_EQ(three->bytes, text);
}

TEST_F(X11PasteboardLongWrite, isSentToItsEndWhenTheTextChangesMeanwhile)
{
    write(text);
    const auto request = peer.ask("CLIPBOARD", "UTF8_STRING");
    ASSERT_TRUE(waitFor([&] { return request->increments > 0; }));

    write("short");

    ASSERT_TRUE(waitFor([&] { return request->isFinished; }));
    EXPECT_EQ(request->bytes, text);
}

TEST_F(X11PasteboardLongWrite, survivesARequestorThatVanishes)
{
    write(text);
    auto doomed = std::make_unique<SelectionPeer>(display.name());
    const auto request = doomed->ask("CLIPBOARD", "UTF8_STRING");
    ASSERT_TRUE(waitFor([&] { return request->isIncremental; }));
    doomed.reset();

    EXPECT_EQ(peer.fetchText(), text);
}

TEST_F(X11PasteboardLongWrite, givesUpARequestorThatStopsReading)
{
    write(text);
    const auto stalled = peer.ask("CLIPBOARD", "UTF8_STRING");
    stalled->isStalled = true;
    ASSERT_TRUE(waitFor([&] { return stalled->isIncremental; }));
    EXPECT_TRUE(isWatchedByAnother(peer.window()));
    // The first deletion asked for the first increment, which then stays where it is.
    ASSERT_TRUE(waitFor([&] { return peer.property(stalled->property, false).has_value(); }));
    SelectionPeer other(display.name());
    EXPECT_EQ(other.fetchText(), text);

    // Nobody watches its window any more once the deadline is over.
    ASSERT_TRUE(waitFor([&] { return !isWatchedByAnother(peer.window()); }));
    ASSERT_TRUE(peer.property(stalled->property, true).has_value());
    EXPECT_EQ(other.fetchText(), text);
    EXPECT_EQ(peer.property(stalled->property, true), std::nullopt);
}
