// SPDX-License-Identifier: MIT
// Files that were damaged, or made by other hands.
#include "platform/defaults/Defaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

using platform::Defaults;

namespace {

const QString kKey = QStringLiteral("KeyboardShortcuts_contextHotKey");
const QString kOwn = QStringLiteral("device");
const QString kShortcut = QStringLiteral("{\"carbonKeyCode\":40,\"carbonModifiers\":768}");
const QByteArray kLine =
    "KeyboardShortcuts_contextHotKey=\"{\\\"carbonKeyCode\\\":40,\\\"carbonModifiers\\\":768}\"";

struct Row
{
    const char *name;
    QByteArray before; ///< above the shortcut's line
    QByteArray after;  ///< below it

    friend void PrintTo(const Row &row, std::ostream *out) { *out << row.name; }
};

class DefaultsDamageTest : public ::testing::TestWithParam<Row>
{
protected:
    void writeFile(const QByteArray &bytes) const
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(out.write(bytes), bytes.size());
    }

    QByteArray readFile() const
    {
        QFile in(file);
        EXPECT_TRUE(in.open(QIODevice::ReadOnly));
        return in.readAll();
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("Quillery.conf"));
};

} // namespace

TEST_P(DefaultsDamageTest, theShortcutIsReadAndTheRestKeptThroughAWrite)
{
    const QByteArray bytes = GetParam().before + kLine + GetParam().after;
    writeFile(bytes);
    {
        Defaults defaults(file);
        EXPECT_EQ(defaults.string(kKey), kShortcut);

        defaults.setString(kOwn, QStringLiteral("mine"));

        EXPECT_EQ(defaults.string(kKey), kShortcut);
    }

    const Defaults again(file);
    EXPECT_EQ(again.string(kKey), kShortcut);
    EXPECT_EQ(again.string(kOwn), QStringLiteral("mine"));
    QByteArray without = readFile();
    const QByteArray end = bytes.contains("\r\n") ? "\r\n" : "\n";
    const QByteArray added = "device=mine" + end;
    ASSERT_TRUE(without.contains(added));
    without.replace(added, "");
    // A last line without its end gets one before anything is added.
    EXPECT_TRUE(without == bytes || without == bytes + end) << without.left(300).constData();
}

TEST_P(DefaultsDamageTest, removingAKeyLeavesTheRest)
{
    const QByteArray bytes = GetParam().before + kLine + GetParam().after;
    writeFile(bytes);
    Defaults defaults(file);

    defaults.remove(kKey);

    EXPECT_FALSE(defaults.contains(kKey));
    QByteArray without = bytes;
    without.remove(GetParam().before.size(), kLine.size());
    QByteArray left = readFile();
    EXPECT_EQ(left.simplified().size(), without.simplified().size());
    EXPECT_TRUE(left.startsWith(GetParam().before));
}

INSTANTIATE_TEST_SUITE_P(
    EveryDamage, DefaultsDamageTest,
    ::testing::Values(
        Row{"cut off behind the shortcut", "[General]\n", ""},
        Row{"cut off in a value", "[General]\n", "\nother=\"{\\\"carbonKeyC"},
        Row{"cut off in a name", "[General]\n", "\nKeyboardShor"}, Row{"no header", "", "\n"},
        Row{"a header without its bracket", "[General\n", "\n"},
        Row{"a quote that is never closed", "[General]\nother=\"abc\n", "\nmore=1\n"},
        Row{"raw bytes in a value",
            "[General]\nother=a\xFF\xFE"
            "b\n",
            "\nmore=\xFF\n"},
        Row{"raw bytes in a name", "[General]\n\xFFkey=1\n", "\nk\xC3=1\n"},
        Row{"raw bytes in the header", "[Gen\xFFral]\n", "\n"},
        Row{"lines of raw bytes", "[General]\n\xFF\xFF\xFF\n", "\n\x80\x80\n"},
        Row{"zeroes", QByteArray("[General]\n\0\0\0\n", 14), QByteArray("\na=\0\n", 5)},
        Row{"line ends of another system", "[General]\r\nother=1\r\n", "\r\nmore=\"x\"\r\n"},
        Row{"a byte order mark", "\xEF\xBB\xBF[General]\n", "\nmore=1\n"},
        Row{"a byte order mark before the shortcut", "\xEF\xBB\xBF", "\n"},
        Row{"comments and blank lines", "# mine\n; too\n\n[General]\n\n", "\n\n# end\n"},
        Row{"values of other types", "[General]\nl=a, \"b, c\"\nv=@Variant(\\0\\0\\0\\x7f)\n",
            "\ni=@Invalid()\nj={\"a\":1,\"b\":2}\n"},
        Row{"other sections", "[Other]\nKeyboardShortcuts_contextHotKey=no\n[General]\n",
            "\n[More]\nKeyboardShortcuts_contextHotKey=no\ndevice=no\n"},
        Row{"an older value of the same key", "[General]\nKeyboardShortcuts_other=1\n",
            "\nKeyboardShortcuts_other=2\n"},
        Row{"ten megabytes of settings",
            "[General]\n" + QByteArray("unknown=something, or other\n").repeated(400000), "\n"},
        Row{"ten megabytes in one line",
            "[General]\nunknown=\"" + QByteArray(10 << 20, 'x') + "\"\n", "\n"},
        Row{"ten megabytes without a line", "[General]\n", "\n" + QByteArray(10 << 20, '\xFF')}),
    [](const ::testing::TestParamInfo<Row> &row) {
        return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString();
    });
