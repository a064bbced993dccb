// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/SettingsView.h"

#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/settings/HistorySizeRow.h"
#include "Quillery_Mac/settings/HistorySizeSlider.h"
#include "Quillery_Mac/settings/LaunchAtLoginToggle.h"
#include "Quillery_Mac/settings/Recorder.h"
#include "Quillery_Mac/settings/SettingsCard.h"
#include "Quillery_Mac/settings/SwitchRow.h"
#include "Quillery_Mac/settings/UpdaterSettingsView.h"
#include "Quillery_Mac/ui/Switch.h"
#include "Quillery_Mac/ui/Tokens.h"
#include "updater/Updater.h"

#include <QShortcut>
#include <QVBoxLayout>

using KeyboardShortcuts::Name;

SettingsView::SettingsView(platform::Defaults &defaults,
                           const KeyboardShortcuts::RecorderLinks &recorder,
                           std::span<const int> theValues, UpdaterController *controller,
                           QWidget *parent)
    : QWidget(parent)
    , clipHistory(defaults, SettingsKeys::kClipHistory)
    , historySize(defaults, SettingsKeys::kHistorySize)
    , sync(defaults, SettingsKeys::kSync)
    , syncClips(defaults, SettingsKeys::kSyncClips)
    , values(theValues)
    , updaterController(controller)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(tokens::kSettingsMargin, tokens::kSettingsMargin,
                               tokens::kSettingsMargin, tokens::kSettingsMargin);
    column->setSpacing(tokens::kCardGap);
    column->addWidget(makeHistoryCard());
    column->addWidget(makeShortcutCard(recorder));
    column->addWidget(makeLoginCard());
    if (updaterController != nullptr)
        column->addWidget(new UpdaterSettingsView(updaterController->updater()));
    // The window is as large as its content, which is this wide at least.
    column->addStrut(tokens::kSettingsWidth - 2 * tokens::kSettingsMargin);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
}

SettingsCard *SettingsView::makeHistoryCard()
{
    auto *card = new SettingsCard;
    auto *keep = new SwitchRow(tr("Keep Clipboard History"));
    auto *size = new HistorySizeRow(tr("Max clipboard history items:"),
                                    HistorySizeRow::Ends::Labelled, historySize.cell(), values);
    card->addRow(keep, Switch::margin());
    card->addRow(size);
    keep->bind(clipHistory.cell());
    const auto follow = [this, size] { size->setVisible(clipHistory.value()); };
    m_historyObserver = clipHistory.cell().addNotifier(follow);
    follow();
    connect(&size->slider(), &QSlider::sliderPressed, this, [this] { isEditing = true; });
    connect(&size->slider(), &QSlider::sliderReleased, this, [this] { isEditing = false; });
    return card;
}

SettingsCard *SettingsView::makeShortcutCard(const KeyboardShortcuts::RecorderLinks &recorder)
{
    using KeyboardShortcuts::Recorder;
    auto *card = new SettingsCard;
    card->addRow(new Recorder(Name::contextHotKey(), recorder, tr("Paste keyboard shortcut:")),
                 Switch::margin());
    card->addRow(new Recorder(Name::addHotKey(), recorder, tr("Add Snippet keyboard shortcut:")),
                 Switch::margin());
    return card;
}

SettingsCard *SettingsView::makeLoginCard()
{
    auto *card = new SettingsCard;
    card->addRow(new LaunchAtLogin::Toggle, Switch::margin());
    return card;
}
