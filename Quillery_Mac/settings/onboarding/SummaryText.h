// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// What the setup's last page sums up.
struct SetupSummary
{
    QString pasteShortcut; ///< as the user reads it; empty if there is none
    QString addShortcut;
    bool isHistoryOn = false;
    QString historyEntries; ///< empty if the stored position stands for no number
    bool launchesAtLogin = false;
};

/// The lines of the summary, in their order.
QStringList summaryLines(const SetupSummary &summary);
