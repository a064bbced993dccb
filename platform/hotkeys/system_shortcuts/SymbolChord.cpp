// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/SymbolChord.h"

#include "platform/hotkeys/HotkeyService.h"
#include "platform/keyboard/KeyPositions.h"

namespace platform {

std::vector<SystemShortcut> shortcutsOf(const SymbolChord &chord, const KeyPositions &positions)
{
    if (chord.keyCode)
        return {{*chord.keyCode, chord.modifiers}};
    std::vector<SystemShortcut> shortcuts;
    for (const KeyPosition &position : positions.of(chord.symbol)) {
        const bool takesShift =
            position.isShifted && chord.upper == SymbolChord::UpperSymbol::TakesShift;
        const quint32 added = takesShift ? HotkeyModifier::kShift : 0;
        shortcuts.push_back({position.keyCode, chord.modifiers | added});
    }
    return shortcuts;
}

} // namespace platform
