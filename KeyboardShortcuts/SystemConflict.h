// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Shortcut.h"

namespace platform {
class SystemShortcuts;
}

namespace KeyboardShortcuts {

/// Whether the desktop or another program has the shortcut. F12 alone counts as free whoever has
/// it.
bool isUsedBySystem(const Shortcut &shortcut, const platform::SystemShortcuts &system);

} // namespace KeyboardShortcuts
