// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Availability.h"
#include "platform/Result.h"

#include <QObject>
#include <QString>

namespace platform {

/// The desktop's list of programs to start at login, as far as it is about this program. What
/// stands on the disk is the only truth: nothing is remembered here. Owned by the entry type, main
/// thread only.
class LoginItem : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual QString backendId() const = 0;
    virtual Availability availability() const = 0;

    /// Whether this desktop starts the program at the next login. Read from the disk by each call.
    virtual bool isEnabled() const = 0;

    /// Puts the program on the list, in place of an entry that stands there.
    /// Errors: Unavailable; NotFound if the program is no longer where it was; Refused if its path
    /// is one that no entry can name; Io. After an error the list is as it was.
    virtual Result<void> registerItem() = 0;

    /// Takes the program off the list; no error if it is not on it.
    /// Errors: Unavailable; Io, and then the list is as it was.
    virtual Result<void> unregisterItem() = 0;

    /// Whether this very process was started from the list. Some desktops leave no sign of it in
    /// the process: false there.
    virtual bool hasStartedThisProcess() const = 0;

signals:
    /// isEnabled() answers differently than before, whoever made it so.
    void changed();
};

} // namespace platform
