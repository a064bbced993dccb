// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Shortcut.h"

#include <QHashFunctions>
#include <QString>

#include <optional>

namespace KeyboardShortcuts {

/// The name of a shortcut that the user can change. Two names are the same if their texts are.
class Name
{
public:
    /// Creates a name. A default is stored (and so registered and announced) if nothing at all
    /// stands under the name's key yet; what the user removed does not come back.
    /// Needs KeyboardShortcuts::setUp().
    explicit Name(const QString &rawValue, std::optional<Shortcut> defaultShortcut = std::nullopt);

    /// Opens the paste menu when its key goes down; ⇧⌘V until the user changes it. Created on first
    /// use.
    static const Name &contextHotKey();
    /// Adds the selection as a snippet when its key is let go; ⇧⌘C until the user changes it.
    /// Created on first use.
    static const Name &addHotKey();
    /// Lets both be created anew, as at the next start.
    static void forgetAll();

    const QString &rawValue() const { return m_rawValue; }
    const std::optional<Shortcut> &defaultShortcut() const { return m_defaultShortcut; }

    /// The key of the name's entry in the defaults store.
    QString defaultsKey() const;

    friend bool operator==(const Name &left, const Name &right)
    {
        return left.m_rawValue == right.m_rawValue;
    }
    friend bool operator<(const Name &left, const Name &right)
    {
        return left.m_rawValue < right.m_rawValue;
    }

private:
    QString m_rawValue;
    std::optional<Shortcut> m_defaultShortcut;
};

inline size_t qHash(const Name &name, size_t seed = 0)
{
    return ::qHash(name.rawValue(), seed);
}

} // namespace KeyboardShortcuts
