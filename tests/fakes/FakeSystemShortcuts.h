// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/SystemShortcuts.h"

#include <algorithm>
#include <vector>

/// Chords that others have, as the test says.
class FakeSystemShortcuts : public platform::SystemShortcuts
{
public:
    void refresh() override { ++refreshes; }
    std::vector<platform::SystemShortcut> enabledShortcuts() const override { return enabled; }
    bool isHeldElsewhere(quint32 keyCode, quint32 modifiers) const override
    {
        return std::ranges::find(held, platform::SystemShortcut{keyCode, modifiers}) != held.end();
    }

    std::vector<platform::SystemShortcut> enabled; ///< of the desktop's settings
    std::vector<platform::SystemShortcut> held;    ///< by other programs
    int refreshes = 0;
};
