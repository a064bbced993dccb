// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/system_shortcuts/ShortcutSource.h"

#include <QStringList>

namespace platform {

/// The shortcuts of GNOME's settings: of the window manager, the shell, the settings daemon with
/// its media keys, and the user's own. Schemas that are not installed are left out.
class GnomeShortcuts : public ShortcutSource
{
    Q_OBJECT

public:
    GnomeShortcuts();

    void ask() override;

private:
    void read(const QString &listing);
    void readValue(QStringView key, QStringView value);
    void add(QStringView accelerator);

    QStringList m_schemas; ///< still to be read
    std::vector<SymbolChord> m_chords;
};

} // namespace platform
