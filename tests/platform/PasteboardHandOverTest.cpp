// SPDX-License-Identifier: MIT
// Quitting with the clipboard in our hands.
#include "tests/platform/PasteboardFixture.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>

namespace {

/// A clipboard manager with an event loop of its own, as another process has one: handing over
/// waits.
class ManagerThread : public QThread
{
public:
    enum class Manner { Saves, KeepsSilent };

    ManagerThread(const QByteArray &display, Manner manner)
        : m_display(display)
        , m_manner(manner)
    {
        start();
        m_isManager.acquire();
    }

    ~ManagerThread() override
    {
        quit();
        wait();
    }

    /// Ends the manager. What it has saved by then.
    QByteArray finish()
    {
        quit();
        wait();
        return m_saved;
    }

protected:
    void run() override
    {
        SelectionPeer manager(m_display);
        std::optional<xcb_selection_request_event_t> request;
        manager.intercept = [&](const auto &asked, const QByteArray &target) {
            if (target != "SAVE_TARGETS")
                return false;
            request = asked;
            if (m_manner == Manner::Saves)
                manager.ask("CLIPBOARD", "UTF8_STRING");
            return true;
        };
        manager.received = [&](const SelectionPeer::Request &answer) {
            m_saved = answer.bytes;
            manager.notify(*request, true);
        };
        manager.own("CLIPBOARD_MANAGER");
        manager.ownerOf("CLIPBOARD_MANAGER"); // the server has carried it out
        m_isManager.release();
        exec();
    }

private:
    QByteArray m_display;
    Manner m_manner;
    QByteArray m_saved;
    QSemaphore m_isManager;
};

} // namespace

class PasteboardHandOver : public PasteboardFixture
{
protected:
    /// @return how long it took, in milliseconds
    qint64 handOver()
    {
        QElapsedTimer timer;
        timer.start();
        pasteboard->handOver();
        return timer.elapsed();
    }

    static constexpr qint64 kLimitMilliseconds = 500;
    /// What a loaded machine may add.
    static constexpr qint64 kGraceMilliseconds = 1000;
};

TEST_F(PasteboardHandOver, givesOurTextToTheManager)
{
    ManagerThread manager(display.name(), ManagerThread::Manner::Saves);
    write("our last words");

    handOver();

    EXPECT_EQ(manager.finish(), "our last words");
}

TEST_F(PasteboardHandOver, givesALongTextToTheManager)
{
    ManagerThread manager(display.name(), ManagerThread::Manner::Saves);
    const QByteArray text = QByteArray("long ").repeated(400000);
    write(text);

    handOver();

    EXPECT_EQ(manager.finish(), text);
}

TEST_F(PasteboardHandOver, waitsAtMostHalfASecondForASilentManager)
{
    ManagerThread manager(display.name(), ManagerThread::Manner::KeepsSilent);
    write("unwanted");

    const qint64 elapsed = handOver();

    EXPECT_GE(elapsed, kLimitMilliseconds);
    EXPECT_LT(elapsed, kLimitMilliseconds + kGraceMilliseconds);
}

TEST_F(PasteboardHandOver, doesNotWaitWithoutAnotherManager)
{
    write("ours");

    EXPECT_LT(handOver(), kLimitMilliseconds);
}

TEST_F(PasteboardHandOver, doesNotWaitWhenTheTextIsNotOurs)
{
    ManagerThread manager(display.name(), ManagerThread::Manner::KeepsSilent);
    peer.offerText("theirs");
    peer.own("CLIPBOARD");
    ASSERT_TRUE(waitForString("theirs"));

    EXPECT_LT(handOver(), kLimitMilliseconds);
    EXPECT_EQ(manager.finish(), QByteArray());
}
