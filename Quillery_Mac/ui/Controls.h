// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QProperty>
#include <QString>

/// The command map that a menu shares with its popovers: from a command word to a flag. Whoever
/// owns the keyboard sets a word; the list that "give" gives the keyboard to acts on it and sets
/// it back.
using Controls = QMap<QString, bool>;

/// A map from an option word of a menu to a flag.
using OptionFlags = QMap<QString, bool>;

namespace controls {

inline const QString kGive = QStringLiteral("give");
inline const QString kUp = QStringLiteral("up");
inline const QString kDown = QStringLiteral("down");
inline const QString kSelect = QStringLiteral("select");
inline const QString kRight = QStringLiteral("right");

/// Whether the word is there and true.
inline bool isSet(const Controls &flags, const QString &word)
{
    return flags.value(word, false);
}

inline void set(QProperty<Controls> &cell, const QString &word, bool flag)
{
    Controls flags = cell.value();
    flags[word] = flag;
    cell = flags;
}

/// Sets a word back and tells whether it had been set, so that no flag is acted on twice.
inline bool take(QProperty<Controls> &cell, const QString &word)
{
    if (!isSet(cell.value(), word))
        return false;
    set(cell, word, false);
    return true;
}

} // namespace controls
