// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// What the menu and the settings need of the updater. Main thread only.
class Updater : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// False while a check is under way or where updating is not possible at all.
    virtual bool canCheckForUpdates() const = 0;
    /// Checks now and shows what it found; to be called only while canCheckForUpdates().
    virtual void checkForUpdates() = 0;

    /// The user's choice, which the updater keeps: whether it looks for updates by itself.
    virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool isOn) = 0;
    /// Whether an update that it found by itself is loaded without asking; means nothing while
    /// automaticallyChecksForUpdates() is off, but is kept.
    virtual bool automaticallyDownloadsUpdates() const = 0;
    virtual void setAutomaticallyDownloadsUpdates(bool isOn) = 0;

signals:
    void canCheckForUpdatesChanged();
};

/// Owns the updater; exists only where the program updates itself. Owned by the entry type.
class UpdaterController
{
public:
    virtual ~UpdaterController() = default;

    virtual Updater &updater() = 0;
};
