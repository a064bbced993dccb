// SPDX-License-Identifier: MIT
#include "platform/defaults/Defaults.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

using platform::Defaults;

namespace {

class DefaultsTest : public ::testing::Test
{
protected:
    void writeFile(const QByteArray &text) const
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write(text);
    }

    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("Quillery/Quillery.conf"));
    const QString key = QStringLiteral("someKey");
};

} // namespace

TEST_F(DefaultsTest, anEmptyStoreAnswersWithTheFallbacks)
{
    const Defaults defaults(file);

    EXPECT_FALSE(defaults.contains(key));
    EXPECT_EQ(defaults.string(key), std::nullopt);
    EXPECT_TRUE(defaults.boolean(key, true));
    EXPECT_EQ(defaults.number(key, 3.0), 3.0);
}

TEST_F(DefaultsTest, valuesSurviveTheProcess)
{
    {
        Defaults defaults(file);
        defaults.setString(QStringLiteral("text"), QStringLiteral("{\"a\":9,\"b\":\"ü, ;\"}"));
        defaults.setBoolean(QStringLiteral("truth"), false);
        defaults.setNumber(QStringLiteral("number"), 9.5);
    }

    const Defaults again(file);
    EXPECT_EQ(again.string(QStringLiteral("text")), QStringLiteral("{\"a\":9,\"b\":\"ü, ;\"}"));
    EXPECT_FALSE(again.boolean(QStringLiteral("truth"), true));
    EXPECT_EQ(again.number(QStringLiteral("number"), 0), 9.5);
}

TEST_F(DefaultsTest, aChangeIsAnnouncedOnceAndTheSameValueNotAtAll)
{
    Defaults defaults(file);
    const QSignalSpy spy(&defaults, &Defaults::changed);

    defaults.setNumber(key, 3);
    defaults.setNumber(key, 3);

    EXPECT_EQ(spy.count(), 1);
}

TEST_F(DefaultsTest, anEditByHandIsNoticed)
{
    Defaults defaults(file);
    defaults.setNumber(key, 3);
    QSignalSpy spy(&defaults, &Defaults::changed);

    writeFile("[General]\nsomeKey=5.25\n");

    ASSERT_TRUE(spy.count() > 0 || spy.wait(5000));
    EXPECT_EQ(defaults.number(key, 0), 5.25);
}

TEST_F(DefaultsTest, aValueOfAnotherTypeReadsAsTheFallback)
{
    QDir().mkpath(folder.filePath(QStringLiteral("Quillery")));
    writeFile("[General]\nsomeKey=a, b\nother=text\n");
    const Defaults defaults(file);

    EXPECT_TRUE(defaults.boolean(key, true));
    EXPECT_EQ(defaults.string(key), std::nullopt);
    EXPECT_EQ(defaults.number(QStringLiteral("other"), 3.0), 3.0);
}

TEST_F(DefaultsTest, notANumberIsKeptAsSuch)
{
    Defaults defaults(file);
    defaults.setNumber(key, std::nan(""));

    EXPECT_TRUE(std::isnan(defaults.number(key, 3.0)));
}
