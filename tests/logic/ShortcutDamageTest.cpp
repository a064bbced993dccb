// SPDX-License-Identifier: MIT
// Stored shortcuts as a damaged or hand-made file has them.
#include "tests/logic/KeyboardShortcutsTest.h"

#include <QFile>

#include <ostream>

using namespace KeyboardShortcuts;

namespace {

const QByteArray kContext = "KeyboardShortcuts_contextHotKey=";
const QByteArray kAdd = "KeyboardShortcuts_addHotKey=";
const QByteArray kReadable = "\"{\\\"carbonKeyCode\\\":40,\\\"carbonModifiers\\\":2304}\"";
const Shortcut kShortcut(40, cmdKey | optionKey);

struct Row
{
    QByteArray value; ///< as it stands in the file
    std::optional<Shortcut> shortcut;

    friend void PrintTo(const Row &row, std::ostream *out) { *out << row.value.constData(); }
};

/// One name has a readable shortcut, the other one what the row says.
class ShortcutDamageTest : public KeyboardShortcutsTest, public ::testing::WithParamInterface<Row>
{
protected:
    void startWith(const QByteArray &context, const QByteArray &add)
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write("[General]\n" + kContext + context + '\n' + kAdd + add + "\nlater=\"1, 2\n");
        out.close();
        start();
        onKeyDown(Name::contextHotKey(), [this] { ++contextCalls; });
        onKeyUp(Name::addHotKey(), [this] { ++addCalls; });
    }

    QByteArray fileText() const
    {
        QFile in(file);
        EXPECT_TRUE(in.open(QIODevice::ReadOnly));
        return in.readAll();
    }

    int contextCalls = 0;
    int addCalls = 0;
};

Row none(const char *value)
{
    return {value, std::nullopt};
}

} // namespace

TEST_P(ShortcutDamageTest, readsAsItIsAndTheOtherNamesShortcutWorks)
{
    startWith(GetParam().value, kReadable);

    EXPECT_EQ(getShortcut(Name::contextHotKey()), GetParam().shortcut);
    EXPECT_EQ(getShortcut(Name::addHotKey()), kShortcut);
    EXPECT_TRUE(service->press(40, 0x900));
    EXPECT_TRUE(service->release(40, 0x900));
    EXPECT_EQ(addCalls, 1);
}

TEST_P(ShortcutDamageTest, readsAsItIsBelowTheOtherNamesShortcutToo)
{
    startWith(kReadable, GetParam().value);

    EXPECT_EQ(getShortcut(Name::addHotKey()), GetParam().shortcut);
    EXPECT_TRUE(service->press(40, 0x900));
    EXPECT_EQ(contextCalls, 1);
}

TEST_P(ShortcutDamageTest, staysAsItIsAlsoAfterAnotherKeyIsWritten)
{
    startWith(GetParam().value, kReadable);

    setShortcut(Shortcut(9, 768), Name::addHotKey());

    const QByteArray line = '\n' + kContext + GetParam().value + '\n';
    EXPECT_TRUE(fileText().contains(line)) << fileText().constData();
    EXPECT_TRUE(fileText().endsWith("later=\"1, 2\n"));
}

TEST_P(ShortcutDamageTest, isReplacedByANewShortcut)
{
    startWith(GetParam().value, kReadable);

    setShortcut(Shortcut(9, 768), Name::contextHotKey());
    start();

    EXPECT_EQ(getShortcut(Name::contextHotKey()), Shortcut(9, 768));
    EXPECT_EQ(getShortcut(Name::addHotKey()), kShortcut);
}

INSTANTIATE_TEST_SUITE_P(
    NoShortcut, ShortcutDamageTest,
    ::testing::Values(none(""), none("\"\""), none("not JSON"), none("\"{\""), none("{}"),
                      none("17"), none("-17"), none("9.5"), none("true"), none("false"),
                      none("1, 2, 3"), none("\"a\", \"b\""), none("[]"), none("\"[9,768]\""),
                      none("@Invalid()"), none("@Variant(\\0\\0\\0\\x7f)"), none("\xFF\xFF"),
                      none("\"{\\\"carbonKeyCode\\\":9,\\\"carbonMod"),
                      none("\"{\\\"carbonKeyCode\\\":9.5,\\\"carbonModifiers\\\":768}\""),
                      none("\"{\\\"carbonKeyCode\\\":9,\\\"carbonModifiers\\\":0.1}\""),
                      none("\"{\\\"carbonKeyCode\\\":\\\"9\\\",\\\"carbonModifiers\\\":768}\""),
                      none("\"{\\\"carbonKeyCode\\\":1e300,\\\"carbonModifiers\\\":768}\""),
                      none("\"{\\\"carbonKeyCode\\\":NaN,\\\"carbonModifiers\\\":768}\""),
                      none("\"{\\\"carbonKeyCode\\\":9223372036854775808,"
                           "\\\"carbonModifiers\\\":768}\"")));

INSTANTIATE_TEST_SUITE_P(
    Readable, ShortcutDamageTest,
    ::testing::Values(
        Row{"\"{\\\"more\\\":[1,{}],\\\"carbonModifiers\\\":768,\\\"carbonKeyCode\\\":9}\"",
            Shortcut(9, 768)},
        Row{"{\"carbonKeyCode\":9,\"carbonModifiers\":768}", Shortcut(9, 768)},
        Row{"{ \"carbonModifiers\": 768, \"carbonKeyCode\": 9 }", Shortcut(9, 768)},
        Row{"\"{\\\"carbonKeyCode\\\":9,\\\"carbonModifiers\\\":768}", Shortcut(9, 768)},
        Row{"\"{\\\"carbonKeyCode\\\":9.0,\\\"carbonModifiers\\\":768}\"", Shortcut(9, 768)},
        Row{"\"{\\\"carbonKeyCode\\\":-1,\\\"carbonModifiers\\\":-768}\"", Shortcut(-1, -768)},
        Row{"\"{\\\"carbonKeyCode\\\":4294967305,\\\"carbonModifiers\\\":768}\"",
            Shortcut(4294967305, 768)},
        Row{"\"{\\\"carbonKeyCode\\\":9223372036854775807,\\\"carbonModifiers\\\":768}\"",
            Shortcut(std::numeric_limits<qint64>::max(), 768)}));

TEST_F(ShortcutDamageTest, aNumberThatNoKeyHasFiresNothing)
{
    startWith("\"{\\\"carbonKeyCode\\\":4294967305,\\\"carbonModifiers\\\":768}\"", kReadable);

    EXPECT_FALSE(service->holds(9, 768));
    EXPECT_EQ(service->held.size(), 1U);
}
