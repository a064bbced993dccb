// SPDX-License-Identifier: MIT
// 50 MB in both directions, against a real program, with an eye on the event loop.
#include "tests/platform/PasteboardFixture.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <functional>

#include <ctime>

namespace {

constexpr qsizetype kTextBytes = 50 * 1024 * 1024;
/// The event loop must turn at least this often (milliseconds).
constexpr qint64 kLongestStall = 100;

QByteArray mixedText()
{
    const QByteArray line = "The quick brown fox. \xD0\xA1\xD1\x8A\xD0\xB5\xD1\x88\xD1\x8C, "
                            "\xE4\xBD\xA0\xE5\xA5\xBD, \xF0\x9F\xA6\x8A\xF0\x9F\x98\x80, "
                            "gr\xC3\xBC\xC3\x9F.\n";
    return line.repeated(kTextBytes / line.size() + 1);
}

/// Runs the event loop until a condition holds, and measures its longest turn.
class Stopwatch
{
public:
    bool runUntil(const std::function<bool()> &isDone, int atMost)
    {
        QEventLoop loop;
        QTimer beat;
        QElapsedTimer sinceLast;
        QObject::connect(&beat, &QTimer::timeout, &loop, [&] {
            m_longest = std::max(m_longest, sinceLast.restart());
            if (isDone())
                loop.quit();
        });
        QTimer::singleShot(atMost, &loop, &QEventLoop::quit);
        const qint64 cpuBefore = cpuMilliseconds();
        sinceLast.start();
        beat.start(1);
        loop.exec();
        m_cpu = cpuMilliseconds() - cpuBefore;
        return isDone();
    }

    qint64 longestStall() const { return m_longest; }
    /// Time that this thread has really worked, in milliseconds.
    qint64 cpu() const { return m_cpu; }

private:
    static qint64 cpuMilliseconds()
    {
        timespec used{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
        return qint64(used.tv_sec) * 1000 + used.tv_nsec / 1000000;
    }

    qint64 m_longest = 0;
    qint64 m_cpu = 0;
};

class X11PasteboardLongText : public PasteboardFixture
{
protected:
    static constexpr int kTransferMilliseconds = 60000;

    X11PasteboardLongText()
    {
        // The deadlines of the other tests are for owners that do nothing.
        pasteboard.reset();
        pasteboard = platform::X11Pasteboard::create(display.name());
    }

    void report(const Stopwatch &stopwatch)
    {
        RecordProperty("longestStallMilliseconds", int(stopwatch.longestStall()));
        RecordProperty("mainThreadMilliseconds", int(stopwatch.cpu()));
        EXPECT_LT(stopwatch.longestStall(), kLongestStall);
    }

    QByteArray text = mixedText();
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("text"));
};

} // namespace

TEST_F(X11PasteboardLongText, isReadWithoutStoppingTheEventLoop)
{
    QFile input(file);
    ASSERT_TRUE(input.open(QIODevice::WriteOnly));
    ASSERT_EQ(input.write(text), text.size());
    input.close();
    Stopwatch stopwatch;
    const qint64 before = pasteboard->changeCount();
    const auto xclip = display.start(QStringLiteral("xclip"),
                                     {QStringLiteral("-quiet"), QStringLiteral("-selection"),
                                      QStringLiteral("clipboard"), QStringLiteral("-in"), file});

    ASSERT_TRUE(stopwatch.runUntil([&] { return pasteboard->changeCount() > before; },
                                   kTransferMilliseconds));

    EXPECT_TRUE(pasteboard->string() == text) << "the text arrived changed";
    report(stopwatch);
    xclip->kill();
    xclip->waitForFinished();
}

TEST_F(X11PasteboardLongText, isWrittenWithoutStoppingTheEventLoop)
{
    write(text);
    QProcess xclip;
    xclip.setProcessEnvironment(display.environment());
    xclip.setStandardOutputFile(file);
    xclip.start(QStringLiteral("xclip"),
                {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-out"),
                 QStringLiteral("-target"), QStringLiteral("UTF8_STRING")});
    Stopwatch stopwatch;

    ASSERT_TRUE(stopwatch.runUntil([&] { return xclip.state() == QProcess::NotRunning; },
                                   kTransferMilliseconds));

    QFile output(file);
    ASSERT_TRUE(output.open(QIODevice::ReadOnly));
    EXPECT_TRUE(output.readAll() == text) << "the text arrived changed";
    report(stopwatch);
}

TEST_F(X11PasteboardLongText, isReadFromAnOwnerThatSendsItInOnePiece)
{
    // 12 MB: the most that a request to the server may hold is 16 MB.
    const QByteArray whole = text.first(12 * 1024 * 1024);
    peer.offer({{"STRING", {"UTF8_STRING", 8, whole}}});
    peer.own("CLIPBOARD");
    Stopwatch stopwatch;
    const qint64 before = pasteboard->changeCount();

    ASSERT_TRUE(stopwatch.runUntil([&] { return pasteboard->changeCount() > before; },
                                   kTransferMilliseconds));

    EXPECT_TRUE(pasteboard->string()->startsWith(whole.first(whole.size() - 4)));
    report(stopwatch);
}
