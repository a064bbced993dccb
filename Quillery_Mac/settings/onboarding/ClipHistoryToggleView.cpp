// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/ClipHistoryToggleView.h"

#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/settings/HistorySizeRow.h"
#include "Quillery_Mac/settings/LaunchAtLoginToggle.h"
#include "Quillery_Mac/settings/SwitchRow.h"
#include "Quillery_Mac/ui/Divider.h"
#include "Quillery_Mac/ui/Switch.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QVBoxLayout>

namespace {

// A switch keeps room for its ring at its end; what has none ends where the switch itself does.
QWidget *inset(QWidget *row)
{
    row->setContentsMargins(0, 0, Switch::margin(), 0);
    return row;
}

} // namespace

ClipHistoryToggleView::ClipHistoryToggleView(platform::Defaults &defaults,
                                             std::span<const int> theValues, QWidget *parent)
    : QWidget(parent)
    , clipHistory(defaults, SettingsKeys::kClipHistory)
    , historySize(defaults, SettingsKeys::kHistorySize)
    , values(theValues)
{
    auto *column = new QVBoxLayout(this);
    // The ring's room at the end of a switch is part of the margin.
    column->setContentsMargins(tokens::kSetupMargin, 0, tokens::kSetupMargin - Switch::margin(), 0);
    column->setSpacing(tokens::kCardPadding);
    column->addStretch(1);
    addHistory(*column);
    column->addWidget(inset(new Divider(this, 0)));
    column->addWidget(new LaunchAtLogin::Toggle(
        tr("Enable this option to make sure Quillery automatically loads each time you restart "
           "your computer:"),
        SwitchRow::Text::Wrapped));
    column->addStretch(1);
}

void ClipHistoryToggleView::addHistory(QVBoxLayout &column)
{
    auto *keep = new SwitchRow(tr("Enabling Clipboard History will save all your copied text for "
                                  "future pasting from all your iCloud devices:"),
                               SwitchRow::Text::Wrapped);
    auto *size = new HistorySizeRow(tr("What's the maximum number of items we should keep in your "
                                       "Clipboard History?"),
                                    HistorySizeRow::Ends::Plain, historySize.cell(), values);
    keep->bind(clipHistory.cell());
    setAccessibleName(keep->control().accessibleName());
    const auto follow = [this, size] { size->setVisible(clipHistory.value()); };
    m_historyObserver = clipHistory.cell().addNotifier(follow);
    follow();
    column.addWidget(keep);
    column.addWidget(inset(size));
}
