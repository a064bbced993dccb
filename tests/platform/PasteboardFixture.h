// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/X11Pasteboard.h"
#include "tests/platform/PrivateDisplay.h"
#include "tests/platform/SelectionPeer.h"

#include <QTest>

#include <gtest/gtest.h>

#include <memory>

/// A pasteboard and another program on an X server of their own.
class PasteboardFixture : public ::testing::Test
{
protected:
    static constexpr std::chrono::milliseconds kStep{300};
    static constexpr std::chrono::milliseconds kWhole{900};
    static constexpr std::chrono::milliseconds kRequestor{400};
    static constexpr int kPatienceMilliseconds = 10000;

    PasteboardFixture() { startPasteboard(); }

    void startPasteboard()
    {
        pasteboard = platform::X11Pasteboard::create(display.name(), {{kStep, kWhole}, kRequestor});
        ASSERT_NE(pasteboard, nullptr);
        // It is ready once it has become the keeper of the clipboard.
        ASSERT_TRUE(waitFor([this] { return peer.ownerOf("CLIPBOARD_MANAGER") != XCB_NONE; }));
    }

    template <typename Condition>
    static bool waitFor(Condition condition)
    {
        return QTest::qWaitFor(condition, kPatienceMilliseconds);
    }

    /// Waits until exactly one more change than `before` was published.
    bool waitForChangeAfter(qint64 before)
    {
        return waitFor([&] { return pasteboard->changeCount() > before; }) &&
               pasteboard->changeCount() == before + 1;
    }

    bool waitForString(const QByteArray &expected)
    {
        return waitFor([&] { return pasteboard->string() == expected; });
    }

    /// Puts a text on the pasteboard and waits until the X server has carried it out: it may take
    /// the requests of different programs in any order.
    void write(const QByteArray &text)
    {
        pasteboard->clearContents();
        ASSERT_TRUE(pasteboard->setString(text));
        ASSERT_TRUE(waitForOurs("CLIPBOARD"));
    }

    /// The peer is the only other program.
    bool waitForOurs(const QByteArray &selection)
    {
        return waitFor([&] {
            const xcb_window_t owner = peer.ownerOf(selection);
            return owner != XCB_NONE && owner != peer.window();
        });
    }

    PrivateDisplay display;
    SelectionPeer peer{display.name()};
    std::unique_ptr<platform::X11Pasteboard> pasteboard;
};
