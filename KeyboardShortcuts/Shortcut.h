// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Key.h"
#include "KeyboardShortcuts/Modifiers.h"

#include <QHashFunctions>
#include <QString>

#include <compare>
#include <optional>

class QEvent;

namespace KeyboardShortcuts {

/// A key with its modifiers, as it is stored. Any pair of numbers is a shortcut; only key codes of
/// 16 bits can become hot keys.
struct Shortcut
{
    qint64 carbonKeyCode = 0;
    qint64 carbonModifiers = 0; ///< cmdKey, shiftKey, optionKey, controlKey

    Shortcut() = default;
    constexpr Shortcut(qint64 keyCode, qint64 modifiers)
        : carbonKeyCode(keyCode)
        , carbonModifiers(modifiers)
    {
    }
    Shortcut(Key key, Modifiers modifiers);

    /// The shortcut of a key press or release; none for every other event, and for a key that
    /// stored shortcuts have no number for.
    static std::optional<Shortcut> fromEvent(const QEvent &event);

    /// Reads the stored form, a JSON object with two integer members in any order. Other members do
    /// not matter. None for any other text.
    static std::optional<Shortcut> fromJson(const QString &text);
    QString toJson() const;

    Key key() const { return {carbonKeyCode}; }
    Modifiers modifiers() const { return eventModifiers(carbonModifiers); }

    /// What the user reads: modifier symbols and the key's text in the keyboard layout in use, for
    /// example "⇧⌘V". Needs KeyboardShortcuts::setUp() for keys that the layout names.
    QString description() const;

    /// The same in words, for screen readers and for who does not know the symbols: the names that
    /// the keys have on this desktop, for example "Shift+Super+V". Translated.
    QString spokenDescription() const;

    friend constexpr auto operator<=>(const Shortcut &, const Shortcut &) = default;
};

inline size_t qHash(const Shortcut &shortcut, size_t seed = 0)
{
    return qHashMulti(seed, shortcut.carbonKeyCode, shortcut.carbonModifiers);
}

} // namespace KeyboardShortcuts
