// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/KeyboardLayout.h"

#include <memory>

namespace platform {

/// The keyboard layout of the running desktop session; never null. Needs the application object.
std::unique_ptr<KeyboardLayout> makeKeyboardLayout();

} // namespace platform
