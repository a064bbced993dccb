// SPDX-License-Identifier: MIT
#include "platform/keyboard/X11KeyboardLayout.h"

#include "platform/keyboard/KeyboardLayoutFactory.h"
#include "tests/platform/TestKeyboard.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr int kKeyV = 9;
constexpr int kKeyY = 16;

class X11KeyboardLayoutTest : public ::testing::Test
{
protected:
    X11KeyboardLayoutTest()
    {
        setLayout("us");
        layout = platform::X11KeyboardLayout::create();
    }

    ~X11KeyboardLayoutTest() override { setLayout("us"); }

    static void setLayout(const char *name)
    {
        ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"),
                                    {QStringLiteral("-layout"), QString::fromLatin1(name)}),
                  0);
    }

    void waitForText(int key, const QString &text)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return layout->keyText(key) == text; }))
            << qPrintable(layout->keyText(key).value_or(QStringLiteral("nothing")));
    }

    std::unique_ptr<platform::X11KeyboardLayout> layout;
    TestKeyboard keyboard;
};

} // namespace

TEST_F(X11KeyboardLayoutTest, isChosenHere)
{
    EXPECT_EQ(platform::makeKeyboardLayout()->backendId(), QStringLiteral("x11"));
    EXPECT_TRUE(layout->availability().isAvailable);
}

TEST_F(X11KeyboardLayoutTest, keysAreNamedByTheLayout)
{
    EXPECT_EQ(layout->keyText(kKeyV), QStringLiteral("v"));
    EXPECT_EQ(layout->keyText(kKeyY), QStringLiteral("y"));
    EXPECT_EQ(layout->keyText(200), std::nullopt);
}

TEST_F(X11KeyboardLayoutTest, aChangeOfTheLayoutIsAnnouncedAndFollowed)
{
    ASSERT_EQ(layout->keyText(kKeyY), QStringLiteral("y"));
    QSignalSpy changes(layout.get(), &platform::KeyboardLayout::changed);

    setLayout("de");

    EXPECT_TRUE(QTest::qWaitFor([&] { return !changes.isEmpty(); }));
    EXPECT_EQ(layout->keyText(kKeyY), QStringLiteral("z"));
}

TEST_F(X11KeyboardLayoutTest, aGroupWithLatinLettersNamesTheKeysWhileInUse)
{
    setLayout("us,de");
    waitForText(kKeyY, QStringLiteral("y"));

    keyboard.lockGroup(1);
    waitForText(kKeyY, QStringLiteral("z"));
    keyboard.lockGroup(0);
    waitForText(kKeyY, QStringLiteral("y"));
}

TEST_F(X11KeyboardLayoutTest, aGroupWithoutLatinLettersLeavesTheNamesOfTheOneBefore)
{
    setLayout("us,de,ru");
    keyboard.lockGroup(1);
    waitForText(kKeyY, QStringLiteral("z"));
    QSignalSpy changes(layout.get(), &platform::KeyboardLayout::changed);

    keyboard.lockGroup(2);
    keyboard.lockGroup(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !changes.isEmpty(); }));

    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(layout->keyText(kKeyY), QStringLiteral("y"));
}

TEST_F(X11KeyboardLayoutTest, aLayoutWithoutLatinLettersUsesTheUsNames)
{
    setLayout("ru");
    layout = platform::X11KeyboardLayout::create();

    EXPECT_EQ(layout->keyText(kKeyV), QStringLiteral("v"));
}
