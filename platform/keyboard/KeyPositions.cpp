// SPDX-License-Identifier: MIT
#include "platform/keyboard/KeyPositions.h"

#include "platform/keyboard/KeyCodes.h"

#include <algorithm>
#include <limits>

#include <xkbcommon/xkbcommon.h>

namespace platform {

namespace {

constexpr int kLevels = 2; // without and with Shift; what AltGr reaches is no shortcut

} // namespace

KeyPositions::KeyPositions(xkb_keymap *keymap, int group)
{
    const auto count = static_cast<int>(xkb_keymap_num_layouts(keymap));
    for (int other = 0; other < count; ++other) {
        const int rank = other == group ? 0 : other + 1;
        for (int level = 0; level < kLevels; ++level)
            readLevel(keymap, other, level, rank * kLevels + level);
    }
    std::ranges::stable_sort(m_entries, {},
                             [](const Entry &entry) { return entry.position.keyCode; });
}

void KeyPositions::readLevel(xkb_keymap *keymap, int group, int level, int place)
{
    for (const KeyCodePair &pair : kKeyCodes) {
        const xkb_keycode_t keycode = static_cast<xkb_keycode_t>(pair.evdev) + kX11KeycodeOffset;
        const xkb_keysym_t *symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(
            keymap, keycode, static_cast<xkb_layout_index_t>(group),
            static_cast<xkb_level_index_t>(level), &symbols);
        // Several symbols at once are a text and no shortcut.
        if (count == 1)
            m_entries.push_back({symbols[0], place, {pair.carbon, level > 0}});
    }
}

std::vector<KeyPosition> KeyPositions::of(quint32 symbol) const
{
    int first = std::numeric_limits<int>::max();
    for (const Entry &entry : m_entries) {
        if (entry.symbol == symbol)
            first = std::min(first, entry.place);
    }
    std::vector<KeyPosition> positions;
    for (const Entry &entry : m_entries) {
        if (entry.symbol == symbol && entry.place == first)
            positions.push_back(entry.position);
    }
    return positions;
}

} // namespace platform
