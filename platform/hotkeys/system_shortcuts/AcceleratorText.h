// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/system_shortcuts/SymbolChord.h"

#include <QStringView>

#include <optional>

namespace platform {

/// Reads a chord as GNOME and Xfce store it: modifiers in angle brackets, then the X11 name of a
/// symbol. "<Super>v", "<Primary><Alt>Delete", "XF86AudioMute". The names of modifiers are those of
/// GTK 3's gtk_accelerator_parse(), in any case; besides, GNOME writes the key above Tab as
/// "Above_Tab" and a keycode as "0x37".
///
/// @return none for a text that switches the shortcut off ("", "disabled"), one that cannot be
///         read, and a chord with a modifier that no shortcut here can have (Hyper, Meta, Mod2,
///         Mod3, Mod5)
std::optional<SymbolChord> chordOfAccelerator(QStringView text);

} // namespace platform
