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
/// those that another program holds. Owned by the entry type, main thread only.
class SystemShortcuts : public QObject
{
    Q_OBJECT

public:
    SystemShortcuts() = default;

    /// Asks all sources anew. Returns at once; what a source answers is in enabledShortcuts() as
    /// soon as it has answered, and one that does not answer counts as empty.
    virtual void refresh() = 0;
    /// What the sources have answered since the last refresh(), those that are switched on only.
    virtual std::vector<SystemShortcut> enabledShortcuts() const = 0;
    /// Whether another program holds the chord at this moment. One that this program holds does
    /// not count. False where the desktop cannot tell.
    virtual bool isHeldElsewhere(quint32 keyCode, quint32 modifiers) const = 0;

signals:
    /// Every source has answered, or has been given up, since the last refresh().
    void refreshed();
};

} // namespace platform
