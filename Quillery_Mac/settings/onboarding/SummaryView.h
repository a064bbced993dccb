// SPDX-License-Identifier: MIT
#pragma once

#include "platform/defaults/DefaultsCell.h"

#include <QWidget>

#include <span>
#include <vector>

class QLabel;

/// The setup's last page: what was chosen, as it stands at every moment.
class SummaryView : public QWidget
{
    Q_OBJECT

public:
    /// @param defaults, theValues must outlive the page
    SummaryView(platform::Defaults &defaults, std::span<const int> theValues,
                QWidget *parent = nullptr);

    platform::DefaultsCell<bool> clipHistory;
    platform::DefaultsCell<double> historySize;
    std::span<const int> values;

private:
    void refresh();

    std::vector<QLabel *> m_lines;
    std::vector<QPropertyNotifier> m_observers;
};
