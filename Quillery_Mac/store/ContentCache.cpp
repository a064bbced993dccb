// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ContentCache.h"

namespace {

// All contents together, in bytes.
constexpr qsizetype kMaxBytes = 4 << 20;
// A longer one would push out all others.
constexpr qsizetype kMaxOneContent = 1 << 20;
// Some screens full of rows; a preview is at most 8 KB.
constexpr qsizetype kMaxPreviews = 256;
// What a short entry costs beside its text.
constexpr qsizetype kEntryBytes = 96;

} // namespace

ContentCache::ContentCache()
    : m_contents(kMaxBytes)
    , m_previews(kMaxPreviews)
{
}

std::optional<QByteArray> ContentCache::content(qint64 objectId) const
{
    const QByteArray *held = m_contents.object(objectId);
    return held ? std::optional(*held) : std::nullopt;
}

void ContentCache::setContent(qint64 objectId, const QByteArray &content)
{
    if (content.size() <= kMaxOneContent)
        m_contents.insert(objectId, new QByteArray(content), content.size() + kEntryBytes);
}

std::optional<TextPreview> ContentCache::preview(qint64 objectId) const
{
    const TextPreview *held = m_previews.object(objectId);
    return held ? std::optional(*held) : std::nullopt;
}

void ContentCache::setPreview(qint64 objectId, const TextPreview &preview)
{
    m_previews.insert(objectId, new TextPreview(preview));
}

void ContentCache::remove(qint64 objectId)
{
    m_contents.remove(objectId);
    m_previews.remove(objectId);
}
