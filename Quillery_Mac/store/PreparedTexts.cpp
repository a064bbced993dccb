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

bool PreparedTexts::begin()
{
    const std::lock_guard locked(m_lock);
    if (m_isCancelled)
        return false;
    m_state = State::Folding;
    return true;
}

void PreparedTexts::fold(ManagedObjectContext &context)
{
    if (!begin())
        return;
    TextFold fold(m_locale);
    std::vector<Item> items;
    items.reserve(m_revisions.size());
    for (const Snippet *snippet : context.fetch<Snippet>()) {
        if (m_isCancelled)
            break;
        const auto known = m_revisions.find(snippet->objectId());
        if (known != m_revisions.end())
            items.push_back({snippet->objectId(), known->second, foldedTexts(fold, *snippet)});
    }
    {
        const std::lock_guard locked(m_lock);
        m_items = std::move(items);
        m_state = State::Finished;
    }
    m_finished.notify_all();
}

std::vector<PreparedTexts::Item> PreparedTexts::take()
{
    std::unique_lock locked(m_lock);
    if (m_state == State::Waiting)
        m_isCancelled = true;
    else
        m_finished.wait(locked, [this] { return m_state == State::Finished; });
    return std::exchange(m_items, {});
}
