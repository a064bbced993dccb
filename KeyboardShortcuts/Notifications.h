// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Name.h"

#include <QObject>

namespace KeyboardShortcuts {

/// The notification's name. What it carries, `name`, is the signal's argument.
inline constexpr auto KeyboardShortcuts_shortcutByNameDidChange =
    "KeyboardShortcuts_shortcutByNameDidChange";

/// What the shortcut library announces to anybody. Main thread only.
class Notifications : public QObject
{
    Q_OBJECT

signals:
    /// The stored shortcut of `name` was set or removed, perhaps to what it was before.
    void shortcutByNameDidChange(const KeyboardShortcuts::Name &name);
    /// The hot key of `shortcut` was pressed while isPaused(). The desktop gives such a key to us
    /// and not to the window that has the keyboard, so who records shortcuts learns of it here.
    void didPressWhilePaused(const KeyboardShortcuts::Shortcut &shortcut);
};

} // namespace KeyboardShortcuts
