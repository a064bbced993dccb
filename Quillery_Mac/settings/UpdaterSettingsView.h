// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/settings/SettingsCard.h"

#include <QProperty>

class Updater;

/// The user's choices for the updater. Reads them once, when it is made, and writes every change
/// through at once.
class UpdaterSettingsView : public SettingsCard
{
    Q_OBJECT

public:
    /// @param theUpdater must outlive the view
    explicit UpdaterSettingsView(Updater &theUpdater, QWidget *parent = nullptr);

    Updater &updater;
    QProperty<bool> automaticallyChecksForUpdates;
    QProperty<bool> automaticallyDownloadsUpdates;

private:
    QPropertyNotifier m_checksObserver;
    QPropertyNotifier m_downloadsObserver;
};
