// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/Modifiers.h"

/// The modifiers of shortcuts are those of the platform's hot keys.
namespace KeyboardShortcuts {

using platform::carbonModifiers;
using platform::cmdKey;
using platform::controlKey;
using platform::desktopModifiers;
using platform::eventModifiers;
using platform::Modifier;
using platform::Modifiers;
using platform::optionKey;
using platform::shiftKey;

} // namespace KeyboardShortcuts
