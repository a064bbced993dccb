// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace LaunchAtLogin {

/// Launch at login as views bind to it. Has no state of its own: it asks LaunchAtLogin. Main thread
/// only.
class Observable : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool isEnabled() const;
    /// Announces the change, then makes it.
    void setEnabled(bool isEnabled);

signals:
    /// Somebody is about to set isEnabled() here; it still answers as before.
    void objectWillChange();
    /// Read isEnabled() again: it was set, with success or not, or somebody else changed the list
    /// of login items. Once for each such change.
    void changed();
};

} // namespace LaunchAtLogin
