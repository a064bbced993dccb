// SPDX-License-Identifier: MIT
#pragma once

/// What a menu needs of the updater: whether it may check now, and asking it to. Main thread only.
class Updater
{
public:
    virtual ~Updater() = default;

    /// False while a check is under way or where updating is not possible at all.
    virtual bool canCheckForUpdates() const = 0;
    /// Checks now and shows what it found; to be called only while canCheckForUpdates().
    virtual void checkForUpdates() = 0;
};

/// Owns the updater; exists only where the program updates itself. Owned by the entry type.
class UpdaterController
{
public:
    virtual ~UpdaterController() = default;

    virtual Updater &updater() = 0;
};
