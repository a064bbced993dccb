// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/X11KeyEventPoster.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/platform/MenuWindowsFixture.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <vector>

#include <xcb/xtest.h>

/// A poster, and what other programs get of what it types.
class KeyEventPosterFixture : public MenuWindowsFixture
{
protected:
    static constexpr quint16 kControlDown = XCB_MOD_MASK_CONTROL;
    static constexpr quint16 kShiftDown = XCB_MOD_MASK_SHIFT;
    static constexpr quint16 kSuperDown = XCB_MOD_MASK_4;
    static constexpr quint16 kLocks = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2;

    /// Command with this key, as the paste action posts it.
    void postChord(quint16 keyCode)
    {
        EXPECT_TRUE(poster->post({keyCode, true, platform::KeyEvent::kCommandMask}));
        EXPECT_TRUE(poster->post({keyCode, false, 0}));
    }

    void postPaste() { postChord(9); }
    void postCopy() { postChord(8); }

    /// Waits for the end of the chord that was posted before.
    /// @return whether it went out; false also if it never ended
    bool isSent()
    {
        if (finished.isEmpty() && !finished.wait(kPatience))
            return false;
        return finished.takeFirst().constFirst().toBool();
    }

    /// Waits until the program got as many keys, and hands them out.
    std::vector<ForeignWindow::Key> typedInto(ForeignWindow &window, std::size_t count)
    {
        waitFor([&] { return window.typed().size() >= count; });
        QTest::qWait(0);
        return window.typed();
    }

    /// Whether the key counts as down for programs.
    bool isDown(quint8 key)
    {
        const auto map =
            connection->reply(xcb_query_keymap_reply, xcb_query_keymap(connection->xcb()));
        return map && (map->keys[key / 8] >> (key % 8) & 1) != 0;
    }

    bool isAnyKeyDown()
    {
        const auto map =
            connection->reply(xcb_query_keymap_reply, xcb_query_keymap(connection->xcb()));
        return std::any_of(std::begin(map->keys), std::end(map->keys),
                           [](quint8 bits) { return bits != 0; });
    }

    /// Presses a key on the real keyboard and waits until it has arrived.
    void hold(quint8 key)
    {
        user.press(key);
        ASSERT_TRUE(waitFor([&] { return isDown(key); }));
    }

    void letGo(quint8 key)
    {
        user.release(key);
        EXPECT_TRUE(waitFor([&] { return !isDown(key); })) << "key " << int(key) << " sticks";
    }

    /// Types a chord, as automation tools do.
    void typeAsAnotherProgram(const std::vector<quint8> &chord)
    {
        for (const quint8 key : chord)
            xcb_test_fake_input(connection->xcb(), XCB_KEY_PRESS, key, XCB_CURRENT_TIME, XCB_NONE,
                                0, 0, 0);
        for (auto key = chord.rbegin(); key != chord.rend(); ++key)
            xcb_test_fake_input(connection->xcb(), XCB_KEY_RELEASE, *key, XCB_CURRENT_TIME,
                                XCB_NONE, 0, 0, 0);
        xcb_flush(connection->xcb());
    }

    /// Switches a lock. The test session's server copies locks of the outer one, and switches twice
    /// if press and release come at once.
    void toggleLock(quint8 key)
    {
        hold(key);
        letGo(key);
    }

    FakePasteboard pasteboard;
    std::unique_ptr<platform::X11KeyEventPoster> poster =
        platform::X11KeyEventPoster::create(pasteboard);
    QSignalSpy finished{poster.get(), &platform::KeyEventPoster::finished};
};
