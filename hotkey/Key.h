// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/VirtualKey.h"

#include <QStringView>

#include <optional>

namespace hotkey {

/// One of the 113 named positions on the keyboard: `Key::a` to `Key::mute`.
class Key
{
public:
    using enum platform::VirtualKey;

    // Implicit, so that a case is a key.
    constexpr Key(platform::VirtualKey key)
        : m_key(key)
    {
    }

    /// The key with this virtual key code; none for a code without a name.
    static std::optional<Key> fromCarbonKeyCode(quint32 carbonKeyCode);

    /// The key that a text names. Taken are the names of the cases ("keypad0", "volumeup",
    /// "return"), in upper or lower case, and
    /// - what a US keyboard types there: "7", ";", "`";
    /// - other names that are in use: "enter" (return), "esc", "backspace" (delete), "del" (forward
    ///   delete), "insert" (help), "up", "down", "left", "right", "pgup", "pgdn", "spacebar",
    ///   "backtick", "hyphen", "apostrophe", "numlock" (keypad clear), "fn", and of the modifiers
    ///   "cmd", "super", "meta" (command), "alt" (option), "ctrl".
    /// None for every other text. Blanks around a name are not removed: a blank is the space key.
    static std::optional<Key> fromString(QStringView string);

    constexpr quint32 carbonKeyCode() const { return static_cast<quint32>(m_key); }

    friend constexpr bool operator==(Key, Key) = default;

private:
    platform::VirtualKey m_key;
};

} // namespace hotkey
