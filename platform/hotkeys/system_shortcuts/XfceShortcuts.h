// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/system_shortcuts/ShortcutSource.h"

#include <QVariantMap>

namespace platform {

/// The shortcuts of Xfce's settings, from the running service that keeps them (org.xfce.Xfconf,
/// channel "xfce4-keyboard-shortcuts").
class XfceShortcuts : public ShortcutSource
{
    Q_OBJECT

public:
    void ask() override;
};

/// The chords in all properties of the channel. There is a list of commands and one of the window
/// manager, and of each a default one and the user's, which counts as a whole once it is switched
/// on. A property is named by its accelerator and holds what it does; one without an action is
/// switched off, and the few that act only while a window is being moved do not count.
std::vector<SymbolChord> xfceChordsIn(const QVariantMap &properties);

} // namespace platform
