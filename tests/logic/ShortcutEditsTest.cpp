// SPDX-License-Identifier: MIT
// Stored shortcuts that are edited by hand while the program runs.
#include "tests/logic/KeyboardShortcutsTest.h"

#include <QFile>
#include <QTest>

using namespace KeyboardShortcuts;

namespace {

class ShortcutEditsTest : public KeyboardShortcutsTest
{
protected:
    ShortcutEditsTest()
    {
        onKeyDown(Name::contextHotKey(), [this] { ++calls; });
        QObject::connect(&notifications(), &Notifications::shortcutByNameDidChange, &receiver,
                         [this](const Name &name) { announced.push_back(name.rawValue()); });
    }

    /// Writes the file as an editor does, and waits until the edit was noticed.
    void edit(const QByteArray &context)
    {
        QByteArray text;
        {
            QFile in(file);
            ASSERT_TRUE(in.open(QIODevice::ReadOnly));
            for (const QByteArray &line : in.readAll().split('\n')) {
                if (!line.startsWith("KeyboardShortcuts_contextHotKey="))
                    text += line + '\n';
            }
        }
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write(text.trimmed() + "\n" + context);
        out.close();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !announced.isEmpty(); }));
    }

    static QByteArray line(int keyCode, int modifiers)
    {
        return "KeyboardShortcuts_contextHotKey=\"{\\\"carbonKeyCode\\\":" +
               QByteArray::number(keyCode) +
               ",\\\"carbonModifiers\\\":" + QByteArray::number(modifiers) + "}\"\n";
    }

    QObject receiver;
    QStringList announced;
    int calls = 0;
};

} // namespace

TEST_F(ShortcutEditsTest, theNewChordActsAndTheOldOneIsGivenBack)
{
    ASSERT_TRUE(service->holds(9, 768));

    edit(line(40, 2304));

    EXPECT_EQ(announced, QStringList{Name::contextHotKey().rawValue()});
    EXPECT_FALSE(service->holds(9, 768));
    EXPECT_TRUE(service->press(40, 2304));
    EXPECT_EQ(calls, 1);
}

TEST_F(ShortcutEditsTest, anEntryThatIsNoShortcutAnyMoreGivesItsChordBack)
{
    edit("KeyboardShortcuts_contextHotKey=nonsense\n");

    EXPECT_FALSE(service->holds(9, 768));
    EXPECT_FALSE(getShortcut(Name::contextHotKey()));
}

TEST_F(ShortcutEditsTest, anEditThatIsTakenBackBringsTheOldChordBack)
{
    edit(line(40, 2304));
    announced.clear();

    edit(line(9, 768));

    EXPECT_FALSE(service->holds(40, 2304));
    EXPECT_TRUE(service->press(9, 768));
    EXPECT_EQ(calls, 1);
}

TEST_F(ShortcutEditsTest, whatIsRecordedAfterAnEditTakesTheEditsPlace)
{
    edit(line(40, 2304));

    setShortcut(Shortcut(11, cmdKey), Name::contextHotKey());

    EXPECT_FALSE(service->holds(40, 2304));
    EXPECT_TRUE(service->holds(11, 256));
    EXPECT_EQ(registeredShortcuts().size(), 1);
}

TEST_F(ShortcutEditsTest, aChangeOfOurOwnIsAnnouncedOnce)
{
    setShortcut(Shortcut(11, cmdKey), Name::contextHotKey());
    EXPECT_EQ(announced.size(), 1);

    setShortcut(std::nullopt, Name::contextHotKey());
    EXPECT_EQ(announced.size(), 2);
    EXPECT_EQ(service->held.size(), 0U);
}
