// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/SearchIndex.h"

#include "Quillery_Mac/store/ByteSearch.h"

#include <algorithm>
#include <utility>

void SearchIndex::setText(const QByteArray &text)
{
    const auto differ = std::mismatch(m_text.begin(), m_text.end(), text.begin(), text.end());
    const qsizetype common = differ.first - m_text.begin();
    m_text = text;
    // What was learned about the part that both texts begin with still holds.
    for (auto &[objectId, entry] : m_entries) {
        if (entry.foundLength > common) {
            entry.foundLength = common;
            entry.foundAt = 0;
        }
        if (entry.missingLength > common)
            entry.missingLength = kNeverMissing;
    }
}

bool SearchIndex::contains(qint64 objectId, quint64 revision) const
{
    const auto found = m_entries.find(objectId);
    return found != m_entries.end() && found->second.revision == revision;
}

void SearchIndex::insert(qint64 objectId, quint64 revision, QByteArray folded)
{
    Entry entry;
    entry.revision = revision;
    entry.folded = std::move(folded);
    m_entries.insert_or_assign(objectId, std::move(entry));
}

void SearchIndex::keepOnly(const std::unordered_set<qint64> &objectIds)
{
    std::erase_if(m_entries,
                  [&objectIds](const auto &entry) { return !objectIds.contains(entry.first); });
}

std::optional<bool> SearchIndex::matches(qint64 objectId, quint64 revision)
{
    const auto found = m_entries.find(objectId);
    if (found == m_entries.end() || found->second.revision != revision)
        return std::nullopt;
    return look(found->second);
}

bool SearchIndex::look(Entry &entry) const
{
    if (entry.foundLength >= m_text.size())
        return true;
    if (entry.missingLength <= m_text.size())
        return false;
    const qsizetype at = findBytes(entry.folded, m_text, entry.foundAt);
    if (at < 0) {
        entry.missingLength = m_text.size();
        return false;
    }
    entry.foundAt = at;
    entry.foundLength = m_text.size();
    return true;
}
