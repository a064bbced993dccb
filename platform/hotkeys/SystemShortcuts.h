// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <vector>

namespace platform {

/// A chord that the desktop keeps for itself.
struct SystemShortcut
{
    quint32 keyCode = 0;   ///< virtual key code, see KeyCodes.h
    quint32 modifiers = 0; ///< bits of HotkeyModifier

    friend bool operator==(const SystemShortcut &, const SystemShortcut &) = default;
};

/// The chords that a new shortcut would get in the way of: those of the desktop's settings, and
/// those that another program holds at this moment.
///
/// The settings are read anew by each refresh(), in the background; whoever lets a shortcut be
/// recorded calls it when that can begin, and when it does. A desktop that tells nothing has an
/// empty list. Owned by the entry type, main thread only.
class SystemShortcuts : public QObject
{
    Q_OBJECT

public:
    SystemShortcuts() = default;

    /// Asks all sources anew. Returns at once: no other program is waited for, and no service is
    /// started that does not run. What a source answers is in enabledShortcuts() as soon as it has
    /// answered, and one that does not answer within three seconds counts as empty; what was
    /// answered before counts until then.
    virtual void refresh() = 0;

    /// What the sources answered to the last refresh(), while it goes on also what they answered to
    /// the one before; those that are switched on only. Empty before the first. Each chord once, in
    /// no particular order; keys that the keyboard layout in use at the refresh() meant. Chords
    /// whose key has no virtual key code are left out, and so are settings that cannot be read.
    virtual std::vector<SystemShortcut> enabledShortcuts() const = 0;

    /// Whether another program holds the chord at this moment. One that this program holds does
    /// not count. False where the desktop cannot tell. Two round trips to the X server.
    ///
    /// @param keyCode   virtual key code, any number
    /// @param modifiers bits of HotkeyModifier
    virtual bool isHeldElsewhere(quint32 keyCode, quint32 modifiers) const = 0;

signals:
    /// Every source has answered, or has been given up, since the last refresh(). Comes from the
    /// event loop, once for a refresh() that no other one followed before.
    void refreshed();
};

} // namespace platform
