// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/system_shortcuts/SymbolChord.h"

#include <QObject>

#include <vector>

namespace platform {

/// One list of chords that a desktop keeps for itself. Asked once and then thrown away, also while
/// it has not answered. Main thread only.
class ShortcutSource : public QObject
{
    Q_OBJECT

public:
    /// Puts the question and returns without waiting.
    virtual void ask() = 0;

signals:
    /// Comes once after ask(), unless somebody who is asked never answers. What cannot be had or
    /// read is missing in the list.
    void answered(const std::vector<platform::SymbolChord> &chords);
};

} // namespace platform
