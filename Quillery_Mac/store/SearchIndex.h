// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <limits>
#include <optional>
#include <unordered_map>
#include <unordered_set>

/// The folded texts of objects, and which of them contain the text searched for. Remembers of every
/// object how much of the search text it is known to contain, so that a search text that goes on
/// where the last one ended, or goes back, looks at few texts again. On one thread.
class SearchIndex
{
public:
    /// Starts a search; `text` is folded.
    void setText(const QByteArray &text);
    const QByteArray &text() const { return m_text; }

    /// Whether the object's texts of this revision are here.
    bool contains(qint64 objectId, quint64 revision) const;
    /// Keeps the object's folded texts, in place of those of another revision.
    void insert(qint64 objectId, quint64 revision, QByteArray folded);
    /// Drops the texts of all objects but these.
    void keepOnly(const std::unordered_set<qint64> &objectIds);
    void clear() { m_entries.clear(); }

    /// Whether the object contains the text searched for; none when its texts of this revision are
    /// not here.
    std::optional<bool> matches(qint64 objectId, quint64 revision);

private:
    struct Entry
    {
        quint64 revision = 0;
        QByteArray folded;
        qsizetype foundAt = 0; ///< where the first `foundLength` bytes searched for stand first
        qsizetype foundLength = 0;
        qsizetype missingLength = kNeverMissing; ///< so many bytes of the text are not there
    };

    static constexpr qsizetype kNeverMissing = std::numeric_limits<qsizetype>::max();

    bool look(Entry &entry) const;

    QByteArray m_text;
    std::unordered_map<qint64, Entry> m_entries;
};
