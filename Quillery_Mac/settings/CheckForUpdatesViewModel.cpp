// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/CheckForUpdatesViewModel.h"

#include "updater/Updater.h"

CheckForUpdatesViewModel::CheckForUpdatesViewModel(const Updater &updater, QObject *parent)
    : QObject(parent)
{
    const auto follow = [this, &updater] { canCheckForUpdates = updater.canCheckForUpdates(); };
    connect(&updater, &Updater::canCheckForUpdatesChanged, this, follow);
    follow();
}
