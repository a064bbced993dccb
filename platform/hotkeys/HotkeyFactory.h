// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/HotkeyService.h"

#include <memory>

namespace platform {

/// The hot keys of the running desktop session; never null. Needs the application object.
std::unique_ptr<HotkeyService> makeHotkeyService();

} // namespace platform
