// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/system_shortcuts/SymbolChord.h"

#include <optional>

namespace platform {

/// Reads a chord as KDE stores it: a Qt::Key with bits of Qt::KeyboardModifier.
///
/// @return none for 0, for a key that is neither a character nor one of the named keys with a
///         virtual key code, and for a modifier that no shortcut here can have
std::optional<SymbolChord> chordOfQtKey(int key);

} // namespace platform
