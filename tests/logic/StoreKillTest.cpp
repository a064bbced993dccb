// SPDX-License-Identifier: MIT
#include "tests/logic/StoreTestSupport.h"

#include <QProcess>
#include <QThread>

#include <random>

namespace {

// How many kills; the long run of the tests sets the variable.
constexpr const char *kLongVariable = "QUILLERY_LONG";
constexpr int kKills = 10;
constexpr int kLongKills = 200;
// The recorder keeps 100 of each kind; the last one of a run may be saved but not reported.
constexpr qsizetype kSurelyKept = 98;

class StoreKillTest : public StoreTest
{
protected:
    // Lets the recorder run for a random time; the lists are what it reported.
    void recordAndKill(std::mt19937 &random)
    {
        QProcess recorder;
        recorder.start(QStringLiteral(STORE_RECORDER), {folderPath()}, QIODevice::ReadOnly);
        ASSERT_TRUE(recorder.waitForReadyRead(10000)) << recorder.errorString().toStdString();
        // Not to wait for anything: to be killed at any moment.
        QThread::usleep(random() % 100000);
        recorder.kill();
        ASSERT_TRUE(recorder.waitForFinished(10000));

        clips.clear();
        snippets.clear();
        const QByteArrayList lines = recorder.readAllStandardOutput().split('\n');
        // The last one is what follows the last line end.
        for (const QByteArray &line : lines.first(lines.size() - 1)) {
            const QByteArrayList words = line.split(' ');
            (words.at(0) == "clip" ? clips : snippets).append(QUuid(words.at(1)));
        }
    }

    template <class Object>
    void expectKept(const QList<QUuid> &reported)
    {
        QSet<QUuid> kept;
        for (const Object *object : view().fetch<Object>())
            kept.insert(object->id().value_or(QUuid()));
        for (const QUuid &id : reported.last(std::min(kSurelyKept, reported.size())))
            EXPECT_TRUE(kept.contains(id)) << id.toString().toStdString();
    }

    QList<QUuid> clips;
    QList<QUuid> snippets;
};

} // namespace

TEST_F(StoreKillTest, whatWasReportedAsSavedSurvivesAKillAtAnyMoment)
{
    const int kills = qEnvironmentVariableIsSet(kLongVariable) ? kLongKills : kKills;
    std::mt19937 random(std::random_device{}());
    close();
    qsizetype reported = 0;
    for (int kill = 0; kill < kills; ++kill) {
        recordAndKill(random);
        EXPECT_EQ(answer(clipsFile(), "PRAGMA integrity_check"), "ok");
        EXPECT_EQ(answer(snippetsFile(), "PRAGMA integrity_check"), "ok");

        reported += clips.size() + snippets.size();
        open();

        expectKept<Clip>(clips);
        expectKept<Snippet>(snippets);
        qint16 position = 0;
        for (const Clip *clip : view().fetch<Clip>())
            EXPECT_EQ(clip->position(), ++position);
        close();
    }
    EXPECT_GE(reported, kills);
    RecordProperty("reported", static_cast<int>(reported));
}
