// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/SnippetMatcher.h"

#include "Quillery_Mac/store/PersistentContainer.h"
#include "Quillery_Mac/store/PreparedTexts.h"
#include "Quillery_Mac/store/SearchIndex.h"
#include "Quillery_Mac/store/Snippet.h"

#include <utility>

SnippetMatcher::SnippetMatcher(const QLocale &locale)
    : m_locale(locale)
    , m_fold(locale)
    , m_index(std::make_unique<SearchIndex>())
{
}

SnippetMatcher::~SnippetMatcher()
{
    release();
}

void SnippetMatcher::prepare(PersistentContainer &container)
{
    if (m_prepared)
        return;
    std::unordered_map<qint64, quint64> missing;
    std::unordered_set<qint64> present;
    for (const Snippet *snippet : container.viewContext().fetch<Snippet>()) {
        present.insert(snippet->objectId());
        if (!snippet->hasChanges() &&
            !m_index->contains(snippet->objectId(), snippet->textRevision()))
            missing.emplace(snippet->objectId(), snippet->textRevision());
    }
    m_index->keepOnly(present);
    if (missing.empty())
        return;
    m_prepared = std::make_shared<PreparedTexts>(m_locale, std::move(missing));
    container.performBackgroundTask(
        [prepared = m_prepared](ManagedObjectContext &context) { prepared->fold(context); });
}

void SnippetMatcher::setSearchText(const QString &text)
{
    m_isSearching = !text.isEmpty();
    m_index->setText(m_fold.folded(text));
    if (m_isSearching)
        adoptPrepared();
}

bool SnippetMatcher::matches(const Snippet &snippet)
{
    if (!m_isSearching)
        return true;
    const qint64 objectId = snippet.objectId();
    const quint64 revision = snippet.textRevision();
    if (const auto known = m_index->matches(objectId, revision))
        return *known;
    m_index->insert(objectId, revision, foldedTexts(m_fold, snippet));
    return m_index->matches(objectId, revision).value_or(false);
}

void SnippetMatcher::release()
{
    if (m_prepared)
        m_prepared->cancel();
    m_prepared.reset();
    m_index->clear();
}

void SnippetMatcher::adoptPrepared()
{
    if (!m_prepared)
        return;
    for (PreparedTexts::Item &item : std::exchange(m_prepared, nullptr)->take())
        m_index->insert(item.objectId, item.revision, std::move(item.folded));
}
