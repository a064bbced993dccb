// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

struct xkb_keymap;

namespace platform {

/// The texts on the keys of every group of a keyboard map, copied out of it.
class KeyTexts
{
public:
    KeyTexts() = default;

    /// Keycodes of `keymap` are X11 keycodes. Only the lowest level (no modifier) is read.
    explicit KeyTexts(xkb_keymap *keymap);

    int groupCount() const { return static_cast<int>(m_groups.size()); }

    /// Whether most of the letters a to z stand on this group's keys.
    bool isAsciiCapable(int group) const;

    /// @param carbonKeyCode virtual key code, see KeyCodes.h
    std::optional<QString> text(int group, int carbonKeyCode) const;

private:
    std::vector<QHash<int, QString>> m_groups; ///< per group: texts by virtual key code
};

} // namespace platform
