// SPDX-License-Identifier: MIT
#pragma once

#include "hotkey/Key.h"
#include "platform/keyboard/Modifiers.h"

#include <QString>

namespace platform {
class KeyboardLayout;
}

namespace hotkey {

/// A key with its modifiers, as a hot key has them.
struct KeyCombo
{
    quint32 carbonKeyCode = 0;   ///< virtual key code
    quint32 carbonModifiers = 0; ///< bits cmdKey, shiftKey, optionKey, controlKey

    constexpr KeyCombo() = default;
    constexpr KeyCombo(quint32 keyCode, quint32 modifiers)
        : carbonKeyCode(keyCode)
        , carbonModifiers(modifiers)
    {
    }
    /// Flags outside the four are dropped.
    KeyCombo(Key key, platform::Modifiers modifiers);

    /// None for a code that has no name.
    std::optional<Key> key() const { return Key::fromCarbonKeyCode(carbonKeyCode); }
    platform::Modifiers modifiers() const { return platform::eventModifiers(carbonModifiers); }

    /// What the user reads: modifier symbols in the order ⌃⌥⇧⌘, then the key's text.
    ///
    /// @param layout names the keys that have no text of their own, which read "�" without one; may
    ///               be null
    QString description(platform::KeyboardLayout *layout) const;

    friend constexpr bool operator==(const KeyCombo &, const KeyCombo &) = default;
};

} // namespace hotkey
