// SPDX-License-Identifier: MIT
// Recording shortcuts with a real keyboard, where chords that are ours do not reach windows.
#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include "Quillery_Mac/settings/RecorderCocoa.h"
#include "platform/defaults/Defaults.h"
#include "platform/hotkeys/HotkeyFactory.h"
#include "platform/keyboard/KeyboardLayoutFactory.h"
#include "tests/fakes/FakeSystemShortcuts.h"
#include "tests/platform/TestKeyboard.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace KeyboardShortcuts;

namespace {

class RecordedShortcutsTest : public ::testing::Test
{
protected:
    RecordedShortcutsTest()
    {
        setUp(defaults, *service, *layout);
        for (const Name &name : {Name::contextHotKey(), Name::addHotKey()}) {
            onKeyDown(name, [this, name] { calls += name.rawValue() + QStringLiteral(" down"); });
            onKeyUp(name, [this, name] { calls += name.rawValue() + QStringLiteral(" up"); });
        }
    }

    ~RecordedShortcutsTest() override
    {
        window.reset();
        tearDown();
    }

    void record(const Name &name)
    {
        window = std::make_unique<QWidget>();
        auto *column = new QVBoxLayout(window.get());
        column->addWidget(new QLineEdit);
        recorder =
            new RecorderCocoa(name, {system, {}}, [this](const std::optional<Shortcut> &shortcut) {
                changes.push_back(shortcut);
            });
        column->addWidget(recorder);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        recorder->setFocus();
        ASSERT_TRUE(recorder->isRecording());
    }

    void strike(xcb_keycode_t key)
    {
        keyboard.strikeTogether({TestKeyboard::kSuper, TestKeyboard::kShift, key});
    }

    /// Ends once what was typed before it has arrived, hot keys and key events alike.
    void expectRecorded(const Shortcut &shortcut)
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !changes.empty(); }));
        EXPECT_EQ(changes, std::vector{std::optional(shortcut)});
        EXPECT_FALSE(recorder->isRecording());
        // Until the server knows that the field has let the keyboard go, it keeps keys from others.
        QGuiApplication::sync();
    }

    void expectCalls(xcb_keycode_t key, const QStringList &expected)
    {
        strike(key);
        EXPECT_TRUE(QTest::qWaitFor([&] { return calls.size() >= expected.size(); }));
        EXPECT_EQ(calls, expected);
    }

    QTemporaryDir folder;
    platform::Defaults defaults{folder.filePath(QStringLiteral("Quillery.conf"))};
    std::unique_ptr<platform::HotkeyService> service = platform::makeHotkeyService();
    std::unique_ptr<platform::KeyboardLayout> layout = platform::makeKeyboardLayout();
    FakeSystemShortcuts system;
    TestKeyboard keyboard;
    QStringList calls;
    std::vector<std::optional<Shortcut>> changes;
    std::unique_ptr<QWidget> window;
    RecorderCocoa *recorder = nullptr;
};

} // namespace

TEST_F(RecordedShortcutsTest, aChordThatNobodyHasIsRecordedAndActsFromTheNextPressOn)
{
    setShortcut(std::nullopt, Name::addHotKey());
    record(Name::contextHotKey());

    strike(TestKeyboard::kC);

    expectRecorded(Shortcut(8, 768));
    expectCalls(TestKeyboard::kC,
                {QStringLiteral("contextHotKey down"), QStringLiteral("contextHotKey up")});
}

TEST_F(RecordedShortcutsTest, theChordThatTheNameHasIsRecordedAgain)
{
    record(Name::contextHotKey());

    strike(TestKeyboard::kV);

    expectRecorded(Shortcut(9, 768));
    expectCalls(TestKeyboard::kV,
                {QStringLiteral("contextHotKey down"), QStringLiteral("contextHotKey up")});
}

TEST_F(RecordedShortcutsTest, theChordOfTheOtherNameIsRecordedAndLettingGoOfItDoesNothing)
{
    record(Name::addHotKey());

    strike(TestKeyboard::kV);

    expectRecorded(Shortcut(9, 768));
    expectCalls(TestKeyboard::kV,
                {QStringLiteral("addHotKey down"), QStringLiteral("contextHotKey down"),
                 QStringLiteral("addHotKey up"), QStringLiteral("contextHotKey up")});
}

TEST_F(RecordedShortcutsTest, locksDoNotMatter)
{
    setShortcut(std::nullopt, Name::addHotKey());
    record(Name::contextHotKey());

    keyboard.strike(TestKeyboard::kCapsLock);
    strike(TestKeyboard::kC);
    keyboard.strike(TestKeyboard::kCapsLock);

    expectRecorded(Shortcut(8, 768));
}
