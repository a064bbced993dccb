// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/TextPreview.h"

#include <QByteArray>
#include <QCache>

#include <optional>

/// The contents and previews that were used last, so that the texts of a whole store never stand in
/// memory. By objectId. One per table of a context, on its thread.
class ContentCache
{
public:
    ContentCache();

    std::optional<QByteArray> content(qint64 objectId) const;
    /// A text too long to be worth it is not kept.
    void setContent(qint64 objectId, const QByteArray &content);

    std::optional<TextPreview> preview(qint64 objectId) const;
    void setPreview(qint64 objectId, const TextPreview &preview);

    void remove(qint64 objectId);

private:
    QCache<qint64, QByteArray> m_contents;
    QCache<qint64, TextPreview> m_previews;
};
