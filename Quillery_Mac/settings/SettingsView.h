// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/settings/RecorderLinks.h"
#include "platform/defaults/DefaultsCell.h"

#include <QProperty>
#include <QWidget>

#include <span>

class UpdaterController;
class HistorySizeRow;
class QVBoxLayout;
class SettingsCard;

/// The content of the settings window. Every control writes its value at once, and shows what
/// changes elsewhere; opening it writes nothing.
class SettingsView : public QWidget
{
    Q_OBJECT

public:
    /// @param defaults   must outlive the view
    /// @param values     the history sizes to choose from, the smallest first; must outlive the
    /// view
    /// @param controller where the program updates itself, else null: then there is nothing to set
    SettingsView(platform::Defaults &defaults, const KeyboardShortcuts::RecorderLinks &recorder,
                 std::span<const int> values, UpdaterController *controller,
                 QWidget *parent = nullptr);

    platform::DefaultsCell<bool> clipHistory;
    /// An index into `values`, not a count.
    platform::DefaultsCell<double> historySize;
    /// Declared only: nothing here shows them.
    platform::DefaultsCell<bool> sync;
    platform::DefaultsCell<bool> syncClips;
    std::span<const int> values;
    /// Whether the slider is being dragged.
    QProperty<bool> isEditing{false};
    UpdaterController *updaterController;

private:
    SettingsCard *makeHistoryCard();
    SettingsCard *makeShortcutCard(const KeyboardShortcuts::RecorderLinks &recorder);
    SettingsCard *makeLoginCard();

    QPropertyNotifier m_historyObserver;
};
