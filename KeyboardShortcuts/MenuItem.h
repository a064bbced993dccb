// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Modifiers.h"
#include "KeyboardShortcuts/Shortcut.h"

#include <QString>

#include <optional>
#include <vector>

namespace platform {
class KeyboardLayout;
}

namespace KeyboardShortcuts {

/// An item of the program's main menu, as far as shortcuts are concerned.
struct MenuItem
{
    QString title;         ///< as shown, without the mark of its mnemonic
    QString keyEquivalent; ///< what the key types; an upper-case letter implies Shift; empty: none
    Modifiers keyEquivalentModifierMask;
    std::vector<MenuItem> submenu;
};

/// The title of the first item, in reading order and submenus included, that has the shortcut: its
/// key equivalent is what the layout prints on the key, its modifiers are exactly the shortcut's.
///
/// @param layout may be null; a key without a text belongs to no item
std::optional<QString> titleOfItemUsing(const Shortcut &shortcut, const std::vector<MenuItem> &menu,
                                        platform::KeyboardLayout *layout);

} // namespace KeyboardShortcuts
