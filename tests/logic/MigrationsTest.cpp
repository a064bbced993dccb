// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/Migrations.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace {

/// A file as the first version of a program left it.
class MigrationsTest : public ::testing::Test
{
protected:
    MigrationsTest()
    {
        takeSteps(database, {kFirst});
        database.exec("INSERT INTO Note VALUES ('kept')");
    }

    int version() { return database.execAndGet("PRAGMA user_version").getInt(); }
    std::string answer(const std::string &sql) { return database.execAndGet(sql).getString(); }

    const std::vector<std::string> kFirst{"CREATE TABLE Note (text TEXT)"};
    const std::vector<std::string> kSecond{"ALTER TABLE Note ADD COLUMN size INTEGER",
                                           "UPDATE Note SET size = length(text)"};
    const std::vector<std::string> kThird{"ALTER TABLE Note RENAME TO Memo"};
    SQLite::Database database{":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE};
};

} // namespace

TEST_F(MigrationsTest, anOlderFileTakesTheStepsThatItLacksAndKeepsItsRows)
{
    takeSteps(database, {kFirst, kSecond, kThird});

    EXPECT_EQ(version(), 3);
    EXPECT_EQ(answer("SELECT text || size FROM Memo"), "kept4");
}

TEST_F(MigrationsTest, aFileOfTheNewestVersionIsLeftAsItIs)
{
    takeSteps(database, {kFirst, kSecond});
    database.exec("UPDATE Note SET size = 7");

    takeSteps(database, {kFirst, kSecond});

    EXPECT_EQ(version(), 2);
    EXPECT_EQ(answer("SELECT size FROM Note"), "7");
}

TEST_F(MigrationsTest, aStepThatFailsLeavesTheFileAtTheVersionBeforeIt)
{
    EXPECT_THROW(
        takeSteps(database, {kFirst, kSecond, {"DELETE FROM Note", "UPDATE Missing SET x = 1"}}),
        SQLite::Exception);

    EXPECT_EQ(version(), 2);
    EXPECT_EQ(answer("SELECT text || size FROM Note"), "kept4");
}
