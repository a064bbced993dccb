// SPDX-License-Identifier: MIT
#pragma once

#include "platform/defaults/DefaultsValue.h"

/// The table of the program's settings: key, type, default. Nothing else names a key. The stored
/// shortcuts have keys of their own (KeyboardShortcuts).
namespace SettingsKeys {

/// Whether copied texts are recorded.
inline constexpr platform::DefaultsKey<bool> kClipHistory{"clipHistory", true};
/// An index into kHistoryLimits, not a count; see historyLimit().
inline constexpr platform::DefaultsKey<double> kHistorySize{"historySize", 3.0};
/// Identifies this machine in every recorded clip: an upper-case UUID, written at the first start.
inline constexpr platform::DefaultsKey<const char *> kDevice{"device", ""};
/// True until the setup was finished.
inline constexpr platform::DefaultsKey<bool> kFirstLoad{"firstLoad", true};
/// Declared for the settings window only; both stores are mirrored whatever they say.
inline constexpr platform::DefaultsKey<bool> kSync{"sync", true};
inline constexpr platform::DefaultsKey<bool> kSyncClips{"syncClips", true};

} // namespace SettingsKeys
