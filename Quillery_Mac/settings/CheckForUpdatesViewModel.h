// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QProperty>

class Updater;

/// What a "Check for Updates..." control shows: whether a check is possible. Follows the updater.
class CheckForUpdatesViewModel : public QObject
{
    Q_OBJECT

public:
    /// @param updater must outlive the model
    explicit CheckForUpdatesViewModel(const Updater &updater, QObject *parent = nullptr);

    QProperty<bool> canCheckForUpdates{false};
};
