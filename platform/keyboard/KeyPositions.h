// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

struct xkb_keymap;

namespace platform {

/// A key that carries a symbol.
struct KeyPosition
{
    quint32 keyCode = 0;    ///< virtual key code, see KeyCodes.h
    bool isShifted = false; ///< the symbol is the upper one of the two on the key

    friend bool operator==(const KeyPosition &, const KeyPosition &) = default;
};

/// Where on the keyboard the symbols stand, copied out of a keyboard map: the way back from what
/// is printed on a key, by which desktops write their shortcuts, to the key.
class KeyPositions
{
public:
    /// Without a map: no symbol stands anywhere.
    KeyPositions() = default;

    /// Keycodes of `keymap` are X11 keycodes.
    /// @param group the group in use, from 0
    KeyPositions(xkb_keymap *keymap, int group);

    /// The keys that carry a symbol. The group in use goes before the others, and in a group the
    /// lower symbols before the upper ones; only the first of these places that has the symbol
    /// counts.
    ///
    /// @param symbol number of <xkbcommon/xkbcommon-keysyms.h>
    /// @return ascending by key code; empty for a symbol that only keys without a virtual key code
    ///         carry, or none
    std::vector<KeyPosition> of(quint32 symbol) const;

private:
    struct Entry
    {
        quint32 symbol;
        int place; ///< smaller goes before
        KeyPosition position;
    };

    void readLevel(xkb_keymap *keymap, int group, int level, int place);

    std::vector<Entry> m_entries;
};

} // namespace platform
