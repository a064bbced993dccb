// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/SnippetMatcher.h"

#include "Quillery_Mac/store/PersistentContainer.h"
#include "Quillery_Mac/store/PreparedTexts.h"
#include "Quillery_Mac/store/SearchIndex.h"
#include "Quillery_Mac/store/Snippet.h"

#include <QMetaMethod>
#include <QPointer>

#include <limits>
#include <utility>

namespace {

// Leaves the main thread time for everything else between two runs of a search.
constexpr std::chrono::milliseconds kPause{10};

// Of 512 texts each.
constexpr int kBatchesPerSearch = 16;

// Some 5 ms of folding: 33 MB in texts of 1 KB took 600 ms (bench/StoreBench.cpp).
constexpr qsizetype kLongContent = 256 << 10;

} // namespace

SnippetMatcher::SnippetMatcher(const QLocale &locale)
    : m_locale(locale)
    , m_fold(locale)
    , m_index(std::make_unique<SearchIndex>())
{
    m_again.setSingleShot(true);
    m_again.setInterval(kPause);
    connect(&m_again, &QTimer::timeout, this, &SnippetMatcher::moreAnswers);
}

SnippetMatcher::~SnippetMatcher()
{
    release();
}

void SnippetMatcher::prepare(PersistentContainer &container)
{
    m_container = &container;
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
    container.performBackgroundReading(
        [prepared = m_prepared](ManagedObjectContext &context) { prepared->fold(context); }, [] {});
}

void SnippetMatcher::setSearchText(const QString &text)
{
    m_isSearching = !text.isEmpty();
    m_isComplete = true;
    m_foldingSince.invalidate();
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
    if (!mayFold()) {
        m_isComplete = false;
        m_again.start();
        return false;
    }
    if (isTooLongToFoldHere(snippet)) {
        m_isComplete = false;
        foldElsewhere(snippet);
        return false;
    }
    m_index->insert(objectId, revision, foldedTexts(m_fold, snippet));
    return m_index->matches(objectId, revision).value_or(false);
}

bool SnippetMatcher::isListenedTo() const
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&SnippetMatcher::moreAnswers);
    return isSignalConnected(signal);
}

bool SnippetMatcher::mayFold()
{
    if (!m_foldingSince.isValid()) {
        m_foldingSince.start();
        return true;
    }
    return m_foldingSince.elapsed() < m_foldingTime.count() || !isListenedTo();
}

bool SnippetMatcher::isTooLongToFoldHere(const Snippet &snippet) const
{
    return m_container && isListenedTo() && snippet.contentSize() > kLongContent;
}

void SnippetMatcher::foldElsewhere(const Snippet &snippet)
{
    // What is being prepared comes first; it may hold this text.
    if (m_prepared) {
        m_again.start();
        return;
    }
    const qint64 objectId = snippet.objectId();
    const quint64 revision = snippet.textRevision();
    if (std::exchange(m_foldingElsewhere[objectId], revision) == revision)
        return;
    std::unordered_map<qint64, quint64> saved;
    if (!snippet.hasChanges())
        saved.emplace(objectId, revision);
    const auto texts = std::make_shared<PreparedTexts>(m_locale, std::move(saved));
    if (snippet.hasChanges())
        texts->addUnsaved(snippet);
    m_container->performBackgroundReading(
        [texts](ManagedObjectContext &context) { texts->fold(context); },
        [self = QPointer(this), texts, objectId] {
            // Released meanwhile.
            if (!self || self->m_foldingElsewhere.erase(objectId) == 0)
                return;
            self->adopt(*texts, 1);
            self->m_again.start();
        });
}

void SnippetMatcher::release()
{
    m_again.stop();
    if (m_prepared)
        m_prepared->cancel();
    m_prepared.reset();
    m_foldingElsewhere.clear();
    m_index->clear();
}

void SnippetMatcher::adoptPrepared()
{
    if (!m_prepared)
        return;
    const bool isFinished = m_prepared->isFinished();
    adopt(*m_prepared, isListenedTo() ? kBatchesPerSearch : std::numeric_limits<int>::max());
    if (isFinished && m_prepared->isEmpty())
        m_prepared.reset();
}

void SnippetMatcher::adopt(PreparedTexts &texts, int maxBatches)
{
    for (int taken = 0; taken < maxBatches; ++taken) {
        auto batch = texts.takeBatch();
        if (!batch)
            return;
        for (PreparedTexts::Item &item : *batch) {
            if (!m_index->contains(item.objectId, item.revision))
                m_index->insert(item.objectId, item.revision, std::move(item.folded));
        }
    }
}
