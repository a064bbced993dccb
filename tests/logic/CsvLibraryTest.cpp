// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/CsvLibrary.h"

#include <gtest/gtest.h>

namespace {

const QDateTime kCreated = QDateTime::fromMSecsSinceEpoch(1000, Qt::UTC);

// The items as "title=content", a folder as "[title]", a missing value as "-".
std::string summary(const QByteArray &file)
{
    const auto library = readCsvLibrary(file, kCreated);
    if (!library)
        return library.error().text.toStdString();
    std::string result;
    for (const ParsedItem &item : library->items) {
        const std::string title = item.title.value_or(QStringLiteral("-")).toStdString();
        const std::string content = item.content.value_or("-").toStdString();
        result += result.empty() ? "" : " ";
        result += item.isFolder ? '[' + title + ']' : title + '=' + content;
    }
    return result;
}

} // namespace

TEST(CsvLibraryTest, rowsAreSnippetsInTheirOrder)
{
    EXPECT_EQ(summary("a,b\nc,d\n"), "a=b c=d");
    EXPECT_EQ(summary("a,b\r\nc,d"), "a=b c=d");
    EXPECT_EQ(summary("\n\r\na,b\n\nc,d\n\n"), "a=b c=d");
    EXPECT_EQ(summary("\xEF\xBB\xBF\"ä\",ö"), "ä=ö");
}

TEST(CsvLibraryTest, itemsGetTheTimeAndNoId)
{
    const auto library = readCsvLibrary("a,b,F", kCreated);

    ASSERT_TRUE(library);
    ASSERT_EQ(library->items.size(), 2U);
    for (const ParsedItem &item : library->items) {
        EXPECT_EQ(item.timestamp, kCreated);
        EXPECT_EQ(item.id, std::nullopt);
    }
    EXPECT_TRUE(library->items[0].expanded);
    EXPECT_EQ(library->items[0].content, std::nullopt);
}

TEST(CsvLibraryTest, rowsOfOneFolderGatherWhereItFirstStands)
{
    EXPECT_EQ(summary("a,1,F\nb,2,G\nc,3,\nd,4,F\ne,5,f\n"), "c=3 [F] a=1 d=4 [G] b=2 [f] e=5");
}

TEST(CsvLibraryTest, aHeaderNamesTheColumns)
{
    EXPECT_EQ(summary("title,content,folder\na,1,F\n"), "[F] a=1");
    EXPECT_EQ(summary("Folder, CONTENT ,\"Title\"\nF,1,a\n"), "[F] a=1");
    EXPECT_EQ(summary("content\n1\n2\n"), "-=1 -=2");
    EXPECT_EQ(summary("Title\na\n"), "a=-");
    EXPECT_EQ(summary("title,content\n"), "");
    // No headers: a name twice, and one that is none.
    EXPECT_EQ(summary("title,title\n"), "title=title");
    EXPECT_EQ(summary("title,text\n"), "title=text");
}

TEST(CsvLibraryTest, semicolonsSeparateToo)
{
    EXPECT_EQ(summary("a;b,b;F\nc;d;\n"), "c=d [F] a=b,b");
    EXPECT_EQ(summary("\"a;;;;\",b;b\n"), "a;;;;=b;b");
    // The first row tells.
    EXPECT_EQ(summary("\nTitle\na;b\n"), "a;b=-");
}

TEST(CsvLibraryTest, quotedFieldsHoldEverything)
{
    EXPECT_EQ(summary("\"a \"\"b\"\"\",\"1,\r\n2;\n\r\"\n"), "a \"b\"=1,\r\n2;\n\r");
    EXPECT_EQ(summary("\"\",\"\"\"\"\n"), "=\"");
    EXPECT_EQ(summary("a, b \n"), "a= b ");
    EXPECT_EQ(summary("a,b\rc\n"), "a=b\rc");
    EXPECT_EQ(summary(QByteArray("a,b\0c", 5)), std::string("a=b\0c", 5));
    EXPECT_EQ(summary("a,\uFEFFb"), "a=\uFEFFb");
}

TEST(CsvLibraryTest, emptyFieldsAreEmptyTexts)
{
    const auto library = readCsvLibrary(",", kCreated);

    ASSERT_TRUE(library);
    EXPECT_EQ(library->items.at(0).title, QString());
    EXPECT_EQ(library->items.at(0).content, QByteArray());
}

TEST(CsvLibraryTest, malformedRowsAreRefusedWithTheirLine)
{
    EXPECT_EQ(summary(""), "Line 1: The file is empty.");
    EXPECT_EQ(summary("\n\n"), "Line 1: The file is empty.");
    EXPECT_EQ(summary("a,b\nc,\"d\ne\n"),
              "Line 2: The quotation mark that begins this field is never closed.");
    EXPECT_EQ(summary("a,b\nc,\"d\ne\"x\n"),
              "Line 3: Something follows the end of a field in quotation marks.");
    EXPECT_EQ(summary("a,b\nc,d\"e\"\n"),
              "Line 2: A field with a quotation mark in it must stand in quotation marks, and the "
              "mark must be doubled.");
    EXPECT_EQ(summary("a,\"b\n\"\nc\n"), "Line 3: The first row has 2 fields, but this one has 1.");
    EXPECT_EQ(summary("title,content\na,b,c\n"),
              "Line 2: The first row has 2 fields, but this one has 3.");
    EXPECT_EQ(summary("\n\na,b,c,d\n"),
              "Line 3: A row must have 2 or 3 fields (title, content, and "
              "perhaps folder), but this one has 4.");
    EXPECT_EQ(summary("a\nb\n"), "Line 1: A row must have 2 or 3 fields (title, content, and "
                                 "perhaps folder), but this one has 1.");
    EXPECT_EQ(summary("folder\nF\n"), "Line 1: A row must have 2 or 3 fields (title, content, and "
                                      "perhaps folder), but this one has 1.");
    EXPECT_EQ(summary("a,b\nc,\xE4\n"), "Line 2: The file is not in UTF-8.");
}

TEST(CsvLibraryTest, moreItemsThanALibraryHoldsAreRefused)
{
    const QByteArray most = "a,b,F\n" + QByteArray("a,b,\n").repeated(32765);

    EXPECT_EQ(readCsvLibrary(most, kCreated)->items.size(), 32767U);
    EXPECT_EQ(summary(most + "a,b,\n"),
              "Line 32767: A library holds at most 32,767 snippets and folders.");
    EXPECT_EQ(summary(QByteArray(most).replace(0, 6, "a,b,F\na,b,G\n")),
              "Line 32766: A library holds at most 32,767 snippets and folders.");
}
