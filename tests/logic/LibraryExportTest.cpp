// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/LibraryFile.h"
#include "Quillery_Mac/editor/exchange/LibraryImport.h"
#include "Quillery_Mac/editor/exchange/LibraryWriter.h"
#include "tests/logic/StoreTestSupport.h"

#include <QDir>

namespace {

// The whole format: whoever changes these bytes changes what users have on their disks.
constexpr const char *kWholeFormat = R"({
  "format": "Quillery library",
  "version": 1,
  "items": [
    {
      "title": "Greeting",
      "content": "Hello,\nGrüße\t\"you\" \\ 👩‍👩‍👧",
      "timestamp": "2026-11-21T15:45:02.123Z",
      "id": "0A1B2C3D-1111-2222-3333-444455556666"
    },
    {},
    {
      "title": "",
      "content": ""
    },
    {
      "title": "Work",
      "expanded": true,
      "timestamp": "1969-12-31T23:59:59.999Z",
      "id": "0A1B2C3D-1111-2222-3333-444455556667",
      "members": [
        {
          "title": "Bytes",
          "contentBase64": "Yf8A"
        },
        {
          "timestamp": 253402300800000
        }
      ]
    },
    {
      "title": "Empty",
      "members": []
    }
  ]
}
)";

QDateTime moment(qint64 milliseconds)
{
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
}

class LibraryExportTest : public StoreTest
{
protected:
    QString file() const { return folder.filePath(QStringLiteral("library.json")); }

    Snippet *add(const std::optional<QString> &title,
                 const std::optional<QByteArray> &content) const
    {
        auto *snippet = view().insert<Snippet>();
        snippet->setOrder(static_cast<qint16>(view().count<Snippet>() - 1));
        snippet->setTitle(title);
        snippet->setContent(content);
        return snippet;
    }
    Snippet *addFolder(const QString &title) const
    {
        Snippet *added = add(title, std::nullopt);
        added->setIsFolder(true);
        return added;
    }

    QByteArray exported() const
    {
        const auto written = exportLibrary(view(), file());
        EXPECT_TRUE(written) << written.error().text.toStdString();
        return bytes(file());
    }

    // Gives the library up for an empty one.
    void startAnew()
    {
        close();
        EXPECT_TRUE(QDir(folderPath()).removeRecursively());
        open();
    }

    // Everything of an item but its id, which an import may have to choose.
    struct Known
    {
        std::optional<QString> title;
        std::optional<QByteArray> content;
        std::optional<QDateTime> timestamp;
        bool expanded;
        bool isFolder;
        bool operator==(const Known &) const = default;
    };
    std::vector<Known> known() const
    {
        std::vector<Known> result;
        for (const Snippet *item : view().fetch<Snippet>()) {
            result.push_back({item->title(), item->content(), item->timestamp(), item->expanded(),
                              item->isFolder()});
        }
        return result;
    }
    std::vector<std::optional<QUuid>> ids() const
    {
        std::vector<std::optional<QUuid>> result;
        for (const Snippet *item : view().fetch<Snippet>())
            result.push_back(item->id());
        return result;
    }

    // Takes the written file into an empty library.
    void takeIn()
    {
        startAnew();
        const auto library = readLibraryFile(file());
        ASSERT_TRUE(library) << library.error().text.toStdString();
        ASSERT_TRUE(importLibrary(view(), *library));
        close();
        open();
    }
};

} // namespace

TEST_F(LibraryExportTest, theFormatStaysAsItIs)
{
    Snippet *greeting =
        add(QStringLiteral("Greeting"), "Hello,\nGrüße\t\"you\" \\ 👩‍👩‍👧");
    greeting->setTimestamp(moment(1795275902123));
    greeting->setId(QUuid(QStringLiteral("0a1b2c3d-1111-2222-3333-444455556666")));
    add(std::nullopt, std::nullopt);
    add(QStringLiteral(""), QByteArray(""));
    Snippet *work = addFolder(QStringLiteral("Work"));
    work->setExpanded(true);
    work->setTimestamp(moment(-1));
    work->setId(QUuid(QStringLiteral("0a1b2c3d-1111-2222-3333-444455556667")));
    add(QStringLiteral("Bytes"), QByteArray("a\xFF\0", 3));
    add(std::nullopt, std::nullopt)->setTimestamp(moment(253402300800000)); // the year 10000
    addFolder(QStringLiteral("Empty"));

    EXPECT_EQ(exported().toStdString(), kWholeFormat);
}

TEST_F(LibraryExportTest, anEmptyLibraryIsAFileToo)
{
    EXPECT_EQ(exported(), "{\n  \"format\": \"Quillery library\",\n  \"version\": 1,\n"
                          "  \"items\": []\n}\n");
    takeIn();
    EXPECT_EQ(view().count<Snippet>(), 0);
}

TEST_F(LibraryExportTest, theSameLibraryGivesTheSameBytes)
{
    for (int i = 0; i < 20; ++i)
        add(QString::number(i), QByteArray::number(i))->setId(QUuid::createUuid());
    const QByteArray first = exported();
    ASSERT_TRUE(view().save());
    close();
    open();

    EXPECT_EQ(exported(), first);
}

TEST_F(LibraryExportTest, everyTextComesBackAsItWas)
{
    const std::vector<QByteArray> texts{
        "",
        "two\r\nlines\rand\nmore\n",
        "no\u00A0break \u200B \u2028 \u2029 \u0085 \x7F",
        "\uFEFFbegins with a mark",
        QByteArray("nul\0inside\0", 11),
        "\x01\x02\x1B[0m\b\f",
        "שלום عليكم \u202Eright to left\u202C",
        "👩‍👩‍👧 🇩🇪 \U0010FFFF \uFFFF",
        "\xFF\xFE",
        "cut \xF0\x9F\x91",
        "half a pair \xED\xA0\x80",
        "overlong \xC0\x80",
        "\"quoted\" \\u0041 \\ / {}[],:",
        QByteArray(100000, 'x'),
    };
    for (const QByteArray &text : texts) {
        const QString title = text.isValidUtf8() && !text.startsWith("\uFEFF")
                                  ? QString::fromUtf8(text)
                                  : QStringLiteral("no title");
        add(title, text);
    }
    ASSERT_TRUE(view().save());
    const std::vector<Known> before = known();
    const QByteArray file = exported();

    takeIn();

    EXPECT_EQ(known(), before);
    startAnew();
    EXPECT_TRUE(importLibrary(view(), *readLibraryFile(this->file())));
    for (Snippet *item : view().fetch<Snippet>())
        item->setId(std::nullopt); // the only thing that is new
    EXPECT_EQ(exported(), file);
}

TEST_F(LibraryExportTest, whatCannotBeSeenIsEscapedAndNothingElse)
{
    add(QStringLiteral("\u0001\u001F\u007F\u009F\u2028\u2029\uFEFF\b"),
        "a\u00A0\u200B\u202E\uFFFD/'~");

    const QByteArray file = exported();
    EXPECT_TRUE(file.contains(R"("title": "\u0001\u001f\u007f\u009f\u2028\u2029\ufeff\u0008")"))
        << file.toStdString();
    EXPECT_TRUE(file.contains("\"content\": \"a\u00A0\u200B\u202E\uFFFD/'~\""))
        << file.toStdString();
}

TEST_F(LibraryExportTest, halfAPairInATitleComesBack)
{
    const QString title = QString(QChar(0xD83D)) + u"x" + QChar(0xDC69) + u"\U0001F469";
    add(title, "text");
    exported();

    const auto library = readLibraryFile(file());
    ASSERT_TRUE(library);
    EXPECT_EQ(library->items.at(0).title, title);
}

TEST_F(LibraryExportTest, whatIsMissingStaysMissing)
{
    add(std::nullopt, std::nullopt);
    add(QStringLiteral(""), QByteArray(""));
    exported();

    const auto library = readLibraryFile(file());
    ASSERT_TRUE(library);
    const ParsedItem &nothing = library->items.at(0);
    EXPECT_EQ(nothing.title, std::nullopt);
    EXPECT_EQ(nothing.content, std::nullopt);
    EXPECT_EQ(nothing.timestamp, std::nullopt);
    EXPECT_EQ(nothing.id, std::nullopt);
    EXPECT_EQ(library->items.at(1).title, QString());
    EXPECT_EQ(library->items.at(1).content, QByteArray());
    takeIn();
    EXPECT_EQ(view().fetch<Snippet>().at(0)->content(), std::nullopt);
    EXPECT_EQ(view().fetch<Snippet>().at(1)->content(), QByteArray());
}

TEST_F(LibraryExportTest, everyDateOfAStoreComesBack)
{
    for (const qint64 milliseconds :
         {qint64{0}, qint64{-1}, qint64{-62135596800000}, qint64{-62135596800001},
          qint64{253402300799999}, qint64{253402300800000}, qint64{9'999'999'999'999'999},
          qint64{-9'999'999'999'999'999}})
        add(QString::number(milliseconds), "x")->setTimestamp(moment(milliseconds));
    exported();

    const auto library = readLibraryFile(file());
    ASSERT_TRUE(library) << library.error().text.toStdString();
    for (const ParsedItem &item : library->items)
        EXPECT_EQ(item.timestamp->toMSecsSinceEpoch(), item.title->toLongLong());
}

TEST_F(LibraryExportTest, aLargeLibraryComesBackInOrderWithItsIds)
{
    constexpr int kItems = 32000;
    for (int i = 0; i < kItems; ++i) {
        auto *item = view().insert<Snippet>();
        item->setOrder(static_cast<qint16>(i));
        item->setTitle(QStringLiteral("Title %1").arg(i));
        item->setContent("text " + QByteArray::number(i));
        item->setId(QUuid::createUuid());
        item->setIsFolder(i % 50 == 49);
        item->setExpanded(i % 100 == 99);
        item->setTimestamp(moment(1'600'000'000'000 + i));
    }
    ASSERT_TRUE(view().save());
    const auto itemsBefore = known();
    const auto idsBefore = ids();
    exported();

    takeIn();

    EXPECT_EQ(known(), itemsBefore);
    EXPECT_EQ(ids(), idsBefore);
    const auto items = view().fetch<Snippet>();
    for (int i = 0; i < kItems; ++i)
        ASSERT_EQ(items.at(static_cast<std::size_t>(i))->order(), i);
}

TEST_F(LibraryExportTest, aFolderThatIsNotThereIsSaidSo)
{
    const auto written =
        exportLibrary(view(), folder.filePath(QStringLiteral("none/library.json")));

    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().kind, platform::Error::Kind::Io);
    EXPECT_TRUE(written.error().text.startsWith(QStringLiteral("The library could not be written")))
        << written.error().text.toStdString();
}

TEST_F(LibraryExportTest, anExportThatFailsLeavesTheFormerFileAlone)
{
    add(QStringLiteral("long"), QByteArray(300000, 'x'));
    ASSERT_TRUE(view().save());
    const QByteArray before = exported();
    close();
    QByteArray damaged = bytes(snippetsFile());
    // Everything but the pages of the schema and of the row's beginning.
    constexpr qsizetype kIntact = qsizetype{16384} * 14;
    ASSERT_GT(damaged.size(), kIntact);
    open();
    Snippet *item = view().fetch<Snippet>().at(0);
    ASSERT_EQ(item->preview().lineCount, 1);
    QFile store(snippetsFile());
    ASSERT_TRUE(store.open(QIODevice::ReadWrite));
    // The disk loses the file's end.
    ASSERT_TRUE(store.resize(kIntact));
    store.close();

    ::testing::internal::CaptureStdout();
    const auto written = exportLibrary(view(), file());
    ::testing::internal::GetCapturedStdout();

    ASSERT_FALSE(written);
    EXPECT_TRUE(written.error().text.contains(QStringLiteral("\u201clong\u201d could not be read")))
        << written.error().text.toStdString();
    EXPECT_EQ(bytes(file()), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files),
              QStringList{QStringLiteral("library.json")});
}
