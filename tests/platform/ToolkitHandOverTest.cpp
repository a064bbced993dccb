// SPDX-License-Identifier: MIT
// Quitting after something was copied in one of our own text fields, which the toolkit owns.
#include "tests/platform/PasteboardFixture.h"

#include <QElapsedTimer>

class ToolkitHandOver : public PasteboardFixture
{
protected:
    ToolkitHandOver()
    {
        pasteboard.reset();
        EXPECT_TRUE(waitFor([this] { return peer.ownerOf("CLIPBOARD_MANAGER") == XCB_NONE; }));
    }

    void startProgram()
    {
        program = display.start(QStringLiteral(QT_QUITTER), {});
        ASSERT_TRUE(waitForOurs("PRIMARY")); // its last step
    }

    /// @return how long the program took to quit, in milliseconds
    qint64 quitProgram()
    {
        QElapsedTimer timer;
        timer.start();
        program->closeWriteChannel();
        EXPECT_TRUE(waitFor([this] { return program->state() == QProcess::NotRunning; }));
        EXPECT_EQ(program->exitCode(), 0);
        return timer.elapsed();
    }

    /// Half a second for the manager, and what starting and ending takes on a loaded machine; the
    /// toolkit by itself would wait for five seconds.
    static constexpr qint64 kLimitMilliseconds = 3000;

    std::unique_ptr<QProcess> program;
};

TEST_F(ToolkitHandOver, givesTheTextToTheManager)
{
    peer.own("CLIPBOARD_MANAGER");
    std::optional<xcb_selection_request_event_t> request;
    QByteArray saved;
    peer.intercept = [&](const auto &asked, const QByteArray &target) {
        if (target != "SAVE_TARGETS")
            return false;
        request = asked;
        peer.ask("CLIPBOARD", "UTF8_STRING");
        return true;
    };
    peer.received = [&](const SelectionPeer::Request &answer) {
        saved = answer.bytes;
        peer.notify(*request, true);
    };
    startProgram();

    EXPECT_LT(quitProgram(), kLimitMilliseconds);
    EXPECT_EQ(saved, "copied in a field");
}

TEST_F(ToolkitHandOver, doesNotWaitForASilentManager)
{
    peer.own("CLIPBOARD_MANAGER");
    peer.intercept = [](const auto &, const QByteArray &target) {
        return target == "SAVE_TARGETS";
    };
    startProgram();

    EXPECT_LT(quitProgram(), kLimitMilliseconds);
}

TEST_F(ToolkitHandOver, doesNotWaitForOurselvesAsTheManager)
{
    startProgram();
    ASSERT_TRUE(waitForOurs("CLIPBOARD_MANAGER"));

    EXPECT_LT(quitProgram(), kLimitMilliseconds);
}
