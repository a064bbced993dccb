// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PreparedTexts.h"

#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/Snippet.h"

#include <utility>

QByteArray foldedTexts(TextFold &fold, const Snippet &snippet)
{
    // UTF-8 never has this byte.
    constexpr char kBorder = '\xFF';
    return fold.folded(snippet.title().value_or(QString())) + kBorder +
           fold.foldedUtf8(snippet.content().value_or(QByteArray()));
}

PreparedTexts::PreparedTexts(const QLocale &locale, std::unordered_map<qint64, quint64> revisions)
    : m_locale(locale)
    , m_revisions(std::move(revisions))
{
}

void PreparedTexts::fold(ManagedObjectContext &context)
{
    // Some milliseconds of folding.
    constexpr std::size_t kBatch = 512;
    TextFold fold(m_locale);
    std::vector<Item> batch;
    for (const Snippet *snippet : context.fetch<Snippet>()) {
        if (m_isCancelled)
            break;
        const auto known = m_revisions.find(snippet->objectId());
        if (known == m_revisions.end())
            continue;
        batch.push_back({snippet->objectId(), known->second, foldedTexts(fold, *snippet)});
        if (batch.size() == kBatch)
            publish(std::exchange(batch, {}));
    }
    publish(std::move(batch));
    m_isFinished = true;
}

void PreparedTexts::publish(std::vector<Item> batch)
{
    const std::lock_guard locked(m_lock);
    m_batches.push_back(std::move(batch));
}

std::optional<std::vector<PreparedTexts::Item>> PreparedTexts::takeBatch()
{
    const std::lock_guard locked(m_lock);
    if (m_batches.empty())
        return std::nullopt;
    std::vector<Item> batch = std::move(m_batches.front());
    m_batches.pop_front();
    return batch;
}
