// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/SystemShortcuts.h"
#include "platform/hotkeys/system_shortcuts/ShortcutSource.h"
#include "platform/keyboard/KeyPositions.h"

#include <QTimer>

#include <functional>
#include <memory>

namespace platform {

class HotkeyService;

/// What the desktop's lists say, as keys of this keyboard. The lists and the keyboard map are read
/// anew by each refresh(); in between only the outcome is kept.
class DesktopShortcuts : public SystemShortcuts
{
    Q_OBJECT

public:
    using Sources = std::vector<std::unique_ptr<ShortcutSource>>;

    /// What this desktop has.
    struct Desktop
    {
        std::function<Sources()> sources;        ///< the lists that count at this moment
        std::function<KeyPositions()> positions; ///< the keyboard map in use
    };

    /// @param hotkeys must outlive this
    DesktopShortcuts(HotkeyService &hotkeys, Desktop desktop);
    ~DesktopShortcuts() override;

    void refresh() override;
    std::vector<SystemShortcut> enabledShortcuts() const override;
    bool isHeldElsewhere(quint32 keyCode, quint32 modifiers) const override;

private:
    void take(const std::vector<SymbolChord> &chords);
    void end();

    HotkeyService &m_hotkeys;
    Desktop m_desktop;
    std::vector<SystemShortcut> m_shortcuts;

    // While sources are being asked.
    std::vector<SystemShortcut> m_former; ///< what they said the time before
    Sources m_sources;
    KeyPositions m_positions;
    std::size_t m_unanswered = 0;
    QTimer m_ending;
};

} // namespace platform
