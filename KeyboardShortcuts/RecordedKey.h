// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Shortcut.h"

#include <optional>

class QKeyEvent;

namespace KeyboardShortcuts {

/// One press of a key while a shortcut is recorded, wherever it came from.
struct RecordedKey
{
    enum class Kind {
        Modifier, ///< a modifier or a lock by itself
        Tab,
        Escape,
        Delete,   ///< Backspace or Delete
        Function, ///< F1 to F35
        Other,
    };

    Kind kind = Kind::Other;
    Modifiers modifiers; ///< of the four that a shortcut can have
    bool isRepeat = false;
    std::optional<Shortcut> shortcut; ///< none for a key that stored shortcuts have no number for

    /// A key event of a window. What a key is called in the user's layout counts as well as where
    /// it is: who has Escape on another key means that key.
    static RecordedKey fromEvent(const QKeyEvent &event);
    /// A hot key that was pressed. Only the place of the key is known.
    static RecordedKey fromShortcut(const Shortcut &shortcut);

    friend bool operator==(const RecordedKey &, const RecordedKey &) = default;
};

} // namespace KeyboardShortcuts
