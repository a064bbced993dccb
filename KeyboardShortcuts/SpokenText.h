// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Modifiers.h"

#include <QString>
#include <QStringList>

namespace platform {
class KeyboardLayout;
}

namespace KeyboardShortcuts {

/// The names of a set of modifiers, in the order of their symbols: "Ctrl", "Alt", "Shift", "Super".
QStringList spokenModifiers(Modifiers modifiers);

/// What a PC keyboard calls the key ("Page Up", "Keypad 5"), else its text as it is shown, else its
/// number ("key 93").
///
/// @param layout may be null
QString spokenKey(qint64 keyCode, platform::KeyboardLayout *layout);

} // namespace KeyboardShortcuts
