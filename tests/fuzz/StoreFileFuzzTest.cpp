// SPDX-License-Identifier: MIT
// Store files with random damage are given to a program that uses them. It must end well, or by a
// number that is out of range and said to be so; and a file that it refuses must stay as it is.
#include "Quillery_Mac/store/PersistentHistory.h"
#include "tests/logic/StoreTestSupport.h"

#include <QProcess>

#include <random>

namespace {

// How many damaged files; the long run of the tests sets the variable.
constexpr const char *kLongVariable = "QUILLERY_LONG";
constexpr int kRounds = 100;
constexpr int kLongRounds = 2000;

class Damage
{
public:
    explicit Damage(unsigned seed)
        : m_random(seed)
    {
    }

    QByteArray applyTo(QByteArray file)
    {
        for (unsigned blow = 0; blow <= m_random() % 6 && !file.isEmpty(); ++blow)
            hit(file);
        return file;
    }

private:
    qsizetype below(qsizetype limit) { return static_cast<qsizetype>(m_random()) % limit; }

    void hit(QByteArray &file)
    {
        const qsizetype at = below(file.size());
        const qsizetype length = std::min(1 + below(2000), file.size() - at);
        switch (m_random() % 6) {
        case 0:
        case 1:
            file[at] = static_cast<char>(m_random());
            break;
        case 2:
            // The first bytes and the schema are what decides most.
            file[below(std::min<qsizetype>(file.size(), 4000))] = static_cast<char>(m_random());
            break;
        case 3:
            file.replace(at, length, QByteArray(length, static_cast<char>(m_random())));
            break;
        case 4:
            file.replace(at, length, file.sliced(below(file.size() - length + 1), length));
            break;
        default:
            if (m_random() % 4 == 0)
                file.truncate(at);
        }
    }

    std::mt19937 m_random;
};

class StoreFileFuzzTest : public StoreTest
{
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        EXPECT_TRUE(container().history(StoreKind::Snippets).addConsumer(QStringLiteral("x")));
        for (qint16 order = 0; order < 300; ++order) {
            Snippet *snippet = addSnippet(QStringLiteral("Title %1").arg(order), order,
                                          QByteArray(order * 20, 'e'));
            snippet->setId(QUuid::createUuid());
            snippet->setTimestamp(QDateTime::currentDateTimeUtc());
        }
        addSnippet(QStringLiteral("long"), 300, QByteArray(200000, 'x'));
        view().insert<Clip>()->setContent("clip");
        ASSERT_TRUE(view().save());
        // As after a kill: with a log that is not written back.
        m_logged = bytes(snippetsFile());
        m_log = bytes(snippetsFile() + QStringLiteral("-wal"));
        close();
        m_whole = bytes(snippetsFile());
    }

    static void writeBytes(const QString &file, const QByteArray &content)
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(out.write(content), content.size());
    }

    void useDamaged(unsigned seed)
    {
        Damage damage(seed);
        const bool hasLog = seed % 3 == 0;
        const QByteArray file = hasLog ? m_logged : damage.applyTo(m_whole);
        const QString log = snippetsFile() + QStringLiteral("-wal");
        writeBytes(snippetsFile(), file);
        QFile::remove(log);
        QFile::remove(snippetsFile() + QStringLiteral("-shm"));
        if (hasLog)
            writeBytes(log, damage.applyTo(m_log));

        QProcess reader;
        reader.start(QStringLiteral(STORE_READER), {folderPath()}, QIODevice::ReadOnly);
        ASSERT_TRUE(reader.waitForFinished(60000));

        const QByteArray errors = reader.readAllStandardError();
        const bool isOutOfRange = errors.contains("Fatal error: order ");
        EXPECT_TRUE(isOutOfRange ||
                    (reader.exitStatus() == QProcess::NormalExit && reader.exitCode() == 0))
            << errors.toStdString();
        const QByteArray refusal = QByteArray("Load ") + QFile::encodeName(snippetsFile());
        if (reader.readAllStandardOutput().startsWith(refusal)) {
            EXPECT_EQ(bytes(snippetsFile()), file);
        }
    }

private:
    QByteArray m_whole;
    QByteArray m_logged;
    QByteArray m_log;
};

} // namespace

TEST_F(StoreFileFuzzTest, aDamagedFileNeverBreaksTheProgram)
{
    const int rounds = qEnvironmentVariableIsSet(kLongVariable) ? kLongRounds : kRounds;
    const unsigned first = std::random_device{}();
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("seed " + std::to_string(first + static_cast<unsigned>(round)));
        useDamaged(first + static_cast<unsigned>(round));
    }
}
