// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/RecordedKey.h"

#include "platform/keyboard/KeyCodes.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

using namespace KeyboardShortcuts;

namespace {

using Kind = RecordedKey::Kind;

/// A key event with the place of `position`; 0 for a place that shortcuts have no number for.
RecordedKey pressed(int key, std::optional<Key> position, Qt::KeyboardModifiers modifiers = {},
                    bool isRepeat = false)
{
    const quint32 scanCode =
        position ? *platform::x11KeycodeFromCarbon(static_cast<int>(position->rawValue)) : 0;
    return RecordedKey::fromEvent(
        QKeyEvent(QEvent::KeyPress, key, modifiers, scanCode, 0, 0, QString(), isRepeat));
}

} // namespace

TEST(RecordedKey, hasShortcutModifiersAndRepetitionOfTheEvent)
{
    const RecordedKey key =
        pressed(Qt::Key_V, Key::v, Qt::MetaModifier | Qt::ShiftModifier | Qt::KeypadModifier);

    EXPECT_EQ(key.kind, Kind::Other);
    EXPECT_EQ(key.modifiers, Modifier::Command | Modifier::Shift);
    EXPECT_EQ(key.shortcut, Shortcut(9, 768));
    EXPECT_FALSE(key.isRepeat);
    EXPECT_TRUE(pressed(Qt::Key_V, Key::v, {}, true).isRepeat);
}

TEST(RecordedKey, knowsTheKeysThatEdit)
{
    EXPECT_EQ(pressed(Qt::Key_Tab, Key::tab).kind, Kind::Tab);
    EXPECT_EQ(pressed(Qt::Key_Backtab, Key::tab, Qt::ShiftModifier).kind, Kind::Tab);
    EXPECT_EQ(pressed(Qt::Key_Escape, Key::escape).kind, Kind::Escape);
    EXPECT_EQ(pressed(Qt::Key_Backspace, Key::delete_).kind, Kind::Delete);
    EXPECT_EQ(pressed(Qt::Key_Delete, Key::forwardDelete).kind, Kind::Delete);
}

TEST(RecordedKey, thePlaceOfAKeyCountsWhereItsNameSaysNothing)
{
    EXPECT_EQ(pressed(Qt::Key_unknown, Key::escape).kind, Kind::Escape);
    EXPECT_EQ(pressed(Qt::Key_unknown, Key::delete_).kind, Kind::Delete);
    EXPECT_EQ(pressed(Qt::Key_unknown, Key::forwardDelete).kind, Kind::Delete);
}

TEST(RecordedKey, aKeyThatTheLayoutMovedIsWhatTheLayoutSays)
{
    EXPECT_EQ(pressed(Qt::Key_Escape, Key::capsLock).kind, Kind::Escape);
    EXPECT_EQ(pressed(Qt::Key_CapsLock, Key::escape).kind, Kind::Modifier);
}

TEST(RecordedKey, functionKeysGoFromOneToThirtyFive)
{
    for (int key = Qt::Key_F1; key <= Qt::Key_F35; ++key)
        EXPECT_EQ(pressed(key, Key::a).kind, Kind::Function) << key;
    EXPECT_NE(pressed(Qt::Key_F1 - 1, Key::a).kind, Kind::Function);
    EXPECT_NE(pressed(Qt::Key_F35 + 1, Key::a).kind, Kind::Function);
}

TEST(RecordedKey, aModifierAloneIsOne)
{
    for (const int key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_AltGr,
                          Qt::Key_Super_L, Qt::Key_Super_R, Qt::Key_CapsLock, Qt::Key_NumLock})
        EXPECT_EQ(pressed(key, std::nullopt).kind, Kind::Modifier) << key;
    EXPECT_EQ(pressed(Qt::Key_unknown, Key::rightOption).kind, Kind::Modifier);
}

TEST(RecordedKey, aKeyWithoutANumberHasNoShortcut)
{
    EXPECT_EQ(pressed(Qt::Key_HomePage, std::nullopt, Qt::MetaModifier).shortcut, std::nullopt);
}

TEST(RecordedKey, aHotKeyIsKnownByItsPlace)
{
    const Shortcut shortcut(Key::v, Modifier::Shift | Modifier::Command);
    EXPECT_EQ(RecordedKey::fromShortcut(shortcut),
              (RecordedKey{Kind::Other, shortcut.modifiers(), false, shortcut}));

    for (const Key key : {Key::f1,  Key::f2,  Key::f3,  Key::f4,  Key::f5,  Key::f6,  Key::f7,
                          Key::f8,  Key::f9,  Key::f10, Key::f11, Key::f12, Key::f13, Key::f14,
                          Key::f15, Key::f16, Key::f17, Key::f18, Key::f19, Key::f20})
        EXPECT_EQ(RecordedKey::fromShortcut({key, {}}).kind, Kind::Function) << key.rawValue;
    EXPECT_EQ(RecordedKey::fromShortcut({Key::escape, {}}).kind, Kind::Escape);
}
