// SPDX-License-Identifier: MIT
#include "platform/hotkeys/X11Hotkeys.h"

#include "platform/hotkeys/HotkeyFactory.h"
#include "platform/keyboard/KeyCodes.h"
#include "tests/platform/OtherProgram.h"
#include "tests/platform/TestKeyboard.h"

#include <QProcess>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

using platform::HotkeyEvent;
using platform::HotkeyEventType;
using platform::HotkeyId;
using platform::HotkeyModifier;

namespace {

constexpr quint32 kKeyV = 9;
constexpr quint32 kKeyC = 8;
constexpr quint32 kShiftCommand = HotkeyModifier::kShift | HotkeyModifier::kCommand;
constexpr unsigned kShiftSuperMask = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4;
constexpr HotkeyId kIdV = {0x54574B53, 1};
constexpr HotkeyId kIdC = {0x54574B53, 2};

constexpr std::array kTypes = {
    HotkeyEventType{HotkeyEventType::kKeyboardClass, HotkeyEventType::kHotkeyPressed},
    HotkeyEventType{HotkeyEventType::kKeyboardClass, HotkeyEventType::kHotkeyReleased}};

class X11HotkeysTest : public ::testing::Test
{
protected:
    X11HotkeysTest()
    {
        s_log = &log;
        m_oldHandler = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &context, const QString &text) {
                if (qstrcmp(context.category, "hotkeys") == 0)
                    *s_log += text;
            });
        hotkeys = platform::X11Hotkeys::create();
        const auto handler = hotkeys->installHandler([this](const HotkeyEvent *event) {
            const bool isPress = event->type.kind == HotkeyEventType::kHotkeyPressed;
            events += (isPress ? QStringLiteral("down %1") : QStringLiteral("up %1"))
                          .arg(event->hotkeyId->id);
            return 0;
        });
        hotkeys->addEventTypes(*handler, kTypes);
        other.takeFocus();
    }

    ~X11HotkeysTest() override { qInstallMessageHandler(m_oldHandler); }

    static void setLayout(const QStringList &arguments)
    {
        ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), arguments), 0);
    }

    static void changeModifiers(const QStringList &expressions)
    {
        QStringList arguments;
        for (const QString &expression : expressions)
            arguments << QStringLiteral("-e") << expression;
        ASSERT_EQ(QProcess::execute(QStringLiteral("xmodmap"), arguments), 0);
    }

    void strikeV()
    {
        keyboard.strikeTogether({TestKeyboard::kSuper, TestKeyboard::kShift, TestKeyboard::kV});
    }

    void expectEvents(const QStringList &expected)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return events.size() >= expected.size(); }));
        EXPECT_EQ(events, expected);
        events.clear();
    }

    void expectPressAndRelease() { expectEvents({kDown, kUp}); }

    /// Whether no variant of the chord is held by anybody.
    bool isFree(xcb_keycode_t key)
    {
        for (unsigned locks : {0U, 0x02U, 0x10U, 0x12U}) {
            if (!other.grab(key, kShiftSuperMask | locks))
                return false;
            other.ungrab(key, kShiftSuperMask | locks);
        }
        return true;
    }

    const QString kDown = QStringLiteral("down 1");
    const QString kUp = QStringLiteral("up 1");
    OtherProgram other;
    TestKeyboard keyboard;
    std::unique_ptr<platform::X11Hotkeys> hotkeys;
    QStringList events;
    QStringList log;

private:
    static inline QStringList *s_log = nullptr;
    QtMessageHandler m_oldHandler = nullptr;
};

} // namespace

TEST_F(X11HotkeysTest, isChosenHere)
{
    EXPECT_EQ(platform::makeHotkeyService()->backendId(), QStringLiteral("x11"));
    EXPECT_TRUE(hotkeys->availability().isAvailable);
}

TEST_F(X11HotkeysTest, pressAndReleaseArrive)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);
    expectEvents({kDown});
    keyboard.release(TestKeyboard::kV);

    expectEvents({kUp});
}

TEST_F(X11HotkeysTest, theTimeOfTheLastEventIsKnown)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());
    EXPECT_EQ(hotkeys->lastEventTime(), 0U);

    strikeV();
    expectPressAndRelease();

    EXPECT_NE(hotkeys->lastEventTime(), 0U);
}

TEST_F(X11HotkeysTest, theReleaseIsFoundWhenTheModifiersWentFirst)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);
    expectEvents({kDown});
    keyboard.release(TestKeyboard::kShift);
    keyboard.release(TestKeyboard::kSuper);
    keyboard.release(TestKeyboard::kV);

    expectEvents({kUp});
}

TEST_F(X11HotkeysTest, aPressThatIsOverBeforeItIsHandledStillHasItsRelease)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    strikeV();
    strikeV();
    strikeV();

    expectEvents({kDown, kUp, kDown, kUp, kDown, kUp});
}

TEST_F(X11HotkeysTest, aChordWithOtherModifiersOrAnotherKeyIsAnother)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    keyboard.strikeTogether({TestKeyboard::kShift, TestKeyboard::kV});
    keyboard.strikeTogether({TestKeyboard::kSuper, TestKeyboard::kV});
    keyboard.strikeTogether(
        {TestKeyboard::kControl, TestKeyboard::kSuper, TestKeyboard::kShift, TestKeyboard::kV});
    keyboard.strikeTogether({TestKeyboard::kSuper, TestKeyboard::kShift, TestKeyboard::kC});
    strikeV();

    expectPressAndRelease();
}

TEST_F(X11HotkeysTest, locksDoNotMatter)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    keyboard.strike(TestKeyboard::kCapsLock);
    ASSERT_EQ(keyboard.modifiers() & 0x12U, 0x02U);
    strikeV();
    expectPressAndRelease();

    keyboard.strike(TestKeyboard::kNumLock);
    ASSERT_EQ(keyboard.modifiers() & 0x12U, 0x12U);
    strikeV();
    expectPressAndRelease();

    keyboard.strike(TestKeyboard::kCapsLock);
    ASSERT_EQ(keyboard.modifiers() & 0x12U, 0x10U);
    strikeV();
    expectPressAndRelease();

    keyboard.strike(TestKeyboard::kNumLock);
    ASSERT_EQ(keyboard.modifiers() & 0x12U, 0U);
}

TEST_F(X11HotkeysTest, autoRepeatGivesNoSecondPressAndNoFalseRelease)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);
    // Every repeat wakes the grab anew, which takes the keyboard from the window for a moment.
    ASSERT_TRUE(QTest::qWaitFor([this] { return other.timesGrabbed() >= 5; }, 20000));
    EXPECT_EQ(events, QStringList{kDown});
    keyboard.release(TestKeyboard::kV);

    expectPressAndRelease();
}

TEST_F(X11HotkeysTest, theKeyboardIsFreeWhileTheKeyIsDown)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);
    expectEvents({kDown});
    keyboard.strike(TestKeyboard::kReturn);

    EXPECT_TRUE(QTest::qWaitFor([this] {
        return std::ranges::count(other.presses(), TestKeyboard::kReturn) == 1 &&
               std::ranges::count(other.releases(), TestKeyboard::kReturn) == 1;
    }));
    EXPECT_EQ(std::ranges::count(other.presses(), TestKeyboard::kV), 0);
    keyboard.release(TestKeyboard::kV);
    expectEvents({kUp});
}

TEST_F(X11HotkeysTest, aChordOfSomebodyElseIsRefusedLoggedAndLeftAlone)
{
    // Only one of the lock variants is taken: the others must be given back.
    ASSERT_TRUE(other.grab(TestKeyboard::kV, kShiftSuperMask | XCB_MOD_MASK_2));

    const auto refused = hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV);

    ASSERT_FALSE(refused.has_value());
    EXPECT_EQ(refused.error().kind, platform::Error::Kind::Taken);
    ASSERT_EQ(log.size(), 1);
    EXPECT_TRUE(log.first().contains(QStringLiteral("key code 9")));
    EXPECT_TRUE(QTest::qWaitFor([this] { return isFree(TestKeyboard::kV); }));
}

TEST_F(X11HotkeysTest, aRefusedChordCanBeHadOnceItIsFree)
{
    ASSERT_TRUE(other.grab(TestKeyboard::kV, kShiftSuperMask));
    ASSERT_FALSE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());
    other.ungrab(TestKeyboard::kV, kShiftSuperMask);

    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    strikeV();
    expectPressAndRelease();
}

TEST_F(X11HotkeysTest, whatThisKeyboardDoesNotHaveIsRefused)
{
    for (const auto &[key, modifiers] :
         {std::pair(0xFFFFU, kShiftCommand), std::pair(0xFFFFFFFFU, kShiftCommand),
          std::pair(63U, kShiftCommand), std::pair(kKeyV, 0x1U)}) {
        const auto refused = hotkeys->registerHotkey(key, modifiers, kIdV);
        ASSERT_FALSE(refused.has_value()) << key;
        EXPECT_EQ(refused.error().kind, platform::Error::Kind::NotFound);
    }
    EXPECT_EQ(log.size(), 4);
}

TEST_F(X11HotkeysTest, twoHotKeysAreToldApart)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyC, kShiftCommand, kIdC).has_value());

    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);
    expectEvents({kDown});
    keyboard.press(TestKeyboard::kC);
    expectEvents({QStringLiteral("down 2")});
    keyboard.release(TestKeyboard::kV);
    expectEvents({kUp});
    keyboard.release(TestKeyboard::kC);
    expectEvents({QStringLiteral("up 2")});
}

TEST_F(X11HotkeysTest, anUnregisteredHotKeyIsFreeForOthers)
{
    const auto ref = hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV);
    ASSERT_TRUE(ref.has_value());
    ASSERT_FALSE(isFree(TestKeyboard::kV));

    hotkeys->unregisterHotkey(*ref);

    EXPECT_TRUE(QTest::qWaitFor([this] { return isFree(TestKeyboard::kV); }));
}

TEST_F(X11HotkeysTest, ofTwoRegistrationsOfAChordOneStaysWhenTheOtherGoes)
{
    const auto first = hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV);
    const auto second = hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdC);
    strikeV();
    expectPressAndRelease();

    hotkeys->unregisterHotkey(first.value());

    strikeV();
    expectEvents({QStringLiteral("down 2"), QStringLiteral("up 2")});
    hotkeys->unregisterHotkey(second.value());
    EXPECT_TRUE(QTest::qWaitFor([this] { return isFree(TestKeyboard::kV); }));
}

TEST_F(X11HotkeysTest, aHotKeyCanBeRegisteredAnew)
{
    const auto first = hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV);
    hotkeys->unregisterHotkey(first.value());

    const auto second = hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdC);

    ASSERT_TRUE(second.has_value());
    EXPECT_NE(*first, *second);
    strikeV();
    expectEvents({QStringLiteral("down 2"), QStringLiteral("up 2")});
}

TEST_F(X11HotkeysTest, aHotKeyUnregisteredWhileDownIsNotReportedAsReleased)
{
    const auto ref = hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV);
    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);
    expectEvents({kDown});
    hotkeys->unregisterHotkey(ref.value());
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdC).has_value());

    keyboard.release(TestKeyboard::kV);
    keyboard.press(TestKeyboard::kV);
    keyboard.release(TestKeyboard::kV);

    expectEvents({QStringLiteral("down 2"), QStringLiteral("up 2")});
}

TEST_F(X11HotkeysTest, aKeyHeldSinceBeforeItsRegistrationIsNotPressed)
{
    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);

    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    // Every repeat wakes the new grab.
    ASSERT_TRUE(QTest::qWaitFor([this] { return other.timesGrabbed() >= 3; }, 20000));
    EXPECT_EQ(events, QStringList());
    keyboard.release(TestKeyboard::kV);
    keyboard.strike(TestKeyboard::kV);
    expectPressAndRelease();
}

TEST_F(X11HotkeysTest, aChordOfAnotherProgramIsHeldElsewhere)
{
    EXPECT_FALSE(hotkeys->isHeldElsewhere(kKeyV, kShiftCommand));
    ASSERT_TRUE(other.grab(TestKeyboard::kV, kShiftSuperMask));

    EXPECT_TRUE(hotkeys->isHeldElsewhere(kKeyV, kShiftCommand));
    EXPECT_FALSE(hotkeys->isHeldElsewhere(kKeyC, kShiftCommand));
    EXPECT_FALSE(hotkeys->isHeldElsewhere(kKeyV, HotkeyModifier::kCommand));

    other.ungrab(TestKeyboard::kV, kShiftSuperMask);
    EXPECT_FALSE(hotkeys->isHeldElsewhere(kKeyV, kShiftCommand));
}

TEST_F(X11HotkeysTest, aChordHeldWithOneOfTheLocksOnlyIsHeldElsewhere)
{
    ASSERT_TRUE(other.grab(TestKeyboard::kV, kShiftSuperMask | XCB_MOD_MASK_2));

    EXPECT_TRUE(hotkeys->isHeldElsewhere(kKeyV, kShiftCommand));
}

TEST_F(X11HotkeysTest, aChordHeldByTheInputExtensionIsHeldElsewhere)
{
    ASSERT_TRUE(other.grabByInputExtension(TestKeyboard::kV, kShiftSuperMask));

    EXPECT_TRUE(hotkeys->isHeldElsewhere(kKeyV, kShiftCommand));
    EXPECT_FALSE(hotkeys->isHeldElsewhere(kKeyC, kShiftCommand));
}

TEST_F(X11HotkeysTest, whatIsRegisteredHereIsNotHeldElsewhere)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    EXPECT_FALSE(hotkeys->isHeldElsewhere(kKeyV, kShiftCommand));

    EXPECT_FALSE(isFree(TestKeyboard::kV));
    strikeV();
    expectPressAndRelease();
}

TEST_F(X11HotkeysTest, whatThisKeyboardDoesNotHaveIsNotHeldElsewhere)
{
    for (const auto &[key, modifiers] :
         {std::pair(0xFFFFU, kShiftCommand), std::pair(63U, kShiftCommand), std::pair(kKeyV, 1U)})
        EXPECT_FALSE(hotkeys->isHeldElsewhere(key, modifiers));
}

TEST_F(X11HotkeysTest, askingLeavesTheKeyToWhoeverHasTheKeyboard)
{
    EXPECT_FALSE(hotkeys->isHeldElsewhere(kKeyV, kShiftCommand));

    EXPECT_TRUE(isFree(TestKeyboard::kV));
    strikeV();
    EXPECT_TRUE(QTest::qWaitFor([this] {
        return std::ranges::count(other.presses(), TestKeyboard::kV) == 1 &&
               std::ranges::count(other.releases(), TestKeyboard::kV) == 1;
    }));
    EXPECT_EQ(other.timesGrabbed(), 0);
    EXPECT_EQ(events, QStringList());
}

TEST_F(X11HotkeysTest, askingWhileTheChordIsHeldLeavesItsRepeatsAndItsReleaseAlone)
{
    keyboard.press(TestKeyboard::kSuper);
    keyboard.press(TestKeyboard::kShift);
    keyboard.press(TestKeyboard::kV);

    // Asked as often as a few seconds of repeats take, some of them meet a probe.
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
            EXPECT_FALSE(hotkeys->isHeldElsewhere(kKeyV, kShiftCommand));
            return std::ranges::count(other.presses(), TestKeyboard::kV) >= 30;
        },
        20000));
    keyboard.release(TestKeyboard::kV);
    keyboard.strike(TestKeyboard::kReturn);

    EXPECT_TRUE(QTest::qWaitFor([this] {
        return std::ranges::count(other.releases(), TestKeyboard::kReturn) == 1 &&
               std::ranges::count(other.releases(), TestKeyboard::kV) > 0;
    }));
    EXPECT_EQ(events, QStringList());
}

TEST_F(X11HotkeysTest, theServiceThatIsGoneHoldsNothing)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    hotkeys.reset();

    EXPECT_TRUE(QTest::qWaitFor([this] { return isFree(TestKeyboard::kV); }));
}

TEST_F(X11HotkeysTest, positionsStayThroughChangesOfTheLayout)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());
    for (const char *layout : {"ru", "de", "us,ru", "us"}) {
        setLayout({QStringLiteral("-layout"), QString::fromLatin1(layout)});
        strikeV();
        expectPressAndRelease();
    }
}

TEST_F(X11HotkeysTest, theGroupInUseDoesNotMatter)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());
    setLayout({QStringLiteral("-layout"), QStringLiteral("us,ru")});

    keyboard.lockGroup(1);
    strikeV();
    expectPressAndRelease();

    setLayout({QStringLiteral("-layout"), QStringLiteral("us")});
}

TEST_F(X11HotkeysTest, aModifierThatMovesIsFollowed)
{
    ASSERT_TRUE(hotkeys->registerHotkey(kKeyV, kShiftCommand, kIdV).has_value());

    changeModifiers({QStringLiteral("clear mod4"), QStringLiteral("clear mod3"),
                     QStringLiteral("add mod3 = Super_L Super_R")});
    // The grab has moved when nobody else can have the new chord any more.
    ASSERT_TRUE(QTest::qWaitFor([this] {
        constexpr unsigned kMoved = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_3;
        const bool isOthers = other.grab(TestKeyboard::kV, kMoved);
        if (isOthers)
            other.ungrab(TestKeyboard::kV, kMoved);
        return !isOthers;
    }));
    EXPECT_TRUE(isFree(TestKeyboard::kV));
    strikeV();
    expectPressAndRelease();

    setLayout({QStringLiteral("-layout"), QStringLiteral("us")});
}
