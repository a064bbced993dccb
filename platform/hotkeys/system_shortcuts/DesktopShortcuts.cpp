// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/DesktopShortcuts.h"

#include "platform/hotkeys/HotkeyService.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace platform {

namespace {

/// Longer than any single question to the bus may take, and than a slow disk takes to start a dozen
/// small programs.
constexpr std::chrono::milliseconds kDeadline{3000};

void add(std::vector<SystemShortcut> &shortcuts, const SystemShortcut &shortcut)
{
    if (std::ranges::find(shortcuts, shortcut) == shortcuts.end())
        shortcuts.push_back(shortcut);
}

} // namespace

DesktopShortcuts::DesktopShortcuts(HotkeyService &hotkeys, Desktop desktop)
    : m_hotkeys(hotkeys)
    , m_desktop(std::move(desktop))
{
    m_ending.setSingleShot(true);
    connect(&m_ending, &QTimer::timeout, this, &DesktopShortcuts::end);
}

DesktopShortcuts::~DesktopShortcuts() = default;

void DesktopShortcuts::refresh()
{
    m_former = enabledShortcuts();
    m_shortcuts.clear();
    m_positions = m_desktop.positions();
    m_sources = m_desktop.sources();
    m_unanswered = m_sources.size();
    m_ending.start(m_sources.empty() ? std::chrono::milliseconds(0) : kDeadline);
    for (const std::unique_ptr<ShortcutSource> &source : m_sources)
        connect(source.get(), &ShortcutSource::answered, this, &DesktopShortcuts::take);
    for (const std::unique_ptr<ShortcutSource> &source : m_sources)
        source->ask();
}

std::vector<SystemShortcut> DesktopShortcuts::enabledShortcuts() const
{
    std::vector<SystemShortcut> shortcuts = m_shortcuts;
    for (const SystemShortcut &shortcut : m_former)
        add(shortcuts, shortcut);
    return shortcuts;
}

bool DesktopShortcuts::isHeldElsewhere(quint32 keyCode, quint32 modifiers) const
{
    return m_hotkeys.isHeldElsewhere(keyCode, modifiers);
}

// The end waits for the event loop: the source that answers is still at work.
void DesktopShortcuts::take(const std::vector<SymbolChord> &chords)
{
    for (const SymbolChord &chord : chords) {
        for (const SystemShortcut &shortcut : shortcutsOf(chord, m_positions))
            add(m_shortcuts, shortcut);
    }
    if (--m_unanswered == 0)
        m_ending.start(std::chrono::milliseconds(0));
}

void DesktopShortcuts::end()
{
    m_former.clear();
    m_sources.clear();
    m_positions = {};
    emit refreshed();
}

} // namespace platform
