// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/LibraryReader.h"
#include "Quillery_Mac/editor/exchange/LibraryFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

// A library whose items are on the lines from 2 on.
QByteArray libraryOf(const QByteArray &items)
{
    return "{\"format\": \"Quillery library\", \"version\": 1, \"items\": [\n" + items + "\n]}";
}

std::string refusalOf(const QByteArray &file)
{
    const auto library = readLibrary(file);
    return library ? "accepted" : library.error().text.toStdString();
}

// What an item on line 2 is refused for.
std::string itemRefusal(const QByteArray &item)
{
    return refusalOf(libraryOf(item));
}

ParsedItem item(const QByteArray &json)
{
    const auto library = readLibrary(libraryOf(json));
    EXPECT_TRUE(library) << library.error().text.toStdString();
    return library && library->items.size() == 1 ? library->items[0] : ParsedItem();
}

const char *const kTimestampRefusal =
    "Line 2: The timestamp must be a date such as \"2026-11-21T15:45:02.123Z\", or the "
    "milliseconds since 1970.";

} // namespace

TEST(LibraryReaderTest, aFileWrittenByHandIsRead)
{
    const auto library = readLibrary("\xEF\xBB\xBF\r\n{ \"items\":[{\"members\" : [ {\"title\":"
                                     "\"\\u0041\\/\\b\\f\\ud83d\\udc69\"} ],\r\n \"title\":\"F\"},"
                                     "{\"title\":\"top\",\"expanded\":false}]\t,"
                                     "\"version\":1,\"format\":\"Quillery library\"}\r\n");

    ASSERT_TRUE(library) << library.error().text.toStdString();
    ASSERT_EQ(library->items.size(), 3U);
    // Where no folder owns it.
    EXPECT_EQ(library->items[0].title, QStringLiteral("top"));
    EXPECT_TRUE(library->items[1].isFolder);
    EXPECT_EQ(library->items[1].title, QStringLiteral("F"));
    EXPECT_EQ(library->items[2].title, QStringLiteral("A/\b\f\U0001F469"));
    EXPECT_FALSE(library->items[2].isFolder);
}

TEST(LibraryReaderTest, aMarkAtTheBeginningOfATextIsPartOfIt)
{
    EXPECT_EQ(item("{\"content\": \"\uFEFFx\"}").content, QByteArray("\uFEFFx"));
}

TEST(LibraryReaderTest, timestampsAreReadInUtc)
{
    const auto milliseconds = [](const QByteArray &json) {
        return item("{\"timestamp\": " + json + "}").timestamp->toMSecsSinceEpoch();
    };
    EXPECT_EQ(milliseconds("\"1970-01-01T00:00:01Z\""), 1000);
    EXPECT_EQ(milliseconds("\"1970-01-01T01:00:00.5+01:00\""), 500);
    EXPECT_EQ(milliseconds("-5"), -5);
}

TEST(LibraryReaderTest, aNewerFormatIsRefused)
{
    EXPECT_EQ(refusalOf("{\"format\": \"Quillery library\",\n\"version\": 2,\n\"things\": 0}"),
              "Line 2: The library was written by a newer Quillery (version 2 of the format; this "
              "one reads 1).");
}

TEST(LibraryReaderTest, whatIsNoLibraryIsRefused)
{
    EXPECT_EQ(refusalOf(""), "Line 1: A Quillery library begins with “{”.");
    EXPECT_EQ(refusalOf("\n\n[]"), "Line 3: A Quillery library begins with “{”.");
    EXPECT_EQ(refusalOf("{}"), "Line 1: “format” is missing.");
    EXPECT_EQ(refusalOf("{\"format\": \"Quillery library\"}"), "Line 1: “version” is missing.");
    EXPECT_EQ(refusalOf("{\"format\": \"Quillery library\", \"version\": 1}"),
              "Line 1: “items” is missing.");
    EXPECT_EQ(refusalOf("{\n\"format\": \"Other\"}"),
              "Line 2: The format must be “Quillery library”.");
    EXPECT_EQ(refusalOf("{\n\"format\": 7}"), "Line 2: The format must be “Quillery library”.");
    EXPECT_EQ(refusalOf("{\"name\": 1}"), "Line 1: “name” has no meaning here.");
    for (const char *version : {"0", "-1", "1.0", "1e0", "01", "\"1\"", "null", "-"}) {
        EXPECT_EQ(refusalOf(QByteArray("{\"version\": ") + version + "}"),
                  "Line 1: The version must be a number, 1 or greater.")
            << version;
    }
}

TEST(LibraryReaderTest, brokenJsonIsRefusedWithItsLine)
{
    EXPECT_EQ(itemRefusal("{\"title\": \"a\"},\n{\"title\": \"b\"\n\"content\": \"c\"}"),
              "Line 4: A comma or “}” must stand here.");
    EXPECT_EQ(itemRefusal("{}\n{}"), "Line 3: A comma or “]” must stand here.");
    EXPECT_EQ(itemRefusal("{},"), "Line 3: An item must stand here, which begins with “{”.");
    EXPECT_EQ(itemRefusal("{\"title\": \"a\",}"),
              "Line 2: A name in quotation marks must stand here.");
    EXPECT_EQ(itemRefusal("{title: 1}"), "Line 2: A name in quotation marks must stand here.");
    EXPECT_EQ(itemRefusal("{\"title\" \"a\"}"), "Line 2: A colon must stand here.");
    EXPECT_EQ(refusalOf(libraryOf("{}") + "\n\nx"),
              "Line 5: Nothing may follow the end of the library.");
    EXPECT_EQ(refusalOf("{\"format\": \"Quillery library\", \"version\": 1, \"items\": [\n{}\n"),
              "Line 3: A comma or “]” must stand here.");
}

TEST(LibraryReaderTest, brokenTextsAreRefusedWithTheirLine)
{
    EXPECT_EQ(itemRefusal("{\n\"title\": \"a}"),
              "Line 3: A line end or control character inside a text must be written as an escape, "
              "such as \\n.");
    EXPECT_EQ(refusalOf("{\n\"format"), "Line 2: The text that begins here has no end.");
    EXPECT_EQ(refusalOf("{\n\"format\\"), "Line 2: There is no such escape.");
    EXPECT_EQ(itemRefusal("{\"title\": \"\\x\"}"), "Line 2: There is no such escape.");
    EXPECT_EQ(itemRefusal("{\"title\": \"\\u12g4\"}"),
              "Line 2: Four hexadecimal digits must follow \\u.");
    EXPECT_EQ(refusalOf("{\"\\u12"), "Line 1: Four hexadecimal digits must follow \\u.");
    EXPECT_EQ(itemRefusal("{\"content\": \"\\ud800\"}"),
              "Line 2: The content holds half a character, an escape \\ud800 to \\udfff without "
              "its other half.");
    EXPECT_EQ(itemRefusal("{},\n{\"content\": \"a\xFF\"}"), "Line 3: The file is not in UTF-8.");
    EXPECT_EQ(itemRefusal(QByteArray("{\"title\": \"a\0\"}", 14)),
              "Line 2: A line end or control character inside a text must be written as an escape, "
              "such as \\n.");
}

TEST(LibraryReaderTest, valuesOfTheWrongKindAreRefusedWithTheirLine)
{
    EXPECT_EQ(itemRefusal("{\"title\":\n null}"), "Line 3: The title must be a text.");
    EXPECT_EQ(itemRefusal("{\"content\": 5}"), "Line 2: The content must be a text.");
    EXPECT_EQ(itemRefusal("{\"contentBase64\": \"a!\"}"),
              "Line 2: “contentBase64” must be a Base64 text.");
    EXPECT_EQ(itemRefusal("{\"contentBase64\": \"YQ==\",\n \"content\": \"a\"}"),
              "Line 3: The item has two contents.");
    EXPECT_EQ(itemRefusal("{\"expanded\": 1}"), "Line 2: “expanded” must be true or false.");
    EXPECT_EQ(itemRefusal("{\"members\": {}}"),
              "Line 2: The members must be a list in square brackets.");
    EXPECT_EQ(itemRefusal("7"), "Line 2: An item must stand here, which begins with “{”.");
    EXPECT_EQ(itemRefusal("{\"order\": 7}"), "Line 2: “order” has no meaning here.");
    EXPECT_EQ(itemRefusal("{\"\\n\\ud800" + QByteArray(100, 'y') + "\": 7}"),
              "Line 2: “\uFFFD?" + std::string(38, 'y') + "” has no meaning here.");
    EXPECT_EQ(itemRefusal("{\"title\": \"a\",\n \"title\": \"a\"}"),
              "Line 3: “title” stands here twice.");
    for (const char *id : {"\"x\"", "7", "\"00000000-0000-0000-0000-000000000000\"",
                           "\"0A1B2C3D-1111-2222-3333-444455556666x\""})
        EXPECT_EQ(itemRefusal(QByteArray("{\"id\": ") + id + "}"),
                  "Line 2: The id must be a UUID.");
    for (const char *time : {"\"yesterday\"", "\"2026-11-21T15:45:02\"", "\"2026-13-01T00:00:00Z\"",
                             "99999999999999999", "9999999999999999999999", "1.5", "true"})
        EXPECT_EQ(itemRefusal(QByteArray("{\"timestamp\": ") + time + "}"), kTimestampRefusal)
            << time;
}

TEST(LibraryReaderTest, aFolderInsideAFolderIsRefused)
{
    EXPECT_EQ(itemRefusal("{\"members\": [\n{\"members\": []}]}"),
              "Line 3: A folder cannot stand inside a folder.");
}

TEST(LibraryReaderTest, depthIsNoDanger)
{
    EXPECT_EQ(refusalOf(QByteArray(1000000, '[')), "Line 1: A Quillery library begins with “{”.");
    EXPECT_EQ(itemRefusal("{\"title\": " + QByteArray(1000000, '{')),
              "Line 2: The title must be a text.");
    EXPECT_EQ(itemRefusal(QByteArray("{\"members\": [").repeated(100000)),
              "Line 2: A folder cannot stand inside a folder.");
}

TEST(LibraryReaderTest, moreItemsThanALibraryHoldsAreRefused)
{
    QByteArray most("{}");
    most += QByteArray(",\n{}").repeated(32766);

    EXPECT_EQ(itemRefusal(most), "accepted");
    EXPECT_EQ(itemRefusal(most + ",\n{}"),
              "Line 32769: A library holds at most 32,767 snippets and folders.");
}

TEST(LibraryFileTest, aFileThatCannotBeReadIsSaidSo)
{
    const QTemporaryDir folder;
    const auto reason = [&folder](const QString &name) {
        const auto library = readLibraryFile(folder.filePath(name));
        return library ? "accepted" : library.error().text.toStdString();
    };
    QFile large(folder.filePath(QStringLiteral("large.json")));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    ASSERT_TRUE(large.resize(kMaxLibraryFileBytes + 1));
    ASSERT_EQ(
        ::mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))).constData(), 0600), 0);
    const std::string place = folder.path().toStdString();

    EXPECT_EQ(reason(QStringLiteral("none.json")),
              place + "/none.json could not be read: No such file or directory");
    EXPECT_EQ(reason(QStringLiteral("large.json")),
              place + "/large.json could not be read: It is larger than 1 GiB");
    EXPECT_EQ(reason(QStringLiteral("pipe")), place + "/pipe could not be read: It is not a file");
    EXPECT_EQ(reason(QStringLiteral(".")), place + "/. could not be read: It is not a file");
}

TEST(LibraryFileTest, theNameSaysWhetherItIsATable)
{
    const QTemporaryDir folder;
    const auto isRead = [&folder](const QString &name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        return readLibraryFile(file.fileName()).has_value();
    };
    EXPECT_TRUE(isRead(QStringLiteral("a.CSV"), "title,content\n"));
    EXPECT_TRUE(isRead(QStringLiteral("a.json"), libraryOf("{}")));
    EXPECT_TRUE(isRead(QStringLiteral("a"), libraryOf("{}")));
    EXPECT_FALSE(isRead(QStringLiteral("b.json"), "title,content\n"));
}
