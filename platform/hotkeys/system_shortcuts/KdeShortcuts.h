// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/system_shortcuts/ShortcutSource.h"

#include <QString>

namespace platform {

/// The global shortcuts of KDE, from the service that holds them: org.kde.kglobalaccel, as version
/// 5.103 describes itself on the bus. It groups them by program; those of a program that does not
/// run are remembered but not held, and do not count.
class KdeShortcuts : public ShortcutSource
{
    Q_OBJECT

public:
    void ask() override;

private:
    void askComponent(const QString &path);
    void askShortcuts(const QString &path);
    void settle();

    std::vector<SymbolChord> m_chords;
    int m_openQuestions = 0;
};

} // namespace platform
