// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/UpdaterSettingsView.h"

#include "Quillery_Mac/settings/SwitchRow.h"
#include "Quillery_Mac/ui/Switch.h"
#include "updater/Updater.h"

UpdaterSettingsView::UpdaterSettingsView(Updater &theUpdater, QWidget *parent)
    : SettingsCard(parent)
    , updater(theUpdater)
    , automaticallyChecksForUpdates(theUpdater.automaticallyChecksForUpdates())
    , automaticallyDownloadsUpdates(theUpdater.automaticallyDownloadsUpdates())
{
    auto *checks = new SwitchRow(tr("Automatically check for updates"));
    auto *downloads = new SwitchRow(tr("Automatically download updates"));
    addRow(checks, Switch::margin());
    addRow(downloads, Switch::margin());
    checks->bind(automaticallyChecksForUpdates);
    downloads->bind(automaticallyDownloadsUpdates);
    downloads->setEnabled(automaticallyChecksForUpdates.value());
    m_checksObserver = automaticallyChecksForUpdates.addNotifier([this, downloads] {
        updater.setAutomaticallyChecksForUpdates(automaticallyChecksForUpdates.value());
        downloads->setEnabled(automaticallyChecksForUpdates.value());
    });
    m_downloadsObserver = automaticallyDownloadsUpdates.addNotifier([this] {
        updater.setAutomaticallyDownloadsUpdates(automaticallyDownloadsUpdates.value());
    });
}
