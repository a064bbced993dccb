// SPDX-License-Identifier: MIT
#pragma once

#include "updater/Updater.h"

#include <QStringList>

/// An updater that writes down what it is told, and its owner.
class FakeUpdater : public Updater, public UpdaterController
{
public:
    Updater &updater() override { return *this; }

    bool canCheckForUpdates() const override { return canCheck; }
    void checkForUpdates() override { ++checks; }
    bool automaticallyChecksForUpdates() const override { return checksByItself; }
    void setAutomaticallyChecksForUpdates(bool isOn) override
    {
        checksByItself = isOn;
        calls.append(isOn ? QStringLiteral("checks on") : QStringLiteral("checks off"));
    }
    bool automaticallyDownloadsUpdates() const override { return downloadsByItself; }
    void setAutomaticallyDownloadsUpdates(bool isOn) override
    {
        downloadsByItself = isOn;
        calls.append(isOn ? QStringLiteral("downloads on") : QStringLiteral("downloads off"));
    }

    void setCanCheck(bool can)
    {
        canCheck = can;
        emit canCheckForUpdatesChanged();
    }

    bool canCheck = true;
    bool checksByItself = true;
    bool downloadsByItself = false;
    int checks = 0;
    QStringList calls;
};
