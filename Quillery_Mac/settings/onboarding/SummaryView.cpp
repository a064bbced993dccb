// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/SummaryView.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/settings/HistorySizeText.h"
#include "Quillery_Mac/settings/onboarding/SummaryText.h"
#include "Quillery_Mac/ui/Tokens.h"
#include "login_item/LaunchAtLogin.h"
#include "platform/keyboard/KeyboardLayout.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr std::size_t kMostLines = 5;

// Written from left to right whatever stands around it.
QString isolated(const QString &text)
{
    constexpr QChar kLeftToRight(0x2066);
    constexpr QChar kEnd(0x2069);
    const bool isMirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    return isMirrored && !text.isEmpty() ? kLeftToRight + text + kEnd : text;
}

QString shortcutText(const KeyboardShortcuts::Name &name)
{
    const auto shortcut = KeyboardShortcuts::getShortcut(name);
    return shortcut ? isolated(shortcut->description()) : QString();
}

} // namespace

SummaryView::SummaryView(platform::Defaults &defaults, std::span<const int> theValues,
                         QWidget *parent)
    : QWidget(parent)
    , clipHistory(defaults, SettingsKeys::kClipHistory)
    , historySize(defaults, SettingsKeys::kHistorySize)
    , values(theValues)
{
    auto *column = new QVBoxLayout;
    column->setSpacing(tokens::kCardPadding);
    column->addStretch(1);
    for (std::size_t index = 0; index < kMostLines; ++index) {
        m_lines.push_back(new QLabel(this));
        m_lines.back()->setTextFormat(Qt::PlainText);
        column->addWidget(m_lines.back());
    }
    column->addStretch(1);
    auto *middle = new QHBoxLayout(this);
    middle->setContentsMargins(tokens::kSetupMargin, 0, tokens::kSetupMargin, 0);
    middle->addStretch(1);
    middle->addLayout(column);
    middle->addStretch(1);

    using KeyboardShortcuts::Notifications;
    connect(&KeyboardShortcuts::notifications(), &Notifications::shortcutByNameDidChange, this,
            &SummaryView::refresh);
    if (const platform::KeyboardLayout *layout = KeyboardShortcuts::keyboardLayout())
        connect(layout, &platform::KeyboardLayout::changed, this, &SummaryView::refresh);
    connect(&LaunchAtLogin::observable(), &LaunchAtLogin::Observable::changed, this,
            &SummaryView::refresh);
    m_observers.push_back(clipHistory.cell().addNotifier([this] { refresh(); }));
    m_observers.push_back(historySize.cell().addNotifier([this] { refresh(); }));
    refresh();
}

void SummaryView::refresh()
{
    using KeyboardShortcuts::Name;
    const QStringList lines =
        summaryLines({.pasteShortcut = shortcutText(Name::contextHotKey()),
                      .addShortcut = shortcutText(Name::addHotKey()),
                      .isHistoryOn = clipHistory.value(),
                      .historyEntries = historySize::text(historySize.value(), values),
                      .launchesAtLogin = LaunchAtLogin::isEnabled()});
    for (std::size_t index = 0; index < m_lines.size(); ++index) {
        const auto line = static_cast<qsizetype>(index);
        m_lines[index]->setText(line < lines.size() ? lines.at(line) : QString());
        m_lines[index]->setVisible(line < lines.size());
    }
    setAccessibleName(lines.join(u'\n'));
}
