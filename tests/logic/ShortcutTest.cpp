// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/Shortcut.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSet>

#include <gtest/gtest.h>

#include <limits>

using namespace KeyboardShortcuts;

namespace {

constexpr quint32 kScanCodeV = 55; // X11 keycode of the key V

QKeyEvent keyEvent(QEvent::Type type, Qt::KeyboardModifiers modifiers,
                   quint32 scanCode = kScanCodeV)
{
    return QKeyEvent(type, Qt::Key_V, modifiers, scanCode, 0, 0);
}

} // namespace

TEST(Shortcut, modifiersConvertBothWays)
{
    const QList<std::pair<Modifier, qint64>> rows = {{Modifier::Command, 0x100},
                                                     {Modifier::Shift, 0x200},
                                                     {Modifier::Option, 0x800},
                                                     {Modifier::Control, 0x1000}};
    for (const auto &[flag, carbon] : rows) {
        EXPECT_EQ(carbonModifiers(flag), carbon);
        EXPECT_EQ(eventModifiers(carbon), Modifiers(flag));
    }
    EXPECT_EQ(carbonModifiers({}), 0);
    EXPECT_EQ(eventModifiers(0x1B00),
              Modifier::Command | Modifier::Shift | Modifier::Option | Modifier::Control);
}

TEST(Shortcut, eachModifierHasABitOfItsOwnInEventFlags)
{
    EXPECT_EQ(static_cast<quint32>(Modifier::Command), 0x100000U);
    EXPECT_EQ(static_cast<quint32>(Modifier::Shift), 0x20000U);
    EXPECT_EQ(static_cast<quint32>(Modifier::Option), 0x80000U);
    EXPECT_EQ(static_cast<quint32>(Modifier::Control), 0x40000U);
}

TEST(Shortcut, everyOtherModifierIsDropped)
{
    const Modifiers others =
        Modifier::CapsLock | Modifier::NumericPad | Modifier::Help | Modifier::Function;

    EXPECT_EQ(carbonModifiers(others), 0);
    EXPECT_EQ(carbonModifiers(others | Modifier::Shift), shiftKey);
    EXPECT_EQ(eventModifiers(0x400 | 0x2000 | 0x10000), Modifiers());
    EXPECT_EQ(Shortcut(Key::v, others | Modifier::Command), Shortcut(9, 256));
}

TEST(Shortcut, theDesktopsModifiersAreTranslated)
{
    EXPECT_EQ(desktopModifiers(Qt::MetaModifier), Modifiers(Modifier::Command));
    EXPECT_EQ(desktopModifiers(Qt::ShiftModifier), Modifiers(Modifier::Shift));
    EXPECT_EQ(desktopModifiers(Qt::AltModifier), Modifiers(Modifier::Option));
    EXPECT_EQ(desktopModifiers(Qt::ControlModifier), Modifiers(Modifier::Control));
    EXPECT_EQ(desktopModifiers(Qt::KeypadModifier | Qt::GroupSwitchModifier), Modifiers());
}

TEST(Shortcut, isMadeOfAKeyAndModifiers)
{
    const Shortcut shortcut(Key::v, Modifier::Shift | Modifier::Command);

    EXPECT_EQ(shortcut.carbonKeyCode, 9);
    EXPECT_EQ(shortcut.carbonModifiers, 768);
    EXPECT_EQ(shortcut.key(), Key::v);
    EXPECT_EQ(shortcut.modifiers(), Modifier::Shift | Modifier::Command);
}

TEST(Shortcut, equalityAndHashingCompareBothFields)
{
    const QSet<Shortcut> set = {{9, 768}, {9, 768}, {9, 256}, {8, 768}};

    EXPECT_EQ(set.size(), 3);
    EXPECT_NE(Shortcut(9, 768), Shortcut(9, 256));
    EXPECT_NE(Shortcut(9, 768), Shortcut(8, 768));
    EXPECT_EQ(Shortcut(9, 768), Shortcut(9, 768));
}

TEST(Shortcut, isMadeOfAKeyPressAndOfAKeyRelease)
{
    const auto modifiers = Qt::MetaModifier | Qt::ShiftModifier;

    EXPECT_EQ(Shortcut::fromEvent(keyEvent(QEvent::KeyPress, modifiers)), Shortcut(9, 768));
    EXPECT_EQ(Shortcut::fromEvent(keyEvent(QEvent::KeyRelease, modifiers)), Shortcut(9, 768));
}

TEST(Shortcut, aMouseEventGivesNone)
{
    const QMouseEvent press(QEvent::MouseButtonPress, QPointF(), QPointF(), Qt::LeftButton,
                            Qt::LeftButton, Qt::MetaModifier);

    EXPECT_EQ(Shortcut::fromEvent(press), std::nullopt);
}

TEST(Shortcut, anyOtherEventGivesNone)
{
    EXPECT_EQ(Shortcut::fromEvent(keyEvent(QEvent::ShortcutOverride, Qt::MetaModifier)),
              std::nullopt);
    EXPECT_EQ(Shortcut::fromEvent(QEvent(QEvent::Show)), std::nullopt);
}

TEST(Shortcut, capsLockIsNotStored)
{
    // The X11 state of the event has the lock bit set (2) beside Shift and Super.
    const QKeyEvent event(QEvent::KeyPress, Qt::Key_V, Qt::ShiftModifier | Qt::MetaModifier,
                          kScanCodeV, 0, 0x40 | 0x1 | 0x2);

    EXPECT_EQ(Shortcut::fromEvent(event), Shortcut(9, 768));
    EXPECT_EQ(Shortcut(Key::v, Modifier::CapsLock | Modifier::Command), Shortcut(9, 256));
}

TEST(Shortcut, aKeyWithoutANumberGivesNone)
{
    EXPECT_EQ(Shortcut::fromEvent(keyEvent(QEvent::KeyPress, Qt::MetaModifier, 0)), std::nullopt);
    EXPECT_EQ(Shortcut::fromEvent(keyEvent(QEvent::KeyPress, Qt::MetaModifier, 255)), std::nullopt);
}

TEST(Shortcut, theStoredTextIsJsonWithTwoIntegers)
{
    const auto stored = QJsonDocument::fromJson(Shortcut(9, 768).toJson().toUtf8());

    EXPECT_EQ(stored, QJsonDocument(QJsonObject{{QStringLiteral("carbonKeyCode"), 9},
                                                {QStringLiteral("carbonModifiers"), 768}}));
}

TEST(Shortcut, everyNumberSurvivesTheStoredForm)
{
    for (const qint64 number :
         {qint64(0), qint64(-1), qint64(0xFFFF), qint64(0x10000), (qint64(1) << 53) + 1,
          std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()}) {
        const Shortcut shortcut(number, number);
        EXPECT_EQ(Shortcut::fromJson(shortcut.toJson()), shortcut) << number;
    }
}

TEST(Shortcut, membersAreReadInAnyOrderAndSpacing)
{
    EXPECT_EQ(Shortcut::fromJson(QStringLiteral("{\"carbonModifiers\":768,\"carbonKeyCode\":9}")),
              Shortcut(9, 768));
    EXPECT_EQ(Shortcut::fromJson(
                  QStringLiteral(" {\n \"carbonKeyCode\" : 9 , \"carbonModifiers\" : 768 } ")),
              Shortcut(9, 768));
}

TEST(Shortcut, extraMembersDoNotMatter)
{
    EXPECT_EQ(Shortcut::fromJson(
                  QStringLiteral("{\"carbonKeyCode\":9,\"more\":[1,{}],\"carbonModifiers\":768}")),
              Shortcut(9, 768));
}

TEST(Shortcut, whatIsNoShortcutReadsAsNone)
{
    for (const char *text : {"",
                             "false",
                             "true",
                             "null",
                             "9",
                             "\"text\"",
                             "[9,768]",
                             "{}",
                             "not JSON",
                             "{",
                             "{\"carbonKeyCode\":9}",
                             "{\"carbonModifiers\":768}",
                             "{\"carbonKeyCode\":\"9\",\"carbonModifiers\":768}",
                             "{\"carbonKeyCode\":9.5,\"carbonModifiers\":768}",
                             "{\"carbonKeyCode\":null,\"carbonModifiers\":768}",
                             "{\"carbonKeyCode\":true,\"carbonModifiers\":768}",
                             "{\"carbonKeyCode\":9,\"carbonModifiers\":{}}",
                             "{\"carbonKeyCode\":9,\"carbonModifiers\":1e300}",
                             "{\"carbonKeyCode\":9223372036854775808,\"carbonModifiers\":768}",
                             "{\"CarbonKeyCode\":9,\"carbonModifiers\":768}",
                             "{\"carbonKeyCode\":9,\"carbonModifiers\":768} tail"}) {
        EXPECT_EQ(Shortcut::fromJson(QString::fromLatin1(text)), std::nullopt) << text;
    }
}
