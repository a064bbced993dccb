// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Modifiers.h"
#include "platform/keyboard/ShortcutText.h"

/// The texts of shortcuts are those of the platform's hot keys.
namespace KeyboardShortcuts {

using platform::capitalised;
using platform::displayedKeyText;
using platform::keyText;
using platform::kSpecialKeys;
using platform::layoutText;
using platform::modifierSymbols;
using platform::SpecialKey;

} // namespace KeyboardShortcuts
