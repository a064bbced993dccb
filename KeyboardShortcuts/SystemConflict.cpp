// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/SystemConflict.h"

#include "platform/hotkeys/SystemShortcuts.h"

#include <algorithm>

namespace KeyboardShortcuts {

namespace {

/// What the desktop says with the bits that a shortcut can have.
Shortcut shortcutOf(const platform::SystemShortcut &system)
{
    return {system.keyCode, carbonModifiers(eventModifiers(system.modifiers))};
}

} // namespace

bool isUsedBySystem(const Shortcut &shortcut, const platform::SystemShortcuts &system)
{
    if (shortcut == Shortcut(Key::f12, Modifiers()))
        return false;
    const auto enabled = system.enabledShortcuts();
    if (std::ranges::find(enabled, shortcut, shortcutOf) != enabled.end())
        return true;
    return system.isHeldElsewhere(static_cast<quint32>(shortcut.carbonKeyCode),
                                  static_cast<quint32>(shortcut.carbonModifiers));
}

} // namespace KeyboardShortcuts
