// SPDX-License-Identifier: MIT
// Owners that hang, lie or die: the event loop goes on, and no text is ever shown with another
// copy's count.
#include "tests/platform/PasteboardFixture.h"

using Request = xcb_selection_request_event_t;

class X11PasteboardNastyOwner : public PasteboardFixture
{
protected:
    X11PasteboardNastyOwner()
    {
        peer.offerText("harmless");
        peer.own("CLIPBOARD");
        EXPECT_TRUE(waitForString("harmless"));
        before = pasteboard->changeCount();
    }

    /// What an owner's refusal to deliver must come to: one change, no text.
    void expectChangeWithoutText()
    {
        EXPECT_EQ(pasteboard->string(), "harmless"); // with the old count, until all is known
        ASSERT_TRUE(waitForChangeAfter(before));
        EXPECT_EQ(pasteboard->string(), std::nullopt);
    }

    /// A nasty owner has done no lasting harm if the next copy works.
    void expectNextCopyWorks()
    {
        SelectionPeer next(display.name());
        next.offerText("next");
        next.own("CLIPBOARD");
        EXPECT_TRUE(waitForString("next"));
    }

    void keepSilentAbout(const QByteArray &silent)
    {
        peer.intercept = [this, silent](const Request &request, const QByteArray &target) {
            if (silent.isEmpty() || target == silent)
                kept.push_back(request);
            return silent.isEmpty() || target == silent;
        };
        peer.own("CLIPBOARD");
    }

    void answerTextWith(const std::function<void(const Request &)> &answer)
    {
        peer.intercept = [answer](const Request &request, const QByteArray &target) {
            if (target == "UTF8_STRING")
                answer(request);
            return target == "UTF8_STRING";
        };
        peer.own("CLIPBOARD");
    }

    qint64 before = 0;
    std::vector<Request> kept;
};

TEST_F(X11PasteboardNastyOwner, oneThatNeverAnswersIsACopyWithoutText)
{
    keepSilentAbout({});

    expectChangeWithoutText();
    expectNextCopyWorks();
}

TEST_F(X11PasteboardNastyOwner, oneThatAnswersOnlyTargetsIsACopyWithoutText)
{
    keepSilentAbout("UTF8_STRING");

    expectChangeWithoutText();
    expectNextCopyWorks();
}

TEST_F(X11PasteboardNastyOwner, oneThatNeverTellsItsHintIsConcealed)
{
    peer.offer({{"UTF8_STRING", {"UTF8_STRING", 8, "hunter2"}},
                {"x-kde-passwordManagerHint", {"x-kde-passwordManagerHint", 8, "secret"}}});
    peer.asked.clear();
    keepSilentAbout("x-kde-passwordManagerHint");

    expectChangeWithoutText();
    EXPECT_EQ(std::count(peer.asked.begin(), peer.asked.end(), "UTF8_STRING"), 0);
}

TEST_F(X11PasteboardNastyOwner, aTextThatComesAfterTheDeadlineIsStillThatCopy)
{
    keepSilentAbout("UTF8_STRING");
    expectChangeWithoutText();
    ASSERT_EQ(kept.size(), 1u);

    peer.answer(kept.front(), {"UTF8_STRING", 8, "late"});

    ASSERT_TRUE(waitForString("late"));
    EXPECT_EQ(pasteboard->changeCount(), before + 1);
}

TEST_F(X11PasteboardNastyOwner, aLateTextOfTheCopyBeforeIsIgnored)
{
    keepSilentAbout("UTF8_STRING");
    ASSERT_TRUE(waitFor([&] { return kept.size() == 1; }));
    SelectionPeer next(display.name());
    next.offerText("next");
    next.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("next"));

    peer.answer(kept.front(), {"UTF8_STRING", 8, "late"});

    // A further copy comes after whatever the late answer could do.
    next.offerText("last");
    next.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("last"));
    EXPECT_EQ(pasteboard->changeCount(), before + 2); // the newest of two wins
}

TEST_F(X11PasteboardNastyOwner, oneThatTakesOverAgainWhileBeingReadIsReadAnew)
{
    keepSilentAbout("TARGETS");
    ASSERT_TRUE(waitFor([&] { return kept.size() == 1; }));

    peer.intercept = nullptr;
    peer.offerText("second thought");
    peer.own("CLIPBOARD");

    ASSERT_TRUE(waitForString("second thought"));
    EXPECT_EQ(pasteboard->changeCount(), before + 1);
}

// An owner may take the deletion of any property of the requestor's window for its cue.
TEST_F(X11PasteboardNastyOwner, theNextOwnerIsAskedFromAnotherWindowThanOneThatIsGivenUp)
{
    answerTextWith([this](const Request &request) {
        kept.push_back(request);
        peer.announceIncrements(request, 100);
    });
    ASSERT_TRUE(waitFor([&] { return kept.size() == 1; }));

    SelectionPeer next(display.name());
    next.offerText("next");
    std::vector<xcb_window_t> requestors;
    next.intercept = [&](const Request &request, const QByteArray &) {
        requestors.push_back(request.requestor);
        return false;
    };
    next.own("CLIPBOARD");

    ASSERT_TRUE(waitForString("next"));
    EXPECT_FALSE(requestors.empty());
    for (const xcb_window_t requestor : requestors)
        EXPECT_NE(requestor, kept[0].requestor);
}

TEST_F(X11PasteboardNastyOwner, oneThatDiesBeforeItAnswersIsACopyWithoutText)
{
    keepSilentAbout("UTF8_STRING");
    ASSERT_TRUE(waitFor([&] { return kept.size() == 1; }));

    peer.disconnect();

    expectChangeWithoutText();
    expectNextCopyWorks();
}

TEST_F(X11PasteboardNastyOwner, oneThatDiesBetweenTwoIncrementsIsACopyWithoutText)
{
    answerTextWith([this](const Request &request) {
        kept.push_back(request);
        peer.announceIncrements(request, 100);
    });
    int taken = 0;
    peer.incrementTaken = [&](xcb_atom_t) {
        if (++taken == 1)
            peer.put(kept.front(), {"UTF8_STRING", 8, "half"});
    };
    ASSERT_TRUE(waitFor([&] { return taken == 2; }));

    peer.disconnect();

    expectChangeWithoutText();
    expectNextCopyWorks();
}

TEST_F(X11PasteboardNastyOwner, anIncrementalTextThatStopsIsACopyWithoutText)
{
    answerTextWith([this](const Request &request) {
        kept.push_back(request);
        peer.announceIncrements(request, 100);
    });
    int taken = 0;
    peer.incrementTaken = [&](xcb_atom_t) {
        if (++taken == 1)
            peer.put(kept.front(), {"UTF8_STRING", 8, "half"});
    };

    expectChangeWithoutText();
    expectNextCopyWorks();
}

TEST_F(X11PasteboardNastyOwner, anIncrementalTextWithoutIncrementsIsTheEmptyText)
{
    answerTextWith([this](const Request &request) {
        kept.push_back(request);
        peer.announceIncrements(request, 0);
    });
    peer.incrementTaken = [&](xcb_atom_t) { peer.put(kept.front(), {"UTF8_STRING", 8, ""}); };

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), QByteArray(""));
}

TEST_F(X11PasteboardNastyOwner, oneThatTricklesForEverMeetsTheDeadlineOfTheWhole)
{
    answerTextWith([this](const Request &request) {
        kept.push_back(request);
        peer.announceIncrements(request, 1);
    });
    // A byte at a time, each well inside the deadline of a step.
    QTimer trickle;
    trickle.setInterval(kStep / 4);
    QObject::connect(&trickle, &QTimer::timeout, &peer, [&] {
        if (!kept.empty())
            peer.put(kept.front(), {"UTF8_STRING", 8, "x"});
    });
    trickle.start();

    expectChangeWithoutText();
    trickle.stop();
    expectNextCopyWorks();
}

TEST_F(X11PasteboardNastyOwner, anUnknownTypeIsNoText)
{
    answerTextWith([this](const Request &request) {
        peer.answer(request, {"image/png", 8, "not a text"});
    });

    expectChangeWithoutText();
}

TEST_F(X11PasteboardNastyOwner, aTextOfNumbersIsNoText)
{
    answerTextWith([this](const Request &request) {
        peer.answer(request, {"UTF8_STRING", 32, "12345678"});
    });

    expectChangeWithoutText();
}

TEST_F(X11PasteboardNastyOwner, anAnswerWithoutItsPropertyIsNoText)
{
    answerTextWith([this](const Request &request) { peer.notify(request, true); });

    expectChangeWithoutText();
}

TEST_F(X11PasteboardNastyOwner, targetsOfTheWrongTypeAreAsGoodAsNone)
{
    peer.offer({{"UTF8_STRING", {"UTF8_STRING", 8, "text all the same"}}});
    peer.intercept = [this](const Request &request, const QByteArray &target) {
        if (target == "TARGETS")
            peer.answer(request, {"STRING", 8, "UTF8_STRING"});
        return target == "TARGETS";
    };
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString("text all the same"));
}

TEST_F(X11PasteboardNastyOwner, oneThatAnswersEverythingWithIncrementsIsUnderstood)
{
    QMap<xcb_atom_t, Request> open;
    QMap<xcb_atom_t, int> taken;
    peer.intercept = [&](const Request &request, const QByteArray &) {
        open.insert(request.property, request);
        taken.insert(request.property, 0);
        peer.announceIncrements(request, 0xFFFFFFFF);
        return true;
    };
    peer.incrementTaken = [&](xcb_atom_t property) {
        if (!open.contains(property))
            return;
        const Request &request = open[property];
        const bool isTargets = peer.nameOf(request.target) == "TARGETS";
        SelectionPeer::Value value = isTargets ? SelectionPeer::atoms(peer, {"UTF8_STRING"})
                                               : SelectionPeer::Value{"UTF8_STRING", 8, "all"};
        if (++taken[property] > 1)
            value.bytes.clear();
        peer.put(request, value);
    };
    peer.own("CLIPBOARD");

    EXPECT_TRUE(waitForString("all"));
}

TEST_F(X11PasteboardNastyOwner, theEventLoopTurnsAllTheWhile)
{
    keepSilentAbout({});
    qint64 longest = 0;
    QElapsedTimer sinceLast;
    sinceLast.start();
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout,
                     [&] { longest = std::max(longest, sinceLast.restart()); });
    beat.start(1);

    expectChangeWithoutText();

    EXPECT_LT(longest, kStep.count() / 2); // a read that waits would show as one long beat
}
