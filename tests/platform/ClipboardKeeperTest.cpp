// SPDX-License-Identifier: MIT
// A copied text outlives the program that it was copied from.
#include "tests/platform/PasteboardFixture.h"

class ClipboardKeeper : public PasteboardFixture
{
protected:
    /// A program that copies and can then be ended.
    std::unique_ptr<SelectionPeer> copier(const QByteArray &text)
    {
        auto made = std::make_unique<SelectionPeer>(display.name());
        made->offerText(text);
        made->own("CLIPBOARD");
        EXPECT_TRUE(waitForString(text));
        return made;
    }

    /// Lets the other side see `owner` gone.
    bool waitForNewOwner(xcb_window_t owner)
    {
        return waitFor([&] {
            const xcb_window_t now = peer.ownerOf("CLIPBOARD");
            return now != XCB_NONE && now != owner;
        });
    }

    /// Another program that is the session's clipboard manager.
    std::unique_ptr<SelectionPeer> foreignManager()
    {
        auto made = std::make_unique<SelectionPeer>(display.name());
        made->own("CLIPBOARD_MANAGER");
        EXPECT_EQ(made->ownerOf("CLIPBOARD_MANAGER"), made->window());
        return made;
    }

    bool isOurRole() { return isOurs("CLIPBOARD_MANAGER"); }

    bool isOurs(const QByteArray &selection)
    {
        const xcb_window_t owner = peer.ownerOf(selection);
        return owner != XCB_NONE && !foreign.contains(owner);
    }

    QList<xcb_window_t> foreign{peer.window()};
};

TEST_F(ClipboardKeeper, theTextOutlivesAProgramThatEnds)
{
    auto program = copier("kept");
    const xcb_window_t window = program->window();
    const qint64 before = pasteboard->changeCount();

    program->disconnect();

    ASSERT_TRUE(waitForNewOwner(window));
    EXPECT_EQ(peer.fetchText(), "kept");
    EXPECT_EQ(pasteboard->string(), "kept");
    EXPECT_EQ(pasteboard->changeCount(), before); // no copy
}

TEST_F(ClipboardKeeper, theTextOutlivesAWindowThatIsDestroyed)
{
    auto program = copier("kept");
    const xcb_window_t window = program->window();

    program->destroyWindow();

    ASSERT_TRUE(waitForNewOwner(window));
    EXPECT_EQ(peer.fetchText(), "kept");
}

TEST_F(ClipboardKeeper, aProgramThatAsksToBeSavedIsToldThatItIs)
{
    auto program = copier("kept");
    const xcb_window_t window = program->window();

    const auto saved = program->ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
    ASSERT_TRUE(waitFor([&] { return saved->isFinished || saved->isRefused; }));
    EXPECT_FALSE(saved->isRefused);
    EXPECT_EQ(saved->type, "NULL");
    // As long as it lives its own formats stay on offer.
    EXPECT_EQ(peer.ownerOf("CLIPBOARD"), window);
    program->giveUp("CLIPBOARD");

    ASSERT_TRUE(waitForNewOwner(window));
    EXPECT_EQ(peer.fetchText(), "kept");
}

TEST_F(ClipboardKeeper, aRequestToSaveWaitsUntilTheTextIsRead)
{
    SelectionPeer program(display.name());
    std::optional<xcb_selection_request_event_t> kept;
    program.offerText("kept");
    program.intercept = [&](const auto &request, const QByteArray &target) {
        if (target == "UTF8_STRING")
            kept = request;
        return target == "UTF8_STRING";
    };
    program.own("CLIPBOARD");
    ASSERT_TRUE(waitFor([&] { return kept.has_value(); }));
    const auto saved = program.ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
    // An answer to the later request shows that the earlier one was seen and is kept back.
    ASSERT_TRUE(peer.fetch("CLIPBOARD_MANAGER", "TIMESTAMP").has_value());
    EXPECT_FALSE(saved->isFinished || saved->isRefused);

    program.answer(*kept, {"UTF8_STRING", 8, "kept"});

    ASSERT_TRUE(waitFor([&] { return saved->isFinished; }));
    EXPECT_EQ(pasteboard->string(), "kept");
}

TEST_F(ClipboardKeeper, whatHasNoTextIsNotSaved)
{
    SelectionPeer program(display.name());
    program.offer({{"image/png", {"image/png", 8, "\x89PNG"}}});
    const qint64 before = pasteboard->changeCount();
    program.own("CLIPBOARD");
    ASSERT_TRUE(waitForChangeAfter(before));

    const auto saved = program.ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");

    ASSERT_TRUE(waitFor([&] { return saved->isFinished || saved->isRefused; }));
    EXPECT_TRUE(saved->isRefused);
}

TEST_F(ClipboardKeeper, aConcealedCopyIsNeverKept)
{
    SelectionPeer program(display.name());
    program.offer({{"UTF8_STRING", {"UTF8_STRING", 8, "hunter2"}},
                   {"x-kde-passwordManagerHint", {"x-kde-passwordManagerHint", 8, "secret"}}});
    const qint64 before = pasteboard->changeCount();
    program.own("CLIPBOARD");
    ASSERT_TRUE(waitForChangeAfter(before));
    const auto saved = program.ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
    ASSERT_TRUE(waitFor([&] { return saved->isRefused; }));

    program.disconnect();
    // The pasteboard's answer comes after what it did about the end of the owner.
    ASSERT_TRUE(waitFor([&] { return peer.ownerOf("CLIPBOARD") == XCB_NONE; }));
    ASSERT_TRUE(peer.fetch("CLIPBOARD_MANAGER", "TIMESTAMP").has_value());

    EXPECT_EQ(peer.ownerOf("CLIPBOARD"), xcb_window_t(XCB_NONE));
    EXPECT_EQ(pasteboard->string(), std::nullopt);
}

TEST_F(ClipboardKeeper, aClipboardThatIsGivenUpStaysEmpty)
{
    auto program = copier("to be cleared");
    const qint64 before = pasteboard->changeCount();

    program->giveUp("CLIPBOARD");

    ASSERT_TRUE(waitFor([&] { return !pasteboard->string(); }));
    ASSERT_TRUE(peer.fetch("CLIPBOARD_MANAGER", "TIMESTAMP").has_value());
    EXPECT_EQ(peer.ownerOf("CLIPBOARD"), xcb_window_t(XCB_NONE));
    EXPECT_EQ(pasteboard->changeCount(), before);
}

TEST_F(ClipboardKeeper, aCopyByAnotherProgramIsNotTakenAwayFromIt)
{
    auto program = copier("first");
    SelectionPeer next(display.name());
    next.offerText("second");

    // Both reach the server before we hear of either.
    program->disconnect();
    next.own("CLIPBOARD");
    ASSERT_EQ(next.ownerOf("CLIPBOARD"), next.window());

    ASSERT_TRUE(waitForString("second"));
    EXPECT_EQ(peer.ownerOf("CLIPBOARD"), next.window());
}

TEST_F(ClipboardKeeper, theRoleIsLeftToAManagerThatIsThereAlready)
{
    pasteboard.reset();
    auto manager = foreignManager();

    startPasteboard();

    auto program = copier("read");
    EXPECT_EQ(peer.ownerOf("CLIPBOARD_MANAGER"), manager->window());
}

TEST_F(ClipboardKeeper, theRoleIsGivenUpToAManagerThatComesLater)
{
    ASSERT_TRUE(isOurRole());
    auto manager = foreignManager();
    auto program = copier("theirs to keep");
    const xcb_window_t window = program->window();

    program->disconnect();

    ASSERT_TRUE(waitFor([&] { return peer.ownerOf("CLIPBOARD") != window; }));
    // An answer by the pasteboard comes after what it did about the end of the owner.
    pasteboard->offerAsPrimary();
    ASSERT_TRUE(waitFor([&] { return peer.fetch("PRIMARY", "TIMESTAMP").has_value(); }));
    EXPECT_EQ(peer.ownerOf("CLIPBOARD"), xcb_window_t(XCB_NONE));
    EXPECT_EQ(peer.ownerOf("CLIPBOARD_MANAGER"), manager->window());
    auto next = copier("next");
    EXPECT_EQ(peer.ownerOf("CLIPBOARD"), next->window());
}

TEST_F(ClipboardKeeper, theRoleIsTakenOverWhenTheManagerEnds)
{
    auto manager = foreignManager();
    foreign.append(manager->window());

    manager->disconnect();

    EXPECT_TRUE(waitFor([&] { return isOurRole(); }));
    auto program = copier("kept");
    const xcb_window_t window = program->window();
    program->disconnect();
    ASSERT_TRUE(waitForNewOwner(window));
    EXPECT_EQ(peer.fetchText(), "kept");
}

TEST_F(ClipboardKeeper, aManagerThatEndsWithTheClipboardInItsHandsLeavesTheText)
{
    auto manager = foreignManager();
    manager->offerText("theirs");
    manager->own("CLIPBOARD");
    ASSERT_TRUE(waitForString("theirs"));
    const xcb_window_t window = manager->window();

    manager->disconnect();

    ASSERT_TRUE(waitForNewOwner(window));
    EXPECT_EQ(peer.fetchText(), "theirs");
}

TEST_F(ClipboardKeeper, aManagerThatOffersTheSameTextAgainMakesNoCopy)
{
    auto manager = foreignManager();
    auto program = copier("same");
    const qint64 before = pasteboard->changeCount();
    program->disconnect();

    manager->offerText("same");
    manager->own("CLIPBOARD");
    ASSERT_TRUE(waitFor([&] {
        return std::count(manager->asked.begin(), manager->asked.end(), "UTF8_STRING") == 1;
    }));
    auto next = copier("another");

    EXPECT_EQ(pasteboard->changeCount(), before + 1); // the last one alone
}
