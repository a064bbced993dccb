// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PreparedTexts.h"

#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/Snippet.h"

#include <utility>

namespace {

QByteArray foldedTexts(TextFold &fold, const QString &title, const QByteArray &content)
{
    // UTF-8 never has this byte.
    constexpr char kBorder = '\xFF';
    return fold.folded(title) + kBorder + fold.foldedUtf8(content);
}

} // namespace

QByteArray foldedTexts(TextFold &fold, const Snippet &snippet)
{
    return foldedTexts(fold, snippet.title().value_or(QString()),
                       snippet.content().value_or(QByteArray()));
}

PreparedTexts::PreparedTexts(const QLocale &locale, std::unordered_map<qint64, quint64> revisions)
    : m_locale(locale)
    , m_revisions(std::move(revisions))
{
}

void PreparedTexts::addUnsaved(const Snippet &snippet)
{
    m_unsaved.push_back({snippet.objectId(), snippet.textRevision(),
                         snippet.title().value_or(QString()),
                         snippet.content().value_or(QByteArray())});
}

void PreparedTexts::fold(ManagedObjectContext &context)
{
    // Some milliseconds of folding.
    constexpr std::size_t kBatch = 512;
    TextFold fold(m_locale);
    std::vector<Item> batch;
    for (const auto &[objectId, revision, title, content] : m_unsaved)
        batch.push_back({objectId, revision, foldedTexts(fold, title, content)});
    if (m_revisions.empty())
        return finish(std::move(batch));
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
    finish(std::move(batch));
}

void PreparedTexts::finish(std::vector<Item> batch)
{
    publish(std::move(batch));
    m_isFinished = true;
}

void PreparedTexts::publish(std::vector<Item> batch)
{
    const std::lock_guard locked(m_lock);
    m_batches.push_back(std::move(batch));
}

bool PreparedTexts::isEmpty()
{
    const std::lock_guard locked(m_lock);
    return m_batches.empty();
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
