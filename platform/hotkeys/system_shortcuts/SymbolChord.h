// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/SystemShortcuts.h"

#include <optional>
#include <vector>

namespace platform {

class KeyPositions;

/// A chord as a desktop's settings write it: by the symbol on its key. Which key that is depends on
/// the keyboard layout.
struct SymbolChord
{
    /// What becomes of a symbol that takes Shift on the key where it stands, as "+" does on many.
    enum class UpperSymbol {
        NamesTheKey, ///< the chord is that key with exactly `modifiers`
        TakesShift,  ///< Shift is pressed too
    };

    quint32 symbol = 0;    ///< number of <xkbcommon/xkbcommon-keysyms.h>, lower case
    quint32 modifiers = 0; ///< bits of HotkeyModifier
    UpperSymbol upper = UpperSymbol::NamesTheKey;
    /// The virtual key code of a chord that names its key by the position; `symbol` means nothing
    /// then.
    std::optional<quint32> keyCode = std::nullopt;

    friend bool operator==(const SymbolChord &, const SymbolChord &) = default;
};

/// The keys that the chord means on this keyboard; empty if there is none with a virtual key code.
std::vector<SystemShortcut> shortcutsOf(const SymbolChord &chord, const KeyPositions &positions);

} // namespace platform
