// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/ShownMap.h"
#include "Quillery_Mac/editor/TextHistory.h"

#include <optional>

/// A text that keeps every byte while it is edited through a field that shows it in another form:
/// with one kind of line end, and long lines broken. Knows nothing of widgets. Main thread.
///
/// The bytes are the truth; the shown text follows from them. Whatever changes the bytes answers
/// with what is to be changed in the shown text. Both ways, places and lengths of the shown text
/// are in UTF-16 units.
class ExactText
{
public:
    /// `removed` units at `at` become `inserted`.
    struct Change
    {
        int at;
        int removed;
        QString inserted;
    };

    const QByteArray &utf8() const { return m_utf8; }
    /// The bytes behind a part of the shown text.
    QByteArray utf8(int at, int count) const;

    /// Which byte stands behind a place of the shown text, and the other way round; of a character
    /// its first one.
    qsizetype byteAt(int at) const;
    int atByte(qsizetype byte) const;

    /// The length of the shown text.
    int length() const { return m_map.units(); }
    QString shown() const { return shown(0, length()); }
    QString shown(int at, int count) const;
    /// Whether the line end shown at `at` only breaks a long line.
    bool isBreak(int at) const { return m_map.isBreak(at); }

    /// Starts anew, with no history.
    void setUtf8(const QByteArray &utf8);

    /// Puts bytes in the place of a part.
    Change replace(int at, int removed, const QByteArray &utf8);
    /// The same, where the shown text is changed already: `utf8` must be shown as exactly what
    /// stands there now, with no break.
    void follow(int at, int removed, const QByteArray &utf8);
    /// Somebody else changed the text: only what differs is replaced. None if nothing does.
    std::optional<Change> become(const QByteArray &utf8);
    /// Breaks the long lines of a part anew; the bytes stay.
    Change breakLines(int at, int count);

    TextHistory &history() { return m_history; }
    const TextHistory &history() const { return m_history; }
    std::vector<Change> undo();
    std::vector<Change> redo();

private:
    using Place = ShownMap::Place;

    Change replaceBytes(qsizetype at, qsizetype removed, const QByteArray &utf8);
    Change splice(const Place &from, const Place &to, const QByteArray &utf8,
                  ShownMap::LongLines lines);
    Change put(int at, int removed, const QByteArray &utf8, ShownMap::LongLines lines);

    QByteArray m_utf8;
    ShownMap m_map;
    TextHistory m_history;
};
