// SPDX-License-Identifier: MIT
#pragma once

#include "platform/defaults/DefaultsCell.h"

#include <QWidget>

#include <span>

class QVBoxLayout;

/// The setup's page for the clipboard history and the launch at login.
class ClipHistoryToggleView : public QWidget
{
    Q_OBJECT

public:
    /// @param defaults, theValues must outlive the page
    ClipHistoryToggleView(platform::Defaults &defaults, std::span<const int> theValues,
                          QWidget *parent = nullptr);

    platform::DefaultsCell<bool> clipHistory;
    platform::DefaultsCell<double> historySize;
    std::span<const int> values;

private:
    void addHistory(QVBoxLayout &column);

    QPropertyNotifier m_historyObserver;
};
