// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/SystemShortcuts.h"

#include <memory>

namespace platform {

class HotkeyService;

/// The chords that the running desktop session keeps; never null. Needs the application object.
/// Asks nobody before the first refresh().
/// @param hotkeys must outlive it; knows which chords are this program's own
std::unique_ptr<SystemShortcuts> makeSystemShortcuts(HotkeyService &hotkeys);

} // namespace platform
