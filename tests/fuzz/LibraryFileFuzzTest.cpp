// SPDX-License-Identifier: MIT
// Library files with random damage. Each is either refused with a line that it has, or is a library
// that can be taken in, written, and read again as the same.
#include "Quillery_Mac/editor/exchange/CsvLibrary.h"
#include "Quillery_Mac/editor/exchange/LibraryImport.h"
#include "Quillery_Mac/editor/exchange/LibraryReader.h"
#include "Quillery_Mac/editor/exchange/LibraryWriter.h"
#include "tests/logic/StoreTestSupport.h"

#include <QRegularExpression>

#include <array>
#include <random>

namespace {

// How many damaged files; the long run of the tests sets the variable.
constexpr const char *kLongVariable = "QUILLERY_LONG";
constexpr int kRounds = 3000;
constexpr int kLongRounds = 300000;

constexpr const char *kJson = R"({
  "format": "Quillery library", "version": 1, "items": [
    {"title": "a\u00e4\ud83d\udc69", "content": "x\r\n\"\\y", "expanded": true,
     "timestamp": "2026-11-21T15:45:02.123Z", "id": "0A1B2C3D-1111-2222-3333-444455556666"},
    {"title": "F", "members": [{"contentBase64": "Yf8A"}, {}], "timestamp": -17},
    {"title": "G", "members": []}
  ]
}
)";
constexpr const char *kCsv = "Title,Content,Folder\r\n\"a \"\"b\"\"\",\"1,\r\n2\",F\r\n"
                             "ä,👩,\r\n\"\",,G\r\nc,d,F\r\n";

constexpr std::array<const char *, 16> kPieces{
    "{",       "}",  "[", "]",        "\"",   ",", ":",    "\\",
    "\\ud800", "\n", ";", "\xF0\x9F", "true", "9", "null", "\"members\": [{"};

class Damage
{
public:
    explicit Damage(unsigned seed)
        : m_random(seed)
    {
    }

    QByteArray applyTo(QByteArray file)
    {
        for (unsigned blow = 0; blow <= m_random() % 4 && !file.isEmpty(); ++blow)
            hit(file);
        return file;
    }

private:
    qsizetype below(qsizetype limit) { return static_cast<qsizetype>(m_random()) % limit; }

    void hit(QByteArray &file)
    {
        const qsizetype at = below(file.size());
        const qsizetype length = std::min(1 + below(20), file.size() - at);
        switch (m_random() % 5) {
        case 0:
            file[at] = static_cast<char>(m_random());
            break;
        case 1:
            file.remove(at, length);
            break;
        case 2:
            file.insert(at, kPieces[m_random() % kPieces.size()]);
            break;
        case 3:
            file.insert(at, file.sliced(below(file.size() - length + 1), length));
            break;
        default:
            if (m_random() % 4 == 0)
                file.truncate(at);
        }
    }

    std::mt19937 m_random;
};

bool isSame(const ParsedItem &one, const ParsedItem &other)
{
    return one.title == other.title && one.content == other.content &&
           one.timestamp == other.timestamp && one.expanded == other.expanded &&
           one.isFolder == other.isFolder;
}

class LibraryFileFuzzTest : public StoreTest
{
protected:
    using Reader = std::function<platform::Result<ParsedLibrary>(const QByteArray &)>;

    void run(const QByteArray &whole, const Reader &read)
    {
        const int rounds = qEnvironmentVariableIsSet(kLongVariable) ? kLongRounds : kRounds;
        const unsigned first = std::random_device{}();
        int refused = 0;
        for (int round = 0; round < rounds; ++round) {
            const unsigned seed = first + static_cast<unsigned>(round);
            SCOPED_TRACE("seed " + std::to_string(seed));
            const QByteArray file = Damage(seed).applyTo(whole);
            const auto library = read(file);
            if (!library) {
                ++refused;
                expectReason(file, library.error());
            } else if (round % 20 == 0) {
                expectRoundTrip(*library);
            }
        }
        // Else nothing was tried.
        EXPECT_GT(refused, 0);
        EXPECT_LT(refused, rounds);
    }

private:
    static void expectReason(const QByteArray &file, const platform::Error &error)
    {
        static const QRegularExpression kReason(QStringLiteral("^Line ([0-9]+): .+\\.$"),
                                                QRegularExpression::DotMatchesEverythingOption);
        const auto match = kReason.match(error.text);
        ASSERT_TRUE(match.hasMatch()) << error.text.toStdString();
        EXPECT_GE(match.captured(1).toInt(), 1);
        EXPECT_LE(match.captured(1).toInt(), 1 + file.count('\n'));
    }

    void expectRoundTrip(const ParsedLibrary &library)
    {
        const QString file = folder.filePath(QStringLiteral("library.json"));
        const auto undo = importLibrary(view(), library);
        ASSERT_TRUE(undo);
        ASSERT_TRUE(exportLibrary(view(), file));
        const auto again = readLibrary(bytes(file));
        ASSERT_TRUE(again) << again.error().text.toStdString();
        EXPECT_TRUE(std::equal(library.items.begin(), library.items.end(), again->items.begin(),
                               again->items.end(), isSame));
        ASSERT_TRUE(undo->undo(view()));
        ASSERT_EQ(view().count<Snippet>(), 0);
    }
};

} // namespace

TEST_F(LibraryFileFuzzTest, aDamagedLibraryIsRefusedOrRead)
{
    run(kJson, [](const QByteArray &file) { return readLibrary(file); });
}

TEST_F(LibraryFileFuzzTest, aDamagedTableIsRefusedOrRead)
{
    const QDateTime created = QDateTime::fromMSecsSinceEpoch(0, Qt::UTC);
    run(kCsv, [&created](const QByteArray &file) { return readCsvLibrary(file, created); });
}
