// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>
#include <Qt>

namespace platform {

/// Modifier flags of an event. Only the first four are ever stored.
enum class Modifier : quint32 {
    Command = 0x100000,
    Shift = 0x20000,
    Option = 0x80000,
    Control = 0x40000,
    CapsLock = 0x10000,
    NumericPad = 0x200000,
    Help = 0x400000,
    Function = 0x800000,
};
Q_DECLARE_FLAGS(Modifiers, Modifier)
Q_DECLARE_OPERATORS_FOR_FLAGS(Modifiers)

/// Modifier bits of a stored shortcut and of a registered hot key.
inline constexpr qint64 cmdKey = 0x100;
inline constexpr qint64 shiftKey = 0x200;
inline constexpr qint64 optionKey = 0x800;
inline constexpr qint64 controlKey = 0x1000;

/// The stored bits for event flags; flags outside the four are dropped.
qint64 carbonModifiers(Modifiers modifiers);

/// The event flags for stored bits; bits outside the four are dropped.
Modifiers eventModifiers(qint64 carbonModifiers);

/// The flags of the desktop's own key events: Super is Command, Alt is Option.
Modifiers desktopModifiers(Qt::KeyboardModifiers modifiers);

} // namespace platform
