// SPDX-License-Identifier: MIT
// Copies by real programs, and what real programs get from us.
#include "tests/platform/PasteboardFixture.h"

class X11PasteboardPrograms : public PasteboardFixture
{
protected:
    /// Starts a program with a window and waits until that shows.
    std::unique_ptr<QProcess> startWindow(const QString &program, const QStringList &arguments,
                                          const QString &windowClass)
    {
        std::unique_ptr<QProcess> process = display.start(program, arguments);
        window = display
                     .run(QStringLiteral("xdotool"),
                          {QStringLiteral("search"), QStringLiteral("--sync"),
                           QStringLiteral("--onlyvisible"), QStringLiteral("--class"), windowClass})
                     .split('\n')
                     .first();
        EXPECT_FALSE(window.isEmpty());
        return process;
    }

    void input(const QStringList &actions) { display.run(QStringLiteral("xdotool"), actions); }

    /// Double-clicks the word in the upper left corner of an xterm until it is selected: the window
    /// may show before the word does.
    bool selectWordInXterm(const QByteArray &selection, const QByteArray &word)
    {
        return waitFor([&] {
            input({QStringLiteral("mousemove"), QStringLiteral("--window"),
                   QString::fromLatin1(window), QStringLiteral("15"), QStringLiteral("10"),
                   QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"),
                   QStringLiteral("--delay"), QStringLiteral("20"), QStringLiteral("1")});
            const auto selected = peer.fetch(selection, "UTF8_STRING");
            return selected && selected->bytes == word;
        });
    }

    static void end(QProcess &process)
    {
        process.kill();
        process.waitForFinished();
    }

    QByteArray window;
};

TEST_F(X11PasteboardPrograms, aCopyByXclipIsRead)
{
    const qint64 before = pasteboard->changeCount();
    display.run(QStringLiteral("xclip"),
                {QStringLiteral("-selection"), QStringLiteral("clipboard")},
                "from xclip \xE2\x82\xAC");

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), "from xclip \xE2\x82\xAC");
}

TEST_F(X11PasteboardPrograms, aCopyByXselIsRead)
{
    const qint64 before = pasteboard->changeCount();
    display.run(QStringLiteral("xsel"), {QStringLiteral("--clipboard"), QStringLiteral("--input")},
                "from xsel \xE2\x82\xAC");

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), "from xsel \xE2\x82\xAC");
}

TEST_F(X11PasteboardPrograms, aCopyByAGtkProgramIsRead)
{
    const auto zenity = startWindow(QStringLiteral("zenity"),
                                    {QStringLiteral("--entry"), QStringLiteral("--entry-text"),
                                     QString::fromUtf8("from GTK \xE2\x82\xAC")},
                                    QStringLiteral("zenity"));
    input({QStringLiteral("windowfocus"), QStringLiteral("--sync"), QString::fromLatin1(window),
           QStringLiteral("key"), QStringLiteral("ctrl+a"), QStringLiteral("ctrl+c")});

    EXPECT_TRUE(waitForString("from GTK \xE2\x82\xAC"));
    end(*zenity);
}

TEST_F(X11PasteboardPrograms, aCopyByAQtProgramIsReadAndOutlivesIt)
{
    const auto program =
        display.start(QStringLiteral(QT_COPIER), {QStringLiteral("from Qt \u20AC")});
    ASSERT_TRUE(waitForString("from Qt \xE2\x82\xAC"));
    const qint64 before = pasteboard->changeCount();

    // It asks the clipboard manager, which is us, to keep its text, and waits for the answer.
    program->closeWriteChannel();
    ASSERT_TRUE(waitFor([&] { return program->state() == QProcess::NotRunning; }));

    ASSERT_TRUE(waitForOurs("CLIPBOARD"));
    EXPECT_EQ(peer.fetchText(), "from Qt \xE2\x82\xAC");
    EXPECT_EQ(pasteboard->changeCount(), before);
}

TEST_F(X11PasteboardPrograms, aCopyOutlivesAProgramThatIsKilled)
{
    const auto xclip = display.start(
        QStringLiteral("xclip"),
        {QStringLiteral("-quiet"), QStringLiteral("-selection"), QStringLiteral("clipboard")});
    xclip->write("last words");
    xclip->closeWriteChannel();
    ASSERT_TRUE(waitForString("last words"));
    const xcb_window_t owner = peer.ownerOf("CLIPBOARD");

    end(*xclip);

    ASSERT_TRUE(waitFor([&] {
        const xcb_window_t now = peer.ownerOf("CLIPBOARD");
        return now != XCB_NONE && now != owner;
    }));
    EXPECT_EQ(
        display.run(QStringLiteral("xclip"), {QStringLiteral("-selection"),
                                              QStringLiteral("clipboard"), QStringLiteral("-out")}),
        "last words");
}

TEST_F(X11PasteboardPrograms, aSelectionInXtermIsNoCopy)
{
    const auto xterm = startWindow(QStringLiteral("xterm"),
                                   {QStringLiteral("-e"), QStringLiteral("printf selected; cat")},
                                   QStringLiteral("xterm"));
    const qint64 before = pasteboard->changeCount();
    ASSERT_TRUE(selectWordInXterm("PRIMARY", "selected"));
    // The pasteboard's answer comes after whatever it was told about the selection.
    ASSERT_TRUE(peer.fetch("CLIPBOARD_MANAGER", "TIMESTAMP").has_value());

    EXPECT_EQ(pasteboard->changeCount(), before);
    EXPECT_EQ(pasteboard->string(), std::nullopt);
    end(*xterm);
}

TEST_F(X11PasteboardPrograms, aSelectionInXtermIsAdoptedWhenAskedFor)
{
    const auto xterm = startWindow(QStringLiteral("xterm"),
                                   {QStringLiteral("-e"), QStringLiteral("printf selected; cat")},
                                   QStringLiteral("xterm"));
    const qint64 before = pasteboard->changeCount();
    ASSERT_TRUE(selectWordInXterm("PRIMARY", "selected"));

    pasteboard->adoptPrimary();

    ASSERT_TRUE(waitForChangeAfter(before));
    EXPECT_EQ(pasteboard->string(), "selected");
    EXPECT_EQ(
        display.run(QStringLiteral("xclip"), {QStringLiteral("-selection"),
                                              QStringLiteral("clipboard"), QStringLiteral("-out")}),
        "selected");
    end(*xterm);
}

TEST_F(X11PasteboardPrograms, aCopyByXtermIsRead)
{
    const auto xterm =
        startWindow(QStringLiteral("xterm"),
                    {QStringLiteral("-xrm"), QStringLiteral("*selectToClipboard: true"),
                     QStringLiteral("-e"), QStringLiteral("printf copied; cat")},
                    QStringLiteral("xterm"));
    ASSERT_TRUE(selectWordInXterm("CLIPBOARD", "copied"));

    EXPECT_TRUE(waitForString("copied"));
    end(*xterm);
}

TEST_F(X11PasteboardPrograms, xclipAndXselReadWhatIsOurs)
{
    write("ours \xE2\x82\xAC");

    EXPECT_EQ(display.run(QStringLiteral("xclip"),
                          {QStringLiteral("-selection"), QStringLiteral("clipboard"),
                           QStringLiteral("-out"), QStringLiteral("-target"),
                           QStringLiteral("UTF8_STRING")}),
              "ours \xE2\x82\xAC");
    EXPECT_EQ(display.run(QStringLiteral("xsel"),
                          {QStringLiteral("--clipboard"), QStringLiteral("--output")}),
              "ours \xE2\x82\xAC");
}

TEST_F(X11PasteboardPrograms, twoLongReadsAtOnceAreBothComplete)
{
    const QByteArray text = QByteArray("0123456789").repeated(300000);
    write(text);
    const QStringList arguments{QStringLiteral("-selection"), QStringLiteral("clipboard"),
                                QStringLiteral("-out")};
    const auto one = display.start(QStringLiteral("xclip"), arguments);
    const auto two = display.start(QStringLiteral("xclip"), arguments);

    ASSERT_TRUE(waitFor([&] {
        return one->state() == QProcess::NotRunning && two->state() == QProcess::NotRunning;
    }));
    EXPECT_TRUE(one->readAllStandardOutput() == text);
    EXPECT_TRUE(two->readAllStandardOutput() == text);
}
