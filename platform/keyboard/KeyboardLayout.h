// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Availability.h"

#include <QObject>

#include <optional>

namespace platform {

/// What the user's keyboard layout prints on its keys. Owned by the entry type, main thread only.
class KeyboardLayout : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual QString backendId() const = 0;
    virtual Availability availability() const = 0;

    /// The text that a key alone types in the layout in use or, if that one has no Latin letters,
    /// in the one with Latin letters used last. "v", "ß", "^" for a dead key.
    ///
    /// @param carbonKeyCode virtual key code, see KeyCodes.h; any number may be asked for
    /// @return none for a key that types nothing, and without a layout
    virtual std::optional<QString> keyText(int carbonKeyCode) = 0;

signals:
    /// keyText() may answer otherwise from now on.
    void changed();
};

} // namespace platform
