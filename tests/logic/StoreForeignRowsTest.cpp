// SPDX-License-Identifier: MIT
// Rows as other programs may have written them.
#include "tests/logic/StoreTestSupport.h"

namespace {

class StoreForeignRowsTest : public StoreTest
{
protected:
    // Adds a row to the snippets while the stores are closed and opens them again.
    const Snippet &rowWith(const std::string &column, const std::string &value)
    {
        close();
        execute(snippetsFile(), "INSERT INTO Snippet (" + column + ") VALUES (" + value + ")");
        open();
        return *view().fetch<Snippet>().at(0);
    }
};

using StoreForeignRowsDeathTest = StoreForeignRowsTest;

} // namespace

TEST_F(StoreForeignRowsTest, aRowAddedWhileWeWereNotRunningIsAnObjectLikeAnyOther)
{
    close();
    execute(clipsFile(), "INSERT INTO Clip (content, device, id, position) VALUES"
                         " ('x', 'D', '0a1b2c3d-1111-2222-3333-444455556666', 4)");
    open();

    auto clips = view().fetch<Clip>();
    ASSERT_EQ(clips.size(), 1U);
    EXPECT_EQ(clips[0]->content(), QByteArray("x"));
    EXPECT_EQ(clips[0]->id(), QUuid(QStringLiteral("0A1B2C3D-1111-2222-3333-444455556666")));
    clips[0]->setPosition(2);
    ASSERT_TRUE(view().save());
    view().deleteObject(*clips[0]);
    EXPECT_TRUE(view().save());
}

TEST_F(StoreForeignRowsTest, nothingButNullsIsAnObjectWithNothing)
{
    const Snippet &snippet =
        rowWith("content, id, inFolder, timestamp, title", "NULL, NULL, NULL, NULL, NULL");

    EXPECT_EQ(snippet.content(), std::nullopt);
    EXPECT_EQ(snippet.id(), std::nullopt);
    EXPECT_EQ(snippet.title(), std::nullopt);
    EXPECT_EQ(snippet.timestamp(), std::nullopt);
    EXPECT_FALSE(snippet.isFolder());
    EXPECT_FALSE(snippet.expanded());
    EXPECT_EQ(snippet.order(), 0);
}

TEST_F(StoreForeignRowsTest, whatIsNoUuidIsNoIdAndStaysInTheFile)
{
    EXPECT_EQ(rowWith("id", "'not a uuid'").id(), std::nullopt);
    view().fetch<Snippet>()[0]->setOrder(5);
    ASSERT_TRUE(view().save());

    EXPECT_EQ(answer(snippetsFile(), "SELECT id FROM Snippet"), "not a uuid");
}

TEST_F(StoreForeignRowsTest, bytesAreAText)
{
    const Snippet &snippet = rowWith("content, title", "X'610062', X'63C3A9'");

    EXPECT_EQ(snippet.content(), QByteArray("a\0b", 3));
    EXPECT_EQ(snippet.title(), QStringLiteral("cé"));
    EXPECT_EQ(snippet.preview().lineCount, 1);
}

TEST_F(StoreForeignRowsTest, numbersAreTheTextTheyAreWrittenAs)
{
    const Snippet &snippet = rowWith("content, title", "42, 1.5");

    EXPECT_EQ(snippet.content(), QByteArray("42"));
    EXPECT_EQ(snippet.title(), QStringLiteral("1.5"));
}

TEST_F(StoreForeignRowsTest, invalidTextInATitleIsReplacedAndInAContentKept)
{
    const Snippet &snippet = rowWith("content, title", "CAST(X'61FF' AS TEXT),"
                                                       " CAST(X'61FF' AS TEXT)");

    EXPECT_EQ(snippet.title(), QStringLiteral("a\uFFFD"));
    EXPECT_EQ(snippet.content(), QByteArray("a\xFF"));
}

TEST_F(StoreForeignRowsTest, aTextInANumbersPlaceIsZero)
{
    EXPECT_EQ(rowWith("\"order\"", "'many'").order(), 0);
}

TEST_F(StoreForeignRowsTest, aFractionInANumbersPlaceIsCutOff)
{
    EXPECT_EQ(rowWith("\"order\"", "-7.9").order(), -7);
}

TEST_F(StoreForeignRowsTest, everyNumberButZeroIsTrue)
{
    EXPECT_TRUE(rowWith("isFolder", "17").isFolder());
}

TEST_F(StoreForeignRowsTest, aTextOrAnImpossibleNumberIsNoDate)
{
    EXPECT_EQ(rowWith("timestamp", "'yesterday'").timestamp(), std::nullopt);
    EXPECT_EQ(rowWith("timestamp", "1e300").timestamp(), std::nullopt);
    EXPECT_EQ(rowWith("timestamp", "9e999").timestamp(), std::nullopt);
}

TEST_F(StoreForeignRowsTest, aWholeNumberIsADateToo)
{
    EXPECT_EQ(rowWith("timestamp", "60").timestamp(),
              QDateTime::fromMSecsSinceEpoch(60000, Qt::UTC));
}

TEST_F(StoreForeignRowsTest, equalNegativeAndGappedOrdersAreSortedAsTheyStand)
{
    close();
    execute(snippetsFile(), "INSERT INTO Snippet (title, \"order\") VALUES ('d', 900), ('b', 3),"
                            " ('c', 3), ('a', -32768), ('e', 32767)");
    open();

    EXPECT_EQ(titles(view().fetch<Snippet>()),
              (std::vector<QString>{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                                    QStringLiteral("d"), QStringLiteral("e")}));
}

TEST_F(StoreForeignRowsTest, aFullLibraryIsReadWithoutItsTexts)
{
    close();
    execute(snippetsFile(),
            "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 32767)"
            " INSERT INTO Snippet (title, content, \"order\")"
            " SELECT i, printf('%01000d', i), i FROM n");
    open();

    const auto snippets = view().fetch<Snippet>();
    ASSERT_EQ(snippets.size(), 32767U);
    EXPECT_EQ(snippets.back()->order(), 32767);
    EXPECT_TRUE(snippets.back()->content().value_or(QByteArray()).endsWith("032767"));
}

TEST_F(StoreForeignRowsDeathTest, anOrderBeyondSixteenBitsIsFatal)
{
    EXPECT_DEATH(rowWith("\"order\"", "32768"),
                 "Fatal error: order 32768 is out of range: .*-32768 to 32767.*\"order\"");
    EXPECT_DEATH(rowWith("\"order\"", "-32769"), "order -32769 is out of range");
}

TEST_F(StoreForeignRowsDeathTest, aHugeNumberInAnOrdersPlaceIsFatal)
{
    EXPECT_DEATH(rowWith("\"order\"", "1e300"), "order .* is out of range");
    EXPECT_DEATH(rowWith("\"order\"", "-9e999"), "order .* is out of range");
    EXPECT_DEATH(rowWith("\"order\"", "9223372036854775807"),
                 "order 9223372036854775807 is out of range");
}

TEST_F(StoreForeignRowsDeathTest, aPositionBeyondSixteenBitsIsFatal)
{
    close();
    execute(clipsFile(), "INSERT INTO Clip (position) VALUES (70000)");
    open();

    EXPECT_DEATH(view().fetch<Clip>(),
                 "Fatal error: position 70000 is out of range: .*-32768 to 32767.*\"position\"");
}
