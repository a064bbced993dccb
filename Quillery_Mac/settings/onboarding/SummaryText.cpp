// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/SummaryText.h"

#include <QCoreApplication>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(SummaryView)
};

QString state(bool isOn)
{
    return isOn ? Text::tr("Enabled") : Text::tr("Disabled");
}

} // namespace

// What follows a label is joined to it without another separator: its blanks are its own.
QStringList summaryLines(const SetupSummary &summary)
{
    QStringList lines{Text::tr("✔️ Your Paste hotkey is ") + summary.pasteShortcut,
                      Text::tr("✔️ Your Add Snippet hotkey is ") + summary.addShortcut,
                      Text::tr("✔️ Clipboard History is ") + state(summary.isHistoryOn)};
    if (summary.isHistoryOn)
        lines.append(Text::tr("✔️ Storing a maximum of ") + summary.historyEntries +
                     Text::tr(" items in History."));
    lines.append(Text::tr("✔️ Autolaunch at login is ") + state(summary.launchesAtLogin));
    return lines;
}
