// SPDX-License-Identifier: MIT
// Both facilities on the hot keys of one X server.
#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "hotkey/HotKey.h"
#include "hotkey/HotKeysController.h"
#include "platform/defaults/Defaults.h"
#include "platform/hotkeys/HotkeyFactory.h"
#include "platform/keyboard/KeyboardLayoutFactory.h"
#include "tests/platform/OtherProgram.h"
#include "tests/platform/TestKeyboard.h"

#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using hotkey::HotKey;
using hotkey::Key;
using hotkey::KeyCombo;
using platform::Modifier;

namespace {

constexpr unsigned kControlSuper = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_4;

class HotKeysBesideShortcutsTest : public ::testing::Test
{
protected:
    HotKeysBesideShortcutsTest()
    {
        KeyboardShortcuts::setUp(defaults, *service, *layout);
        hotkey::HotKeysController::setUp(*service);
        const auto &name = KeyboardShortcuts::Name::contextHotKey();
        KeyboardShortcuts::onKeyDown(name, logged("shortcut down"));
        KeyboardShortcuts::onKeyUp(name, logged("shortcut up"));
        hotKey = std::make_unique<HotKey>(KeyCombo(Key::c, Modifier::Control | Modifier::Command),
                                          logged("hot key down"), logged("hot key up"));
        other.takeFocus();
    }

    ~HotKeysBesideShortcutsTest() override
    {
        hotKey.reset();
        hotkey::HotKeysController::tearDown();
        KeyboardShortcuts::tearDown();
    }

    std::function<void()> logged(const char *text)
    {
        return [this, text] { calls += QString::fromLatin1(text); };
    }

    void strikeShortcut()
    {
        keyboard.strikeTogether({TestKeyboard::kSuper, TestKeyboard::kShift, TestKeyboard::kV});
    }

    void strikeHotKey()
    {
        keyboard.strikeTogether({TestKeyboard::kSuper, TestKeyboard::kControl, TestKeyboard::kC});
    }

    void expectCalls(const char *expected)
    {
        const QString text = QString::fromLatin1(expected);
        EXPECT_TRUE(QTest::qWaitFor([this, &text] { return calls.join(u", ") == text; }))
            << qPrintable(calls.join(u", "));
        calls.clear();
    }

    QTemporaryDir folder;
    platform::Defaults defaults{folder.filePath(QStringLiteral("Quillery.conf"))};
    std::unique_ptr<platform::HotkeyService> service = platform::makeHotkeyService();
    std::unique_ptr<platform::KeyboardLayout> layout = platform::makeKeyboardLayout();
    OtherProgram other;
    TestKeyboard keyboard;
    std::unique_ptr<HotKey> hotKey;
    QStringList calls;
};

} // namespace

TEST_F(HotKeysBesideShortcutsTest, eachHearsOfItsOwnChordPressedAndReleased)
{
    strikeShortcut();
    expectCalls("shortcut down, shortcut up");

    strikeHotKey();
    expectCalls("hot key down, hot key up");

    strikeShortcut();
    expectCalls("shortcut down, shortcut up");
}

TEST_F(HotKeysBesideShortcutsTest, bothKeysMayBeDownAtOnce)
{
    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);
    expectCalls("shortcut down");
    keyboard.release(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kControl);
    keyboard.press(TestKeyboard::kC);
    expectCalls("hot key down");
    keyboard.release(TestKeyboard::kV);
    expectCalls("shortcut up");
    keyboard.release(TestKeyboard::kC);
    expectCalls("hot key up");
}

TEST_F(HotKeysBesideShortcutsTest, aPausedHotKeyIsFreeForOthersAndTheShortcutStays)
{
    EXPECT_FALSE(other.grab(TestKeyboard::kC, kControlSuper));

    hotKey->setPaused(true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return other.grab(TestKeyboard::kC, kControlSuper); }));
    other.ungrab(TestKeyboard::kC, kControlSuper);
    strikeHotKey();
    strikeShortcut();
    expectCalls("shortcut down, shortcut up");

    hotKey->setPaused(false);
    strikeHotKey();
    expectCalls("hot key down, hot key up");
}

TEST_F(HotKeysBesideShortcutsTest, silencedShortcutsLeaveTheHotKeyAlone)
{
    KeyboardShortcuts::setPaused(true);

    strikeShortcut();
    strikeHotKey();

    expectCalls("hot key down, hot key up");
}

TEST_F(HotKeysBesideShortcutsTest, aHotKeyThatIsGoneIsFreeForOthers)
{
    hotKey.reset();

    EXPECT_TRUE(QTest::qWaitFor([this] { return other.grab(TestKeyboard::kC, kControlSuper); }));
}
