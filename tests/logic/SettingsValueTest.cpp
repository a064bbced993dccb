// SPDX-License-Identifier: MIT
#include "platform/defaults/SettingsValue.h"

#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using platform::settingsValueOf;
using platform::textOfSettingsValue;

namespace {

const QStringList kTexts = {
    QString(),
    QStringLiteral("plain"),
    QStringLiteral("{\"carbonKeyCode\":9,\"carbonModifiers\":768}"),
    QStringLiteral(" blanks "),
    QStringLiteral("a, b; c = d # e"),
    QStringLiteral("back\\slash and \"quotes\""),
    QStringLiteral("line\nline\r\n\ttab"),
    QStringLiteral("\x01"
                   "abc\x7f"
                   "f"),
    QStringLiteral("öß€ 😀"),
    QStringLiteral("@"),
    QStringLiteral("@@x"),
    QStringLiteral("@Invalid()"),
    QStringLiteral("[General]"),
    QStringLiteral("%41"),
};

/// The other reader and writer of this notation.
class SettingsValueTest : public ::testing::Test
{
protected:
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a.conf"));
    const QString key = QStringLiteral("key");
};

} // namespace

TEST_F(SettingsValueTest, everyTextComesBackAndStaysOnOneLine)
{
    for (const QString &text : kTexts) {
        const QByteArray value = settingsValueOf(text);
        EXPECT_EQ(textOfSettingsValue(value), text) << value.constData();
        EXPECT_FALSE(value.contains('\n') || value.contains('\r')) << value.constData();
        EXPECT_EQ(value.trimmed(), value);
    }
}

TEST_F(SettingsValueTest, halfACharacterComesBackToo)
{
    const QString half = QString(QChar(0xD83D)) + u'a';

    EXPECT_EQ(textOfSettingsValue(settingsValueOf(half)), half);
}

TEST_F(SettingsValueTest, whatTheToolkitWroteIsRead)
{
    for (const QString &text : kTexts) {
        {
            QSettings settings(file, QSettings::IniFormat);
            settings.setValue(key, text);
        }
        QFile in(file);
        ASSERT_TRUE(in.open(QIODevice::ReadOnly));
        const QByteArray line = in.readAll().split('\n').at(1);

        EXPECT_EQ(textOfSettingsValue(line.mid(4).trimmed()), text) << line.constData();
    }
}

TEST_F(SettingsValueTest, whatIsWrittenTheToolkitReads)
{
    int number = 0;
    for (const QString &text : kTexts) {
        // The toolkit remembers a file as long as its size and its time stay the same.
        QFile out(file + QString::number(++number));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write("[General]\nkey=" + settingsValueOf(text) + '\n');
        out.close();

        EXPECT_EQ(QSettings(out.fileName(), QSettings::IniFormat).value(key).toString(), text)
            << settingsValueOf(text).constData();
    }
}

TEST_F(SettingsValueTest, plainTruthsAndNumbersStandWithoutQuotes)
{
    for (const char *text : {"true", "false", "3", "-0.5", "nan", "1e+300"})
        EXPECT_EQ(settingsValueOf(QString::fromLatin1(text)), text);
}

TEST_F(SettingsValueTest, listsAndOtherTypesHaveNoText)
{
    for (const char *value : {"a, b", ",", "1,", "\"a\", \"b\"", "@Invalid()",
                              "@Variant(\\0\\0\\0\\x7f)", "@Size(1 2)", "@ByteArray(abc)"}) {
        EXPECT_EQ(textOfSettingsValue(value), std::nullopt) << value;
    }
}

TEST_F(SettingsValueTest, whatIsBrokenOffIsReadAsFarAsItGoes)
{
    EXPECT_EQ(textOfSettingsValue("\"abc"), QStringLiteral("abc"));
    EXPECT_EQ(textOfSettingsValue("\"a, b"), QStringLiteral("a, b"));
    EXPECT_EQ(textOfSettingsValue("abc\\"), QStringLiteral("abc"));
    EXPECT_EQ(textOfSettingsValue("\""), QString());
    EXPECT_EQ(textOfSettingsValue("a\"b\"c"), QStringLiteral("abc"));
}

TEST_F(SettingsValueTest, bytesThatAreNoTextAreReplaced)
{
    EXPECT_EQ(textOfSettingsValue("a\xFF"
                                  "b"),
              QStringLiteral("a\uFFFDb"));
    EXPECT_EQ(textOfSettingsValue("\"\xC3\""), QStringLiteral("\uFFFD"));
    EXPECT_EQ(textOfSettingsValue(QByteArray("a\0b", 3)),
              QString(QStringLiteral("a") + QChar(0) + u'b'));
}

TEST_F(SettingsValueTest, aCommentBehindAValueIsNoPartOfIt)
{
    EXPECT_EQ(textOfSettingsValue("true ; a comment, and more"), QStringLiteral("true"));
    EXPECT_EQ(textOfSettingsValue("\"a;b \" ;c"), QStringLiteral("a;b "));
}

TEST_F(SettingsValueTest, jsonWrittenByHandIsRead)
{
    for (const char *value :
         {"{\"carbonKeyCode\":9,\"carbonModifiers\":768}", "{ \"a\": 1, \"b\": \"x;y\\n\" }"}) {
        EXPECT_EQ(textOfSettingsValue(value), QString::fromUtf8(value));
    }
    EXPECT_EQ(textOfSettingsValue("{a, b}"), std::nullopt);
    EXPECT_EQ(textOfSettingsValue("{}"), QStringLiteral("{}"));
    EXPECT_EQ(textOfSettingsValue("{\\\"a\\\":1}"), QStringLiteral("{\"a\":1}"));
}

TEST_F(SettingsValueTest, anyBytesHaveATextOrNoneAndThatTextComesBack)
{
    const QByteArray parts("ab09x\\\\\"\",;@@{} \t\xC3\xBC\xFF\0()n", 25);
    std::mt19937 chance(7);
    for (int i = 0; i < 20000; ++i) {
        QByteArray value;
        const auto size = static_cast<qsizetype>(chance() % 20);
        while (value.size() < size)
            value += parts.at(static_cast<qsizetype>(chance() % 25));
        const std::optional<QString> text = textOfSettingsValue(value);
        if (text) {
            ASSERT_EQ(textOfSettingsValue(settingsValueOf(*text)), text)
                << value.toPercentEncoding().constData();
        }
    }
}
