// SPDX-License-Identifier: MIT
// The pasteboard over time: at rest, and when the X server goes.
#include "tests/platform/PasteboardFixture.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>

class X11PasteboardLife : public PasteboardFixture
{
protected:
    /// How often the event loop wakes up within that time.
    static int wakeUps(std::chrono::milliseconds time)
    {
        QEventLoop loop;
        int count = 0;
        const auto connection =
            QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                             [&] { ++count; });
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
        QObject::disconnect(connection);
        return count;
    }
};

TEST_F(X11PasteboardLife, isAtRestWhileNothingIsCopied)
{
    peer.offerText("copied");
    peer.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("copied"));
    wakeUps(kStep); // what followed the copy

    // One wake-up is the end of the measurement; the server may be a little late with another.
    EXPECT_LE(wakeUps(kStep * 2), 3);
}

TEST_F(X11PasteboardLife, pollingMakesNoTraffic)
{
    peer.offerText("copied");
    peer.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("copied"));
    wakeUps(kStep);

    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(pasteboard->string(), "copied");
        EXPECT_EQ(pasteboard->changeCount(), 1);
    }

    EXPECT_LE(wakeUps(kStep), 3);
}

TEST_F(X11PasteboardLife, aHundredQuickCopiesEndWithTheLast)
{
    for (int i = 1; i <= 100; ++i) {
        peer.offerText("copy " + QByteArray::number(i));
        peer.own("CLIPBOARD");
    }

    ASSERT_TRUE(waitForString("copy 100"));
    EXPECT_LE(pasteboard->changeCount(), 100);
}

TEST_F(X11PasteboardLife, aLostServerIsToldAndEndsNothing)
{
    display.stop();
    ASSERT_TRUE(waitFor([&] { return !pasteboard->availability().isAvailable; }));

    EXPECT_FALSE(pasteboard->setString("text"));
    pasteboard->clearContents();
    pasteboard->offerAsPrimary();
    pasteboard->handOver();
    EXPECT_EQ(pasteboard->string(), std::nullopt);
}
