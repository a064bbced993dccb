// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/SystemShortcuts.h"

#include <QMetaObject>

namespace platform {

/// A desktop that tells nobody which chords it keeps.
class NullSystemShortcuts : public SystemShortcuts
{
    Q_OBJECT

public:
    void refresh() override
    {
        QMetaObject::invokeMethod(this, &SystemShortcuts::refreshed, Qt::QueuedConnection);
    }
    std::vector<SystemShortcut> enabledShortcuts() const override { return {}; }
    bool isHeldElsewhere(quint32, quint32) const override { return false; }
};

} // namespace platform
