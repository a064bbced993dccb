// SPDX-License-Identifier: MIT
#include "platform/defaults/SettingsText.h"

#include <gtest/gtest.h>

#include <random>

using platform::SettingsText;

namespace {

const QByteArray kShortcut = "\"{\\\"carbonKeyCode\\\":40,\\\"carbonModifiers\\\":768}\"";
const QByteArray kHeader = "[General]\n";
const QByteArray kFirst = "first=" + kShortcut + '\n';
const QByteArray kMiddle = "middle=\"any, text\"\n";
const QByteArray kLast = "last=" + kShortcut + '\n';
const QByteArray kText = kHeader + kFirst + kMiddle + kLast;

QByteArray value(const SettingsText &text, const char *key)
{
    return text.settings().value(QString::fromLatin1(key));
}

QByteArray withSet(const QByteArray &before, const char *key, const char *value)
{
    SettingsText text(before);
    text.set(QString::fromLatin1(key), value);
    return text.bytes();
}

} // namespace

TEST(SettingsText, aNewSettingStartsTheFile)
{
    EXPECT_EQ(withSet("", "a", "1"), "[General]\na=1\n");
}

TEST(SettingsText, aSettingIsChangedInItsPlaceAndANewOneStandsLast)
{
    EXPECT_EQ(withSet("[General]\na=1\nb=2\n", "a", "9"), "[General]\na=9\nb=2\n");
    EXPECT_EQ(withSet("[General]\na=1\n\n[Other]\nc=3\n", "b", "2"),
              "[General]\na=1\nb=2\n\n[Other]\nc=3\n");
    EXPECT_EQ(withSet("[Other]\na=1", "b", "2"), "[Other]\na=1\n[General]\nb=2\n");
    EXPECT_EQ(withSet("a=1", "b", "2"), "a=1\nb=2\n");
}

TEST(SettingsText, theLastOfSeveralCountsAndIsChanged)
{
    EXPECT_EQ(value(SettingsText("[General]\na=1\na=2\n"), "a"), "2");
    EXPECT_EQ(withSet("[General]\na=1\na=2\n", "a", "3"), "[General]\na=1\na=3\n");
}

TEST(SettingsText, removingTakesEveryLineOfTheSettingAndNothingElse)
{
    SettingsText text("[General]\na=1\nb=2\n; a=3\na=4\n[Other]\na=5\n");

    text.remove(QStringLiteral("a"));

    EXPECT_EQ(text.bytes(), "[General]\nb=2\n; a=3\n[Other]\na=5\n");
    EXPECT_FALSE(text.settings().contains(QStringLiteral("a")));
}

TEST(SettingsText, everythingElseStaysByteForByte)
{
    const QByteArray odd =
        "# a comment\n\n[General]\n odd \xFF key = \"never closed\n=no key\nno value\n"
        "list=a, \"b\"\nraw=@Variant(\\0\\0)\n[Other]\na=1\n\xFF\xFE";
    SettingsText text(odd);

    text.set(QStringLiteral("new"), "1");
    text.remove(QStringLiteral("new"));

    EXPECT_EQ(text.bytes(), odd);
}

TEST(SettingsText, lineEndsStayAsTheyAre)
{
    EXPECT_EQ(value(SettingsText("[General]\r\na=1\r\nb=2\r\n"), "a"), "1");
    EXPECT_EQ(withSet("[General]\r\na=1\r\n", "a", "2"), "[General]\r\na=2\r\n");
    EXPECT_EQ(withSet("[General]\r\na=1\r\n", "b", "2"), "[General]\r\na=1\r\nb=2\r\n");
}

TEST(SettingsText, aByteOrderMarkIsReadOverAndKept)
{
    EXPECT_EQ(value(SettingsText("\xEF\xBB\xBF"
                                 "a=1\n"),
                    "a"),
              "1");
    EXPECT_EQ(withSet("\xEF\xBB\xBF[General]\na=1\n", "a", "2"), "\xEF\xBB\xBF[General]\na=2\n");
    EXPECT_EQ(withSet("\xEF\xBB\xBF"
                      "a=1",
                      "a", "2"),
              "\xEF\xBB\xBF"
              "a=2");
}

TEST(SettingsText, otherSectionsAreNotOurs)
{
    const SettingsText text("[Other]\na=1\n[general]\nb=2\n[More]\nb=3\n");

    EXPECT_FALSE(text.settings().contains(QStringLiteral("a")));
    EXPECT_EQ(value(text, "b"), "2");
}

TEST(SettingsText, wheresoeverItIsCutOffWhatStandsBeforeIsRead)
{
    for (qsizetype size = 0; size <= kText.size(); ++size) {
        const SettingsText text(kText.first(size));
        EXPECT_EQ(text.bytes(), kText.first(size));
        if (size >= kHeader.size() + kFirst.size() - 1) {
            EXPECT_EQ(value(text, "first"), kShortcut) << size;
        }
        if (size >= kText.size() - 1) {
            EXPECT_EQ(value(text, "last"), kShortcut) << size;
        }
    }
}

TEST(SettingsText, aDamagedLineHarmsNoOtherLine)
{
    const qsizetype begin = kHeader.size() + kFirst.size();
    for (const char damage : {'\xFF', '\0', '"', '\\', '[', ']', '=', ';', '\n', '\r'}) {
        for (qsizetype i = begin; i < begin + kMiddle.size() - 1; ++i) {
            QByteArray damaged = kText;
            damaged[i] = damage;
            const SettingsText text(damaged);
            EXPECT_EQ(text.bytes(), damaged);
            EXPECT_EQ(value(text, "first"), kShortcut) << i << ' ' << int(damage);
            EXPECT_EQ(value(text, "last"), kShortcut) << i << ' ' << int(damage);
        }
    }
}

TEST(SettingsText, aDamagedHeaderHidesNothing)
{
    for (qsizetype i = 0; i < kHeader.size(); ++i) {
        for (const char damage : {'\xFF', '\0', '\n'}) {
            QByteArray damaged = kText;
            damaged[i] = damage;
            if (damaged.at(kHeader.size() - 1) == '\n') {
                EXPECT_EQ(value(SettingsText(damaged), "first"), kShortcut) << i;
            }
            EXPECT_EQ(value(SettingsText(damaged), "last"), kShortcut) << i;
        }
        if (i + 1 < kHeader.size()) {
            EXPECT_EQ(value(SettingsText(kHeader.first(i) + '\n' + kFirst), "first"), kShortcut)
                << i;
        }
    }
}

TEST(SettingsText, anyBytesAreKeptAndTakeASettingAndGiveItBack)
{
    const QByteArray parts("[]Gg=\n\n\r\"\\;#k \xEF\xBB\xBF\xFF\0", 18);
    const QString key = QStringLiteral("k");
    std::mt19937 chance(7);
    for (int i = 0; i < 20000; ++i) {
        QByteArray bytes = i % 2 == 0 ? "[General]\n" : "";
        const auto size = static_cast<qsizetype>(chance() % 40);
        while (bytes.size() < size)
            bytes += parts.at(static_cast<qsizetype>(chance() % 18));
        SettingsText text(bytes);
        ASSERT_EQ(text.bytes(), bytes);

        text.set(key, "1");
        ASSERT_EQ(SettingsText(text.bytes()).settings(), text.settings())
            << bytes.toPercentEncoding().constData();
        ASSERT_EQ(text.settings().value(key), "1");
        text.remove(key);
        ASSERT_EQ(SettingsText(text.bytes()).settings(), text.settings())
            << bytes.toPercentEncoding().constData();
        ASSERT_FALSE(text.settings().contains(key));
    }
}
