// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/RecorderHandler.h"

#include "tests/fakes/FakeSystemShortcuts.h"
#include "tests/logic/KeyboardShortcutsTest.h"

using namespace KeyboardShortcuts;

namespace {

using Kind = RecordedKey::Kind;

/// Writes down what is asked of it.
class LoggingField : public RecorderField
{
public:
    void blur() override { log += QStringLiteral("blur"); }
    void blurForTab() override { log += QStringLiteral("blurForTab"); }
    void makeFirstResponder() override { log += QStringLiteral("makeFirstResponder"); }
    void pressClearButton() override { log += QStringLiteral("clear"); }
    void beep() override { log += QStringLiteral("beep"); }
    std::optional<int> runAlert(const RecorderAlert &alert) override
    {
        log += QStringLiteral("alert");
        alerts.push_back(alert);
        return answer;
    }
    void store(const Shortcut &shortcut) override
    {
        log += QStringLiteral("store ") + shortcut.toJson();
    }

    QStringList log;
    std::vector<RecorderAlert> alerts;
    std::optional<int> answer = kAlertFirstButton;
};

class RecorderHandlerTest : public KeyboardShortcutsTest
{
protected:
    EventFate press(const RecordedKey &key) { return handleKeyDown(field, key, surroundings); }
    EventFate press(Kind kind, Key key, Modifiers modifiers = {}, bool isRepeat = false)
    {
        return press({kind, modifiers, isRepeat, Shortcut(key, modifiers)});
    }

    static QString stored(Key key, Modifiers modifiers)
    {
        return QStringLiteral("store ") + Shortcut(key, modifiers).toJson();
    }

    void expect(const QStringList &log) { EXPECT_EQ(field.log, log); }

    LoggingField field;
    FakeSystemShortcuts system;
    std::vector<MenuItem> menu;
    const LocalizationTable texts{QLocale(QLocale::English)};
    const RecorderSurroundings surroundings{system, [this] { return menu; }, texts};
};

const QStringList kAlertLog{QStringLiteral("blur"), QStringLiteral("alert"),
                            QStringLiteral("makeFirstResponder")};

} // namespace

TEST_F(RecorderHandlerTest, aClickInsideIsSwallowed)
{
    const QRectF bounds(10, 20, 130, 28);

    EXPECT_EQ(handleMouseUp(field, bounds.center(), bounds), EventFate::Swallow);
    expect({});
}

TEST_F(RecorderHandlerTest, aClickWithinThreePointsOutsideCountsAsInside)
{
    const QRectF bounds(10, 20, 130, 28);

    for (const QPointF point : {QPointF(7, 17), QPointF(143, 17), QPointF(7, 51), QPointF(143, 51)})
        EXPECT_EQ(handleMouseUp(field, point, bounds), EventFate::Swallow);
    expect({});
}

TEST_F(RecorderHandlerTest, aClickFurtherAwayEndsRecordingAndIsPassedOn)
{
    const QRectF bounds(10, 20, 130, 28);

    for (const QPointF point :
         {QPointF(6.9, 30), QPointF(143.1, 30), QPointF(50, 16.9), QPointF(50, 51.1)}) {
        field.log.clear();
        EXPECT_EQ(handleMouseUp(field, point, bounds), EventFate::PassOn);
        expect({QStringLiteral("blur")});
    }
}

TEST_F(RecorderHandlerTest, tabBlursAndIsPassedOn)
{
    EXPECT_EQ(press(Kind::Tab, Key::tab), EventFate::PassOn);
    expect({QStringLiteral("blurForTab")});
}

TEST_F(RecorderHandlerTest, shiftTabBeeps)
{
    EXPECT_EQ(press(Kind::Tab, Key::tab, Modifier::Shift), EventFate::Swallow);
    expect({QStringLiteral("beep")});
}

TEST_F(RecorderHandlerTest, escapeBlursAndIsSwallowed)
{
    EXPECT_EQ(press(Kind::Escape, Key::escape), EventFate::Swallow);
    expect({QStringLiteral("blur")});
}

TEST_F(RecorderHandlerTest, deleteAndBackspacePressTheClearButton)
{
    EXPECT_EQ(press(Kind::Delete, Key::delete_), EventFate::Swallow);
    EXPECT_EQ(press(Kind::Delete, Key::forwardDelete), EventFate::Swallow);
    expect({QStringLiteral("clear"), QStringLiteral("clear")});
}

TEST_F(RecorderHandlerTest, withAModifierTheEditingKeysAreKeysLikeOthers)
{
    press(Kind::Tab, Key::tab, Modifier::Command);
    press(Kind::Escape, Key::escape, Modifier::Control);
    press(Kind::Delete, Key::delete_, Modifier::Option);

    expect({stored(Key::tab, Modifier::Command), stored(Key::escape, Modifier::Control),
            stored(Key::delete_, Modifier::Option)});
}

TEST_F(RecorderHandlerTest, shiftWithAnEditingKeyBeeps)
{
    press(Kind::Escape, Key::escape, Modifier::Shift);
    press(Kind::Delete, Key::delete_, Modifier::Shift);

    expect({QStringLiteral("beep"), QStringLiteral("beep")});
}

TEST_F(RecorderHandlerTest, aPlainKeyBeepsWithAndWithoutShift)
{
    EXPECT_EQ(press(Kind::Other, Key::v), EventFate::Swallow);
    EXPECT_EQ(press(Kind::Other, Key::v, Modifier::Shift), EventFate::Swallow);
    EXPECT_EQ(press(Kind::Other, Key::space), EventFate::Swallow);

    expect({QStringLiteral("beep"), QStringLiteral("beep"), QStringLiteral("beep")});
}

TEST_F(RecorderHandlerTest, aFunctionKeyAloneOrWithShiftIsAccepted)
{
    EXPECT_EQ(press(Kind::Function, Key::f5), EventFate::Swallow);
    EXPECT_EQ(press(Kind::Function, Key::f5, Modifier::Shift), EventFate::Swallow);

    expect({stored(Key::f5, {}), stored(Key::f5, Modifier::Shift)});
}

TEST_F(RecorderHandlerTest, everyOtherModifierMakesAShortcut)
{
    QStringList expected;
    for (const Modifier modifier : {Modifier::Command, Modifier::Option, Modifier::Control}) {
        EXPECT_EQ(press(Kind::Other, Key::v, modifier), EventFate::Swallow);
        expected += stored(Key::v, modifier);
    }
    expect(expected);
}

TEST_F(RecorderHandlerTest, aKeyWithoutANumberIsSwallowed)
{
    EXPECT_EQ(press({Kind::Other, Modifier::Command, false, std::nullopt}), EventFate::Swallow);
    EXPECT_EQ(press({Kind::Function, {}, false, std::nullopt}), EventFate::Swallow);
    expect({});
}

TEST_F(RecorderHandlerTest, aModifierAloneIsNoEvent)
{
    EXPECT_EQ(press(Kind::Modifier, Key::command, Modifier::Command), EventFate::PassOn);
    EXPECT_EQ(press(Kind::Modifier, Key::shift), EventFate::PassOn);
    expect({});
}

TEST_F(RecorderHandlerTest, aHeldKeyActsOnce)
{
    EXPECT_EQ(press(Kind::Other, Key::v, {}, true), EventFate::Swallow);
    EXPECT_EQ(press(Kind::Other, Key::v, Modifier::Command, true), EventFate::Swallow);
    EXPECT_EQ(press(Kind::Delete, Key::delete_, {}, true), EventFate::Swallow);
    EXPECT_EQ(press(Kind::Escape, Key::escape, {}, true), EventFate::Swallow);
    expect({});

    EXPECT_EQ(press(Kind::Tab, Key::tab, {}, true), EventFate::PassOn);
    expect({QStringLiteral("blurForTab")});
}

TEST_F(RecorderHandlerTest, aShortcutOfAMenuItemIsRefused)
{
    menu = {{QStringLiteral("Quit"), QStringLiteral("v"), Modifier::Control, {}}};

    EXPECT_EQ(press(Kind::Other, Key::v, Modifier::Control), EventFate::Swallow);

    expect(kAlertLog);
    ASSERT_EQ(field.alerts.size(), 1U);
    EXPECT_EQ(field.alerts[0].message,
              QStringLiteral("This shortcut already belongs to the menu item “Quit”."));
    EXPECT_TRUE(field.alerts[0].informativeText.isEmpty());
    EXPECT_TRUE(field.alerts[0].buttons.isEmpty());
}

TEST_F(RecorderHandlerTest, theMenuComesBeforeTheSystem)
{
    menu = {{QStringLiteral("Quit"), QStringLiteral("v"), Modifier::Control, {}}};
    system.enabled = {{9, 0x1000}};
    field.answer = kAlertSecondButton;

    press(Kind::Other, Key::v, Modifier::Control);

    expect(kAlertLog);
}

TEST_F(RecorderHandlerTest, aShortcutOfTheSystemIsAskedAboutAndOkKeepsTheOldOne)
{
    system.enabled = {{8, 0x100}, {9, 0x100}};

    EXPECT_EQ(press(Kind::Other, Key::v, Modifier::Command), EventFate::Swallow);

    expect(kAlertLog);
    ASSERT_EQ(field.alerts.size(), 1U);
    EXPECT_EQ(field.alerts[0].message,
              QStringLiteral("This shortcut is already used by the desktop or another program."));
    EXPECT_EQ(field.alerts[0].informativeText,
              QStringLiteral("Choose another one, or free it in the desktop’s keyboard settings."));
    EXPECT_EQ(field.alerts[0].buttons,
              (QStringList{QStringLiteral("OK"), QStringLiteral("Use Anyway")}));
}

TEST_F(RecorderHandlerTest, useAnywayStoresIt)
{
    system.enabled = {{9, 0x100}};
    field.answer = kAlertSecondButton;

    EXPECT_EQ(press(Kind::Other, Key::v, Modifier::Command), EventFate::Swallow);

    expect(kAlertLog + QStringList{stored(Key::v, Modifier::Command)});
}

TEST_F(RecorderHandlerTest, bitsThatNoShortcutHasDoNotCount)
{
    system.enabled = {{9, 0x100 | 0x400 | 0x20000}};

    press(Kind::Other, Key::v, Modifier::Command);

    expect(kAlertLog);
}

TEST_F(RecorderHandlerTest, anotherModifierIsAnotherShortcut)
{
    system.enabled = {{9, 0x100}, {9, 0x300}};

    press(Kind::Other, Key::v, Modifier::Control);

    expect({stored(Key::v, Modifier::Control)});
}

TEST_F(RecorderHandlerTest, aShortcutThatAnotherProgramHoldsIsAskedAbout)
{
    system.held = {{9, 0x100}};

    press(Kind::Other, Key::v, Modifier::Command);

    expect(kAlertLog);
}

TEST_F(RecorderHandlerTest, functionTwelveAloneIsFreeWhoeverHasIt)
{
    system.enabled = {{111, 0}};
    system.held = {{111, 0}};

    press(Kind::Function, Key::f12);

    expect({stored(Key::f12, {})});
}

TEST_F(RecorderHandlerTest, functionTwelveWithAModifierIsNotExempt)
{
    system.enabled = {{111, 0x1000}};
    system.held = {{111, 0x200}};

    press(Kind::Function, Key::f12, Modifier::Control);
    press(Kind::Function, Key::f12, Modifier::Shift);

    expect(kAlertLog + kAlertLog);
}

TEST_F(RecorderHandlerTest, anotherFunctionKeyAloneIsNotExempt)
{
    system.enabled = {{103, 0}};

    press(Kind::Function, Key::f11);

    expect(kAlertLog);
}

TEST_F(RecorderHandlerTest, aFieldThatWentAwayDuringTheAlertIsLeftAlone)
{
    field.answer = std::nullopt;
    system.enabled = {{9, 0x100}};
    menu = {{QStringLiteral("Quit"), QStringLiteral("v"), Modifier::Control, {}}};
    const QStringList untilAlert{QStringLiteral("blur"), QStringLiteral("alert")};

    EXPECT_EQ(press(Kind::Other, Key::v, Modifier::Command), EventFate::Swallow);
    expect(untilAlert);
    EXPECT_EQ(press(Kind::Other, Key::v, Modifier::Control), EventFate::Swallow);
    expect(untilAlert + untilAlert);
}

TEST_F(RecorderHandlerTest, theShortcutOfTheOtherNameIsNotChecked)
{
    setShortcut(Shortcut(Key::v, Modifier::Command), Name(QStringLiteral("other")));

    press(Kind::Other, Key::v, Modifier::Command);

    expect({stored(Key::v, Modifier::Command)});
}
