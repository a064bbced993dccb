// SPDX-License-Identifier: MIT
// The shortcut library on the real hot keys of an X server.
#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include "platform/defaults/Defaults.h"
#include "platform/hotkeys/HotkeyFactory.h"
#include "platform/keyboard/KeyboardLayoutFactory.h"
#include "tests/platform/OtherProgram.h"
#include "tests/platform/TestKeyboard.h"

#include <QMenu>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace KeyboardShortcuts;

namespace {

class ShortcutsInMenusTest : public ::testing::Test
{
protected:
    ShortcutsInMenusTest()
    {
        setUp(defaults, *service, *layout);
        onKeyDown(Name::contextHotKey(), [this] { calls += QStringLiteral("down"); });
        onKeyUp(Name::contextHotKey(), [this] { calls += QStringLiteral("up"); });
        other.takeFocus();
    }

    ~ShortcutsInMenusTest() override { tearDown(); }

    void strikeV()
    {
        keyboard.strikeTogether({TestKeyboard::kSuper, TestKeyboard::kShift, TestKeyboard::kV});
    }

    void expectPressAndRelease()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return calls.size() >= 2; }));
        EXPECT_EQ(calls, (QStringList{QStringLiteral("down"), QStringLiteral("up")}));
        calls.clear();
    }

    /// Whether this program holds ⇧⌘V now.
    bool holdsV()
    {
        constexpr unsigned kChord = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4;
        const bool isOthers = other.grab(TestKeyboard::kV, kChord);
        if (isOthers)
            other.ungrab(TestKeyboard::kV, kChord);
        return !isOthers;
    }

    QTemporaryDir folder;
    platform::Defaults defaults{folder.filePath(QStringLiteral("Quillery.conf"))};
    std::unique_ptr<platform::HotkeyService> service = platform::makeHotkeyService();
    std::unique_ptr<platform::KeyboardLayout> layout = platform::makeKeyboardLayout();
    OtherProgram other;
    TestKeyboard keyboard;
    QStringList calls;
};

} // namespace

TEST_F(ShortcutsInMenusTest, theDefaultShortcutWorksEverywhere)
{
    EXPECT_EQ(getShortcut(Name::contextHotKey())->description(), QStringLiteral("⇧⌘V"));

    strikeV();

    expectPressAndRelease();
}

TEST_F(ShortcutsInMenusTest, aStoredChordReachesItsHandlersWhileAMenuIsOpen)
{
    QMenu menu;
    menu.addAction(QStringLiteral("Item"));
    menu.popup(QPoint(100, 100));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    ASSERT_TRUE(isMenuOpen());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !holdsV(); }));

    strikeV();
    expectPressAndRelease();

    menu.close();
    ASSERT_TRUE(QTest::qWaitFor([this] { return holdsV(); }));
    strikeV();
    expectPressAndRelease();
}

TEST_F(ShortcutsInMenusTest, aMenuThatAHandlerOpensHasTheKeyboardAtOnce)
{
    QMenu menu;
    QAction *first = menu.addAction(QStringLiteral("Item"));
    int triggered = 0;
    QObject::connect(first, &QAction::triggered, &menu, [&triggered] { ++triggered; });
    onKeyDown(Name::contextHotKey(), [&menu, first] {
        menu.popup(QPoint(100, 100));
        menu.setActiveAction(first);
    });

    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);
    ASSERT_TRUE(QTest::qWaitFor([&menu] { return menu.isVisible(); }));
    keyboard.release(TestKeyboard::kV);
    keyboard.release(TestKeyboard::kShift);
    keyboard.release(TestKeyboard::kSuper);
    keyboard.strike(TestKeyboard::kReturn);

    EXPECT_TRUE(QTest::qWaitFor([&triggered] { return triggered == 1; }));
    EXPECT_TRUE(other.presses().empty() ||
                std::ranges::count(other.presses(), TestKeyboard::kReturn) == 0);
}

TEST_F(ShortcutsInMenusTest, aChordTakenBySomebodyElseIsStoredAndShown)
{
    constexpr unsigned kChord = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4;
    ASSERT_TRUE(other.grab(TestKeyboard::kReturn, kChord));
    const Name name(QStringLiteral("other"));
    const Shortcut taken(Key::return_, Modifier::Shift | Modifier::Command);

    setShortcut(taken, name);

    EXPECT_EQ(getShortcut(name), taken);
    EXPECT_EQ(taken.description(), QStringLiteral("⇧⌘↩"));
}
